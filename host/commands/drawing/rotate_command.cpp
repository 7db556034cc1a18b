#include "host/commands/drawing/rotate_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/asked_change.h"
#include "host/edit/command_engine.h"

#include <cmath>

// Nothing is turned before the last answer: Escape leaves all as it was.

namespace host {

namespace {

// The angle that a direction has now, and the one that it gets; nothing when cancelled.
std::optional<double> askReference(const AcGePoint3d& base)
{
    const Answered<double> now =
        askTurn({.text = L"Specify the reference angle <0>: ", .enterCounts = true});
    if (now.cancelled())
        return std::nullopt;
    const Answered<double> then = askTurn({.text = L"Specify the new angle or [Points] <0>: ",
                                           .keywords = L"Points",
                                           .base = base,
                                           .enterCounts = true});
    if (!then.isKeyword())
        return then.cancelled() ? std::nullopt : std::optional(then.value - now.value);
    const Answered<AcGePoint3d> from = askPlace({.text = L"Specify first point: "});
    if (!from.given())
        return std::nullopt;
    const Answered<AcGePoint3d> to =
        askOtherPlaceInPlane({.text = L"Specify second point: ", .base = from.value});
    if (!to.given())
        return std::nullopt;
    const AcGeVector3d along = to.value - from.value;
    return std::atan2(along.y, along.x) - now.value;
}

} // namespace

void rotateCommand()
{
    if (!documentOfCommand())
        return;
    engine().printForPrompt(
        L"Current positive angle in UCS:  ANGDIR=counterclockwise  ANGBASE=0\n");
    askChange({.prompt = L"Specify rotation angle or [Copy/Reference] <0>: ",
               .ask = askTurn,
               .enterCounts = true,
               .askReference = askReference,
               .copying = L"Rotating a copy of the selected objects.\n",
               .map = [](double turn, const AcGePoint3d& base) {
                   return AcGeMatrix3d::rotation(turn, AcGeVector3d::kZAxis, base);
               }});
}

} // namespace host
