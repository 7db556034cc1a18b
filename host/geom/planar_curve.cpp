#include "host/geom/planar_curve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kTurn = 2.0 * kPi;

AcGePoint2d onCircle(AcGePoint2d centre, double radius, double angle)
{
    return centre + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius;
}

double counterClockwise(double from, double to)
{
    const double turn = std::fmod(to - from, kTurn);
    return turn < 0.0 ? turn + kTurn : turn;
}

void lineCrossings(const PlanarCurve& a, const PlanarCurve& b, std::vector<AcGePoint2d>& places)
{
    const AcGeVector2d u = a.to - a.from;
    const AcGeVector2d v = b.to - b.from;
    const double area = u.crossProduct(v);
    if (std::abs(area) > 1e-14 * u.length() * v.length())
        places.push_back(a.from + u * ((b.from - a.from).crossProduct(v) / area));
}

// A line that misses the circle by less than the tolerance touches it.
void lineAndCircle(const PlanarCurve& line, const PlanarCurve& arc, double tolerance,
                   std::vector<AcGePoint2d>& places)
{
    const AcGeVector2d along = (line.to - line.from).normal();
    const AcGePoint2d foot = line.from + along * (arc.centre - line.from).dotProduct(along);
    const double distance = foot.distanceTo(arc.centre);
    if (distance > arc.radius + tolerance)
        return;
    const double square = arc.radius * arc.radius - distance * distance;
    const double half = square > 0.0 ? std::sqrt(square) : 0.0;
    places.push_back(foot + along * half);
    places.push_back(foot - along * half);
}

void circleCrossings(const PlanarCurve& a, const PlanarCurve& b, double tolerance,
                     std::vector<AcGePoint2d>& places)
{
    const AcGeVector2d apart = b.centre - a.centre;
    const double distance = apart.length();
    if (distance <= tolerance || distance > a.radius + b.radius + tolerance ||
        distance < std::abs(a.radius - b.radius) - tolerance)
        return;
    const double along =
        (distance * distance + a.radius * a.radius - b.radius * b.radius) / (2.0 * distance);
    const double square = a.radius * a.radius - along * along;
    const double across = square > 0.0 ? std::sqrt(square) : 0.0;
    const AcGeVector2d unit = apart / distance;
    places.push_back(a.centre + unit * along + unit.perpVector() * across);
    places.push_back(a.centre + unit * along - unit.perpVector() * across);
}

} // namespace

PlanarCurve PlanarCurve::segment(AcGePoint2d from, AcGePoint2d to)
{
    PlanarCurve curve;
    curve.from = from;
    curve.to = to;
    return curve;
}

PlanarCurve PlanarCurve::arc(AcGePoint2d centre, double radius, double start, double sweep)
{
    PlanarCurve curve =
        segment(onCircle(centre, radius, start), onCircle(centre, radius, start + sweep));
    curve.centre = centre;
    curve.radius = radius;
    curve.start = start;
    curve.sweep = sweep;
    return curve;
}

AcGePoint2d PlanarCurve::at(double t) const
{
    if (t == 0.0 || t == 1.0)
        return t == 0.0 ? from : to;
    return isArc() ? onCircle(centre, radius, start + t * sweep) : interpolated(from, to, t);
}

double PlanarCurve::direction(double t) const
{
    if (!isArc())
        return (to - from).angle();
    return start + t * sweep + (sweep < 0.0 ? -0.5 : 0.5) * kPi;
}

double PlanarCurve::curvature() const
{
    return !isArc() ? 0.0 : sweep < 0.0 ? -1.0 / radius : 1.0 / radius;
}

double PlanarCurve::length() const
{
    return isArc() ? radius * std::abs(sweep) : from.distanceTo(to);
}

PlanarCurve PlanarCurve::part(double t0, double t1) const
{
    PlanarCurve piece = *this;
    piece.from = at(t0);
    piece.to = at(t1);
    piece.start = start + t0 * sweep;
    piece.sweep = (t1 - t0) * sweep;
    return piece;
}

std::optional<double> PlanarCurve::parameterOf(AcGePoint2d p, double tolerance) const
{
    if (p.distanceTo(from) <= tolerance)
        return 0.0;
    if (p.distanceTo(to) <= tolerance)
        return 1.0;
    double t = 0.0;
    if (isArc()) {
        const double angle = (p - centre).angle();
        t = (sweep < 0.0 ? counterClockwise(angle, start) : counterClockwise(start, angle)) /
            std::abs(sweep);
    } else {
        const AcGeVector2d along = to - from;
        t = (p - from).dotProduct(along) / along.lengthSqrd();
    }
    return t > 0.0 && t < 1.0 && p.distanceTo(at(t)) <= tolerance ? std::optional(t) : std::nullopt;
}

double PlanarCurve::doubleArea(AcGePoint2d origin) const
{
    const double chord = (from - origin).crossProduct(to - origin);
    return isArc() ? chord + radius * radius * (sweep - std::sin(sweep)) : chord;
}

int PlanarCurve::crossings(AcGePoint2d p) const
{
    // a piece that rises or falls throughout crosses the ray's line once: half open upwards, so
    // that a corner counts once
    const auto crossing = [&](AcGePoint2d a, AcGePoint2d b, auto xThere) {
        if ((a.y <= p.y) == (b.y <= p.y))
            return 0;
        return xThere() > p.x ? (b.y > a.y ? 1 : -1) : 0;
    };
    if (!isArc())
        return crossing(
            from, to, [&] { return from.x + (to.x - from.x) * (p.y - from.y) / (to.y - from.y); });
    const bool forward = sweep > 0.0;
    const double first = forward ? start : start + sweep;
    const double last = forward ? start + sweep : start;
    int count = 0;
    double begin = first;
    AcGePoint2d a = forward ? from : to;
    while (begin < last) {
        const double turn = (std::floor((begin - 0.5 * kPi) / kPi + 1e-12) + 1.0) * kPi + 0.5 * kPi;
        const double end = std::min(turn, last);
        const AcGePoint2d b = end == last ? (forward ? to : from) : onCircle(centre, radius, end);
        count += crossing(a, b, [&] {
            const double height = p.y - centre.y;
            const double half = std::sqrt(std::max(radius * radius - height * height, 0.0));
            return centre.x + (std::cos(0.5 * (begin + end)) < 0.0 ? -half : half);
        });
        begin = end;
        a = b;
    }
    return forward ? count : -count;
}

PlanarCurve::Box PlanarCurve::box() const
{
    Box box{{std::min(from.x, to.x), std::min(from.y, to.y)},
            {std::max(from.x, to.x), std::max(from.y, to.y)}};
    const double first = std::min(start, start + sweep);
    for (double quarter = std::ceil(first / (0.5 * kPi)) * 0.5 * kPi;
         isArc() && quarter < first + std::abs(sweep); quarter += 0.5 * kPi) {
        const AcGePoint2d p = onCircle(centre, radius, quarter);
        box.least = {std::min(box.least.x, p.x), std::min(box.least.y, p.y)};
        box.most = {std::max(box.most.x, p.x), std::max(box.most.y, p.y)};
    }
    return box;
}

void meetings(const PlanarCurve& curve, const PlanarCurve& other, double tolerance,
              std::vector<double>& parameters)
{
    std::vector<AcGePoint2d> places{other.from, other.to};
    if (!curve.isArc() && !other.isArc())
        lineCrossings(curve, other, places);
    else if (curve.isArc() && other.isArc())
        circleCrossings(curve, other, tolerance, places);
    else
        lineAndCircle(curve.isArc() ? other : curve, curve.isArc() ? curve : other, tolerance,
                      places);
    for (const AcGePoint2d place : places)
        if (other.parameterOf(place, tolerance))
            if (const std::optional<double> t = curve.parameterOf(place, tolerance))
                parameters.push_back(*t);
}

void PlanarSink::add(PlanarCurve curve, double elevation)
{
    const double reach = curve.from.asVector().lengthSqrd() + curve.to.asVector().lengthSqrd() +
                         curve.radius * curve.radius;
    if (!std::isfinite(8.0 * reach))
        return; // farther than numbers reach
    curve.source = source_;
    curves_.push_back(curve);
    if (!elevation_)
        elevation_ = elevation;
}

void PlanarSink::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    const std::size_t count = points.size() - (closed || points.empty() ? 0 : 1);
    for (std::size_t i = 0; i < count; ++i) {
        const AcGePoint3d& to = points[(i + 1) % points.size()];
        if (!points[i].convert2d().isEqualTo(to.convert2d()))
            add(PlanarCurve::segment(points[i].convert2d(), to.convert2d()), points[i].z);
    }
}

void PlanarSink::arc(const Arc3d& arc)
{
    const bool level = std::abs(arc.cosAxis.z) + std::abs(arc.sinAxis.z) <= 1e-9 * arc.radius();
    if (!arc.isCircular() || !level || arc.radius() == 0.0)
        return StrokeSink::arc(arc);
    const double side = arc.normal().z < 0.0 ? -1.0 : 1.0;
    const double zero = arc.cosAxis.convert2d().angle();
    const AcGePoint2d centre = arc.centre.convert2d();
    const double start = zero + side * arc.start;
    if (!arc.isClosed())
        return add(PlanarCurve::arc(centre, arc.radius(), start, side * arc.sweep()), arc.centre.z);
    for (const double half : {0.0, kPi})
        add(PlanarCurve::arc(centre, arc.radius(), zero + half, kPi), arc.centre.z);
}

void PlanarSink::textBox(const TextBox& box)
{
    TextOutline outline{{}, source_};
    for (const AcGePoint3d& corner : box.outline())
        outline.corners.push_back(corner.convert2d());
    texts_.push_back(std::move(outline));
}

} // namespace host
