#include "host/commands/drawing/dimension_lengths.h"

#include "host/db/dimension_kinds.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kQuarterTurn = 0.5 * std::numbers::pi;

// The two places, or a circle of which the diameter in the measured direction counts.
struct Origins {
    AcGePoint3d first;
    AcGePoint3d second;
    std::optional<Arc3d> circle;
    AcGePoint3d picked;
};

std::optional<Origins> originsOfObject()
{
    const std::optional<PickedStroke> picked =
        pickStroke(L"Select object to dimension: ", isAnyStroke,
                   L"The object is no line, arc, circle or polyline.\n");
    if (!picked)
        return std::nullopt;
    if (const Segment3d* const segment = picked->segment())
        return Origins{segment->from, segment->to, {}, picked->place};
    const Arc3d& arc = *picked->arc();
    if (arc.isClosed())
        return Origins{arc.centre, arc.centre, arc, picked->place};
    return Origins{arc.startPoint(), arc.endPoint(), {}, picked->place};
}

std::optional<Origins> askOrigins()
{
    const Answered<AcGePoint3d> first = askPlace(
        {.text = L"Specify first extension line origin or <select object>: ", .enterCounts = true});
    if (first.enter())
        return originsOfObject();
    if (!first.given())
        return std::nullopt;
    const auto second = askUntil(
        [&] {
            return askPlace(
                {.text = L"Specify second extension line origin: ", .base = first.value});
        },
        [&](const AcGePoint3d& p) {
            return p.convert2d().isEqualTo(first.value.convert2d()) ? kSamePlace : nullptr;
        });
    if (!second.given())
        return std::nullopt;
    return Origins{first.value, second.value, {}, {}};
}

// The ends of the circle's diameter in a direction.
void takeDiameter(Origins& origins, double angle)
{
    if (!origins.circle)
        return;
    const AcGeVector3d half =
        AcGeVector3d(std::cos(angle), std::sin(angle), 0.0) * origins.circle->radius();
    origins.first = origins.circle->centre - half;
    origins.second = origins.circle->centre + half;
}

// A line beside the two places measures vertically, one above or below them horizontally.
bool liesBeside(const Origins& origins, const AcGePoint3d& place)
{
    if (origins.circle) {
        const AcGeVector3d off = place - origins.circle->centre;
        return std::abs(off.x) > std::abs(off.y);
    }
    const auto [left, right] = std::minmax(origins.first.x, origins.second.x);
    const auto [bottom, top] = std::minmax(origins.first.y, origins.second.y);
    if (right == left || top == bottom)
        return right == left;
    const double beside = std::max({left - place.x, place.x - right, 0.0});
    const double above = std::max({bottom - place.y, place.y - top, 0.0});
    return beside > above;
}

// The place on the dimension line across from the second origin, which the file keeps.
AcGePoint3d onDimensionLine(const AcGePoint3d& place, const AcGePoint3d& second, double angle)
{
    const AcGeVector2d along(std::cos(angle), std::sin(angle));
    const double offset = (second.convert2d() - place.convert2d()).dotProduct(along);
    return {place.convert2d() + along * offset, second.z};
}

void setOrigins(AcDbRotatedDimension& dimension, Origins& origins, double angle)
{
    takeDiameter(origins, angle);
    dimension.setXLine1Point(origins.first);
    dimension.setXLine2Point(origins.second);
    dimension.setRotation(angle);
}

std::optional<double> askLineAngle()
{
    const Answered<double> turn =
        askTurn({.text = L"Specify angle of dimension line <0>: ", .enterCounts = true});
    return turn.cancelled() ? std::nullopt : std::optional(turn.value);
}

} // namespace

AcDbObjectId drawLinearDimension(Measures measures, TextPrompt prompt)
{
    std::optional<double> angle;
    if (measures == Measures::horizontally)
        angle = 0.0;
    else if (measures == Measures::vertically)
        angle = kQuarterTurn;
    else if (measures == Measures::atAngle && !(angle = askLineAngle()))
        return {};
    std::optional<Origins> origins = askOrigins();
    if (!origins)
        return {};

    DimensionDraft draft(prompt);
    auto dimension = std::make_unique<AcDbRotatedDimension>();
    const auto turnTo = [&](double to) {
        angle = to;
        setOrigins(*dimension, *origins, to);
    };
    const bool chosen = angle.has_value();
    setOrigins(*dimension, *origins,
               angle.value_or(liesBeside(*origins, origins->first) ? kQuarterTurn : 0.0));
    const PromptForm any{
        .text = L"Specify dimension line location or "
                L"[Mtext/Text/Angle/Horizontal/Vertical/Rotated]: ",
        .keywords = L"Mtext Text Angle Horizontal Vertical Rotated",
    };
    const PromptForm settled{
        .text = L"Specify dimension line location or [Mtext/Text/Angle]: ",
        .keywords = L"Mtext Text Angle",
    };
    const std::optional<AcGePoint3d> place =
        draft.askPlace(chosen ? settled : any, *dimension, [&](const std::wstring& keyword) {
            const std::optional<double> to = keyword == L"Horizontal" ? std::optional(0.0)
                                             : keyword == L"Vertical" ? std::optional(kQuarterTurn)
                                                                      : askLineAngle();
            if (to)
                turnTo(*to);
            return to.has_value();
        });
    if (!place)
        return {};
    turnTo(angle.value_or(liesBeside(*origins, *place) ? kQuarterTurn : 0.0));
    dimension->setDimLinePoint(onDimensionLine(*place, origins->second, *angle));
    if (!draft.askTextIfAlways(*dimension))
        return {};
    draft.tell(*dimension);
    return draft.append(std::move(dimension));
}

AcDbObjectId drawAlignedDimension(TextPrompt prompt)
{
    std::optional<Origins> origins = askOrigins();
    if (!origins)
        return {};
    if (origins->circle)
        takeDiameter(*origins, (origins->circle->centre - origins->picked).convert2d().angle());
    DimensionDraft draft(prompt);
    auto dimension = std::make_unique<AcDbAlignedDimension>();
    dimension->setXLine1Point(origins->first);
    dimension->setXLine2Point(origins->second);
    const std::optional<AcGePoint3d> place =
        draft.askPlace({.text = L"Specify dimension line location or [Mtext/Text/Angle]: ",
                        .keywords = L"Mtext Text Angle"},
                       *dimension);
    if (!place)
        return {};
    const double angle = (origins->second - origins->first).convert2d().angle();
    dimension->setDimLinePoint(onDimensionLine(*place, origins->second, angle));
    if (!draft.askTextIfAlways(*dimension))
        return {};
    draft.tell(*dimension);
    return draft.append(std::move(dimension));
}

} // namespace host
