#include "host/io/mln_file.h"

#include "host/io/definition_text.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::size_t kMostElements = 16;

bool takeText(MlineStyleDefinition& style, int code, std::wstring_view value)
{
    if (code == 2)
        style.name = value;
    else if (code == 3)
        style.description = value;
    else if (code == 6 && !style.elements.empty())
        style.elements.back().linetype = value;
    else
        return false;
    return true;
}

bool takeNumber(MlineStyleDefinition& style, int code, std::wstring_view value)
{
    const std::optional<double> number = definitionNumber(value);
    if (!number)
        return false;
    const int whole = static_cast<int>(std::clamp(*number, -32768.0, 32767.0));
    switch (code) {
    case 49:
        style.elements.push_back({*number, 256, {}});
        break;
    case 51:
        style.startAngle = *number;
        break;
    case 52:
        style.endAngle = *number;
        break;
    case 62:
        (style.elements.empty() ? style.fill : style.elements.back().color) = whole;
        break;
    case 70:
        style.flags = whole;
        break;
    default:
        break; // a count, or what later programs add
    }
    return true;
}

} // namespace

std::vector<MlineStyleDefinition> readMlineStyles(std::wstring_view text)
{
    std::vector<MlineStyleDefinition> styles;
    const std::vector<std::wstring_view> lines = trimmedLines(text);
    bool good = false; // the style being read
    const auto end = [&] {
        if (styles.empty())
            return;
        const MlineStyleDefinition& last = styles.back();
        const bool known = std::any_of(styles.begin(), styles.end() - 1, [&](const auto& other) {
            return equalNoCase(other.name, last.name);
        });
        if (!good || known || last.name.empty() || last.elements.empty() ||
            last.elements.size() > kMostElements)
            styles.pop_back();
    };
    bool open = false;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (lines[i] == L"MLSTYLE") {
            if (open)
                end();
            styles.emplace_back();
            open = good = true;
            continue;
        }
        if (!open)
            continue;
        const std::optional<std::int64_t> code = parseInteger(toUtf8(lines[i]));
        if (code == 0) {
            end();
            open = false;
        } else if (!code || i + 1 == lines.size()) {
            good = good && !code && lines[i].empty();
        } else {
            const std::wstring_view value = lines[++i];
            const bool isText = *code < 10;
            good = good && (isText ? takeText(styles.back(), static_cast<int>(*code), value)
                                   : takeNumber(styles.back(), static_cast<int>(*code), value));
        }
    }
    if (open)
        end();
    return styles;
}

} // namespace host
