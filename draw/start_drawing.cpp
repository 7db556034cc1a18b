#include "draw/start_drawing.h"

#include "draw/drawing_scripts.h"
#include "host/ui/frame_window.h"
#include "host/ui/message_box.h"
#include "text/messages.h"

void StartDrawing(std::shared_ptr<const ObjectDef> object, bool repeat,
                  std::vector<HostVariable> saved)
{
    if (object->props.types.empty())
        return tell(Message::objectWithoutType);
    CMDIFrameWnd* const frame = acedGetAcadFrame();
    frame->SetFocus(); // what is drawn is answered there, also when a palette began it
    drawingEngine().attach();

    ScriptChoice choice = chooseScript(object->props);
    if (choice.unsupported)
        MessageBoxW(frame, textOf(Message::drawingNotSupported), textOf(Message::boxTitle),
                    MB_ICONWARNING);
    if (!choice.script)
        return;
    choice.script->repeat = choice.script->repeat && repeat;
    drawingEngine().start(std::move(*choice.script), std::move(object), std::move(saved));
}
