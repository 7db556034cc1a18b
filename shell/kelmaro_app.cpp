#include "shell/kelmaro_app.h"

#include "host/runtime/registry.h"
#include "session/session.h"
#include "shell/command_table.h"
#include "shell/load_report.h"

namespace {

// Fetched anew each time: the stack belongs to the host.
AcEdCommandStack* commandStack()
{
    return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}

} // namespace

AcRx::AppRetCode CkelmaroApp::On_kInitAppMsg(void* packet)
{
    const AcRx::AppRetCode answer = AcRxArxApp::On_kInitAppMsg(packet);
    acrxSysRegistry()->atPut(kLoadReportKey, &session().kept<LoadReport>());
    for (const CommandRow& command : commandTable())
        if (AcEdCommandStack* const stack = commandStack())
            stack->addCommand(kCommandGroup, command.name, command.name, kCommandFlags, command.run,
                              nullptr, -1, nullptr, nullptr);
    return answer;
}

AcRx::AppRetCode CkelmaroApp::On_kUnloadAppMsg(void* packet)
{
    session().description.reset();
    session().resourceModule = nullptr;
    if (AcEdCommandStack* const stack = commandStack())
        stack->removeGroup(kCommandGroup);
    acrxSysRegistry()->remove(kLoadReportKey);
    endSession();
    return AcRxArxApp::On_kUnloadAppMsg(packet);
}
