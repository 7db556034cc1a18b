#pragma once

#include "host/geom/matrix.h"
#include "host/geom/stroke_sink.h"

#include <span>
#include <vector>

namespace host {

// A vertex of a flat polyline in the coordinates of its plane. The bulge and the widths belong to
// the segment that begins here; the bulge is the tangent of a quarter of the arc's angle.
struct BulgeVertex {
    AcGePoint2d point;
    double bulge = 0.0;
    double startWidth = 0.0;
    double endWidth = 0.0;
    bool ownWidths = false; // the file states widths for this vertex
};

// Draws straight runs as one polyline each and arcs as arcs. `plane` takes the plane's coordinates
// to the world.
void strokeBulgePath(StrokeSink& sink, std::span<const BulgeVertex> vertices, bool closed,
                     double elevation, const AcGeMatrix3d& plane);

// The same as one outline of points; arcs are sampled by the tolerance (see Arc3d::sampled).
Outline outlineOfBulgePath(std::span<const BulgeVertex> vertices, bool closed, double elevation,
                           const AcGeMatrix3d& plane, double chordTolerance);

} // namespace host
