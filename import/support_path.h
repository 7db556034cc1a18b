#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The folders in which the host looks for fonts, shapes and definitions: its value "ACAD", apart by
// ";".
std::vector<std::wstring> supportFolders();

// Adds a folder behind the others unless the value has its text somewhere. False when the host
// neither gives nor takes the value.
bool addSupportFolder(std::wstring_view folder);

// The folder whose pattern files take further patterns: the first that is called a support folder,
// is not part of the installed program ("program files"), and has both files.
std::optional<std::wstring> patternFolder();
