#include "host/commands/drawing/arc_input.h"

#include "host/geom/arc_construction.h"

#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

// The end of an arc whose chord has a direction of its own.
std::optional<ArcEnd> byChord(const AcGePoint3d& start, double direction, double radius,
                              double turn)
{
    const Answered<double> chord =
        askTurn({.text = L"Specify direction of chord for arc <" + degreesText(direction) + L">: ",
                 .base = start,
                 .enterCounts = true});
    if (chord.cancelled())
        return std::nullopt;
    const double length = 2.0 * std::abs(radius * std::sin(turn / 2.0));
    const AcGeVector2d along(length, 0.0);
    return ArcEnd{start.convert2d() + along.rotateBy(chord.given() ? chord.value : direction),
                  bulgeOfTurn(turn)};
}

ArcEnd about(AcGePoint2d centre, const AcGePoint3d& start, double turn)
{
    return {turned(start.convert2d(), centre, turn), bulgeOfTurn(turn)};
}

std::optional<ArcEnd> byAngle(const AcGePoint3d& start, double direction)
{
    const std::optional<double> turn = askIncludedAngle(start);
    if (!turn)
        return std::nullopt;
    const Answered<AcGePoint3d> answer =
        askOtherPlaceInPlane({.text = L"Specify endpoint of arc or [CEnter/Radius]: ",
                              .keywords = L"CEnter Radius",
                              .base = start});
    if (answer.given())
        return ArcEnd{answer.value.convert2d(), bulgeOfTurn(*turn)};
    if (answer.chose(L"CEnter")) {
        const Answered<AcGePoint3d> centre =
            askOtherPlaceInPlane({.text = L"Specify center point of arc: ", .base = start});
        return centre.given() ? std::optional(about(centre.value.convert2d(), start, *turn))
                              : std::nullopt;
    }
    if (!answer.chose(L"Radius"))
        return std::nullopt;
    const Answered<double> radius = askLength(
        {.text = L"Specify radius of arc: ", .base = start, .bits = RSG_NOZERO | RSG_NONEG});
    return radius.given() ? byChord(start, direction, radius.value, *turn) : std::nullopt;
}

std::optional<ArcEnd> byCentre(const AcGePoint3d& start, double)
{
    const Answered<AcGePoint3d> centre =
        askOtherPlaceInPlane({.text = L"Specify center point of arc: ", .base = start});
    if (!centre.given())
        return std::nullopt;
    const std::optional<double> turn =
        askTurnAbout(centre.value, start, L"Specify endpoint of arc or [Angle/Length]: ");
    return turn ? std::optional(about(centre.value.convert2d(), start, *turn)) : std::nullopt;
}

std::optional<ArcEnd> byDirection(const AcGePoint3d& start, double)
{
    const Answered<double> direction = askTurn(
        {.text = L"Specify the tangent direction for the start point of arc: ", .base = start});
    if (!direction.given())
        return std::nullopt;
    const auto bulge = [&](const AcGePoint3d& to) {
        return bulgeLeaving(start.convert2d(), to.convert2d(), direction.value);
    };
    const Answered<AcGePoint3d> end = askUntil(
        [&] { return askPlace({.text = L"Specify endpoint of the arc: ", .base = start}); },
        [&](const AcGePoint3d& to) { return bulge(to) ? nullptr : kNoArc; });
    return end.given() ? std::optional(ArcEnd{end.value.convert2d(), *bulge(end.value)})
                       : std::nullopt;
}

std::optional<ArcEnd> byRadius(const AcGePoint3d& start, double direction)
{
    const Answered<double> radius =
        askLength({.text = L"Specify radius of arc: ", .base = start, .bits = RSG_NOZERO});
    if (!radius.given())
        return std::nullopt;
    const auto bulge = [&](const AcGePoint3d& to) {
        return bulgeOfRadius(start.convert2d(), to.convert2d(), radius.value);
    };
    const Answered<AcGePoint3d> end = askUntil(
        [&] {
            return askPlace({.text = L"Specify endpoint of arc or [Angle]: ",
                             .keywords = L"Angle",
                             .base = start});
        },
        [&](const AcGePoint3d& to) {
            return bulge(to) ? nullptr : L"The radius is too small for this end point.\n";
        });
    if (end.given())
        return ArcEnd{end.value.convert2d(), *bulge(end.value)};
    const std::optional<double> turn = end.chose(L"Angle") ? askIncludedAngle(start) : std::nullopt;
    return turn ? byChord(start, direction, radius.value, *turn) : std::nullopt;
}

std::optional<ArcEnd> bySecond(const AcGePoint3d& start, double)
{
    const Answered<AcGePoint3d> second =
        askOtherPlaceInPlane({.text = L"Specify second point on arc: ", .base = start});
    if (!second.given())
        return std::nullopt;
    const auto bulge = [&](const AcGePoint3d& to) {
        return bulgeThrough(start.convert2d(), second.value.convert2d(), to.convert2d());
    };
    const Answered<AcGePoint3d> end = askUntil(
        [&] { return askPlace({.text = L"Specify end point of arc: ", .base = second.value}); },
        [&](const AcGePoint3d& to) { return bulge(to) ? nullptr : kOnALine; });
    return end.given() ? std::optional(ArcEnd{end.value.convert2d(), *bulge(end.value)})
                       : std::nullopt;
}

struct Way {
    const wchar_t* keyword;
    std::optional<ArcEnd> (*ask)(const AcGePoint3d& start, double direction);
};
constexpr Way kWays[] = {{L"Angle", byAngle},
                         {L"CEnter", byCentre},
                         {L"Direction", byDirection},
                         {L"Radius", byRadius},
                         {L"Second", bySecond}};

} // namespace

std::optional<ArcEnd> arcByOption(const std::wstring& keyword, const AcGePoint3d& start,
                                  double direction)
{
    for (const Way& way : kWays)
        if (keyword == way.keyword)
            return way.ask(start, direction);
    return std::nullopt;
}

std::optional<double> askIncludedAngle(const AcGePoint3d& base)
{
    const Answered<double> turn = askUntil(
        [&] {
            return askTurn({.text = L"Specify included angle: ", .base = base, .bits = RSG_NOZERO});
        },
        [](double angle) {
            return std::abs(std::remainder(angle, kTurn)) < 1e-9
                       ? L"The angle is no part of a turn.\n"
                       : nullptr;
        });
    return turn.given() ? std::optional(std::fmod(turn.value, kTurn)) : std::nullopt;
}

std::optional<double> askTurnAbout(const AcGePoint3d& centre, const AcGePoint3d& start,
                                   const wchar_t* prompt)
{
    const AcGePoint2d middle = centre.convert2d();
    const auto turnTo = [&](const AcGePoint3d& to) {
        return turnBetween(middle, start.convert2d(), to.convert2d());
    };
    const Answered<AcGePoint3d> answer = askUntil(
        [&] { return askPlace({.text = prompt, .keywords = L"Angle Length", .base = centre}); },
        [&](const AcGePoint3d& to) {
            return to.convert2d().isEqualTo(middle) || turnTo(to) > kTurn - 1e-9 ? kSamePlace
                                                                                 : nullptr;
        });
    if (answer.given())
        return turnTo(answer.value);
    if (answer.chose(L"Angle"))
        return askIncludedAngle(centre);
    if (!answer.chose(L"Length"))
        return std::nullopt;
    const double radius = middle.distanceTo(start.convert2d());
    const Answered<double> chord = askUntil(
        [&] {
            return askLength(
                {.text = L"Specify length of chord: ", .base = start, .bits = RSG_NOZERO});
        },
        [&](double length) {
            return turnOfChord(radius, length) ? nullptr
                                               : L"The chord is longer than the diameter.\n";
        });
    return chord.given() ? turnOfChord(radius, chord.value) : std::nullopt;
}

} // namespace host
