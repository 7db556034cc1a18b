#include "host/io/lin_file.h"

#include "host/db/angle.h"
#include "host/io/definition_text.h"
#include "host/text/case_mapping.h"

#include <algorithm>

namespace host {

namespace {

std::optional<double> angleInDegrees(std::wstring_view text)
{
    constexpr double kDegreesOfGrad = 0.9;
    double unit = 1.0;
    const wchar_t last = text.empty() ? L'\0' : toLower(text.back());
    if (last == L'd' || last == L'r' || last == L'g') {
        unit = last == L'r' ? toDegrees(1.0) : last == L'g' ? kDegreesOfGrad : 1.0;
        text.remove_suffix(1);
    }
    const std::optional<double> number = definitionNumber(text);
    return number ? std::optional(*number * unit) : std::nullopt;
}

// One of "S=.1", "R=90" and so on.
bool takeSetting(LinetypeDash& dash, std::wstring_view setting)
{
    const std::size_t equal = setting.find(L'=');
    if (equal == std::wstring_view::npos)
        return false;
    const std::wstring key = upperCased(trimmedText(setting.substr(0, equal)));
    const std::wstring_view value = trimmedText(setting.substr(equal + 1));
    if (key == L"R" || key == L"A" || key == L"U") {
        const std::optional<double> angle = angleInDegrees(value);
        dash.rotation = angle.value_or(0.0);
        dash.absolute = key == L"A";
        dash.upright = key == L"U";
        return angle.has_value();
    }
    const std::optional<double> number = definitionNumber(value);
    if (!number)
        return false;
    if (key == L"S")
        dash.scale = *number;
    else if (key == L"X")
        dash.x = *number;
    else if (key == L"Y")
        dash.y = *number;
    else
        return false;
    return true;
}

bool takeBracket(LinetypeDash& dash, std::wstring_view bracket)
{
    if (!bracket.ends_with(L']'))
        return false;
    const std::vector<std::wstring_view> parts = commaParts(bracket.substr(1, bracket.size() - 2));
    if (parts.empty() || parts[0].empty())
        return false;
    if (parts[0].front() == L'"') {
        if (parts[0].size() < 3 || parts[0].back() != L'"')
            return false;
        dash.text = parts[0].substr(1, parts[0].size() - 2);
    } else {
        dash.shape = parts[0];
    }
    std::size_t first = 1;
    if (parts.size() > 1 && parts[1].find(L'=') == std::wstring_view::npos)
        dash.style = parts[first++];
    return std::all_of(parts.begin() + static_cast<std::ptrdiff_t>(first), parts.end(),
                       [&](std::wstring_view setting) { return takeSetting(dash, setting); });
}

// The dashes behind the "A" that begins the line; nothing for a line that is broken.
std::optional<std::vector<LinetypeDash>> dashesOf(std::wstring_view line)
{
    const std::vector<std::wstring_view> parts = commaParts(line);
    std::vector<LinetypeDash> dashes;
    for (std::size_t i = 1; i < parts.size(); ++i) {
        if (parts[i].starts_with(L'[')) {
            if (dashes.empty() || !takeBracket(dashes.back(), parts[i]))
                return std::nullopt;
            continue;
        }
        const std::optional<double> length = definitionNumber(parts[i]);
        if (!length)
            return std::nullopt;
        dashes.emplace_back().length = *length;
    }
    return dashes.empty() ? std::nullopt : std::optional(std::move(dashes));
}

} // namespace

std::vector<LinetypeDefinition> readLinetypes(std::wstring_view text)
{
    std::vector<LinetypeDefinition> linetypes;
    std::optional<DefinitionHeader> header;
    for (const std::wstring_view line : trimmedLines(text)) {
        if (line.empty() || line.starts_with(L';'))
            continue;
        if (line.starts_with(L'*')) {
            header = definitionHeader(line);
            continue;
        }
        const bool alignment = toLower(line.front()) == L'a' && line.find(L',') != line.npos;
        std::optional<std::vector<LinetypeDash>> dashes =
            header && alignment ? dashesOf(line) : std::nullopt;
        const bool known =
            header && std::any_of(linetypes.begin(), linetypes.end(), [&](const auto& other) {
                return equalNoCase(other.name, header->name);
            });
        if (dashes && !known)
            linetypes.push_back({std::wstring(header->name), std::wstring(header->description),
                                 std::move(*dashes)});
        header.reset();
    }
    return linetypes;
}

} // namespace host
