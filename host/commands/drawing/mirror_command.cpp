#include "host/commands/drawing/mirror_command.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing/changed_entities.h"
#include "host/commands/drawing/drawing_prompts.h"
#include "host/edit/system_variables.h"

// Nothing is mirrored before the last answer: Escape leaves all as it was. With MIRRTEXT 0 text
// can be read afterwards: one line of text takes the mirrored place and keeps its alignment, a text
// of several lines is held by its other side. With 1 its letters are mirrored too. Dimensions and
// the text of multileaders are always readable.

namespace host {

void mirrorCommand()
{
    if (!documentOfCommand())
        return;
    const auto entities = entitiesToChange();
    if (!entities)
        return;
    const Answered<AcGePoint3d> from = askPlace({.text = L"Specify first point of mirror line: "});
    if (!from.given())
        return;
    const Answered<AcGePoint3d> to = askOtherPlaceInPlane(
        {.text = L"Specify second point of mirror line: ", .base = from.value});
    if (!to.given())
        return;
    const Answered<int> erases =
        askOption(L"Erase source objects? [Yes/No] <N>: ", L"Yes No", L"No");
    if (!erases.isKeyword())
        return;
    const AcGeVector3d along = to.value - from.value;
    const AcGeMatrix3d map =
        AcGeMatrix3d::mirroring(from.value, AcGeVector3d(-along.y, along.x, 0.0));
    const MirroredText text =
        integerVariable(L"MIRRTEXT", 0) == 0 ? MirroredText::readable : MirroredText::mirrored;
    if (erases.chose(L"Yes"))
        transformAll(*entities, map, text);
    else
        transformCopies(*entities, map, text);
}

} // namespace host
