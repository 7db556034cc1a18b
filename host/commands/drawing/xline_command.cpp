#include "host/commands/drawing/xline_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/commands/drawing/picked_curve.h"
#include "host/db/ray.h"
#include "host/edit/system_variables.h"

#include <cmath>

// Each line is in the drawing as soon as it is given; Escape leaves them, as Enter does.

namespace host {

namespace {

constexpr const wchar_t* kOffset = L"OFFSETDIST"; // negative: through a point

void draw(const AcGePoint3d& base, const AcGeVector3d& direction)
{
    auto line = std::make_unique<AcDbXline>();
    line->setBasePoint(base);
    line->setUnitDir(direction);
    appendNew(std::move(line));
}

AcGeVector3d atAngle(double angle)
{
    return {std::cos(angle), std::sin(angle), 0.0};
}

void drawParallel(const AcGeVector3d& direction)
{
    for (;;) {
        const Answered<AcGePoint3d> through =
            askPlace({.text = L"Specify through point: ", .enterCounts = true});
        if (!through.given())
            return;
        draw(through.value, direction);
    }
}

void drawThrough(const AcGePoint3d& base)
{
    for (;;) {
        const Answered<AcGePoint3d> through =
            askOtherPlace({.text = L"Specify through point: ", .base = base, .enterCounts = true});
        if (!through.given())
            return;
        draw(base, through.value - base);
    }
}

struct PickedLine {
    PlaneLine line;
    double height = 0.0;
};

std::optional<PickedLine> pickLine()
{
    while (const std::optional<PickedEntity> picked = pickEntity(L"Select a line object: ")) {
        if (const std::optional<PlaneLine> line = lineNear(picked->id, picked->place))
            return PickedLine{*line, picked->place.z};
        refuse(L"No straight line is there.\n");
    }
    return std::nullopt;
}

void drawAtAngle()
{
    Answered<double> angle = askTurn({.text = L"Enter angle of xline (0) or [Reference]: ",
                                      .keywords = L"Reference",
                                      .enterCounts = true});
    double zero = 0.0;
    if (angle.chose(L"Reference")) {
        const std::optional<PickedLine> reference = pickLine();
        if (!reference)
            return;
        zero = reference->line.direction.angle();
        angle = askTurn({.text = L"Enter angle of xline <0>: ", .enterCounts = true});
    }
    if (!angle.cancelled())
        drawParallel(atAngle(zero + (angle.given() ? angle.value : 0.0)));
}

void drawBisecting()
{
    const Answered<AcGePoint3d> vertex = askPlace({.text = L"Specify angle vertex point: "});
    if (!vertex.given())
        return;
    const Answered<AcGePoint3d> start =
        askOtherPlace({.text = L"Specify angle start point: ", .base = vertex.value});
    if (!start.given())
        return;
    const AcGeVector3d first = (start.value - vertex.value).normal();
    for (;;) {
        const Answered<AcGePoint3d> end = askOtherPlace(
            {.text = L"Specify angle end point: ", .base = vertex.value, .enterCounts = true});
        if (!end.given())
            return;
        const AcGeVector3d second = (end.value - vertex.value).normal();
        AcGeVector3d half = first + second;
        if (half.isZeroLength(AcGeTol(1e-10, 1e-10)))
            half = AcGeVector3d::kZAxis.crossProduct(first); // a straight angle
        draw(vertex.value, half);
    }
}

// The distance, or none to go through a point; nothing when cancelled.
std::optional<std::optional<double>> askOffset()
{
    const double last = realVariable(kOffset, 1.0);
    const std::wstring shown = last < 0.0 ? L" <Through>" : bracketed(last);
    const Answered<double> answer =
        askLength({.text = L"Specify offset distance or [Through]" + shown + L": ",
                   .keywords = L"Through",
                   .enterCounts = true,
                   .bits = RSG_NOZERO | RSG_NONEG});
    if (answer.cancelled())
        return std::nullopt;
    const double kept = answer.given() ? answer.value : answer.enter() ? last : -1.0;
    setReal(kOffset, kept);
    return kept < 0.0 ? std::optional<double>() : std::optional(kept);
}

void drawBeside()
{
    const std::optional<std::optional<double>> distance = askOffset();
    while (distance) {
        const std::optional<PickedLine> picked = pickLine();
        if (!picked)
            return;
        const Answered<AcGePoint3d> side = askPlace(
            {.text = *distance ? L"Specify side to offset: " : L"Specify through point: "});
        if (!side.given())
            return;
        const AcGeVector2d along = picked->line.direction;
        const double across = along.crossProduct(side.value.convert2d() - picked->line.point);
        const double by = *distance ? std::copysign(**distance, across) : across;
        draw({picked->line.point + along.perpVector() * by, picked->height},
             AcGeVector3d(along.x, along.y, 0.0));
    }
}

} // namespace

void xlineCommand()
{
    if (!documentOfCommand())
        return;
    const Answered<AcGePoint3d> first =
        askPlace({.text = L"Specify a point or [Hor/Ver/Ang/Bisect/Offset]: ",
                  .keywords = L"Hor Ver Ang Bisect Offset"});
    if (first.given())
        drawThrough(first.value);
    else if (first.chose(L"Hor"))
        drawParallel(AcGeVector3d::kXAxis);
    else if (first.chose(L"Ver"))
        drawParallel(AcGeVector3d::kYAxis);
    else if (first.chose(L"Ang"))
        drawAtAngle();
    else if (first.chose(L"Bisect"))
        drawBisecting();
    else if (first.chose(L"Offset"))
        drawBeside();
}

} // namespace host
