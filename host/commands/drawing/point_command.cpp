#include "host/commands/drawing/point_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/commands/drawing/new_entity.h"
#include "host/db/point_entity.h"
#include "host/edit/command_engine.h"
#include "host/text/wide_format.h"

// Ends with its point; it is a menu that goes on asking. Escape leaves nothing.

namespace host {

void pointCommand()
{
    if (!documentOfCommand())
        return;
    engine().printForPrompt(
        format(L"Current point modes:  PDMODE=%d  PDSIZE=", integerVariable(L"PDMODE", 0)) +
        lengthText(realVariable(L"PDSIZE", 0.0)) + L"\n");
    const Answered<AcGePoint3d> place = askPlace({.text = L"Specify a point: "});
    if (place.given())
        appendThick(std::make_unique<AcDbPoint>(place.value));
}

} // namespace host
