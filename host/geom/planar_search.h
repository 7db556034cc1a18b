#pragma once

#include "host/geom/planar_faces.h"

namespace host {

// The face around a point as PlanarFaces::around tells it, looked for in a window about the point
// that grows until it holds the face: what lies far away, or has no end, costs no digits there.
std::vector<PlanarLoop> loopsAround(std::span<const PlanarCurve> curves, AcGePoint2d point);

} // namespace host
