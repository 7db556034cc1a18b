#pragma once

#include "host/db/bulge_path.h"
#include "host/db/object_id.h"
#include "host/db/tag_view.h"

#include <variant>
#include <vector>

namespace host {

// Edges of a hatch boundary, in the plane of the hatch. Angles are radians along the edge's own
// direction, as the file counts them: of a clockwise one they run backwards from the x axis.
struct HatchLine {
    AcGePoint2d from;
    AcGePoint2d to;
};
struct HatchArc { // of an ellipse; a circle has a ratio of 1
    AcGePoint2d centre;
    AcGeVector2d majorAxis;
    double ratio = 1.0;
    double start = 0.0;
    double end = 0.0;
    bool counterClockwise = true;
    bool elliptical = false; // stated as an ellipse
};
struct HatchSpline {
    int degree = 3;
    bool rational = false;
    bool periodic = false;
    std::vector<double> knots;
    std::vector<AcGePoint2d> points;
    std::vector<double> weights;
};
using HatchEdge = std::variant<HatchLine, HatchArc, HatchSpline>;

// One boundary path: a polyline or a chain of edges, and the entities it was taken from.
struct HatchLoop {
    int type = 0; // 1 external, 2 polyline, 4 derived, 8 textbox, 16 outermost
    bool closed = true;
    std::vector<BulgeVertex> polyline;
    std::vector<HatchEdge> edges;
    std::vector<std::uint64_t> sources; // handles

    bool isPolyline() const { return (type & 2) != 0; }
    Outline outline(const AcGeMatrix3d& plane, double elevation, double chordTolerance) const;
};

// The paths that stand in the range, which begins behind the count (91) and ends with the last
// path. Paths that are cut short keep what there is.
std::vector<HatchLoop> readHatchLoops(const TagList& tags, TagRange range);

// Maps the paths in place; sources and numbers stay.
class PlaneMap;
void mapHatchLoops(TagWriter& object, TagRange range, const PlaneMap& map);

// Inserts the paths from `at` on; answers the place behind them.
std::size_t writeHatchLoops(TagList& tags, std::size_t at, std::span<const HatchLoop> loops);

} // namespace host
