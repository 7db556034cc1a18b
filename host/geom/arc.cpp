#include "host/geom/arc.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "host/geom/curve_search.h"

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kParameterTolerance = 1e-12;
constexpr double kStraightBulge = 1e-9; // the arc leaves its chord by less than a billionth of it
constexpr int kMostSegments = 20000;

// What is left of an angle above whole turns, 0 to a turn.
double reduced(double angle)
{
    const double rest = std::fmod(angle, kTurn);
    return rest < 0.0 ? rest + kTurn : rest;
}

void setRange(Arc3d& arc, double start, double end)
{
    if (!std::isfinite(start) || !std::isfinite(end)) {
        start = 0.0;
        end = 0.0;
    }
    arc.start = reduced(start);
    const double sweep = reduced(end - start);
    arc.end = arc.start + (sweep <= kParameterTolerance ? kTurn : sweep);
}

// The longest half-diameter of the ellipse.
double greatestRadius(const Arc3d& arc)
{
    const double u = arc.cosAxis.lengthSqrd();
    const double v = arc.sinAxis.lengthSqrd();
    return std::sqrt((u + v) / 2.0 +
                     std::hypot((u - v) / 2.0, arc.cosAxis.dotProduct(arc.sinAxis)));
}

} // namespace

Arc3d Arc3d::circular(const AcGePoint3d& centre, double radius, double startAngle, double endAngle,
                      const AcGeMatrix3d& plane)
{
    Arc3d arc;
    arc.centre = plane * centre;
    arc.cosAxis = plane.axis(0) * radius;
    arc.sinAxis = plane.axis(1) * radius;
    setRange(arc, startAngle, endAngle);
    return arc;
}

Arc3d Arc3d::circle(const AcGePoint3d& centre, double radius, const AcGeMatrix3d& plane)
{
    return circular(centre, radius, 0.0, kTurn, plane);
}

Arc3d Arc3d::elliptical(const AcGePoint3d& centre, const AcGeVector3d& majorAxis,
                        const AcGeVector3d& normal, double ratio, double startParameter,
                        double endParameter)
{
    Arc3d arc;
    arc.centre = centre;
    arc.cosAxis = majorAxis;
    arc.sinAxis = normal.normal().crossProduct(majorAxis) * ratio;
    setRange(arc, startParameter, endParameter);
    return arc;
}

std::optional<Arc3d> Arc3d::fromBulge(const AcGePoint3d& from, const AcGePoint3d& to, double bulge,
                                      const AcGeVector3d& normal)
{
    const AcGeVector3d chord = to - from;
    if (!std::isfinite(bulge) || std::abs(bulge) < kStraightBulge || !(chord.length() > 0.0))
        return {};
    const AcGeVector3d left = normal.normal().crossProduct(chord);

    Arc3d arc;
    arc.centre = interpolated(from, to, 0.5) + left * ((1.0 - bulge * bulge) / (4.0 * bulge));
    arc.cosAxis = from - arc.centre;
    arc.sinAxis = normal.normal().crossProduct(arc.cosAxis) * (bulge > 0.0 ? 1.0 : -1.0);
    arc.end = 4.0 * std::atan(std::abs(bulge));
    return arc;
}

bool Arc3d::isClosed() const
{
    return sweep() >= kTurn - kParameterTolerance;
}

bool Arc3d::isCircular(double relativeTolerance) const
{
    const double u = cosAxis.length();
    const double v = sinAxis.length();
    return std::abs(u - v) <= relativeTolerance * u &&
           std::abs(cosAxis.dotProduct(sinAxis)) <= relativeTolerance * u * v;
}

AcGePoint3d Arc3d::pointAt(double t) const
{
    return centre + cosAxis * std::cos(t) + sinAxis * std::sin(t);
}

AcGeVector3d Arc3d::tangentAt(double t) const
{
    return sinAxis * std::cos(t) - cosAxis * std::sin(t);
}

std::optional<double> Arc3d::onArc(double t) const
{
    const double beyond = reduced(t - start);
    if (beyond <= sweep() + kParameterTolerance)
        return std::min(start + beyond, end);
    if (beyond >= kTurn - kParameterTolerance)
        return start;
    return {};
}

double Arc3d::length() const
{
    if (isCircular())
        return radius() * sweep();
    // By octants, because a flat ellipse has corners in its speed that fall between them.
    const double scale = greatestRadius(*this);
    const auto speed = [&](double t) { return tangentAt(t).length(); };
    double total = 0.0;
    constexpr double kOctant = kTurn / 8.0;
    for (double t = start; t < end;) {
        const double next = std::min(end, (std::floor(t / kOctant + 1e-9) + 1.0) * kOctant);
        total += integral(speed, t, next, scale);
        t = next;
    }
    return total;
}

double Arc3d::closestParameter(const AcGePoint3d& to) const
{
    if (isCircular()) {
        const AcGeVector3d out = to - centre;
        if (const auto t = onArc(std::atan2(out.dotProduct(sinAxis), out.dotProduct(cosAxis))))
            return *t;
        return startPoint().distanceTo(to) <= endPoint().distanceTo(to) ? start : end;
    }
    std::vector<double> samples;
    constexpr int kSamples = 64;
    for (int i = 0; i <= kSamples; ++i)
        samples.push_back(start + sweep() * i / kSamples);
    return closestParameterAmong(*this, samples, to);
}

AcDbExtents Arc3d::extents() const
{
    AcDbExtents box(startPoint(), endPoint());
    for (unsigned i = 0; i < 3; ++i) {
        const double t = std::atan2(sinAxis[i], cosAxis[i]); // where this coordinate is greatest
        const double reach = std::hypot(sinAxis[i], cosAxis[i]);
        for (const double side : {1.0, -1.0}) {
            if (!onArc(side > 0.0 ? t : t + std::numbers::pi))
                continue;
            AcGePoint3d extreme = box.isValid() ? box.minPoint() : centre;
            extreme[i] = centre[i] + side * reach;
            box.addPoint(extreme);
        }
    }
    return box;
}

std::vector<AcGePoint3d> Arc3d::sampled(double chordTolerance) const
{
    const double size = greatestRadius(*this);
    const double tolerance = chordTolerance > 0.0 ? chordTolerance : 1e-4 * size;
    const double widest = size > tolerance ? 2.0 * std::acos(1.0 - tolerance / size) : kTurn / 8.0;
    const double step = std::clamp(widest, kTurn / kMostSegments, kTurn / 8.0);
    const int segments = std::max(1, static_cast<int>(std::ceil(sweep() / step - 1e-9)));

    std::vector<AcGePoint3d> points;
    points.reserve(segments + 1);
    for (int i = 0; i < segments; ++i)
        points.push_back(pointAt(start + sweep() * i / segments));
    points.push_back(isClosed() ? points.front() : endPoint());
    return points;
}

Arc3d Arc3d::transformed(const AcGeMatrix3d& matrix) const
{
    Arc3d mapped = *this;
    mapped.centre = matrix * centre;
    mapped.cosAxis = matrix * cosAxis;
    mapped.sinAxis = matrix * sinAxis;
    return mapped;
}

} // namespace host
