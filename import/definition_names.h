#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

class TextFileLines;

// The name that a line of a .lin or .pat file defines, `*NAME,description`; nothing for all other
// lines. Blanks and tabs may stand before the star.
std::optional<std::wstring> definedName(std::wstring_view line);

// All names of the lines that are left, lower-cased, in their order.
std::vector<std::wstring> definedNames(TextFileLines& lines);
