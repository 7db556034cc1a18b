#include "tests/fuzz/mutator.h"

#include "host/db/tag.h"

#include <algorithm>
#include <cstring>

namespace fuzz {

namespace {

constexpr std::size_t kBinaryHead = 22; // bytes of the sentinel

// Values that readers trip over.
constexpr std::string_view kValues[] = { "", "0", "-1", "1", "2147483648", "-9223372036854775809", "1e308", "1e999", "nan", "0x1", "FFFFFFFFFFFFFFFF",
    "FFFFFFFFFFFFFFFFF", "{ACAD_XDICTIONARY", "{ACAD_REACTORS", "}", "SECTION", "ENDSEC", "EOF", "TABLE", "ENDTAB", "BLOCK", "ENDBLK", "SEQEND",
    "INSERT", "POLYLINE", "VERTEX", "HATCH", "DICTIONARY", "XRECORD", "AcDbEntity", "Embedded Object", "*Model_Space", "\\U+D800", "^", "a\\\tb",
    "$(x)", "(1 2 3)", "1:2:3", "obj_name", "\xff\xfe", "*" };
constexpr std::string_view kCodes[] = { "  0", "  5", "  8", " 10", " 62", " 66", " 70", "100", "101", "102", "105", "310", "330", "340", "360", "420", "999", "1001",
    "1004", "1005", "1071", "-5", "99999", "x", "" };

std::size_t afterLine(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find('\n', at);
    return end == std::string_view::npos ? text.size() : end + 1;
}

// Length of the value of a binary group, 0 where the code is of no range.
std::size_t binaryLength(std::string_view input, std::size_t at, int code)
{
    switch (host::tagKind(code)) {
    case host::TagKind::real:
    case host::TagKind::int64:
        return 8;
    case host::TagKind::int32:
        return 4;
    case host::TagKind::int16:
        return 2;
    case host::TagKind::boolean:
        return 1;
    case host::TagKind::binary:
        return at < input.size() ? 1 + static_cast<unsigned char>(input[at]) : 1;
    default: {
        const std::size_t end = input.find('\0', at);
        return end == std::string_view::npos ? input.size() - at : end + 1 - at;
    }
    }
}

} // namespace

Mutator::Mutator(Language language, std::vector<std::string> seeds)
    : language_(language)
    , seeds_(std::move(seeds))
{
    for (const std::string& seed : seeds_)
        units_.push_back(cut(seed));
}

Mutator::Units Mutator::cut(std::string_view input) const
{
    Units units;
    std::size_t at = 0;
    while (at < input.size()) {
        std::size_t end = at;
        if (language_ == Language::description) {
            end = afterLine(input, at);
        } else if (language_ == Language::dxfText) {
            end = afterLine(input, afterLine(input, at));
        } else if (at == 0) {
            end = std::min(kBinaryHead, input.size());
        } else {
            int code = 0;
            if (at + 2 <= input.size())
                code = static_cast<unsigned char>(input[at]) | static_cast<unsigned char>(input[at + 1]) << 8;
            end = std::min(input.size(), at + 2 + binaryLength(input, std::min(at + 2, input.size()), code));
        }
        units.push_back(input.substr(at, end - at));
        at = end;
    }
    return units;
}

std::size_t Mutator::below(std::size_t limit) { return limit ? random_() % limit : 0; }

std::string Mutator::changedUnit(std::string_view unit)
{
    const std::string_view value = kValues[below(std::size(kValues))];
    if (language_ == Language::dxfText) {
        const std::size_t valueAt = afterLine(unit, 0);
        if (below(4) == 0)
            return std::string(kCodes[below(std::size(kCodes))]) + "\n" + std::string(unit.substr(valueAt));
        return std::string(unit.substr(0, valueAt)) + std::string(value) + "\n";
    }
    if (language_ == Language::description) {
        std::string line(unit);
        const std::size_t tab = line.find('\t', below(line.size() + 1));
        if (tab != std::string::npos)
            line.replace(tab + 1, line.find_first_of("\t\n", tab + 1) - tab - 1, value);
        else
            line.insert(below(line.size() + 1), "\t" + std::string(value));
        return line;
    }
    std::string group(unit);
    if (!group.empty())
        group[below(group.size())] = static_cast<char>(random_());
    return group;
}

void Mutator::changeUnits(std::string& input)
{
    Units units = cut(input);
    if (units.empty())
        return;
    const std::size_t at = below(units.size());
    const std::size_t count = std::min(units.size() - at, 1 + below(6));
    const auto first = units.begin() + static_cast<std::ptrdiff_t>(at);
    std::string changed;
    switch (below(6)) {
    case 0: // drop some
        units.erase(first, first + static_cast<std::ptrdiff_t>(count));
        break;
    case 1: { // say some twice, somewhere
        const Units again(first, first + static_cast<std::ptrdiff_t>(count));
        units.insert(units.begin() + static_cast<std::ptrdiff_t>(below(units.size() + 1)), again.begin(), again.end());
        break;
    }
    case 2: // two change places
        std::swap(units[at], units[below(units.size())]);
        break;
    case 3: { // some of another input
        const Units& other = units_[below(units_.size())];
        const std::size_t from = below(other.size());
        const std::size_t much = std::min(other.size() - from, 1 + below(30));
        units.insert(first, other.begin() + static_cast<std::ptrdiff_t>(from), other.begin() + static_cast<std::ptrdiff_t>(from + much));
        break;
    }
    default:
        changed = changedUnit(units[at]);
        units[at] = changed;
    }
    std::string made;
    made.reserve(input.size() + 256);
    for (const std::string_view unit : units)
        made += unit;
    input = std::move(made);
}

void Mutator::changeBytes(std::string& input)
{
    if (input.empty())
        return;
    const std::size_t at = below(input.size());
    switch (below(4)) {
    case 0:
        input[at] = static_cast<char>(random_());
        break;
    case 1:
        input.erase(at, 1 + below(8));
        break;
    case 2:
        input.insert(at, 1 + below(8), static_cast<char>(random_()));
        break;
    default:
        input.resize(at); // cut off
    }
}

std::string Mutator::make(std::uint64_t number)
{
    random_.seed(number);
    std::string input = seeds_[below(seeds_.size())];
    const std::size_t changes = 1 + below(6);
    for (std::size_t i = 0; i < changes; ++i)
        below(8) == 0 ? changeBytes(input) : changeUnits(input);
    return input;
}

} // namespace fuzz
