#include "host/db/dimension_measure.h"

#include "host/db/dimension_kinds.h"
#include "host/db/dimension_text.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

AcGePoint2d flat(const AcGePoint3d& p)
{
    return p.convert2d();
}

double counterClockwise(double from, double to)
{
    const double turn = std::fmod(to - from, kTurn);
    return turn < 0.0 ? turn + kTurn : turn;
}

std::optional<AcGePoint2d> crossing(AcGePoint2d a, AcGeVector2d u, AcGePoint2d b, AcGeVector2d v)
{
    const double area = u.crossProduct(v);
    if (std::abs(area) <= 1e-12 * u.length() * v.length())
        return std::nullopt;
    return a + u * ((b - a).crossProduct(v) / area);
}

struct Ray {
    double angle;
    AngularSpan::Reach reach;
};

// From the nearer to the farther end, seen from the centre.
AngularSpan::Reach reachOf(AcGePoint2d centre, double angle, AcGePoint2d from, AcGePoint2d to)
{
    const AcGeVector2d along(std::cos(angle), std::sin(angle));
    const double a = (from - centre).dotProduct(along);
    const double b = (to - centre).dotProduct(along);
    return {std::min(a, b), std::max(a, b)};
}

// Of the four angles at the crossing the one in which the arc's point lies.
std::optional<AngularSpan> spanOfLines(const AcDb2LineAngularDimension& dimension)
{
    const AcGePoint2d a1 = flat(dimension.xLine1Start());
    const AcGePoint2d a2 = flat(dimension.xLine1End());
    const AcGePoint2d b1 = flat(dimension.xLine2Start());
    const AcGePoint2d b2 = flat(dimension.xLine2End());
    const std::optional<AcGePoint2d> centre = crossing(a1, a2 - a1, b1, b2 - b1);
    if (!centre)
        return std::nullopt;
    const AcGeVector2d toArc = flat(dimension.arcPoint()) - *centre;
    Ray rays[4];
    for (int i = 0; i < 4; ++i) {
        const bool first = i % 2 == 0;
        const AcGeVector2d along = first ? a2 - a1 : b2 - b1;
        const double angle = (i < 2 ? along : -along).angle();
        rays[i] = {angle,
                   first ? reachOf(*centre, angle, a1, a2) : reachOf(*centre, angle, b1, b2)};
    }
    std::sort(std::begin(rays), std::end(rays),
              [](const Ray& left, const Ray& right) { return left.angle < right.angle; });
    for (int i = 0; i < 4; ++i) {
        const Ray& from = rays[i];
        const Ray& to = rays[(i + 1) % 4];
        const double sweep = counterClockwise(from.angle, to.angle);
        if (counterClockwise(from.angle, toArc.angle()) <= sweep)
            return AngularSpan{*centre, toArc.length(), from.angle, sweep, from.reach, to.reach};
    }
    return std::nullopt;
}

// Between two places seen from a third; the arc's point tells which way round.
std::optional<AngularSpan> spanOfPlaces(const AcGePoint3d& seenFrom, const AcGePoint3d& one,
                                        const AcGePoint3d& other, const AcGePoint3d& onArc)
{
    const AcGePoint2d centre = flat(seenFrom);
    const AcGeVector2d first = flat(one) - centre;
    const AcGeVector2d second = flat(other) - centre;
    const AcGeVector2d toArc = flat(onArc) - centre;
    if (first.isZeroLength() || second.isZeroLength() || toArc.isZeroLength())
        return std::nullopt;
    const AngularSpan::Reach firstReach{first.length(), first.length()};
    const AngularSpan::Reach secondReach{second.length(), second.length()};
    const double sweep = counterClockwise(first.angle(), second.angle());
    if (sweep == 0.0)
        return std::nullopt;
    if (counterClockwise(first.angle(), toArc.angle()) <= sweep)
        return AngularSpan{centre, toArc.length(), first.angle(), sweep, firstReach, secondReach};
    return AngularSpan{centre,        toArc.length(), second.angle(),
                       kTurn - sweep, secondReach,    firstReach};
}

std::optional<double> straightLength(const AcDbDimension& dimension, const AcGePoint3d& from,
                                     const AcGePoint3d& to)
{
    const std::optional<AcGeVector2d> along = straightDirection(dimension);
    return along ? std::optional(std::abs((flat(to) - flat(from)).dotProduct(*along)))
                 : std::nullopt;
}

bool isAngle(const AcDbDimension& dimension)
{
    return AcDb2LineAngularDimension::cast(&dimension) ||
           AcDb3PointAngularDimension::cast(&dimension);
}

std::wstring_view markOf(const AcDbDimension& dimension, const DimensionStyle& style)
{
    if (AcDbRadialDimension::cast(&dimension) || AcDbRadialDimensionLarge::cast(&dimension))
        return L"R";
    if (AcDbDiametricDimension::cast(&dimension))
        return L"%%c";
    if (AcDbArcDimension::cast(&dimension) && style.arcsym == 0)
        return L"\x2312";
    return {};
}

} // namespace

AcGePoint2d AngularSpan::at(double angle) const
{
    return centre + AcGeVector2d(std::cos(angle), std::sin(angle)) * radius;
}

std::optional<AcGeVector2d> straightDirection(const AcDbDimension& dimension)
{
    if (const auto* const rotated = AcDbRotatedDimension::cast(&dimension))
        return AcGeVector2d(std::cos(rotated->rotation()), std::sin(rotated->rotation()));
    const auto* const aligned = AcDbAlignedDimension::cast(&dimension);
    if (!aligned)
        return std::nullopt;
    const AcGeVector2d along = flat(aligned->xLine2Point()) - flat(aligned->xLine1Point());
    return along.isZeroLength() ? std::nullopt : std::optional(along.normal());
}

std::optional<AngularSpan> angularSpan(const AcDbDimension& dimension)
{
    if (const auto* const lines = AcDb2LineAngularDimension::cast(&dimension))
        return spanOfLines(*lines);
    if (const auto* const places = AcDb3PointAngularDimension::cast(&dimension))
        return spanOfPlaces(places->centerPoint(), places->xLine1Point(), places->xLine2Point(),
                            places->arcPoint());
    const auto* const arc = AcDbArcDimension::cast(&dimension);
    if (!arc)
        return std::nullopt;
    const AcGePoint2d centre = flat(arc->centerPoint());
    const AcGeVector2d from = flat(arc->xLine1Point()) - centre;
    const AcGeVector2d to = flat(arc->xLine2Point()) - centre;
    const double radius = flat(arc->arcPoint()).distanceTo(centre);
    const double sweep = counterClockwise(from.angle(), to.angle());
    if (from.isZeroLength() || radius == 0.0 || sweep == 0.0)
        return std::nullopt;
    const AngularSpan::Reach reach{from.length(), from.length()};
    return AngularSpan{centre, radius, from.angle(), sweep, reach, reach};
}

std::optional<double> measured(const AcDbDimension& dimension)
{
    if (const std::optional<AngularSpan> span = angularSpan(dimension))
        return isAngle(dimension) ? span->sweep : span->sweep * span->first.most;
    if (const auto* const d = AcDbRotatedDimension::cast(&dimension))
        return straightLength(*d, d->xLine1Point(), d->xLine2Point());
    if (const auto* const d = AcDbAlignedDimension::cast(&dimension))
        return straightLength(*d, d->xLine1Point(), d->xLine2Point());
    if (const auto* const d = AcDbRadialDimension::cast(&dimension))
        return flat(d->chordPoint()).distanceTo(flat(d->center()));
    if (const auto* const d = AcDbRadialDimensionLarge::cast(&dimension))
        return flat(d->chordPoint()).distanceTo(flat(d->center()));
    if (const auto* const d = AcDbDiametricDimension::cast(&dimension))
        return flat(d->chordPoint()).distanceTo(flat(d->farChordPoint()));
    if (const auto* const d = AcDbOrdinateDimension::cast(&dimension)) {
        const AcGeVector2d place = flat(d->definingPoint()) - flat(d->origin());
        return std::abs(d->isUsingXAxis() ? place.x : place.y);
    }
    return std::nullopt;
}

std::wstring measuredText(const AcDbDimension& dimension, const DimensionStyle& style,
                          KindMark mark)
{
    const std::optional<double> value = measured(dimension);
    if (!value)
        return {};
    if (isAngle(dimension))
        return measuredAngle(*value, style);
    return measuredLength(*value, style,
                          mark == KindMark::shown ? markOf(dimension, style) : std::wstring_view());
}

} // namespace host
