#include "host/commands/drawing/move_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/changed_entities.h"
#include "host/commands/drawing/displacement.h"
#include "host/commands/drawing/drawing_prompts.h"

// Nothing is moved before the last answer: Escape leaves all where it was.

namespace host {

namespace {

std::optional<AcGeVector3d> askMove()
{
    const Answered<AcGePoint3d> base =
        askPlace({.text = L"Specify base point or [Displacement] <Displacement>: ",
                  .keywords = L"Displacement",
                  .enterCounts = true});
    if (base.cancelled())
        return std::nullopt;
    if (!base.given())
        return askDisplacement();
    const Answered<AcGePoint3d> to =
        askPlace({.text = L"Specify second point or <use first point as displacement>: ",
                  .base = base.value,
                  .enterCounts = true});
    if (to.cancelled())
        return std::nullopt;
    return to.given() ? to.value - base.value : base.value.asVector();
}

} // namespace

void moveCommand()
{
    if (!documentOfCommand())
        return;
    const auto entities = entitiesToChange();
    if (!entities)
        return;
    if (const std::optional<AcGeVector3d> by = askMove())
        transformAll(*entities, AcGeMatrix3d::translation(*by));
}

} // namespace host
