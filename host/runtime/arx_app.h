#pragma once

#include "host/runtime/app_message.h"

// Base of a module's application object: one handler for each message, called by dispatch().
// A handler that is not overridden answers kRetOK.
class AcRxDbxApp {
public:
    virtual ~AcRxDbxApp() = default;
    AcRxDbxApp(const AcRxDbxApp&) = delete;
    AcRxDbxApp& operator=(const AcRxDbxApp&) = delete;

    // The base tells the dynamic linker what the two flags say; overriders call it first.
    virtual AcRx::AppRetCode On_kInitAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kUnloadAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kLoadDwgMsg(void* packet);
    virtual AcRx::AppRetCode On_kUnloadDwgMsg(void* packet);
    virtual AcRx::AppRetCode On_kInvkSubrMsg(void* packet);
    virtual AcRx::AppRetCode On_kCfgMsg(void* packet);
    virtual AcRx::AppRetCode On_kEndMsg(void* packet);
    virtual AcRx::AppRetCode On_kQuitMsg(void* packet);
    virtual AcRx::AppRetCode On_kSaveMsg(void* packet);
    virtual AcRx::AppRetCode On_kDependencyMsg(void* packet);
    virtual AcRx::AppRetCode On_kNoDependencyMsg(void* packet);
    virtual AcRx::AppRetCode On_kOleUnloadAppMsg(void* packet);
    virtual AcRx::AppRetCode On_kPreQuitMsg(void* packet);
    virtual AcRx::AppRetCode On_kInitDialogMsg(void* packet);
    virtual AcRx::AppRetCode On_kEndDialogMsg(void* packet);
    virtual AcRx::AppRetCode On_kNullMsg(void* packet);

    // A code that no handler belongs to is answered with kRetOK and no action.
    AcRx::AppRetCode dispatch(AcRx::AppMsgCode message, void* packet);

    bool unloadable = true; // the host may unload the module before the program ends
    bool mdiAware = true;   // the module works with several open documents

protected:
    AcRxDbxApp() = default;
};

// An application that also talks to the editor.
class AcRxArxApp : public AcRxDbxApp {
protected:
    AcRxArxApp() = default;
};
