#include "host/geom/planar_search.h"

#include "host/geom/polyline.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace host {

namespace {

using Box = PlanarCurve::Box;

constexpr double kGrowth = 8.0;
constexpr double kMargin = 1.5; // around the window, where the cut ends of curves lie

Box squareAbout(AcGePoint2d p, double half)
{
    return {{p.x - half, p.y - half}, {p.x + half, p.y + half}};
}

bool holds(const Box& box, AcGePoint2d p)
{
    return box.least.x <= p.x && p.x <= box.most.x && box.least.y <= p.y && p.y <= box.most.y;
}

bool holds(const Box& box, const Box& inner)
{
    return holds(box, inner.least) && holds(box, inner.most);
}

bool holds(const Box& box, const PlanarLoop& loop)
{
    return std::all_of(loop.curves.begin(), loop.curves.end(),
                       [&](const PlanarCurve& curve) { return holds(box, curve.box()); });
}

bool overlap(const Box& a, const Box& b)
{
    return a.least.x <= b.most.x && b.least.x <= a.most.x && a.least.y <= b.most.y &&
           b.least.y <= a.most.y;
}

// Not more than the distance from the curve: an arc counts as its circle.
double leastDistance(const PlanarCurve& curve, AcGePoint2d p)
{
    if (curve.isArc())
        return std::abs(p.distanceTo(curve.centre) - curve.radius);
    const AcGePoint3d place(p, 0.0);
    return closestOnSegment({curve.from, 0.0}, {curve.to, 0.0}, place).distanceTo(place);
}

// A far end as the first one would cost the digits of what is near.
void addPartsWithin(const PlanarCurve& curve, const Box& box, std::vector<PlanarCurve>& parts)
{
    const AcGePoint2d middle = interpolated(box.least, box.most, 0.5);
    const bool turn = curve.to.distanceTo(middle) < curve.from.distanceTo(middle);
    const PlanarCurve run = turn ? curve.reversed() : curve;
    const double tolerance = 1e-6 * (box.most.x - box.least.x);
    const AcGePoint2d corners[] = {
        box.least, {box.most.x, box.least.y}, box.most, {box.least.x, box.most.y}};
    std::vector<double> cuts{0.0, 1.0};
    for (int i = 0; i < 4; ++i)
        meetings(run, PlanarCurve::segment(corners[i], corners[(i + 1) % 4]), tolerance, cuts);
    std::sort(cuts.begin(), cuts.end());
    for (std::size_t i = 1; i < cuts.size(); ++i)
        if (cuts[i] > cuts[i - 1] && holds(box, run.at(0.5 * (cuts[i - 1] + cuts[i]))))
            parts.push_back(run.part(cuts[i - 1], cuts[i]));
}

} // namespace

std::vector<PlanarLoop> loopsAround(std::span<const PlanarCurve> curves, AcGePoint2d point)
{
    std::vector<Box> boxes;
    double nearest = std::numeric_limits<double>::infinity();
    for (const PlanarCurve& curve : curves) {
        boxes.push_back(curve.box());
        nearest = std::min(nearest, leastDistance(curve, point));
    }
    if (!std::isfinite(nearest))
        return {};
    const double finest = 1e-9 * std::max({1.0, std::abs(point.x), std::abs(point.y)});
    std::size_t whole = 0; // curves that the last window held
    for (double half = std::max(nearest, finest);;) {
        half *= kGrowth;
        const Box window = squareAbout(point, half);
        const Box reach = squareAbout(point, kMargin * half);
        std::vector<PlanarCurve> parts;
        std::vector<PlanarCurve> near;
        for (std::size_t i = 0; i < curves.size(); ++i) {
            if (holds(reach, boxes[i]))
                near.push_back(curves[i]);
            else if (overlap(reach, boxes[i]))
                addPartsWithin(curves[i], reach, parts);
        }
        const bool isAll = near.size() == curves.size();
        if (near.size() == whole && parts.empty() && !isAll)
            continue;
        whole = near.size();
        near.insert(near.end(), parts.begin(), parts.end());
        std::vector<PlanarLoop> loops = PlanarFaces(near).around(point);
        if (isAll || (!loops.empty() && holds(window, loops.front())))
            return loops;
    }
}

} // namespace host
