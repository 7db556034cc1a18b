#include "host/commands/drawing_state_commands.h"

#include "host/commands/command_entities.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"

namespace host {

void regenCommand()
{
    if (documentOfCommand())
        print(L"Regenerating model.\n");
}

void auditCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    const std::vector<std::wstring>& warnings = document->database()->warnings();
    for (const std::wstring& warning : warnings)
        print(warning + L"\n");
    acutPrintf(L"Total warnings found %d\n", static_cast<int>(warnings.size()));
}

} // namespace host
