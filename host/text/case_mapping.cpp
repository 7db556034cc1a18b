#include "host/text/case_mapping.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace host {

namespace {

struct CaseRun {
    std::int32_t first;
    std::int32_t last;
    std::int32_t delta;
    std::int32_t step; // 2 where upper and lower case alternate
};

#include "host/text/case_mapping_table.inc"

template <std::size_t count> wchar_t mapped(const CaseRun (&runs)[count], wchar_t character)
{
    const auto code = static_cast<std::int32_t>(character);
    const CaseRun* run =
        std::lower_bound(std::begin(runs), std::end(runs), code,
                         [](const CaseRun& one, std::int32_t wanted) { return one.last < wanted; });
    if (run == std::end(runs) || code < run->first || (code - run->first) % run->step != 0)
        return character;
    return static_cast<wchar_t>(code + run->delta);
}

} // namespace

wchar_t toLower(wchar_t character)
{
    if (character < 0x80)
        return character >= L'A' && character <= L'Z' ? character + 32 : character;
    return mapped(kToLower, character);
}

wchar_t toUpper(wchar_t character)
{
    if (character < 0x80)
        return character >= L'a' && character <= L'z' ? character - 32 : character;
    return mapped(kToUpper, character);
}

std::wstring lowerCased(std::wstring_view text)
{
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), toLower);
    return result;
}

std::wstring upperCased(std::wstring_view text)
{
    std::wstring result(text);
    std::transform(result.begin(), result.end(), result.begin(), toUpper);
    return result;
}

bool equalNoCase(std::wstring_view a, std::wstring_view b)
{
    return a.size() == b.size() &&
           std::equal(a.begin(), a.end(), b.begin(),
                      [](wchar_t x, wchar_t y) { return x == y || toLower(x) == toLower(y); });
}

bool NoCaseLess::operator()(std::wstring_view a, std::wstring_view b) const
{
    return std::lexicographical_compare(
        a.begin(), a.end(), b.begin(), b.end(),
        [](wchar_t x, wchar_t y) { return x != y && toLower(x) < toLower(y); });
}

std::size_t NoCaseHash::operator()(std::wstring_view text) const
{
    std::uint64_t hash = 14695981039346656037u; // FNV-1a
    for (const wchar_t character : text)
        hash = (hash ^ static_cast<std::uint32_t>(toLower(character))) * 1099511628211u;
    return hash;
}

} // namespace host
