#include "host/commands/drawing/circle_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/circle_input.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/circle.h"

// Escape at any of its prompts leaves nothing.

namespace host {

namespace {

std::optional<GivenCircle> askCircle()
{
    const Answered<AcGePoint3d> centre =
        askPlace({.text = L"Specify center point for circle or [3P/2P/Ttr (tan tan radius)]: ",
                  .keywords = L"3P 2P Ttr"});
    if (centre.isKeyword())
        return circleByKeyword(centre.keyword);
    if (!centre.given())
        return std::nullopt;
    const std::optional<double> radius =
        askRadius(L"Specify radius of circle", L"Specify diameter of circle", centre.value);
    return radius ? std::optional(GivenCircle{centre.value, *radius}) : std::nullopt;
}

} // namespace

void circleCommand()
{
    if (!documentOfCommand())
        return;
    if (const std::optional<GivenCircle> circle = askCircle())
        appendThick(
            std::make_unique<AcDbCircle>(circle->centre, AcGeVector3d::kZAxis, circle->radius));
}

} // namespace host
