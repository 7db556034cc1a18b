#include "host/db/dimension_leaders.h"

#include "host/db/dimension_kinds.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr double kNear = 1e-9;

AcGePoint2d flat(const AcGePoint3d& p)
{
    return p.convert2d();
}

// ---- radii and diameters ----

// A cross at the centre; a size below zero adds lines that reach over the circle.
void drawCentre(const DimensionScene& scene, AcGePoint2d centre, double radius)
{
    const double size = scene.style.scaled(std::abs(scene.style.cen));
    if (size == 0.0)
        return;
    for (const AcGeVector2d axis : {AcGeVector2d::kXAxis, AcGeVector2d::kYAxis}) {
        scene.picture.dimensionLine(centre - axis * size, centre + axis * size);
        if (scene.style.cen > 0.0 || radius < 2.0 * size)
            continue;
        scene.picture.dimensionLine(centre + axis * (2.0 * size), centre + axis * (radius + size));
        scene.picture.dimensionLine(centre - axis * (2.0 * size), centre - axis * (radius + size));
    }
}

// From the far end, which has an arrow of its own on a diameter, to the place on the circle and to
// the text: inside of the circle the text stands on the line, outside at the end of a leader.
void drawToCircle(DimensionScene& scene, AcGePoint2d far, AcGePoint2d chord, AcGePoint2d centre,
                  bool isDiameter)
{
    DimensionPicture& picture = scene.picture;
    const double radius = chord.distanceTo(centre);
    const AcGeVector2d along = (chord - centre).normal();
    const AcGePoint2d place = scene.placed.value_or(interpolated(centre, chord, 0.5));
    const bool inside = place.distanceTo(centre) <= radius + kNear;
    const double angle = scene.textAngle(along.angle(), inside);
    const double second = picture.lineStart(DimensionEnd::second);
    const AcGeVector2d lifted = scene.lift(angle, along.angle(), along);
    const double half = scene.halfExtent(angle, along.angle());
    const auto offset = [&](AcGePoint2d p) { return (p - far).dotProduct(along); };

    if (inside) {
        const double end = offset(chord) - second;
        const double begin = isDiameter ? picture.lineStart(DimensionEnd::first) : 0.0;
        const TrackSpan whole{begin, end};
        std::optional<TrackSpan> gap;
        if (scene.hasText() && lifted.isZeroLength())
            gap = TrackSpan{offset(place) - half, offset(place) + half};
        const auto draw = [&](double from, double to) {
            picture.dimensionLine(far + along * from, far + along * to);
        };
        drawSpans(draw, std::span(&whole, 1), gap);
        picture.arrow(chord, along, DimensionEnd::second);
        if (isDiameter)
            picture.arrow(far, -along, DimensionEnd::first);
        scene.text(place + lifted, angle);
        return;
    }

    if (scene.style.tofl != 0)
        picture.dimensionLine(far, chord);
    else
        drawCentre(scene, centre, radius);
    picture.arrow(chord, -along, DimensionEnd::second);
    const AcGePoint2d start = chord + along * second;
    if (std::abs(std::sin(angle - along.angle())) < 1e-6) { // the text lies along the leader
        const double reach = lifted.isZeroLength() ? -half : half - scene.gap();
        picture.dimensionLine(start, place + along * reach);
        scene.text(place + lifted, angle);
        return;
    }
    const double side = along.x < 0.0 ? -1.0 : 1.0;
    const AcGePoint2d hook = place - AcGeVector2d(side * (0.5 * scene.width + scene.gap()), 0.0);
    const AcGePoint2d knee = hook - AcGeVector2d(side * picture.arrowSize(), 0.0);
    picture.dimensionLine(start, knee);
    picture.dimensionLine(knee, hook);
    scene.text(place, angle);
}

void drawRadius(DimensionScene& scene)
{
    const auto& d = *AcDbRadialDimension::cast(&scene.dimension);
    const AcGePoint2d centre = flat(d.center());
    drawToCircle(scene, centre, flat(d.chordPoint()), centre, false);
    scene.picture.definitionPoint(centre);
    scene.picture.definitionPoint(flat(d.chordPoint()));
}

void drawDiameter(DimensionScene& scene)
{
    const auto& d = *AcDbDiametricDimension::cast(&scene.dimension);
    const AcGePoint2d chord = flat(d.chordPoint());
    const AcGePoint2d far = flat(d.farChordPoint());
    drawToCircle(scene, far, chord, interpolated(far, chord, 0.5), true);
    scene.picture.definitionPoint(chord);
    scene.picture.definitionPoint(far);
}

void drawJogged(DimensionScene& scene)
{
    const auto& d = *AcDbRadialDimensionLarge::cast(&scene.dimension);
    const AcGePoint2d chord = flat(d.chordPoint());
    const AcGePoint2d centre = flat(d.overrideCenter());
    const AcGePoint2d jog = flat(d.jogPoint());
    const AcGeVector2d along = (chord - flat(d.center())).normal();
    // the jog turns to the side on which the line from the overriding centre runs
    const double side = along.crossProduct(centre - chord) < 0.0 ? -1.0 : 1.0;
    const AcGeVector2d slope = along.rotateBy(-side * scene.style.jogang);
    const auto cut = [&](AcGePoint2d on) {
        const double area = along.crossProduct(slope);
        return std::abs(area) < kNear ? on : on + along * ((jog - on).crossProduct(slope) / area);
    };
    const AcGePoint2d near = cut(chord);
    const AcGePoint2d far = cut(centre);
    const double angle = scene.textAngle(along.angle(), true);
    const AcGeVector2d lifted = scene.lift(angle, along.angle(), along);
    const AcGePoint2d place = scene.placed.value_or(interpolated(near, chord, 0.5));
    const double end = near.distanceTo(chord) - scene.picture.lineStart(DimensionEnd::second);
    const double at = (place - near).dotProduct(along);
    const double half = scene.halfExtent(angle, along.angle());
    std::optional<TrackSpan> gap;
    if (scene.hasText() && lifted.isZeroLength())
        gap = TrackSpan{at - half, at + half};
    const TrackSpan whole{0.0, end};
    const auto draw = [&](double from, double to) {
        scene.picture.dimensionLine(near + along * from, near + along * to);
    };
    drawSpans(draw, std::span(&whole, 1), gap);
    scene.picture.dimensionLine(near, far);
    scene.picture.dimensionLine(far, centre);
    scene.picture.arrow(chord, along, DimensionEnd::second);
    scene.text(place + lifted, angle);
    for (const AcGePoint2d p : {centre, jog, chord, flat(d.center())})
        scene.picture.definitionPoint(p);
}

// ---- ordinates ----

// The leader leaves the feature and reaches the text along the axis across the measured one, with
// a slope between where these are not in line.
void drawOrdinate(DimensionScene& scene)
{
    const auto& d = *AcDbOrdinateDimension::cast(&scene.dimension);
    const AcGePoint2d feature = flat(d.definingPoint());
    const AcGePoint2d end = flat(d.leaderEndPoint());
    AcGeVector2d axis = d.isUsingXAxis() ? AcGeVector2d::kYAxis : AcGeVector2d::kXAxis;
    if ((end - feature).dotProduct(axis) < 0.0)
        axis = -axis;
    const double length = (end - feature).dotProduct(axis);
    const double start = scene.style.scaled(scene.style.exo);
    const double aside = std::abs((end - feature).crossProduct(axis));
    if (aside < kNear) {
        scene.picture.extensionLine(feature + axis * start, end);
    } else {
        const double last = std::max(length - 2.0 * scene.picture.arrowSize(), 0.0);
        const double first = std::clamp(last - 2.0 * scene.picture.arrowSize(), 0.0, last);
        const AcGePoint2d knee = end - axis * (length - last);
        const AcGePoint2d bend = feature + axis * first;
        if (first > start)
            scene.picture.extensionLine(feature + axis * start, bend);
        scene.picture.extensionLine(bend, knee);
        scene.picture.extensionLine(knee, end);
    }
    const double angle = scene.dimension.textRotation() != 0.0 ? scene.dimension.textRotation()
                                                               : readable(axis.angle());
    const AcGePoint2d beyond = end + axis * (scene.gap() + 0.5 * scene.width);
    scene.text(scene.placed.value_or(beyond), angle);
    for (const AcGePoint2d p : {flat(d.origin()), feature, end})
        scene.picture.definitionPoint(p);
}

constexpr DimensionDrawing kKinds[] = {
    {AcDbRadialDimension::desc, drawRadius},
    {AcDbDiametricDimension::desc, drawDiameter},
    {AcDbRadialDimensionLarge::desc, drawJogged},
    {AcDbOrdinateDimension::desc, drawOrdinate},
};

} // namespace

bool drawLed(DimensionScene& scene)
{
    return drawAsKind(scene, kKinds);
}

} // namespace host
