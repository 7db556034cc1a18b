#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Names of files as texts. Descriptions come from a system where "\" separates folders, so "\" and
// "/" both do everywhere. The texts below are cut and joined only; findPath and findFiles look at
// the disk.
namespace host {

bool isAbsolutePath(
    std::wstring_view path); // a drive letter with ":", or a separator at the beginning

std::wstring folderOf(
    std::wstring_view path); // without its last separator, except "/" itself; "" for a bare name
std::wstring fileNameOf(std::wstring_view path); // what follows the last separator or the drive
std::wstring titleOf(std::wstring_view path);    // the file name up to its last "."; all of ".name"
std::wstring extensionOf(std::wstring_view path); // from that "." on, or ""

// `name` itself when it is absolute or the folder is empty.
std::wstring joinPath(std::wstring_view folder, std::wstring_view name);

std::wstring shownPath(std::wstring_view path); // separators as "/"
std::wstring shownPath(const std::filesystem::path& path);

std::filesystem::path toPath(std::wstring_view text); // separators as "/", nothing looked up

// The file or folder of that name: the exact one first, otherwise component by component without
// regard to case (the first by name where several match). Relative names stand in the process's
// working folder. A drive letter that leads nowhere is dropped, so that "C:\maps\a.dwg" is found as
// "/maps/a.dwg". The answer is absolute, with the names as they are on disk.
std::optional<std::filesystem::path> findPath(std::wstring_view name);

// Files (no folders) that match: "*" and "?" in the last part, the folders before it as findPath
// finds them. Absolute, with "/", sorted by lower-cased name. Without wildcards at most one.
std::vector<std::wstring> findFiles(std::wstring_view pattern);

bool hasWildcards(std::wstring_view name);

// The whole name, without regard to case: "*" any characters, "?" one. "*.*" is every name, with
// "." or without.
bool wildcardMatches(std::wstring_view name, std::wstring_view pattern);

} // namespace host
