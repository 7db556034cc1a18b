#pragma once

#include <span>

#include "host/geom/extents.h"

namespace host {

// Chains of straight segments: what a curve becomes when it is sampled. `closed` adds the segment
// from the last to the first.
double polylineLength(std::span<const AcGePoint3d> points, bool closed);
AcGePoint3d closestOnSegment(const AcGePoint3d& from, const AcGePoint3d& to,
                             const AcGePoint3d& point);
AcGePoint3d closestOnPolyline(std::span<const AcGePoint3d> points, bool closed,
                              const AcGePoint3d& point); // not empty

// In the xy plane; positive when the outline runs counter-clockwise.
double signedArea(std::span<const AcGePoint3d> outline);

} // namespace host
