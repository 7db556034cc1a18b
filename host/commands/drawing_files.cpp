#include "host/commands/drawing_files.h"

#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/files/paths.h"

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
    const AcApDocument* const document = acDocManagerPtr()->openDocument(path, false, message);
    tellOutcome(document != nullptr, message);
    return document && tellOutcome(true, warningLine(*document));
}

bool saveDrawing(AcApDocument& document, const std::filesystem::path& path)
{
    std::wstring message;
    const bool done = document.database()->saveAs(path, &message) == Acad::eOk;
    return tellOutcome(done, message);
}

std::wstring warningLine(const AcApDocument& document)
{
    std::wstring line;
    for (const std::wstring& warning : document.database()->warnings())
        line += (line.empty() ? fileNameOf(document.fileName()) + L": " : L"; ") + warning;
    return line;
}

int drawingFailures()
{
    return failures;
}

} // namespace host
