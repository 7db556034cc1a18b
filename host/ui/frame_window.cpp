#include "host/ui/frame_window.h"

CMDIFrameWnd* acedGetAcadFrame()
{
    static CMDIFrameWnd frame;
    return &frame;
}
