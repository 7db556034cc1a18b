#include "host/commands/variable_command.h"

#include "host/edit/command_line.h"
#include "host/edit/prompts.h"
#include "host/edit/system_variables.h"
#include "host/files/paths.h"
#include <algorithm>

namespace host {

namespace {

constexpr std::size_t kNameColumn = 20; // characters

void listVariables()
{
    std::wstring pattern;
    if (acedGetString(0, L"Enter variable(s) to list <*>: ", pattern) != RTNORM)
        return;
    if (pattern.empty())
        pattern = L"*";
    for (std::wstring name : systemVariableNames()) {
        if (!wildcardMatches(name, pattern))
            continue;
        resbuf value;
        if (acedGetVar(name.c_str(), value) != RTNORM)
            continue;
        const bool readOnly = isReadOnlyVariable(name);
        name.resize(std::max(name.size() + 1, kNameColumn), L' ');
        print(name + variableText(value) + (readOnly ? L" (read only)\n" : L"\n"));
    }
}

} // namespace

void setvarCommand()
{
    std::wstring name;
    if (acedGetString(0, L"Enter variable name or [?]: ", name) != RTNORM || name.empty())
        return;
    if (name == L"?")
        listVariables();
    else if (isSystemVariable(name))
        askSystemVariable(name);
    else
        print(L"Unknown variable name. Type SETVAR ? for a list of variables.\n");
}

} // namespace host
