#include "host/files/user_profile.h"

#include "host/files/file_error.h"
#include "host/files/open_file.h"
#include "host/files/safe_save.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <cstdlib>
#include <pwd.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace host {

namespace {

constexpr const char* kFileName = "profile";

struct Spelling {
    wchar_t character;
    wchar_t letter; // behind the "\"
};

constexpr Spelling kSpellings[] = {{L'\\', L'\\'}, {L'\n', L'n'}, {L'\r', L'r'}, {L'=', L'='}};

std::wstring spelled(std::wstring_view text, bool isName)
{
    std::wstring out;
    for (const wchar_t character : text) {
        const auto* found =
            std::find_if(std::begin(kSpellings), std::end(kSpellings),
                         [&](const Spelling& one) { return one.character == character; });
        if (found == std::end(kSpellings) || (character == L'=' && !isName)) {
            out += character;
        } else {
            out += L'\\';
            out += found->letter;
        }
    }
    return out;
}

std::wstring unspelled(std::wstring_view text)
{
    std::wstring out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto* found =
            text[i] == L'\\' && i + 1 < text.size()
                ? std::find_if(std::begin(kSpellings), std::end(kSpellings),
                               [&](const Spelling& one) { return one.letter == text[i + 1]; })
                : std::end(kSpellings);
        if (found == std::end(kSpellings)) {
            out += text[i];
        } else {
            out += found->character;
            ++i;
        }
    }
    return out;
}

// Of the first "=" that no "\" stands before.
std::size_t signAt(std::wstring_view line)
{
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] == L'\\')
            ++i;
        else if (line[i] == L'=')
            return i;
    }
    return std::wstring_view::npos;
}

fs::path homeFolder()
{
    if (const char* home = std::getenv("HOME"); home && *home)
        return home;
    std::vector<char> buffer(16384);
    passwd entry{};
    passwd* found = nullptr;
    if (getpwuid_r(geteuid(), &entry, buffer.data(), buffer.size(), &found) == 0 && found)
        return found->pw_dir;
    return "/";
}

} // namespace

UserProfile::UserProfile(fs::path folder) : folder_(std::move(folder))
{
    std::string error; // no profile yet is an empty one
    lines_ = linesOf(readWholeFile(folder_ / kFileName, error));
}

fs::path UserProfile::defaultFolder()
{
    const char* config = std::getenv("XDG_CONFIG_HOME");
    const bool usable = config && *config == '/'; // others are to be ignored
    return (usable ? fs::path(config) : homeFolder() / ".config") / "kelmaro";
}

std::vector<UserProfile::Line> UserProfile::linesOf(std::string_view bytes)
{
    std::vector<Line> lines;
    const std::wstring text = fromUtf8(bytes);
    for (std::wstring_view rest = text; !rest.empty();) {
        std::wstring_view line = rest.substr(0, rest.find(L'\n'));
        rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        if (line.ends_with(L'\r'))
            line.remove_suffix(1);
        const std::size_t sign = signAt(line);
        if (sign == std::wstring_view::npos || sign == 0)
            lines.push_back({L"", std::wstring(line)});
        else
            lines.push_back({unspelled(line.substr(0, sign)), unspelled(line.substr(sign + 1))});
    }
    return lines;
}

void UserProfile::assign(std::vector<Line>& lines, std::wstring_view name, std::wstring_view value)
{
    const auto found = std::find_if(lines.begin(), lines.end(), [&](const Line& line) {
        return !line.name.empty() && equalNoCase(line.name, name);
    });
    if (found != lines.end())
        found->value = value;
    else
        lines.push_back({std::wstring(name), std::wstring(value)});
}

std::optional<std::wstring> UserProfile::get(std::wstring_view name) const
{
    for (const Line& line : lines_) {
        if (!line.name.empty() && equalNoCase(line.name, name))
            return line.value;
    }
    return std::nullopt;
}

bool UserProfile::set(std::wstring_view name, std::wstring_view value, std::string& error)
{
    error.clear();
    const fs::path file = folder_ / kFileName;
    if (name.empty()) {
        error = fileError("write", file, std::string("a value needs a name"));
        return false;
    }
    if (get(name) == value)
        return true;
    assign(lines_, name, value);

    std::error_code failure;
    fs::create_directories(folder_, failure);
    if (failure) {
        error = fileError("make", folder_, failure.value());
        return false;
    }
    std::string unreadable;
    std::vector<Line> lines;
    if (fs::exists(file, failure)) {
        lines = linesOf(readWholeFile(file, unreadable));
        if (!unreadable.empty()) {
            error = unreadable;
            return false;
        }
    }
    assign(lines, name, value);

    const std::unique_ptr<SafeSave> save = SafeSave::begin(file, error, SafeSave::Backup::none);
    if (!save)
        return false;
    for (const Line& line : lines) {
        std::wstring text = line.name.empty()
                                ? line.value
                                : spelled(line.name, true) + L'=' + spelled(line.value, false);
        save->write(toUtf8(text += L'\n'));
    }
    return save->commit(error);
}

} // namespace host
