#include "host/commands/drawing_files.h"

#include "host/edit/command_line.h"
#include "host/edit/document.h"

namespace host {

namespace {

int failures = 0;

bool tellOutcome(bool done, const std::wstring& message)
{
    if (!message.empty())
        print(message + L"\n");
    failures += done ? 0 : 1;
    return done;
}

} // namespace

bool openDrawing(const std::filesystem::path& path)
{
    std::wstring message;
    const bool done = acDocManagerPtr()->openDocument(path, false, message) != nullptr;
    return tellOutcome(done, message);
}

bool saveDrawing(AcApDocument& document, const std::filesystem::path& path)
{
    std::wstring message;
    const bool done = document.database()->saveAs(path, &message) == Acad::eOk;
    return tellOutcome(done, message);
}

int drawingFailures() { return failures; }

} // namespace host
