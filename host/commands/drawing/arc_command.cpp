#include "host/commands/drawing/arc_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/arc_input.h"
#include "host/commands/drawing/drawn_end.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/arc.h"
#include "host/geom/arc.h"
#include "host/geom/arc_construction.h"

#include <algorithm>
#include <cmath>
#include <numbers>

// Escape at any of its prompts leaves nothing. Arcs lie at the height of their first point. Enter
// at the first prompt goes on from the line or arc drawn last, in its direction.

namespace host {

namespace {

// From its start, counter-clockwise for a positive turn.
struct GivenArc {
    AcGePoint2d centre;
    AcGePoint2d start;
    double turn = 0.0;
};

GivenArc ofBulge(AcGePoint2d start, AcGePoint2d end, double bulge)
{
    const AcGePoint3d flatStart(start, 0.0);
    const std::optional<Arc3d> arc = Arc3d::fromBulge(flatStart, {end, 0.0}, bulge);
    return arc ? GivenArc{arc->centre.convert2d(), start, 4.0 * std::atan(bulge)} : GivenArc();
}

std::optional<GivenArc> ofEnd(const AcGePoint3d& start, const AcGePoint3d& end,
                              const std::optional<double>& bulge)
{
    return bulge ? std::optional(ofBulge(start.convert2d(), end.convert2d(), *bulge))
                 : std::nullopt;
}

std::optional<GivenArc> startCentre(const AcGePoint3d& start, const AcGePoint3d& centre)
{
    const std::optional<double> turn =
        askTurnAbout(centre, start, L"Specify end point of arc or [Angle/chord Length]: ");
    return turn ? std::optional(GivenArc{centre.convert2d(), start.convert2d(), *turn})
                : std::nullopt;
}

// The centre's distance from the start counts; the end gives its direction only.
std::optional<GivenArc> startEndCentre(const AcGePoint3d& start, const AcGePoint3d& end,
                                       const AcGePoint3d& centre)
{
    const AcGePoint2d middle = centre.convert2d();
    return GivenArc{middle, start.convert2d(),
                    turnBetween(middle, start.convert2d(), end.convert2d())};
}

std::optional<GivenArc> startEndAngle(const AcGePoint3d& start, const AcGePoint3d& end)
{
    const std::optional<double> turn = askIncludedAngle(start);
    return turn ? ofEnd(start, end, bulgeOfTurn(*turn)) : std::nullopt;
}

// Straight on is no arc.
std::optional<double> bulgeTowards(const AcGePoint3d& start, const AcGePoint3d& end,
                                   double direction)
{
    const std::optional<double> bulge = bulgeLeaving(start.convert2d(), end.convert2d(), direction);
    return bulge && *bulge != 0.0 ? bulge : std::nullopt;
}

std::optional<GivenArc> startEndDirection(const AcGePoint3d& start, const AcGePoint3d& end)
{
    const Answered<double> direction = askUntil(
        [&] {
            return askTurn(
                {.text = L"Specify tangent direction for the start point of arc: ", .base = start});
        },
        [&](double angle) { return bulgeTowards(start, end, angle) ? nullptr : kNoArc; });
    return direction.given() ? ofEnd(start, end, bulgeTowards(start, end, direction.value))
                             : std::nullopt;
}

std::optional<GivenArc> startEndRadius(const AcGePoint3d& start, const AcGePoint3d& end)
{
    const auto bulge = [&](double radius) {
        return bulgeOfRadius(start.convert2d(), end.convert2d(), radius);
    };
    const Answered<double> radius = askUntil(
        [&] {
            return askLength({.text = L"Specify radius of arc: ", .base = end, .bits = RSG_NOZERO});
        },
        [&](double value) {
            return bulge(value) ? nullptr : L"The radius is too small for these points.\n";
        });
    return radius.given() ? ofEnd(start, end, bulge(radius.value)) : std::nullopt;
}

std::optional<GivenArc> startEnd(const AcGePoint3d& start)
{
    const Answered<AcGePoint3d> end =
        askOtherPlaceInPlane({.text = L"Specify end point of arc: ", .base = start});
    if (!end.given())
        return std::nullopt;
    const Answered<AcGePoint3d> centre = askUntil(
        [&] {
            return askPlace({.text = L"Specify center point of arc or [Angle/Direction/Radius]: ",
                             .keywords = L"Angle Direction Radius",
                             .base = start});
        },
        [&](const AcGePoint3d& p) {
            const AcGePoint2d middle = p.convert2d();
            return middle.isEqualTo(start.convert2d()) || middle.isEqualTo(end.value.convert2d())
                       ? kSamePlace
                       : nullptr;
        });
    if (centre.given())
        return startEndCentre(start, end.value, centre.value);
    if (centre.chose(L"Angle"))
        return startEndAngle(start, end.value);
    if (centre.chose(L"Direction"))
        return startEndDirection(start, end.value);
    return centre.chose(L"Radius") ? startEndRadius(start, end.value) : std::nullopt;
}

std::optional<GivenArc> fromStart(const AcGePoint3d& start)
{
    const Answered<AcGePoint3d> second =
        askOtherPlaceInPlane({.text = L"Specify second point of arc or [Center/End]: ",
                              .keywords = L"Center End",
                              .base = start});
    if (second.chose(L"End"))
        return startEnd(start);
    if (second.chose(L"Center")) {
        const Answered<AcGePoint3d> centre =
            askOtherPlaceInPlane({.text = L"Specify center point of arc: ", .base = start});
        return centre.given() ? startCentre(start, centre.value) : std::nullopt;
    }
    if (!second.given())
        return std::nullopt;
    const auto bulge = [&](const AcGePoint3d& end) {
        return bulgeThrough(start.convert2d(), second.value.convert2d(), end.convert2d());
    };
    const Answered<AcGePoint3d> end = askUntil(
        [&] { return askPlace({.text = L"Specify end point of arc: ", .base = second.value}); },
        [&](const AcGePoint3d& p) { return bulge(p) ? nullptr : kOnALine; });
    return end.given() ? ofEnd(start, end.value, bulge(end.value)) : std::nullopt;
}

std::optional<GivenArc> goOn(const DrawnEnd& from)
{
    const double direction = from.direction.convert2d().angle();
    setLastPoint(from.place);
    const Answered<AcGePoint3d> end = askUntil(
        [&] { return askPlace({.text = L"Specify end point of arc: ", .base = from.place}); },
        [&](const AcGePoint3d& p) {
            return bulgeTowards(from.place, p, direction) ? nullptr : kNoArc;
        });
    return end.given()
               ? ofEnd(from.place, end.value, bulgeTowards(from.place, end.value, direction))
               : std::nullopt;
}

// The height is told apart from the rest.
std::optional<GivenArc> askArc(double& height)
{
    for (;;) {
        const Answered<AcGePoint3d> first =
            askPlace({.text = L"Specify start point of arc or [Center]: ",
                      .keywords = L"Center",
                      .enterCounts = true});
        height = first.value.z;
        if (first.given())
            return fromStart(first.value);
        if (first.chose(L"Center")) {
            const Answered<AcGePoint3d> centre =
                askPlace({.text = L"Specify center point of arc: "});
            height = centre.value.z;
            const Answered<AcGePoint3d> start =
                centre.given() ? askOtherPlaceInPlane({.text = L"Specify start point of arc: ",
                                                       .base = centre.value})
                               : centre;
            return start.given() ? startCentre(start.value, centre.value) : std::nullopt;
        }
        if (!first.enter())
            return std::nullopt;
        if (const std::optional<DrawnEnd> from = drawnEnd()) {
            height = from->place.z;
            return goOn(*from);
        }
        refuse(L"No line or arc to continue.\n");
    }
}

// As the record keeps an angle: 0 up to a whole turn.
double withinTurn(double angle)
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const double rest = std::remainder(angle, kTurn);
    return rest < -1e-12 ? rest + kTurn : std::max(rest, 0.0);
}

} // namespace

void arcCommand()
{
    if (!documentOfCommand())
        return;
    double height = 0.0;
    const std::optional<GivenArc> given = askArc(height);
    if (!given)
        return;
    const AcGeVector2d toStart = given->start - given->centre;
    const double start = withinTurn(toStart.angle());
    const AcGePoint2d end = turned(given->start, given->centre, given->turn);
    const double stop = withinTurn(start + given->turn);
    const bool left = given->turn > 0.0;
    appendThick(std::make_unique<AcDbArc>(AcGePoint3d(given->centre, height), toStart.length(),
                                          left ? start : stop, left ? stop : start));
    setLastPoint({end, height}); // where the next one may go on
}

} // namespace host
