#include "host/runtime/arx_app.h"

#include "host/runtime/dynamic_linker.h"

#include <array>
#include <cstddef>

AcRx::AppRetCode AcRxDbxApp::On_kInitAppMsg(void* packet)
{
    if (unloadable)
        acrxDynamicLinker()->unlockApplication(packet);
    if (mdiAware)
        acrxDynamicLinker()->registerAppMDIAware(packet);
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::On_kUnloadAppMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kLoadDwgMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kUnloadDwgMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kInvkSubrMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kCfgMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kEndMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kQuitMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kSaveMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kDependencyMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kNoDependencyMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kOleUnloadAppMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kPreQuitMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kInitDialogMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kEndDialogMsg(void*)
{
    return AcRx::kRetOK;
}
AcRx::AppRetCode AcRxDbxApp::On_kNullMsg(void*)
{
    return AcRx::kRetOK;
}

AcRx::AppRetCode AcRxDbxApp::dispatch(AcRx::AppMsgCode message, void* packet)
{
    using Handler = AcRx::AppRetCode (AcRxDbxApp::*)(void*);
    static constexpr std::array<Handler, AcRx::kEndDialogMsg + 1> kHandlers = {
        &AcRxDbxApp::On_kNullMsg,         &AcRxDbxApp::On_kInitAppMsg,
        &AcRxDbxApp::On_kUnloadAppMsg,    &AcRxDbxApp::On_kLoadDwgMsg,
        &AcRxDbxApp::On_kUnloadDwgMsg,    &AcRxDbxApp::On_kInvkSubrMsg,
        &AcRxDbxApp::On_kCfgMsg,          &AcRxDbxApp::On_kEndMsg,
        &AcRxDbxApp::On_kQuitMsg,         &AcRxDbxApp::On_kSaveMsg,
        &AcRxDbxApp::On_kDependencyMsg,   &AcRxDbxApp::On_kNoDependencyMsg,
        &AcRxDbxApp::On_kOleUnloadAppMsg, &AcRxDbxApp::On_kPreQuitMsg,
        &AcRxDbxApp::On_kInitDialogMsg,   &AcRxDbxApp::On_kEndDialogMsg,
    };
    const auto code = static_cast<std::size_t>(message);
    return code < kHandlers.size() ? (this->*kHandlers[code])(packet) : AcRx::kRetOK;
}
