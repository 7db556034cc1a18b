#include "host/edit/typed_values.h"

#include "host/edit/system_variables.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace host {

namespace {

constexpr double kRadians = std::numbers::pi / 180.0;

std::vector<std::wstring_view> split(std::wstring_view text, wchar_t at)
{
    std::vector<std::wstring_view> parts;
    for (;;) {
        const std::size_t end = text.find(at);
        parts.push_back(text.substr(0, end));
        if (end == std::wstring_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

bool isCapital(wchar_t c)
{
    return toLower(c) != c || (c >= L'0' && c <= L'9');
}

bool startsNoCase(std::wstring_view text, std::wstring_view beginning)
{
    return beginning.size() <= text.size() &&
           equalNoCase(text.substr(0, beginning.size()), beginning);
}

// "eXit": by "x", "xi", "exit" and so on; "LType": by "lt" and what follows.
bool matches(const Keyword& keyword, std::wstring_view text)
{
    if (equalNoCase(keyword.typed, text) || equalNoCase(keyword.shortest, text))
        return true;
    const std::size_t capitals = keyword.typed.find(keyword.shortest);
    if (capitals == std::wstring::npos)
        return startsNoCase(keyword.typed, text) && text.size() >= keyword.shortest.size();
    const std::wstring_view full = keyword.typed;
    return (startsNoCase(full, text) && text.size() >= capitals + keyword.shortest.size()) ||
           (startsNoCase(full.substr(capitals), text) && text.size() >= keyword.shortest.size());
}

} // namespace

std::optional<int> typedInteger(std::wstring_view text)
{
    const auto value = parseInteger(toUtf8(text));
    if (!value || *value < std::numeric_limits<int>::min() ||
        *value > std::numeric_limits<int>::max())
        return std::nullopt;
    return static_cast<int>(*value);
}

std::optional<double> typedReal(std::wstring_view text)
{
    return parseReal(toUtf8(text));
}

std::optional<double> typedAngle(std::wstring_view text)
{
    if (!text.empty() && text.front() == L'<')
        text.remove_prefix(1);
    const std::optional<double> degrees = typedReal(text);
    return degrees ? std::optional(*degrees * kRadians) : std::nullopt;
}

std::optional<AcGePoint3d> typedPoint(std::wstring_view text, const AcGePoint3d& last,
                                      double elevation)
{
    const bool relative = !text.empty() && text.front() == L'@';
    if (relative || (!text.empty() && (text.front() == L'#' || text.front() == L'*')))
        text.remove_prefix(1);
    if (relative && text.empty())
        return last;
    AcGeVector3d by;
    if (const std::size_t angle = text.find(L'<'); angle != std::wstring_view::npos) {
        const std::optional<double> distance = typedReal(text.substr(0, angle));
        const std::optional<double> radians = typedAngle(text.substr(angle + 1));
        if (!distance || !radians)
            return std::nullopt;
        by = {*distance * std::cos(*radians), *distance * std::sin(*radians), 0.0};
        return relative ? last + by : AcGePoint3d(by.x, by.y, elevation);
    }
    const std::vector<std::wstring_view> parts = split(text, L',');
    if (parts.size() < 2 || parts.size() > 3)
        return std::nullopt;
    double values[3] = {0.0, 0.0, relative ? 0.0 : elevation};
    for (std::size_t i = 0; i < parts.size(); ++i) {
        const std::optional<double> value = typedReal(parts[i]);
        if (!value)
            return std::nullopt;
        values[i] = *value;
    }
    by = {values[0], values[1], values[2]};
    return relative ? last + by : AcGePoint3d(by.x, by.y, by.z);
}

std::vector<Keyword> parseKeywords(std::wstring_view list)
{
    std::vector<Keyword> keywords;
    std::vector<std::wstring> globals;
    bool global = false;
    for (std::wstring_view word : split(list, L' ')) {
        if (!word.empty() && word.front() == L'_' && !global) {
            global = true;
            word.remove_prefix(1);
        }
        if (word.empty())
            continue;
        const std::size_t comma = word.find(L',');
        if (global) {
            globals.emplace_back(word.substr(0, comma));
            continue;
        }
        Keyword keyword;
        keyword.typed = word.substr(0, comma);
        if (comma != std::wstring_view::npos)
            keyword.shortest = word.substr(comma + 1);
        else
            std::ranges::copy_if(word, std::back_inserter(keyword.shortest), isCapital);
        if (keyword.shortest.empty())
            keyword.shortest = keyword.typed;
        keyword.answered = keyword.typed;
        keywords.push_back(std::move(keyword));
    }
    for (std::size_t i = 0; i < std::min(keywords.size(), globals.size()); ++i)
        keywords[i].answered = globals[i];
    return keywords;
}

const Keyword* matchKeyword(std::span<const Keyword> keywords, std::wstring_view text)
{
    if (text.empty())
        return nullptr;
    const bool global = text.front() == L'_';
    if (global)
        text.remove_prefix(1);
    for (const Keyword& keyword : keywords)
        if (equalNoCase(global ? keyword.answered : keyword.typed, text))
            return &keyword;
    for (const Keyword& keyword : keywords) {
        Keyword asked = keyword;
        if (global && keyword.answered != keyword.typed)
            asked = parseKeywords(keyword.answered).front();
        if (matches(asked, text))
            return &keyword;
    }
    return nullptr;
}

std::optional<std::wstring> readVariableValue(const Answer& answer, resbuf& value)
{
    if (value.restype == RTPOINT || value.restype == RT3DPOINT) {
        std::optional<AcGePoint3d> point = answer.point;
        if (answer.kind == Answer::Kind::text)
            point = typedPoint(answer.text, {}, realVariable(L"ELEVATION", 0.0));
        if (!point)
            return L"Invalid point.\n";
        value.resval.rpoint = *point;
    } else if (value.restype == RTREAL) {
        const std::optional<double> number = typedReal(answer.text);
        if (!number)
            return L"Requires numeric value.\n";
        value.resval.rreal = *number;
    } else if (value.restype == RTSHORT || value.restype == RTLONG) {
        const std::optional<int> number = typedInteger(answer.text);
        if (!number || (value.restype == RTSHORT && *number != static_cast<std::int16_t>(*number)))
            return L"Requires an integer value.\n";
        value.resval.rint = static_cast<std::int16_t>(*number);
        value.resval.rlong = *number;
    } else {
        value.resval.rstring = answer.text == L"." ? std::wstring() : answer.text;
    }
    return std::nullopt;
}

} // namespace host
