#pragma once

#include "host/commands/drawing/drawing_prompts.h"

#include <vector>

namespace host {

// The points of a path, asked for one after the other as several commands do: Undo takes the last
// one back, Close is offered from the third point on.
struct VertexPath {
    enum class End { enter, closed, cancelled };

    std::vector<AcGePoint3d> points;
    End end = End::cancelled;

    bool isClosed() const { return end == End::closed; }
};

struct PathPrompts {
    std::wstring next = L"Specify next point"; // without the options
    bool undoAtFirst = true;                   // offered before there is a segment
};

// Goes on until Enter, Close or Escape; the path keeps at least its first point.
VertexPath askPath(const AcGePoint3d& first, const PathPrompts& prompts = {});

} // namespace host
