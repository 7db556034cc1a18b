#include "host/db/undo_log.h"

#include "host/db/drawing.h"

#include <algorithm>

namespace host {

void UndoLog::beginGroup(std::wstring name)
{
    if (depth_++ == 0)
        open_ = Group{std::move(name), {}};
}

void UndoLog::endGroup(Drawing& drawing)
{
    if (depth_ == 0 || --depth_ > 0)
        return;
    taken_ = {};
    std::erase_if(open_.changes, [&](Change& change) {
        const bool passing = (change.before.flags & kNeverWas) != 0 &&
                             (drawing.index[change.stub].flags & kErased) != 0;
        if (passing)
            swapState(drawing, change);
        return passing;
    });
    if (open_.changes.empty())
        return; // a command that changed nothing is no step
    undo_.push_back(std::move(open_));
    open_ = {};
    redo_.clear();
}

void UndoLog::willChange(Drawing& drawing, std::uint32_t stub)
{
    if (depth_ > 0 && taken_.insert(stub).second)
        open_.changes.push_back({stub, drawing.state(stub)});
}

void UndoLog::created(Drawing& drawing, std::uint32_t stub)
{
    if (depth_ == 0 || !taken_.insert(stub).second)
        return;
    ObjectState before = drawing.state(stub);
    before.flags |= kErased | kNeverWas;
    open_.changes.push_back({stub, std::move(before)});
}

void UndoLog::swapState(Drawing& drawing, Change& change)
{
    ObjectState now = drawing.state(change.stub);
    // a creation keeps its contents while it is away
    if ((change.before.flags & kNeverWas) != 0 && !change.before.tags)
        change.before.tags = now.tags;
    drawing.restore(change.stub, change.before);
    change.before = std::move(now);
}

void UndoLog::swapStates(Drawing& drawing, Group& group, bool backward)
{
    const auto swapOne = [&](Change& change) { swapState(drawing, change); };
    if (backward)
        std::for_each(group.changes.rbegin(), group.changes.rend(), swapOne);
    else
        std::for_each(group.changes.begin(), group.changes.end(), swapOne);
}

void UndoLog::rollBack(Drawing& drawing)
{
    if (depth_ == 0)
        return;
    swapStates(drawing, open_, true);
    open_.changes.clear();
    taken_ = {};
}

std::wstring UndoLog::undo(Drawing& drawing)
{
    if (undo_.empty())
        return {};
    Group group = std::move(undo_.back());
    undo_.pop_back();
    swapStates(drawing, group, true);
    redo_.push_back(std::move(group));
    return redo_.back().name;
}

std::wstring UndoLog::redo(Drawing& drawing)
{
    if (redo_.empty())
        return {};
    Group group = std::move(redo_.back());
    redo_.pop_back();
    swapStates(drawing, group, false);
    undo_.push_back(std::move(group));
    return undo_.back().name;
}

const std::wstring& UndoLog::nextUndoName() const
{
    static const std::wstring none;
    return undo_.empty() ? none : undo_.back().name;
}

void UndoLog::clear()
{
    undo_.clear();
    redo_.clear();
    open_ = {};
    taken_ = {};
}

} // namespace host
