#include "host/commands/help_command.h"

#include "host/edit/command_line.h"
#include "host/edit/command_stack.h"

namespace host {

void helpCommand()
{
    for (const std::wstring& name : acedRegCmdsPtr()->namesFrom({}))
        print(name + L"\n");
    print(L"The name of a system variable asks for its value.\n");
}

} // namespace host
