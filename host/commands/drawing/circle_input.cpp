#include "host/commands/drawing/circle_input.h"

#include "host/commands/drawing/picked_curve.h"
#include "host/edit/system_variables.h"

namespace host {

namespace {

constexpr const wchar_t* kLastRadius = L"CIRCLERAD"; // 0 until there was one

std::optional<double> keptRadius(const Answered<double>& answer, double share)
{
    const double last = realVariable(kLastRadius, 0.0);
    if (answer.enter() && last > 0.0)
        return last;
    if (!answer.given())
        return std::nullopt;
    setReal(kLastRadius, answer.value * share);
    return answer.value * share;
}

Answered<double> askSize(const std::wstring& text, const wchar_t* keywords,
                         const std::optional<AcGePoint3d>& base, double share)
{
    const double last = realVariable(kLastRadius, 0.0);
    return askLength({.text = text + (last > 0.0 ? bracketed(last / share) : L"") + L": ",
                      .keywords = keywords,
                      .base = base,
                      .enterCounts = last > 0.0,
                      .bits = RSG_NOZERO | RSG_NONEG});
}

std::optional<GivenCircle> byDiameter()
{
    const auto first = askPlace({.text = L"Specify first end point of circle's diameter: "});
    if (!first.given())
        return std::nullopt;
    const auto second = askOtherPlaceInPlane(
        {.text = L"Specify second end point of circle's diameter: ", .base = first.value});
    if (!second.given())
        return std::nullopt;
    const AcGePoint3d other(second.value.convert2d(), first.value.z);
    return GivenCircle{interpolated(first.value, other, 0.5), first.value.distanceTo(other) / 2.0};
}

std::optional<GivenCircle> byThreePoints()
{
    const auto first = askPlace({.text = L"Specify first point on circle: "});
    if (!first.given())
        return std::nullopt;
    const auto second =
        askOtherPlaceInPlane({.text = L"Specify second point on circle: ", .base = first.value});
    if (!second.given())
        return std::nullopt;
    const AcGePoint2d a = first.value.convert2d();
    const AcGePoint2d b = second.value.convert2d();
    const auto third = askUntil(
        [&] {
            return askPlace({.text = L"Specify third point on circle: ", .base = second.value});
        },
        [&](const AcGePoint3d& p) {
            return circleThrough(a, b, p.convert2d()) ? nullptr : kOnALine;
        });
    if (!third.given())
        return std::nullopt;
    const PlaneCircle circle = *circleThrough(a, b, third.value.convert2d());
    return GivenCircle{{circle.centre, first.value.z}, circle.radius};
}

struct PickedTangent {
    TangentTarget target;
    AcGePoint3d near;
};

std::optional<PickedTangent> pickTangent(const wchar_t* prompt)
{
    while (const std::optional<PickedEntity> picked = pickEntity(prompt)) {
        if (const auto target = targetNear(picked->id, picked->place))
            return PickedTangent{*target, picked->place};
        refuse(L"No line, circle or arc is there.\n");
    }
    return std::nullopt;
}

std::optional<GivenCircle> byTangents()
{
    const auto first = pickTangent(L"Specify point on object for first tangent of circle: ");
    if (!first)
        return std::nullopt;
    const auto second = pickTangent(L"Specify point on object for second tangent of circle: ");
    if (!second)
        return std::nullopt;
    const std::optional<double> radius =
        keptRadius(askSize(L"Specify radius of circle", L"", std::nullopt, 1.0), 1.0);
    if (!radius)
        return std::nullopt;
    const std::optional<PlaneCircle> circle = tangentCircle(
        first->target, first->near.convert2d(), second->target, second->near.convert2d(), *radius);
    if (!circle) {
        refuse(L"Circle does not exist.\n");
        return std::nullopt;
    }
    return GivenCircle{{circle->centre, first->near.z}, circle->radius};
}

} // namespace

std::optional<GivenCircle> circleByKeyword(const std::wstring& keyword)
{
    return keyword == L"2P" ? byDiameter() : keyword == L"3P" ? byThreePoints() : byTangents();
}

std::optional<double> askRadius(const std::wstring& what, const std::wstring& diameter,
                                const AcGePoint3d& centre)
{
    const Answered<double> radius = askSize(what + L" or [Diameter]", L"Diameter", centre, 1.0);
    if (!radius.chose(L"Diameter"))
        return keptRadius(radius, 1.0);
    return keptRadius(askSize(diameter, L"", centre, 0.5), 0.5);
}

} // namespace host
