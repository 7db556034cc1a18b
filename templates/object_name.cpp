#include "templates/object_name.h"

#include "host/text/case_mapping.h"

#include <algorithm>
#include <utility>

namespace {

// A value that ends in "%" may make a new mark with what follows it, and that a next one.
constexpr int kMostPasses = 8;

bool holds(std::wstring_view text, std::wstring_view mark)
{
    return text.find(mark) != text.npos;
}

std::wstring replacedOnce(std::wstring_view text, std::wstring_view mark, std::wstring_view value)
{
    std::wstring replaced;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t found = std::min(text.find(mark, at), text.size());
        replaced += text.substr(at, found - at);
        if (found < text.size())
            replaced += value;
        at = found + mark.size();
    }
    return replaced;
}

// A value that holds the mark itself is put in once: there would always be one left.
void replaceAll(std::wstring& text, std::wstring_view mark, std::wstring_view value)
{
    const int passes = holds(value, mark) ? 1 : kMostPasses;
    for (int pass = 0; pass < passes && holds(text, mark); ++pass)
        text = replacedOnce(text, mark, value);
}

} // namespace

std::wstring FormatObjectName(std::wstring_view format, const GraphicProps& props,
                              std::size_t number)
{
    const std::wstring& layer = props.layer.value;
    const std::wstring type = props.types.empty() ? std::wstring() : props.types.front();
    std::wstring name(format);
    replaceAll(name, L"%i", std::to_wstring(number));
    replaceAll(name, L"%L", layer);
    replaceAll(name, L"%l", host::lowerCased(layer));
    replaceAll(name, L"%T", type);
    replaceAll(name, L"%t", host::lowerCased(type));
    return name;
}

bool isObjectNameFormat(std::wstring_view format)
{
    return holds(format, L"%i") && (holds(format, L"%T") || holds(format, L"%t"));
}
