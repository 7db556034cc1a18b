#pragma once

#include <cstddef>
#include <string>
#include <string_view>

// Upper and lower case by Unicode's simple pairs: one character for one, whatever the process
// locale. Characters that have no single partner (sharp s to upper case) stay as they are.
namespace host {

wchar_t toLower(wchar_t character);
wchar_t toUpper(wchar_t character);
std::wstring lowerCased(std::wstring_view text);
std::wstring upperCased(std::wstring_view text);

// Equal once lower-cased.
bool equalNoCase(std::wstring_view a, std::wstring_view b);

// For maps whose names do not depend on case: the order of the lower-cased texts by code unit.
struct NoCaseLess {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const;
};

struct NoCaseHash {
    using is_transparent = void;
    std::size_t operator()(std::wstring_view text) const;
};

struct NoCaseEqual {
    using is_transparent = void;
    bool operator()(std::wstring_view a, std::wstring_view b) const { return equalNoCase(a, b); }
};

} // namespace host
