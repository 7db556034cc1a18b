#pragma once

#include <filesystem>
#include <optional>
#include <string_view>

// The file of this name, found as host/files finds names, if it can be opened for reading.
std::optional<std::filesystem::path> readableFile(std::wstring_view path);

// Whether a path ends in the extension, ".dwg", case as written, and has it nowhere before: neither
// "A.DWG" nor "a.dwg.dwg" counts.
bool hasExtension(std::wstring_view path, std::wstring_view extension);
