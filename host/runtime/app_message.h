#pragma once

// What the host tells a loaded module, and what the module answers.
namespace AcRx {

enum AppMsgCode : int {
    kNullMsg = 0,
    kInitAppMsg = 1,
    kUnloadAppMsg = 2,
    kLoadDwgMsg = 3,
    kUnloadDwgMsg = 4,
    kInvkSubrMsg = 5,
    kCfgMsg = 6,
    kEndMsg = 7,
    kQuitMsg = 8,
    kSaveMsg = 9,
    kDependencyMsg = 10,
    kNoDependencyMsg = 11,
    kOleUnloadAppMsg = 12,
    kPreQuitMsg = 13,
    kInitDialogMsg = 14,
    kEndDialogMsg = 15,
};

enum AppRetCode : int {
    kRetOK = 0,
    kRetError = 3,
};

} // namespace AcRx

// The two exports of a module. The packet of kInitAppMsg and kUnloadAppMsg is the application id
// that AcRxDynamicLinker takes.
extern "C" {
using AcRxEntryPoint = AcRx::AppRetCode (*)(AcRx::AppMsgCode message, void* packet);
using AcRxApiVersion = int (*)();
}

inline constexpr int kAcRxApiVersion = 0x120000;
