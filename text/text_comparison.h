#pragma once

#include <string_view>

// Equal once both are lower-cased.
bool textEqualNoCase(std::wstring_view a, std::wstring_view b);

// Whether a text lies between two others, ends included: lower-cased texts in code unit order.
bool textWithinNoCase(std::wstring_view text, std::wstring_view lower, std::wstring_view upper);
