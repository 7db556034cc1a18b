#include "host/runtime/dynamic_linker.h"
#include "host/runtime/registry.h"
#include "tests/host/runtime/message_log.h"

#include <stdexcept>

#define EXPORTED extern "C" __attribute__((visibility("default")))

#ifdef HAS_ENTRY_POINT
EXPORTED AcRx::AppRetCode acrxEntryPoint(AcRx::AppMsgCode message, void* packet)
{
    auto* log = static_cast<MessageLog*>(acrxSysRegistry()->at(kMessageLog));
    log->messages.push_back(message);
    if (log->throws)
        throw std::runtime_error("no licence for this");
    if (message == AcRx::kInitAppMsg && log->unlocks)
        acrxDynamicLinker()->unlockApplication(packet);
    return log->answer;
}
#endif

#ifdef API_VERSION
EXPORTED int acrxGetApiVersion()
{
    return API_VERSION;
}
#endif
