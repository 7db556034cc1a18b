#include "host/geom/polyline.h"

#include <algorithm>
#include <cassert>
#include <limits>

namespace host {

double polylineLength(std::span<const AcGePoint3d> points, bool closed)
{
    double length = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i)
        length += points[i - 1].distanceTo(points[i]);
    if (closed && !points.empty())
        length += points.back().distanceTo(points.front());
    return length;
}

AcGePoint3d closestOnSegment(const AcGePoint3d& from, const AcGePoint3d& to,
                             const AcGePoint3d& point)
{
    const AcGeVector3d along = to - from;
    const double squared = along.lengthSqrd();
    if (squared <= 0.0)
        return from;
    const double t = std::clamp((point - from).dotProduct(along) / squared, 0.0, 1.0);
    return t == 1.0 ? to : interpolated(from, to, t);
}

AcGePoint3d closestOnPolyline(std::span<const AcGePoint3d> points, bool closed,
                              const AcGePoint3d& point)
{
    assert(!points.empty());
    AcGePoint3d best = points.front();
    double bestDistance = best.distanceTo(point);
    const auto consider = [&](const AcGePoint3d& from, const AcGePoint3d& to) {
        const AcGePoint3d nearest = closestOnSegment(from, to, point);
        const double distance = nearest.distanceTo(point);
        if (distance < bestDistance) {
            best = nearest;
            bestDistance = distance;
        }
    };
    for (std::size_t i = 1; i < points.size(); ++i)
        consider(points[i - 1], points[i]);
    if (closed)
        consider(points.back(), points.front());
    return best;
}

double signedArea(std::span<const AcGePoint3d> outline)
{
    // Measured from the first point: large survey coordinates would eat the digits of a small area.
    double twice = 0.0;
    for (std::size_t i = 2; i < outline.size(); ++i) {
        const AcGeVector3d a = outline[i - 1] - outline[0];
        const AcGeVector3d b = outline[i] - outline[0];
        twice += a.x * b.y - a.y * b.x;
    }
    return twice / 2.0;
}

} // namespace host
