#include "host/geom/arc_construction.h"

#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;
constexpr double kLeastTurn = 1e-10; // what is nearer counts as straight, or as back to front

// From one direction to another, -pi to pi.
double signedAngle(AcGeVector2d from, AcGeVector2d to)
{
    return std::atan2(from.crossProduct(to), from.dotProduct(to));
}

AcGeVector2d unitAt(double angle)
{
    return {std::cos(angle), std::sin(angle)};
}

// Where the centres of touching circles lie, and where such a circle touches.
struct Locus {
    TangentTarget centres;
    TangentTarget target;
};

std::vector<Locus> loci(const TangentTarget& target, double radius)
{
    std::vector<Locus> all;
    if (const auto* const line = std::get_if<PlaneLine>(&target)) {
        const AcGeVector2d along = line->direction.normal();
        for (const double side : {radius, -radius})
            all.push_back({PlaneLine{line->point + along.perpVector() * side, along}, target});
    } else {
        const PlaneCircle& circle = std::get<PlaneCircle>(target);
        all.push_back({PlaneCircle{circle.centre, circle.radius + radius}, target});
        if (circle.radius != radius)
            all.push_back({PlaneCircle{circle.centre, std::abs(circle.radius - radius)}, target});
    }
    return all;
}

void crossings(const PlaneLine& a, const PlaneLine& b, std::vector<AcGePoint2d>& found)
{
    const double cross = a.direction.crossProduct(b.direction);
    if (std::abs(cross) > 1e-12)
        found.push_back(a.point +
                        a.direction * ((b.point - a.point).crossProduct(b.direction) / cross));
}

void crossings(const PlaneLine& line, const PlaneCircle& circle, std::vector<AcGePoint2d>& found)
{
    const AcGePoint2d foot =
        line.point + line.direction * (circle.centre - line.point).dotProduct(line.direction);
    const double off = foot.distanceTo(circle.centre);
    const double rest = circle.radius * circle.radius - off * off;
    if (rest < -1e-9 * circle.radius * circle.radius)
        return;
    const double half = std::sqrt(std::max(rest, 0.0));
    found.push_back(foot + line.direction * half);
    found.push_back(foot - line.direction * half);
}

void crossings(const PlaneCircle& a, const PlaneCircle& b, std::vector<AcGePoint2d>& found)
{
    const AcGeVector2d between = b.centre - a.centre;
    const double distance = between.length();
    if (!(distance > 0.0))
        return;
    // both circles meet on their radical line
    const double along =
        (distance * distance + a.radius * a.radius - b.radius * b.radius) / (2.0 * distance);
    const AcGeVector2d unit = between / distance;
    crossings(PlaneLine{a.centre + unit * along, unit.perpVector()}, a, found);
}

std::vector<AcGePoint2d> crossings(const TangentTarget& a, const TangentTarget& b)
{
    std::vector<AcGePoint2d> found;
    const auto* const lineA = std::get_if<PlaneLine>(&a);
    const auto* const lineB = std::get_if<PlaneLine>(&b);
    if (lineA && lineB)
        crossings(*lineA, *lineB, found);
    else if (lineA)
        crossings(*lineA, std::get<PlaneCircle>(b), found);
    else if (lineB)
        crossings(*lineB, std::get<PlaneCircle>(a), found);
    else
        crossings(std::get<PlaneCircle>(a), std::get<PlaneCircle>(b), found);
    return found;
}

AcGePoint2d touchingPoint(const TangentTarget& target, const PlaneCircle& circle)
{
    if (const auto* const line = std::get_if<PlaneLine>(&target)) {
        const AcGeVector2d along = line->direction.normal();
        return line->point + along * (circle.centre - line->point).dotProduct(along);
    }
    const PlaneCircle& own = std::get<PlaneCircle>(target);
    const AcGeVector2d out = (circle.centre - own.centre).normal();
    const AcGePoint2d near = own.centre + out * own.radius;
    const AcGePoint2d far = own.centre - out * own.radius;
    const auto miss = [&](AcGePoint2d place) {
        return std::abs(place.distanceTo(circle.centre) - circle.radius);
    };
    return miss(near) <= miss(far) ? near : far;
}

} // namespace

double bulgeOfTurn(double turn)
{
    return std::tan(turn / 4.0);
}

std::optional<double> bulgeThrough(AcGePoint2d from, AcGePoint2d between, AcGePoint2d to)
{
    const AcGeVector2d in = between - from;
    const AcGeVector2d out = to - between;
    if (in.isZeroLength() || out.isZeroLength() || from.isEqualTo(to))
        return {};
    // at `between` the chords turn by half of the arc's turn
    const double half = signedAngle(in, out);
    if (std::abs(half) < kLeastTurn || std::abs(half) > std::numbers::pi - kLeastTurn)
        return {};
    return std::tan(half / 2.0);
}

std::optional<double> bulgeLeaving(AcGePoint2d from, AcGePoint2d to, double direction)
{
    const AcGeVector2d chord = to - from;
    if (chord.isZeroLength())
        return {};
    const double half = signedAngle(unitAt(direction), chord);
    if (std::abs(half) > std::numbers::pi - kLeastTurn)
        return {};
    return std::abs(half) < kLeastTurn ? 0.0 : std::tan(half / 2.0);
}

std::optional<double> bulgeOfRadius(AcGePoint2d from, AcGePoint2d to, double radius)
{
    const double chord = from.distanceTo(to);
    if (!(chord > 0.0))
        return {};
    const std::optional<double> turn = turnOfChord(std::abs(radius), std::copysign(chord, radius));
    return turn ? std::optional(bulgeOfTurn(*turn)) : std::nullopt;
}

double arrivalDirection(AcGePoint2d from, AcGePoint2d to, double bulge)
{
    return (to - from).angle() + 2.0 * std::atan(bulge);
}

double turnBetween(AcGePoint2d centre, AcGePoint2d from, AcGePoint2d to)
{
    const double angle = signedAngle(from - centre, to - centre);
    return angle > 0.0 ? angle : angle + kTurn;
}

std::optional<double> turnOfChord(double radius, double chord)
{
    const double sine = std::abs(chord) / (2.0 * radius);
    if (!(radius > 0.0) || sine > 1.0 + 1e-12)
        return {};
    const double turn = 2.0 * std::asin(std::min(sine, 1.0));
    return chord < 0.0 ? kTurn - turn : turn;
}

AcGePoint2d turned(AcGePoint2d point, AcGePoint2d centre, double angle)
{
    return centre + (point - centre).rotateBy(angle);
}

std::optional<PlaneCircle> circleThrough(AcGePoint2d a, AcGePoint2d b, AcGePoint2d c)
{
    const AcGeVector2d u = b - a;
    const AcGeVector2d v = c - a;
    const double cross = u.crossProduct(v);
    if (!(std::abs(cross) > 1e-12 * u.length() * v.length()) || b.isEqualTo(c))
        return {};
    const AcGeVector2d out =
        (v.perpVector() * u.lengthSqrd() - u.perpVector() * v.lengthSqrd()) / (-2.0 * cross);
    return PlaneCircle{a + out, out.length()};
}

std::optional<PlaneCircle> tangentCircle(const TangentTarget& first, AcGePoint2d nearFirst,
                                         const TangentTarget& second, AcGePoint2d nearSecond,
                                         double radius)
{
    std::optional<PlaneCircle> best;
    double bestMiss = std::numeric_limits<double>::infinity();
    for (const Locus& a : loci(first, radius)) {
        for (const Locus& b : loci(second, radius)) {
            for (const AcGePoint2d centre : crossings(a.centres, b.centres)) {
                const PlaneCircle circle{centre, radius};
                const double miss = touchingPoint(first, circle).distanceTo(nearFirst) +
                                    touchingPoint(second, circle).distanceTo(nearSecond);
                if (miss < bestMiss) {
                    best = circle;
                    bestMiss = miss;
                }
            }
        }
    }
    return best;
}

} // namespace host
