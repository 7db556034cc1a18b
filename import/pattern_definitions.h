#pragma once

#include <map>
#include <span>
#include <string>
#include <string_view>

// Definitions of hatch patterns by lower-cased name: the header and the lines up to the next header
// as they stand in the file, without comments and empty lines.
using PatternDefinitions = std::map<std::wstring, std::wstring>;

class TextFileLines;

// The first definition of each name.
PatternDefinitions readPatternDefinitions(TextFileLines& lines);

// Appends the definitions with these names, which must be known, to a pattern file; names that the
// file has already are left out. False when it cannot be read or written; it is then as it was.
bool appendPatterns(std::wstring_view path, const PatternDefinitions& definitions,
                    std::span<const std::wstring> names);
