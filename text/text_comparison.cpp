#include "text/text_comparison.h"

#include "host/text/case_mapping.h"

bool textEqualNoCase(std::wstring_view a, std::wstring_view b)
{
    return host::equalNoCase(a, b);
}

bool textWithinNoCase(std::wstring_view text, std::wstring_view lower, std::wstring_view upper)
{
    const host::NoCaseLess less;
    return !less(text, lower) && !less(upper, text);
}
