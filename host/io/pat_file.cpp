#include "host/io/pat_file.h"

#include "host/db/angle.h"
#include "host/io/definition_text.h"

namespace host {

namespace {

constexpr std::size_t kFixedNumbers = 5;

std::optional<PatternLine> patternLine(std::wstring_view line)
{
    std::vector<double> numbers;
    for (const std::wstring_view part : commaParts(line)) {
        const std::optional<double> number = definitionNumber(part);
        if (!number)
            return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.size() < kFixedNumbers)
        return std::nullopt;
    PatternLine family;
    family.angle = toRadians(numbers[0]);
    family.base = {numbers[1], numbers[2]};
    family.offset = {numbers[3], numbers[4]};
    family.dashes.assign(numbers.begin() + kFixedNumbers, numbers.end());
    return family;
}

} // namespace

std::vector<PatternDefinition> readPatterns(std::wstring_view text)
{
    std::vector<PatternDefinition> patterns;
    bool named = false;
    for (std::wstring_view line : trimmedLines(text)) {
        line = trimmedText(line.substr(0, line.find(L';')));
        if (line.starts_with(L'*')) {
            const std::optional<DefinitionHeader> header = definitionHeader(line);
            named = header.has_value();
            if (named)
                patterns.push_back({std::wstring(header->name), {}});
        } else if (named && !line.empty()) {
            if (std::optional<PatternLine> family = patternLine(line))
                patterns.back().lines.push_back(std::move(*family));
        }
    }
    return patterns;
}

} // namespace host
