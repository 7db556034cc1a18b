#include "host/files/paths.h"

#include "host/text/encoding.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::wstring_view kSeparators = L"\\/";

bool isSeparator(wchar_t character)
{
    return kSeparators.find(character) != std::wstring_view::npos;
}

bool hasDrive(std::wstring_view path)
{
    return path.size() >= 2 && path[1] == L':' &&
           ((path[0] >= L'A' && path[0] <= L'Z') || (path[0] >= L'a' && path[0] <= L'z'));
}

// Where the file name begins.
std::size_t nameAt(std::wstring_view path)
{
    const std::size_t separator = path.find_last_of(kSeparators);
    if (separator != std::wstring_view::npos)
        return separator + 1;
    return hasDrive(path) ? 2 : 0;
}

// Where the extension of a file name begins, or its end. A "." that the name begins with starts
// none.
std::size_t extensionAt(std::wstring_view fileName)
{
    const std::size_t point = fileName.rfind(L'.');
    return point == std::wstring_view::npos || point == 0 ? fileName.size() : point;
}

} // namespace

bool isAbsolutePath(std::wstring_view path)
{
    return hasDrive(path) || (!path.empty() && isSeparator(path.front()));
}

std::wstring folderOf(std::wstring_view path)
{
    std::wstring_view folder = path.substr(0, nameAt(path));
    const std::size_t least = hasDrive(folder) ? 3 : 1; // "C:\" and "/" are nothing without it
    while (folder.size() > least && isSeparator(folder.back()))
        folder.remove_suffix(1);
    return std::wstring(folder);
}

std::wstring fileNameOf(std::wstring_view path)
{
    return std::wstring(path.substr(nameAt(path)));
}

std::wstring titleOf(std::wstring_view path)
{
    const std::wstring_view name = path.substr(nameAt(path));
    return std::wstring(name.substr(0, extensionAt(name)));
}

std::wstring extensionOf(std::wstring_view path)
{
    const std::wstring_view name = path.substr(nameAt(path));
    return std::wstring(name.substr(extensionAt(name)));
}

std::wstring joinPath(std::wstring_view folder, std::wstring_view name)
{
    if (folder.empty() || isAbsolutePath(name))
        return std::wstring(name);
    std::wstring path(folder);
    if (!isSeparator(path.back()))
        path += L'/';
    return path.append(name);
}

std::wstring shownPath(std::wstring_view path)
{
    std::wstring shown(path);
    std::replace(shown.begin(), shown.end(), L'\\', L'/');
    return shown;
}

// A "\" in a name on this system is a letter of that name, so it stays.
std::wstring shownPath(const std::filesystem::path& path)
{
    return fromUtf8(path.native());
}

std::filesystem::path toPath(std::wstring_view text)
{
    return toUtf8(shownPath(text));
}

} // namespace host
