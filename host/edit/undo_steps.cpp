#include "host/edit/undo_steps.h"

#include "host/db/drawing.h"

#include <algorithm>

namespace host {

void UndoSteps::begin()
{
    if (depth_++ == 0)
        ++step_;
}

void UndoSteps::end()
{
    if (depth_ > 0)
        --depth_;
}

void UndoSteps::groupClosed(Drawing& drawing, std::size_t groupsBefore)
{
    const std::size_t count = drawing.undo.undoable();
    if (count <= groupsBefore)
        return; // nothing was changed
    Groups& groups = drawings_[drawing.number];
    if (groups.step != step_) {
        groups.step = step_;
        groups.base = groupsBefore;
    }
    groups.base = std::min(groups.base, groupsBefore);
    groups.joined.resize(count, false);
    groups.joined[count - 1] = depth_ > 0 && groupsBefore > groups.base;
}

std::wstring UndoSteps::undo(Drawing& drawing)
{
    Groups& groups = drawings_[drawing.number];
    groups.joined.resize(std::max(groups.joined.size(), drawing.undo.undoable()), false);
    const bool single = depth_ > 0 && groups.step == step_;
    std::wstring name;
    while (drawing.undo.undoable() > 0) {
        name = drawing.undo.undo(drawing);
        if (single || !groups.joined[drawing.undo.undoable()])
            break;
    }
    return name;
}

std::wstring UndoSteps::redo(Drawing& drawing)
{
    Groups& groups = drawings_[drawing.number];
    groups.joined.resize(
        std::max(groups.joined.size(), drawing.undo.undoable() + drawing.undo.redoable()), false);
    if (drawing.undo.redoable() == 0)
        return {};
    std::wstring name = drawing.undo.redo(drawing);
    while (drawing.undo.redoable() > 0 && groups.joined[drawing.undo.undoable()])
        drawing.undo.redo(drawing);
    return name;
}

} // namespace host
