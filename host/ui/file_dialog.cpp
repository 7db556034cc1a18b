#include "host/ui/file_dialog.h"

#include "host/edit/command_engine.h"
#include "host/edit/prompts.h"
#include "host/files/paths.h"

#include <filesystem>

namespace {

// The path as the disk writes it, or where the file would stand.
std::wstring resolved(std::wstring_view name)
{
    if (const std::optional<std::filesystem::path> found = host::findPath(name))
        return host::shownPath(*found);
    const std::wstring folder = host::folderOf(name);
    std::error_code ignored;
    if (const std::optional<std::filesystem::path> found =
            folder.empty() ? std::filesystem::current_path(ignored) : host::findPath(folder))
        return host::shownPath(*found / host::toPath(host::fileNameOf(name)));
    return host::shownPath(std::filesystem::absolute(host::toPath(name), ignored));
}

bool folderExists(std::wstring_view path)
{
    std::error_code ignored;
    return std::filesystem::is_directory(host::toPath(host::folderOf(path)), ignored);
}

bool fileExists(std::wstring_view path)
{
    std::error_code ignored;
    return std::filesystem::exists(host::toPath(path), ignored);
}

bool replaces(const std::wstring& path)
{
    acedInitGet(0, L"Yes No");
    std::wstring answer;
    return acedGetKword((path + L" exists. Replace? [Yes/No]<N>: ").c_str(), answer) == RTNORM &&
           answer == L"Yes";
}

} // namespace

CAcUiFileDialog::CAcUiFileDialog(bool openFileDialog, const wchar_t* defaultExtension,
                                 const std::wstring& fileName, unsigned flags, const wchar_t*,
                                 void*)
    : opens_(openFileDialog), extension_(defaultExtension ? defaultExtension : L""),
      offered_(host::shownPath(std::wstring_view(fileName))), flags_(flags)
{
}

int CAcUiFileDialog::DoModal()
{
    path_.clear();
    if (!host::engineExists())
        return IDCANCEL;
    host::Question question;
    question.kind = host::WaitKind::dialog;
    question.prompt = std::wstring(L"Enter name of file to ") + (opens_ ? L"open" : L"save") +
                      (offered_.empty() ? L": " : L" <" + offered_ + L">: ");
    std::wstring path;
    const int result = host::engine().ask(
        question, [&](const host::Answer& answer) -> std::optional<std::wstring> {
            std::wstring name = answer.text.empty() ? offered_ : answer.text;
            path.clear();
            if (name.empty())
                return std::nullopt;
            if (!extension_.empty() && host::extensionOf(name).empty())
                name += L'.' + extension_;
            path = resolved(name);
            if ((flags_ & OFN_PATHMUSTEXIST) && !folderExists(path))
                return host::folderOf(path) + L": there is no such folder.\n";
            if ((flags_ & OFN_FILEMUSTEXIST) && !fileExists(path))
                return path + L": there is no such file.\n";
            return std::nullopt;
        });
    if (result != RTNORM || path.empty())
        return IDCANCEL;
    if (!opens_ && (flags_ & OFN_OVERWRITEPROMPT) && fileExists(path) && !replaces(path))
        return IDCANCEL;
    path_ = std::move(path);
    return IDOK;
}
