#include "host/commands/command_entities.h"

#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/pick_first.h"
#include "host/edit/prompts.h"
#include "host/edit/selection.h"

namespace host {

AcApDocument* documentOfCommand()
{
    AcApDocument* const document = curDoc();
    if (!document)
        print(L"No drawing is open.\n");
    return document;
}

std::optional<std::vector<AcDbObjectId>> entitiesOfCommand()
{
    std::vector<AcDbObjectId> entities = currentPickFirst();
    if (entities.empty() && selectObjects(entities) != RTNORM)
        return std::nullopt;
    return entities;
}

bool confirmed(std::wstring_view question, bool byDefault)
{
    const std::wstring prompt =
        std::wstring(question) + L" [Yes/No] <" + (byDefault ? L"Y" : L"N") + L">: ";
    std::wstring answer;
    acedInitGet(0, L"Yes No");
    const int result = acedGetKword(prompt.c_str(), answer);
    return result == RTNORM ? answer == L"Yes" : result == RTNONE && byDefault;
}

} // namespace host
