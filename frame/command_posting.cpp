#include "frame/command_posting.h"

#include "host/edit/document.h"

#include <string>

void PostCommandLine(std::wstring_view text)
{
    AcApDocManager* const documents = acDocManagerPtr();
    AcApDocument* const current = documents ? documents->curDocument() : nullptr;
    if (current)
        documents->sendStringToExecute(current, std::wstring(text).c_str(), true, false, false);
}
