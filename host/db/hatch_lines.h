#pragma once

#include "host/geom/matrix.h"
#include "host/geom/stroke_sink.h"

#include <span>
#include <vector>

namespace host {

// One family of parallel lines of a pattern. In a definition the offset leads from one line to the
// next along the line and across it, at scale 1 and angle 0; as a hatch keeps it, along the axes of
// its plane, scaled and turned. Dashes above zero are drawn, below zero left out, zero is a dot;
// none at all is a line without gaps.
struct PatternLine {
    double angle = 0.0; // radians
    AcGePoint2d base;
    AcGeVector2d offset;
    std::vector<double> dashes;
};

// Draws a pattern, as a hatch keeps it, inside outlines in the world (even-odd). A pattern that is
// too dense to be told from a fill, and one without lines, shows its outlines instead, as closed
// polylines.
void strokePattern(StrokeSink& sink, std::span<const PatternLine> lines,
                   std::span<const Outline> outlines, const AcGeMatrix3d& plane);

} // namespace host
