#include "frame/command_posting.h"

#include "host/edit/document.h"

#include <string>

void PostCommandLine(std::wstring_view text)
{
    AcApDocManager* const documents = acDocManagerPtr();
    if (AcApDocument* const current = documents->curDocument())
        documents->sendStringToExecute(current, std::wstring(text).c_str(), true, false, false);
}
