#include "host/commands/drawing/scale_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/asked_change.h"

// Nothing is scaled before the last answer: Escape leaves all as it was.

namespace host {

namespace {

constexpr int kPositive = RSG_NOZERO | RSG_NONEG;

std::optional<double> lengthBetweenPoints()
{
    const Answered<AcGePoint3d> from = askPlace({.text = L"Specify first point: "});
    if (!from.given())
        return std::nullopt;
    const Answered<AcGePoint3d> to =
        askOtherPlace({.text = L"Specify second point: ", .base = from.value});
    return to.given() ? std::optional(from.value.distanceTo(to.value)) : std::nullopt;
}

// A length as it is now, and as it will be; nothing when cancelled.
std::optional<double> askReference(const AcGePoint3d& base)
{
    const std::wstring one = bracketed(1.0) + L": ";
    const Answered<double> now = askLength(
        {.text = L"Specify reference length" + one, .enterCounts = true, .bits = kPositive});
    if (now.cancelled())
        return std::nullopt;
    const Answered<double> then = askLength({.text = L"Specify new length or [Points]" + one,
                                             .keywords = L"Points",
                                             .base = base,
                                             .enterCounts = true,
                                             .bits = kPositive});
    if (then.cancelled())
        return std::nullopt;
    const std::optional<double> length = then.isKeyword() ? lengthBetweenPoints()
                                         : then.given()   ? then.value
                                                          : 1.0;
    return length ? std::optional(*length / (now.given() ? now.value : 1.0)) : std::nullopt;
}

} // namespace

void scaleCommand()
{
    if (!documentOfCommand())
        return;
    askChange({.prompt = L"Specify scale factor or [Copy/Reference]: ",
               .ask = askLength,
               .bits = kPositive,
               .askReference = askReference,
               .copying = L"Scaling a copy of the selected objects.\n",
               .map = [](double factor, const AcGePoint3d& base) {
                   return AcGeMatrix3d::scaling(factor, base);
               }});
}

} // namespace host
