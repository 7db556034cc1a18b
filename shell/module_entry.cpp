#include "shell/kelmaro_app.h"

// The module's two exports; everything else is hidden.

namespace {

CkelmaroApp theApp;

} // namespace

extern "C" {

__attribute__((visibility("default"))) AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message,
                                                                       void* packet)
{
    return theApp.dispatch(message, packet);
}

__attribute__((visibility("default"))) int acrxGetApiVersion()
{
    return kAcRxApiVersion;
}
}
