#pragma once

#include <string>
#include <string_view>
#include <vector>

// The pieces between any of the separators; empty ones are dropped.
std::vector<std::wstring> splitText(std::wstring_view text, std::wstring_view separators);

// The same, but a separator with a backslash before it joins its two pieces. The character that
// takes the backslash's place is the one behind the first backslash not yet used, counted from the
// start of the text: `a\` tab `b` gives one piece that holds the tab, while an earlier backslash,
// as in a path, lends the character behind itself instead.
std::vector<std::wstring> splitWithEscape(std::wstring_view text, std::wstring_view separators);

std::wstring_view trimmedLeft(std::wstring_view text, std::wstring_view characters);
std::wstring_view trimmedRight(std::wstring_view text, std::wstring_view characters);

// Blanks and tabs off the left; blanks, tabs and line ends off the right.
std::wstring_view trimmedItem(std::wstring_view text);
