#pragma once

#include "host/db/tag_list.h"

#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace host {

class Drawing;

// All that a change of one object can change. States share their tags, so keeping one costs a
// pointer.
struct ObjectState {
    std::shared_ptr<const TagList> tags; // null: as in the image
    std::uint32_t owner = 0;
    std::uint32_t layer = 0;
    std::uint16_t flags = 0;
};

// The journal of one drawing: one group for each command, of objects with their state before.
// Undoing a creation leaves the stub and its handle, erased and marked as never there; redoing
// clears the mark. What a group created and erased again never was.
class UndoLog {
public:
    // Groups nest: only the outermost begin and end count.
    void beginGroup(std::wstring name);
    void endGroup(Drawing& drawing);
    bool groupOpen() const { return depth_ > 0; }

    // Takes the state before a change, once for each object and group. Without an open group
    // nothing is kept.
    void willChange(Drawing& drawing, std::uint32_t stub);
    // A new object: its state before is that of a thing that never was.
    void created(Drawing& drawing, std::uint32_t stub);

    // Puts the open group's objects back to where they were at its start, and drops what was kept
    // since.
    void rollBack(Drawing& drawing);

    std::size_t undoable() const { return undo_.size(); }
    std::size_t redoable() const { return redo_.size(); }
    // The name of the group taken back or done again; empty when there is none.
    std::wstring undo(Drawing& drawing);
    std::wstring redo(Drawing& drawing);
    const std::wstring& nextUndoName() const; // empty when there is none
    void clear();

private:
    struct Change {
        std::uint32_t stub = 0;
        ObjectState before;
    };
    struct Group {
        std::wstring name;
        std::vector<Change> changes;
    };

    static void swapState(Drawing& drawing, Change& change);
    static void swapStates(Drawing& drawing, Group& group, bool backward);

    std::deque<Group> undo_;
    std::deque<Group> redo_;
    Group open_;
    int depth_ = 0;
    std::unordered_set<std::uint32_t> taken_; // stubs of the open group
};

} // namespace host
