#include "host/geom/nurbs.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "host/geom/curve_search.h"
#include "host/geom/polyline.h"

namespace host {

namespace {

constexpr int kHighestDegree = 25;
constexpr int kDeepestSplit = 14;

// A control point times its weight, and the weight.
struct Weighted {
    AcGeVector3d place;
    double weight = 0.0;

    AcGePoint3d point() const { return AcGePoint3d::kOrigin + place / weight; }
};

Weighted mixed(const Weighted& a, const Weighted& b, double t)
{
    return {a.place * (1.0 - t) + b.place * t, a.weight * (1.0 - t) + b.weight * t};
}

// The last two points of de Boor's triangle, and where the curve divides them.
struct LastStep {
    Weighted before;
    Weighted after;
    double part = 0.0;
    double spanLength = 0.0;
};

LastStep lastStep(const NurbsCurve& curve, int span, double u)
{
    const int degree = curve.degree();
    const std::vector<double>& knots = curve.knots();
    std::array<Weighted, kHighestDegree + 1> d;
    for (int i = 0; i <= degree; ++i) {
        const int from = span - degree + i;
        const double weight = curve.weights().empty() ? 1.0 : curve.weights()[from];
        d[i] = {curve.controlPoints()[from].asVector() * weight, weight};
    }
    const auto part = [&](int level, int i) {
        const double low = knots[span - degree + i];
        return (u - low) / (knots[span + 1 + i - level] - low);
    };
    for (int level = 1; level < degree; ++level)
        for (int i = degree; i >= level; --i)
            d[i] = mixed(d[i - 1], d[i], part(level, i));
    return {d[degree - 1], d[degree], part(degree, degree), knots[span + 1] - knots[span]};
}

bool isFinite(const AcGePoint3d& p)
{
    return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z);
}

AcDbExtents around(const std::vector<AcGePoint3d>& points)
{
    AcDbExtents box;
    for (const AcGePoint3d& p : points)
        box.addPoint(p);
    return box;
}

struct Sampler {
    const NurbsCurve& curve;
    double tolerance;
    std::vector<double>& parameters;

    // Adds what lies behind u0 up to u1.
    void add(double u0, const AcGePoint3d& p0, double u1, const AcGePoint3d& p1, int depth)
    {
        const double middle = 0.5 * (u0 + u1);
        const auto strays = [&](double u) {
            const AcGePoint3d p = curve.pointAt(u);
            return closestOnSegment(p0, p1, p).distanceTo(p) > tolerance;
        };
        if (depth > 0 &&
            (strays(middle) || strays(0.5 * (u0 + middle)) || strays(0.5 * (middle + u1)))) {
            const AcGePoint3d p = curve.pointAt(middle);
            add(u0, p0, middle, p, depth - 1);
            add(middle, p, u1, p1, depth - 1);
        } else {
            parameters.push_back(u1);
        }
    }
};

} // namespace

std::optional<NurbsCurve> NurbsCurve::make(int degree, std::vector<double> knots,
                                           std::vector<AcGePoint3d> controlPoints,
                                           std::vector<double> weights)
{
    const std::size_t count = controlPoints.size();
    if (degree < 1 || degree > kHighestDegree || count < static_cast<std::size_t>(degree) + 1 ||
        knots.size() != count + degree + 1)
        return {};
    if (!weights.empty() && weights.size() != count)
        return {};
    const auto isWeight = [](double w) { return std::isfinite(w) && w > 0.0; };
    const auto isNumber = [](double k) { return std::isfinite(k); };
    if (!std::ranges::all_of(knots, isNumber) || !std::ranges::is_sorted(knots) ||
        !std::ranges::all_of(controlPoints, isFinite) || !std::ranges::all_of(weights, isWeight) ||
        !(knots[degree] < knots[count]))
        return {};
    NurbsCurve curve;
    curve.degree_ = degree;
    curve.knots_ = std::move(knots);
    curve.points_ = std::move(controlPoints);
    curve.weights_ = std::move(weights);
    return curve;
}

std::optional<NurbsCurve> NurbsCurve::ofControlPoints(int degree, std::vector<AcGePoint3d> points,
                                                      bool closed)
{
    const std::size_t least = closed ? 3 : 2;
    if (points.size() < least || degree < 1)
        return {};
    const int most = static_cast<int>(points.size()) - 1;
    degree = std::min(degree, most);
    std::vector<double> knots;
    if (closed) {
        for (int i = 0; i < degree; ++i)
            points.push_back(points[static_cast<std::size_t>(i)]);
        const int count = static_cast<int>(points.size()) + degree + 1;
        for (int i = 0; i < count; ++i)
            knots.push_back(i - degree);
    } else {
        const int spans = static_cast<int>(points.size()) - degree;
        for (int i = -degree; i <= spans + degree; ++i)
            knots.push_back(std::clamp(i, 0, spans));
    }
    return make(degree, std::move(knots), std::move(points));
}

int NurbsCurve::spanAt(double u) const
{
    const auto first = knots_.begin() + degree_;
    const auto last = knots_.begin() + static_cast<std::ptrdiff_t>(points_.size());
    // At the end of the range the last span of some length goes on.
    const auto above =
        u < *last ? std::upper_bound(first, last, u) : std::lower_bound(first, last, *last);
    return std::max(degree_, static_cast<int>(above - knots_.begin()) - 1);
}

AcGePoint3d NurbsCurve::pointAt(double u) const
{
    u = std::clamp(u, startParameter(), endParameter());
    const LastStep step = lastStep(*this, spanAt(u), u);
    return mixed(step.before, step.after, step.part).point();
}

AcGeVector3d NurbsCurve::tangentAt(double u) const
{
    u = std::clamp(u, startParameter(), endParameter());
    const LastStep step = lastStep(*this, spanAt(u), u);
    const Weighted here = mixed(step.before, step.after, step.part);
    const double rate = degree_ / step.spanLength;
    const AcGeVector3d placeRate = (step.after.place - step.before.place) * rate;
    const double weightRate = (step.after.weight - step.before.weight) * rate;
    return (placeRate - here.point().asVector() * weightRate) / here.weight;
}

bool NurbsCurve::isClosed(const AcGeTol& tol) const
{
    return pointAt(startParameter()).isEqualTo(pointAt(endParameter()), tol);
}

double NurbsCurve::length() const
{
    const double scale = polylineLength(points_, false);
    const auto speed = [&](double u) { return tangentAt(u).length(); };
    double total = 0.0;
    for (std::size_t i = degree_; i < points_.size(); ++i)
        if (knots_[i] < knots_[i + 1])
            total += integral(speed, knots_[i], knots_[i + 1], scale, 16);
    return total;
}

double NurbsCurve::closestParameter(const AcGePoint3d& to) const
{
    return closestParameterAmong(*this, sampledParameters(), to);
}

AcDbExtents NurbsCurve::extents() const
{
    const std::vector<double> parameters = sampledParameters();
    std::vector<AcGePoint3d> samples;
    samples.reserve(parameters.size());
    for (const double u : parameters)
        samples.push_back(pointAt(u));

    AcDbExtents box = around(samples);
    const AcDbExtents rough = box;
    const double reach = 2e-4 * around(points_).size();
    for (unsigned axis = 0; axis < 3; ++axis) {
        const auto rate = [&](double u) { return tangentAt(u)[axis]; };
        const double low = rough.minPoint()[axis] + reach;
        const double high = rough.maxPoint()[axis] - reach;
        for (std::size_t i = 1; i + 1 < samples.size(); ++i) {
            const double before = samples[i - 1][axis];
            const double here = samples[i][axis];
            const double after = samples[i + 1][axis];
            const bool lowest = here <= low && here <= before && here <= after;
            const bool highest = here >= high && here >= before && here >= after;
            if (lowest || highest)
                box.addPoint(pointAt(signChange(rate, parameters[i - 1], parameters[i + 1])));
        }
    }
    return box;
}

std::vector<double> NurbsCurve::sampledParameters(double chordTolerance) const
{
    const double size = around(points_).size();
    const double tolerance =
        chordTolerance > 0.0 ? std::max(chordTolerance, 1e-7 * size) : 1e-4 * size;
    std::vector<double> parameters{startParameter()};
    Sampler sampler{*this, tolerance, parameters};
    for (std::size_t i = degree_; i < points_.size(); ++i) {
        if (!(knots_[i] < knots_[i + 1]))
            continue;
        // A span of degree n can turn n - 1 times: begun with n pieces, no turn hides behind the
        // three probes.
        for (int piece = 0; piece < degree_; ++piece) {
            const double width = (knots_[i + 1] - knots_[i]) / degree_;
            const double from = parameters.back();
            const double to =
                piece + 1 == degree_ ? knots_[i + 1] : knots_[i] + width * (piece + 1);
            sampler.add(from, pointAt(from), to, pointAt(to), kDeepestSplit);
        }
    }
    return parameters;
}

std::vector<AcGePoint3d> NurbsCurve::sampled(double chordTolerance) const
{
    std::vector<AcGePoint3d> points;
    for (const double u : sampledParameters(chordTolerance))
        points.push_back(pointAt(u));
    return points;
}

NurbsCurve NurbsCurve::transformed(const AcGeMatrix3d& matrix) const
{
    NurbsCurve mapped = *this;
    for (AcGePoint3d& p : mapped.points_)
        p = matrix * p;
    return mapped;
}

} // namespace host
