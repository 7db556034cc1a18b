#include "host/commands/file_commands.h"

#include "host/commands/command_entities.h"
#include "host/commands/drawing_files.h"
#include "host/edit/command_engine.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/files/paths.h"
#include "host/ui/file_dialog.h"

#include <algorithm>

namespace host {

namespace {

constexpr const wchar_t* kDrawingFiles = L"Drawing (*.dxf;*.dwg;*.dwt)|*.dxf;*.dwg;*.dwt||";
constexpr std::wstring_view kDiscard = L"Really want to discard all changes to drawing?";

bool isSameFile(const std::filesystem::path& a, const std::filesystem::path& b)
{
    std::error_code missing;
    return a == b || std::filesystem::equivalent(a, b, missing);
}

void saveUnderAskedName(AcApDocument& document)
{
    const std::wstring offered = document.fileName();
    std::wstring extension = extensionOf(offered);
    if (!extension.empty())
        extension.erase(0, 1);
    CAcUiFileDialog dialog(false, extension.c_str(), offered, OFN_OVERWRITEPROMPT, kDrawingFiles,
                           nullptr);
    if (dialog.DoModal() != IDOK)
        return;
    const std::filesystem::path path = toPath(dialog.GetPathName());
    if (document.isReadOnly() && isSameFile(path, toPath(document.fileName())))
        print(L"The drawing was opened for reading only; it needs another name.\n");
    else
        saveDrawing(document, path);
}

} // namespace

void newCommand()
{
    acDocManagerPtr()->newDocument();
}

void openCommand()
{
    CAcUiFileDialog dialog(true, L"dxf", {}, 0, kDrawingFiles, nullptr);
    if (dialog.DoModal() == IDOK)
        openDrawing(toPath(dialog.GetPathName()));
}

void qsaveCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    if (!document->isNamedDrawing())
        saveUnderAskedName(*document);
    else if (document->isReadOnly())
        print(L"The drawing was opened for reading only; SAVEAS saves it under another name.\n");
    else
        saveDrawing(*document, toPath(document->fileName()));
}

void saveasCommand()
{
    if (AcApDocument* const document = documentOfCommand())
        saveUnderAskedName(*document);
}

void closeCommand()
{
    AcApDocument* const document = documentOfCommand();
    if (document && (!document->database()->isModified() || confirmed(kDiscard, false)))
        acDocManagerPtr()->closeDocument(document);
}

void quitCommand()
{
    const std::vector<AcApDocument*> documents = acDocManagerPtr()->documents();
    const bool changed = std::ranges::any_of(
        documents, [](const AcApDocument* document) { return document->database()->isModified(); });
    if (!changed || confirmed(kDiscard, false))
        engine().requestQuit();
}

} // namespace host
