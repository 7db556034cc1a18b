#include "host/db/dimension_spans.h"

#include "host/db/dimension_kinds.h"
#include "host/db/dimension_measure.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kPi = std::numbers::pi;
constexpr double kNear = 1e-9;

AcGePoint2d flat(const AcGePoint3d& p)
{
    return p.convert2d();
}

// ---- lengths ----

void drawExtension(const DimensionScene& scene, AcGePoint2d origin, AcGePoint2d end)
{
    const double length = origin.distanceTo(end);
    if (length < kNear)
        return;
    const DimensionStyle& style = scene.style;
    const AcGeVector2d along = (end - origin).normal();
    double start = style.scaled(style.exo);
    if (style.fxlon != 0)
        start = std::max(start, length - style.scaled(style.fxl));
    scene.picture.extensionLine(origin + along * start, end + along * style.scaled(style.exe));
}

void drawStraight(DimensionScene& scene, AcGePoint2d one, AcGePoint2d other, AcGePoint2d through)
{
    const AcGeVector2d measures = straightDirection(scene.dimension).value_or(AcGeVector2d::kXAxis);
    const AcGePoint2d a1 = through + measures * (one - through).dotProduct(measures);
    const AcGePoint2d a2 = through + measures * (other - through).dotProduct(measures);
    const double length = a1.distanceTo(a2);
    const AcGeVector2d along = length > kNear ? (a2 - a1) / length : measures;
    if (scene.style.se1 == 0)
        drawExtension(scene, one, a1);
    if (scene.style.se2 == 0)
        drawExtension(scene, other, a2);
    const AcGeVector2d outward = (a1 - one) + (a2 - other);
    drawTrack(scene, {length, [&](double t) { return a1 + along * t; },
                      [&](double) { return along.angle(); },
                      [&](AcGePoint2d p) { return (p - a1).dotProduct(along); },
                      [&](double) { return outward; },
                      [&](double from, double to) {
                          scene.picture.dimensionLine(a1 + along * from, a1 + along * to);
                      }});
    for (const AcGePoint2d p : {one, other, a2})
        scene.picture.definitionPoint(p);
}

void drawAligned(DimensionScene& scene)
{
    const auto& d = *AcDbAlignedDimension::cast(&scene.dimension);
    drawStraight(scene, flat(d.xLine1Point()), flat(d.xLine2Point()), flat(d.dimLinePoint()));
}

void drawRotated(DimensionScene& scene)
{
    const auto& d = *AcDbRotatedDimension::cast(&scene.dimension);
    drawStraight(scene, flat(d.xLine1Point()), flat(d.xLine2Point()), flat(d.dimLinePoint()));
}

// ---- angles and the lengths of arcs ----

void drawRay(const DimensionScene& scene, const AngularSpan& span, double angle,
             AngularSpan::Reach reach)
{
    const AcGePoint2d end = span.at(angle);
    if (span.radius > reach.most)
        drawExtension(scene, span.centre + unitVector(angle) * reach.most, end);
    else if (span.radius < reach.least)
        drawExtension(scene, span.centre + unitVector(angle) * reach.least, end);
}

AngularSpan drawRound(DimensionScene& scene)
{
    const AngularSpan span = *angularSpan(scene.dimension);
    const double radius = span.radius;
    if (scene.style.se1 == 0)
        drawRay(scene, span, span.start, span.first);
    if (scene.style.se2 == 0)
        drawRay(scene, span, span.start + span.sweep, span.second);
    const auto angleAt = [&](double t) { return span.start + t / radius; };
    drawTrack(scene,
              {span.sweep * radius, [&](double t) { return span.at(angleAt(t)); },
               [&](double t) { return angleAt(t) + 0.5 * kPi; },
               [&](AcGePoint2d p) {
                   // places beyond the middle of the rest count as before the start
                   double turn =
                       std::fmod((p - span.centre).angle() - span.start + 4.0 * kPi, 2.0 * kPi);
                   if (turn > kPi + 0.5 * span.sweep)
                       turn -= 2.0 * kPi;
                   return turn * radius;
               },
               [&](double t) { return unitVector(angleAt(t)); },
               [&](double from, double to) {
                   scene.picture.dimensionArc(span.centre, radius, angleAt(from), angleAt(to));
               }});
    return span;
}

void drawAngleOfLines(DimensionScene& scene)
{
    drawRound(scene);
    const auto& d = *AcDb2LineAngularDimension::cast(&scene.dimension);
    for (const AcGePoint3d& p :
         {d.xLine1Start(), d.xLine1End(), d.xLine2Start(), d.xLine2End(), d.arcPoint()})
        scene.picture.definitionPoint(flat(p));
}

void drawAngleOfPlaces(DimensionScene& scene)
{
    drawRound(scene);
    const auto& d = *AcDb3PointAngularDimension::cast(&scene.dimension);
    for (const AcGePoint3d& p : {d.xLine1Point(), d.xLine2Point(), d.centerPoint(), d.arcPoint()})
        scene.picture.definitionPoint(flat(p));
}

void drawArcLength(DimensionScene& scene)
{
    const AngularSpan span = drawRound(scene);
    const auto& d = *AcDbArcDimension::cast(&scene.dimension);
    if (scene.style.arcsym == 1 && scene.hasText()) { // an arc over the text
        const double half = std::max(0.5 * scene.picture.textHeight(), kNear);
        const AcGePoint2d top = scene.middle + AcGeVector2d(0.0, scene.picture.textHeight() * 0.6);
        scene.picture.dimensionArc(top, half, 0.25 * kPi, 0.75 * kPi);
    }
    if (d.hasLeader()) {
        const AcGePoint2d from = flat(d.leader1Point());
        const AcGePoint2d to = flat(d.leader2Point());
        const AcGeVector2d along = (to - from).normal();
        scene.picture.dimensionLine(from,
                                    to - along * scene.picture.lineStart(DimensionEnd::first));
        if (!along.isZeroLength())
            scene.picture.arrow(to, along, DimensionEnd::first);
    }
    for (const AcGePoint3d& p : {d.xLine1Point(), d.xLine2Point(), d.centerPoint()})
        scene.picture.definitionPoint(flat(p));
    scene.picture.definitionPoint(span.at(span.start + 0.5 * span.sweep));
}

constexpr DimensionDrawing kKinds[] = {
    {AcDbRotatedDimension::desc, drawRotated},
    {AcDbAlignedDimension::desc, drawAligned},
    {AcDb2LineAngularDimension::desc, drawAngleOfLines},
    {AcDb3PointAngularDimension::desc, drawAngleOfPlaces},
    {AcDbArcDimension::desc, drawArcLength},
};

} // namespace

bool drawSpanned(DimensionScene& scene)
{
    return drawAsKind(scene, kKinds);
}

} // namespace host
