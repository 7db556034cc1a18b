#include "host/commands/drawing/dimension_circles.h"

#include "host/db/dimension_kinds.h"

#include <cmath>

namespace host {

namespace {

const PromptForm kLocation{
    .text = L"Specify dimension line location or [Mtext/Text/Angle]: ",
    .keywords = L"Mtext Text Angle",
};

std::optional<Arc3d> askCircle()
{
    const std::optional<PickedStroke> picked =
        pickStroke(L"Select arc or circle: ", isRoundStroke, L"The object is no arc or circle.\n");
    return picked ? std::optional(*picked->arc()) : std::nullopt;
}

// From the centre toward a place, as long as the radius.
AcGeVector3d spoke(const Arc3d& circle, const AcGePoint3d& place)
{
    const AcGeVector2d toward = (place - circle.centre).convert2d();
    const AcGeVector2d unit = toward.isZeroLength() ? AcGeVector2d::kXAxis : toward.normal();
    return AcGeVector3d(unit.x, unit.y, 0.0) * circle.radius();
}

double beyondCircle(const Arc3d& circle, const AcGePoint3d& place)
{
    const double distance = (place - circle.centre).convert2d().length();
    return std::max(distance - circle.radius(), 0.0);
}

// Radius and diameter: the size is told first, then the text is placed.
template <class Dimension, class Measure> AcDbObjectId drawSize(TextPrompt prompt, Measure measure)
{
    const std::optional<Arc3d> circle = askCircle();
    if (!circle)
        return {};
    DimensionDraft draft(prompt);
    auto dimension = std::make_unique<Dimension>();
    measure(*dimension, *circle, spoke(*circle, circle->centre));
    draft.tell(*dimension);
    if (!draft.askTextIfAlways(*dimension))
        return {};
    const std::optional<AcGePoint3d> place = draft.askPlace(kLocation, *dimension);
    if (!place)
        return {};
    measure(*dimension, *circle, spoke(*circle, *place));
    dimension->setLeaderLength(beyondCircle(*circle, *place));
    return draft.append(std::move(dimension), place);
}

} // namespace

AcDbObjectId drawRadiusDimension(TextPrompt prompt)
{
    return drawSize<AcDbRadialDimension>(
        prompt, [](AcDbRadialDimension& dimension, const Arc3d& circle, const AcGeVector3d& out) {
            dimension.setCenter(circle.centre);
            dimension.setChordPoint(circle.centre + out);
        });
}

AcDbObjectId drawDiameterDimension(TextPrompt prompt)
{
    return drawSize<AcDbDiametricDimension>(
        prompt,
        [](AcDbDiametricDimension& dimension, const Arc3d& circle, const AcGeVector3d& out) {
            dimension.setFarChordPoint(circle.centre - out);
            dimension.setChordPoint(circle.centre + out);
        });
}

AcDbObjectId drawJoggedDimension(TextPrompt prompt)
{
    const std::optional<Arc3d> circle = askCircle();
    if (!circle)
        return {};
    const Answered<AcGePoint3d> centre = askPlace({.text = L"Specify center location override: "});
    if (!centre.given())
        return {};
    DimensionDraft draft(prompt);
    auto dimension = std::make_unique<AcDbRadialDimensionLarge>();
    dimension->setCenter(circle->centre);
    dimension->setOverrideCenter(centre.value);
    dimension->setChordPoint(circle->centre + spoke(*circle, centre.value));
    draft.tell(*dimension);
    if (!draft.askTextIfAlways(*dimension))
        return {};
    const std::optional<AcGePoint3d> place = draft.askPlace(kLocation, *dimension);
    if (!place)
        return {};
    const Answered<AcGePoint3d> jog = askPlace({.text = L"Specify jog location: "});
    if (!jog.given())
        return {};
    dimension->setChordPoint(circle->centre + spoke(*circle, *place));
    dimension->setJogPoint(jog.value);
    dimension->setJogAngle(draft.style().jogang);
    return draft.append(std::move(dimension), place);
}

AcDbObjectId drawOrdinateDimension(TextPrompt prompt)
{
    const Answered<AcGePoint3d> feature = askPlace({.text = L"Specify feature location: "});
    if (!feature.given())
        return {};
    DimensionDraft draft(prompt);
    auto dimension = std::make_unique<AcDbOrdinateDimension>();
    dimension->setOrigin(AcGePoint3d::kOrigin);
    dimension->setDefiningPoint(feature.value);
    std::optional<bool> alongX;
    const PromptForm form{
        .text = L"Specify leader endpoint or [Xdatum/Ydatum/Mtext/Text/Angle]: ",
        .keywords = L"Xdatum Ydatum Mtext Text Angle",
        .base = feature.value,
    };
    const std::optional<AcGePoint3d> end =
        draft.askPlace(form, *dimension, [&](const std::wstring& keyword) {
            alongX = keyword == L"Xdatum";
            dimension->setUsingXAxis(*alongX);
            return true;
        });
    if (!end)
        return {};
    // a leader that runs rather up or down leads from an x coordinate
    const AcGeVector3d leader = *end - feature.value;
    dimension->setUsingXAxis(alongX.value_or(std::abs(leader.y) >= std::abs(leader.x)));
    dimension->setLeaderEndPoint(*end);
    if (!draft.askTextIfAlways(*dimension))
        return {};
    draft.tell(*dimension);
    return draft.append(std::move(dimension));
}

} // namespace host
