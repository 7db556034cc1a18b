#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace host {

class Drawing;

// Steps of U and REDO: the groups of a drawing's journal, where those of one script or text count
// as one. A group inside such a step can still be taken back on its own while the step lasts.
class UndoSteps {
public:
    // Begins and ends nest; the outermost pair counts.
    void begin();
    void end();

    // After each group that was closed, with the number of groups before it.
    void groupClosed(Drawing& drawing, std::size_t groupsBefore);

    // Takes back, or does again, one step: the name of its first group; empty when there is none.
    std::wstring undo(Drawing& drawing);
    std::wstring redo(Drawing& drawing);

private:
    struct Groups {
        std::vector<bool> joined; // to the group before it, by place in the journal
        std::size_t base = 0;     // groups before the open step
        int step = 0;             // the step that `base` belongs to
    };

    std::map<std::uint32_t, Groups> drawings_; // by database number
    int depth_ = 0;
    int step_ = 0;
};

} // namespace host
