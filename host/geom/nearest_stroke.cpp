#include "host/geom/nearest_stroke.h"

#include "host/geom/polyline.h"

namespace host {

bool NearestStrokeSink::isNearer(const AcGePoint3d& at)
{
    const double distance = at.distanceTo(place_);
    if (!(distance < distance_))
        return false;
    distance_ = distance;
    return true;
}

void NearestStrokeSink::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    const std::size_t count = points.size() - (closed || points.empty() ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        const Segment3d segment{points[i], points[(i + 1) % points.size()]};
        if (!segment.from.isEqualTo(segment.to) &&
            isNearer(closestOnSegment(segment.from, segment.to, place_)))
            nearest_ = segment;
    }
}

void NearestStrokeSink::arc(const Arc3d& arc)
{
    if (arc.isCircular() && isNearer(arc.closestPoint(place_)))
        nearest_ = arc;
}

} // namespace host
