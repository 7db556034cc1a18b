#include "host/files/paths.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"

#include <algorithm>
#include <span>
#include <system_error>

namespace fs = std::filesystem;

namespace host {

namespace {

std::vector<std::wstring> partsOf(std::wstring_view path)
{
    std::vector<std::wstring> parts;
    while (!path.empty()) {
        const std::wstring_view part = path.substr(0, path.find(L'/'));
        if (!part.empty() && part != L".")
            parts.emplace_back(part);
        path.remove_prefix(std::min(part.size() + 1, path.size()));
    }
    return parts;
}

std::vector<std::wstring> entriesOf(const fs::path& folder)
{
    std::vector<std::wstring> names;
    std::error_code failure;
    for (fs::directory_iterator entry(folder, failure), end; !failure && entry != end;
         entry.increment(failure))
        names.push_back(fromUtf8(entry->path().filename().native()));
    return names;
}

bool isThere(const fs::path& path)
{
    std::error_code failure;
    return fs::exists(path, failure);
}

// Two folders may differ in case only, and what is wanted lie in the second: every one is tried in
// turn.
std::optional<fs::path> walk(const fs::path& folder, std::span<const std::wstring> parts)
{
    if (parts.empty())
        return folder;
    const std::span<const std::wstring> rest = parts.subspan(1);
    if (parts[0] == L"..") {
        // Behind a link the folder above is another one than the text says.
        std::error_code failure;
        const bool linked = folder.filename() == ".." || fs::is_symlink(folder, failure);
        return walk(linked ? folder / ".." : folder.parent_path(), rest);
    }
    const fs::path exact = folder / toUtf8(parts[0]);
    if (isThere(exact)) {
        if (std::optional<fs::path> found = walk(exact, rest))
            return found;
    }
    std::vector<std::wstring> others = entriesOf(folder);
    std::erase_if(others, [&](const std::wstring& name) {
        return name == parts[0] || !equalNoCase(name, parts[0]);
    });
    std::sort(others.begin(), others.end());
    for (const std::wstring& name : others) {
        const fs::path candidate = folder / toUtf8(name);
        if (!isThere(candidate)) // a link that leads nowhere
            continue;
        if (std::optional<fs::path> found = walk(candidate, rest))
            return found;
    }
    return std::nullopt;
}

std::optional<fs::path> findFrom(const fs::path& start, std::wstring_view path)
{
    const std::vector<std::wstring> parts = partsOf(path);
    fs::path plain = start;
    for (const std::wstring& part : parts)
        plain /= toUtf8(part);
    const bool goesUp = std::find(parts.begin(), parts.end(), L"..") != parts.end();
    if (!goesUp && isThere(plain))
        return plain;
    return walk(start, parts);
}

bool isFile(const fs::path& path)
{
    std::error_code failure;
    return fs::is_regular_file(path, failure);
}

} // namespace

std::optional<fs::path> findPath(std::wstring_view name)
{
    if (name.empty())
        return std::nullopt;
    const std::wstring path = shownPath(name);
    if (path.front() == L'/')
        return findFrom("/", path);
    std::error_code failure;
    const fs::path working = fs::current_path(failure);
    if (!failure) {
        if (std::optional<fs::path> found = findFrom(working, path))
            return found;
    }
    if (isAbsolutePath(path)) // begins with a drive
        return findFrom("/", std::wstring_view(path).substr(2));
    return std::nullopt;
}

std::vector<std::wstring> findFiles(std::wstring_view pattern)
{
    const std::wstring name = fileNameOf(pattern);
    if (name.empty())
        return {};
    if (!hasWildcards(name)) {
        const std::optional<fs::path> found = findPath(pattern);
        return found && isFile(*found) ? std::vector{shownPath(*found)}
                                       : std::vector<std::wstring>();
    }

    const std::wstring folderName = folderOf(pattern);
    const std::optional<fs::path> folder = findPath(folderName.empty() ? L"." : folderName);
    if (!folder)
        return {};
    std::vector<std::wstring> names = entriesOf(*folder);
    std::erase_if(names, [&](const std::wstring& entry) {
        return !wildcardMatches(entry, name) || !isFile(*folder / toUtf8(entry));
    });
    std::sort(names.begin(), names.end(), [](const std::wstring& a, const std::wstring& b) {
        const NoCaseLess less;
        return less(a, b) || (!less(b, a) && a < b);
    });
    for (std::wstring& entry : names)
        entry = shownPath(*folder / toUtf8(entry));
    return names;
}

bool hasWildcards(std::wstring_view name)
{
    return name.find_first_of(L"*?") != std::wstring_view::npos;
}

bool wildcardMatches(std::wstring_view name, std::wstring_view pattern)
{
    if (pattern == L"*.*")
        return true;
    // After a mismatch the last "*" takes one character more.
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::wstring_view::npos;
    std::size_t taken = 0;
    while (at < name.size()) {
        if (in < pattern.size() && pattern[in] == L'*') {
            star = in++;
            taken = at;
        } else if (in < pattern.size() &&
                   (pattern[in] == L'?' || toLower(pattern[in]) == toLower(name[at]))) {
            ++at;
            ++in;
        } else if (star != std::wstring_view::npos) {
            in = star + 1;
            at = ++taken;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(L'*', in) == std::wstring_view::npos;
}

} // namespace host
