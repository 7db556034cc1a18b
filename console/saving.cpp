#include "console/saving.h"

#include "console/console_output.h"
#include "host/files/file_error.h"
#include "host/files/paths.h"

namespace {

bool saveAs(host::HostSession& session, AcApDocument& document, const std::filesystem::path& path)
{
    std::wstring message;
    if (document.database()->saveAs(path, &message) != Acad::eOk) {
        reportTrouble(message);
        return false;
    }
    if (!message.empty()) {
        session.output().freshLine();
        session.output().print(message + L"\n");
    }
    return true;
}

// The current drawing, and others that a command changed.
bool saveInPlace(host::HostSession& session)
{
    AcApDocument* const current = session.documents().curDocument();
    bool saved = true;
    for (AcApDocument* document : session.documents().documents()) {
        if (document != current && !document->database()->isModified())
            continue;
        if (document->isNamedDrawing()) {
            saved = saveAs(session, *document, host::toPath(document->fileName())) && saved;
        } else {
            reportTrouble(L"'" + document->fileName() +
                          L"' has no place to be saved to; -o names one");
            saved = false;
        }
    }
    return saved;
}

bool isOpenForReading(const std::filesystem::path& path)
{
    for (const AcApDocument* document : acDocManagerPtr()->documents()) {
        std::error_code missing;
        if (document->isReadOnly() &&
            std::filesystem::equivalent(host::toPath(document->fileName()), path, missing))
            return true;
    }
    return false;
}

} // namespace

bool saveDrawings(host::HostSession& session, const Arguments& arguments)
{
    if (!arguments.save && !arguments.output)
        return true;
    if (!session.documents().curDocument()) {
        reportTrouble("no drawing is open that could be saved");
        return false;
    }
    bool saved = !arguments.save || saveInPlace(session);
    if (!arguments.output)
        return saved;
    const std::filesystem::path path = std::filesystem::absolute(*arguments.output);
    if (arguments.readOnly && isOpenForReading(path)) {
        reportTrouble(host::fileError("cannot write", path, "it was opened for reading only"));
        return false;
    }
    return saveAs(session, *session.documents().curDocument(), path) && saved;
}
