#include "host/edit/command_stack.h"

#include "host/runtime/registry.h"
#include "host/text/case_mapping.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcEdCommandStack, AcRxObject)

Acad::ErrorStatus AcEdCommandStack::addCommand(const wchar_t* group, const wchar_t* globalName,
                                               const wchar_t* localName, int flags,
                                               AcRxFunctionPtr function, AcEdUIContext* uiContext,
                                               int functionCode, void* resource, void* cookie)
{
    if (!group || !globalName || !*globalName || !function)
        return Acad::eInvalidInput;
    for (const auto& command : commands_)
        if (host::equalNoCase(command->group, group) &&
            host::equalNoCase(command->globalName, globalName))
            return Acad::eDuplicateKey;
    auto command = std::make_shared<AcEdCommand>();
    command->group = group;
    command->globalName = host::upperCased(globalName);
    command->localName = host::upperCased(localName && *localName ? localName : globalName);
    command->flags = flags;
    command->function = function;
    command->uiContext = uiContext;
    command->functionCode = functionCode;
    command->resource = resource;
    command->cookie = cookie;
    commands_.push_back(std::move(command));
    return Acad::eOk;
}

Acad::ErrorStatus AcEdCommandStack::removeCmd(const wchar_t* group, const wchar_t* globalName)
{
    const std::size_t removed = std::erase_if(commands_, [&](const auto& command) {
        return host::equalNoCase(command->group, group) &&
               host::equalNoCase(command->globalName, globalName);
    });
    return removed ? Acad::eOk : Acad::eKeyNotFound;
}

Acad::ErrorStatus AcEdCommandStack::removeGroup(const wchar_t* group)
{
    const std::size_t removed = std::erase_if(
        commands_, [&](const auto& command) { return host::equalNoCase(command->group, group); });
    return removed ? Acad::eOk : Acad::eKeyNotFound;
}

std::shared_ptr<const AcEdCommand> AcEdCommandStack::lookUp(std::wstring_view typedName) const
{
    bool globalOnly = false;
    while (!typedName.empty() && (typedName.front() == L'_' || typedName.front() == L'.')) {
        globalOnly = globalOnly || typedName.front() == L'_';
        typedName.remove_prefix(1);
    }
    if (typedName.empty())
        return nullptr;
    const auto first = [&](std::wstring AcEdCommand::*name) -> std::shared_ptr<const AcEdCommand> {
        for (const auto& command : commands_)
            if (host::equalNoCase((*command).*name, typedName))
                return command;
        return nullptr;
    };
    if (!globalOnly)
        if (auto found = first(&AcEdCommand::localName))
            return found;
    return first(&AcEdCommand::globalName);
}

std::vector<std::wstring> AcEdCommandStack::namesFrom(std::wstring_view beginning) const
{
    const std::wstring upper = host::upperCased(beginning);
    std::vector<std::wstring> names;
    for (const auto& command : commands_)
        if (command->globalName.starts_with(upper))
            names.push_back(command->globalName);
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

AcEdCommandStack* acedRegCmdsPtr()
{
    return AcEdCommandStack::cast(acrxSysRegistry()->at(L"ACAD_REGISTERED_COMMANDS"));
}
