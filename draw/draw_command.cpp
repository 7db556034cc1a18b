#include "draw/draw_command.h"

#include "draw/draw_object.h"
#include "frame/command_frame.h"
#include "frame/prompts.h"
#include "host/text/case_mapping.h"
#include "session/session.h"

void drawNamedObject()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<std::wstring> name = askObjectName();
    if (!name || name->empty())
        return;
    DrawObject(session().description, host::lowerCased(*name));
    session().tellDrawn(*name); // as typed, whatever came of it
}
