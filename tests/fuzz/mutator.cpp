#include "tests/fuzz/mutator.h"

#include "host/db/tag.h"
#include "tests/fuzz/units.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace fuzz {

namespace {

constexpr std::size_t kPartBytes = 12'000; // of a big drawing, beside its structure
constexpr std::size_t kSiblingReach = 400; // units

// Values that readers trip over.
constexpr std::string_view kValues[] = {"",
                                        "0",
                                        "-1",
                                        "1",
                                        "2",
                                        "7FFF",
                                        "32768",
                                        "2147483648",
                                        "-9223372036854775809",
                                        "1e308",
                                        "-1e308",
                                        "1e-320",
                                        "1e999",
                                        "nan",
                                        "0x1",
                                        "FFFFFFFFFFFFFFFF",
                                        "FFFFFFFFFFFFFFFF0",
                                        "{ACAD_XDICTIONARY",
                                        "{ACAD_REACTORS",
                                        "}",
                                        "SECTION",
                                        "ENDSEC",
                                        "EOF",
                                        "TABLE",
                                        "ENDTAB",
                                        "BLOCK",
                                        "ENDBLK",
                                        "SEQEND",
                                        "INSERT",
                                        "POLYLINE",
                                        "VERTEX",
                                        "ATTRIB",
                                        "HATCH",
                                        "DICTIONARY",
                                        "XRECORD",
                                        "LAYER",
                                        "AcDbEntity",
                                        "Embedded Object",
                                        "*Model_Space",
                                        "*Paper_Space0",
                                        "\\U+D800",
                                        "\\M+1",
                                        "^",
                                        "^ ",
                                        "%%c",
                                        "{\\H2x;a}\\P",
                                        "a\\\tb",
                                        "$(x)",
                                        "(1 2 3)",
                                        "1:2:3",
                                        "1,2,3",
                                        "bylayer",
                                        "*",
                                        "obj_name",
                                        "\xff\xfe",
                                        "\xe4\xb8"};
constexpr std::string_view kCodes[] = {
    "  0",  "  2",  "  5",  "  8",  " 10",  " 40", " 62",   " 66", " 70", " 91", "100",
    "101",  "102",  "105",  "310",  "330",  "340", "350",   "360", "370", "420", "999",
    "1001", "1004", "1005", "1010", "1071", "-5",  "99999", "x",   ""};
constexpr std::uint16_t kBinaryCodes[] = {0,   2,   5,   8,   10,  40,  62,  70,  90,   100,
                                          101, 102, 160, 290, 310, 330, 360, 420, 1004, 9999};
constexpr std::string_view kStructure[] = {"SECTION", "ENDSEC", "TABLE", "ENDTAB",
                                           "BLOCK",   "ENDBLK", "EOF"};
constexpr std::string_view kChildren[] = {"VERTEX", "ATTRIB", "SEQEND"};
constexpr std::int64_t kIntegers[] = {
    0,     1,      -1,         2,           255,
    32767, -32768, 2147483647, -2147483648, std::numeric_limits<std::int64_t>::max()};
const double kReals[] = {0.0, -1.0, 0.5, 1e308, -1e308, 1e-320, INFINITY, NAN, 3.14159265358979,
                         1e15};

template <class Range> bool isAmong(const Range& words, std::string_view word)
{
    return std::find(std::begin(words), std::end(words), word) != std::end(words);
}

// The input that was cut into these.
std::string_view whole(const std::vector<std::string_view>& units)
{
    const char* const begin = units.front().data();
    const std::string_view last = units.back();
    return {begin, static_cast<std::size_t>(last.data() + last.size() - begin)};
}

template <class Number> std::string bytesOf(Number number)
{
    std::string bytes(sizeof number, '\0');
    std::memcpy(bytes.data(), &number, sizeof number);
    return bytes;
}

} // namespace

Mutator::Mutator(Language language, std::vector<std::string> seeds) : language_(language)
{
    seeds_.resize(seeds.size());
    for (std::size_t i = 0; i < seeds.size(); ++i) {
        seeds_[i].bytes = std::move(seeds[i]);
        seeds_[i].units = cut(seeds_[i].bytes);
        findRecords(seeds_[i]);
    }
}

Mutator::Units Mutator::cut(std::string_view input) const
{
    Units units;
    const bool wideCodes = hasWideCodes(input);
    std::size_t at = 0;
    while (at < input.size()) {
        std::size_t end = at;
        if (language_ == Language::description) {
            end = afterLine(input, at);
        } else if (language_ == Language::dxfText) {
            end = afterLine(input, afterLine(input, at));
        } else if (at == 0) {
            end = kBinaryHead;
        } else {
            const BinaryGroup group(input, at, wideCodes);
            const std::size_t value = at + group.codeLength;
            end = value < input.size() ? value + group.valueLength(input, value) : value;
        }
        end = std::min(end, input.size());
        units.push_back(input.substr(at, end - at));
        at = end;
    }
    return units;
}

void Mutator::findRecords(Seed& seed) const
{
    if (language_ == Language::description)
        return;
    const bool wideCodes = hasWideCodes(seed.bytes);
    Record record{.structure = true}; // what stands before the first one
    for (const std::string_view unit : seed.units) {
        std::string_view begun;
        if (language_ == Language::dxfText) {
            const TextTag tag(unit);
            if (tag.code() == "0")
                begun = tag.value;
        } else if (const BinaryGroup group(unit, 0, wideCodes); record.end > 0 && group.code == 0) {
            begun = unit.substr(std::min(group.codeLength, unit.size()));
            begun = begun.substr(0, begun.find('\0'));
        }
        if (!begun.empty() && record.end > 0) {
            seed.records.push_back(record);
            record = {.first = record.end,
                      .end = record.end,
                      .structure = isAmong(kStructure, begun),
                      .child = isAmong(kChildren, begun)};
        }
        ++record.end;
        record.bytes += unit.size();
    }
    seed.records.push_back(record);
}

std::size_t Mutator::below(std::size_t limit)
{
    return limit ? random_() % limit : 0;
}

// Runs of records, so that what refers to each other often stays together.
std::string Mutator::part(const Seed& seed)
{
    if (seed.records.empty() || seed.bytes.size() <= 2 * kPartBytes)
        return seed.bytes;
    const std::size_t share = seed.bytes.size() / kPartBytes; // one of so many runs is kept
    std::string made;
    bool keeping = false;
    std::size_t run = 0;
    for (const Record& record : seed.records) {
        if (run == 0 && !record.child) {
            keeping = below(share) == 0;
            run = 1 + below(6);
        }
        if (!record.structure && run > 0 && !record.child)
            --run;
        if (!record.structure && !keeping)
            continue;
        const std::string_view first = seed.units[record.first];
        made.append(first.data(), record.bytes);
    }
    return made;
}

std::string_view Mutator::sibling(const Units& units, std::size_t at)
{
    const bool wideCodes = hasWideCodes(whole(units));
    const auto codeOf = [&](std::string_view unit) {
        return language_ == Language::dxfText
                   ? TextTag(unit).code()
                   : unit.substr(0, BinaryGroup(unit, 0, wideCodes).codeLength);
    };
    const std::string_view code = codeOf(units[at]);
    const std::size_t from = below(units.size());
    for (std::size_t i = 0; i < std::min(kSiblingReach, units.size()); ++i) {
        const std::size_t other = (from + i) % units.size();
        if (other != 0 && codeOf(units[other]) == code)
            return units[other];
    }
    return units[at];
}

std::string Mutator::changedTag(const Units& units, std::size_t at)
{
    const TextTag tag(units[at]);
    switch (below(4)) {
    case 0: {
        const std::string_view code = kCodes[below(std::size(kCodes))];
        return std::string(code).append("\n").append(tag.value).append(tag.lineEnd);
    }
    case 1: // another's handle, name or number
        return std::string(sibling(units, at));
    default: {
        const std::string_view value = kValues[below(std::size(kValues))];
        return std::string(tag.codeLine).append(value).append(tag.lineEnd);
    }
    }
}

std::string Mutator::changedGroup(const Units& units, std::size_t at)
{
    std::string group(units[at]);
    if (at == 0 || group.size() < 2 || below(4) == 0) {
        group[below(group.size())] = static_cast<char>(random_());
        return group;
    }
    const bool wideCodes = hasWideCodes(whole(units));
    const BinaryGroup parts(group, 0, wideCodes);
    if (below(4) == 0)
        return std::string(sibling(units, at));
    if (below(6) == 0 && wideCodes)
        return bytesOf(kBinaryCodes[below(std::size(kBinaryCodes))]) + group.substr(2);
    group.resize(std::min(group.size(), parts.codeLength));
    const std::int64_t integer = kIntegers[below(std::size(kIntegers))];
    switch (host::tagKind(parts.code)) {
    case host::TagKind::real:
        return group + bytesOf(kReals[below(std::size(kReals))]);
    case host::TagKind::int64:
        return group + bytesOf(integer);
    case host::TagKind::int32:
        return group + bytesOf(static_cast<std::int32_t>(integer));
    case host::TagKind::int16:
        return group + bytesOf(static_cast<std::int16_t>(integer));
    case host::TagKind::boolean:
    case host::TagKind::binary:
        return group + static_cast<char>(below(4));
    default:
        return group.append(kValues[below(std::size(kValues))]).append(1, '\0');
    }
}

std::string Mutator::changedLine(std::string_view unit)
{
    const std::string_view value = kValues[below(std::size(kValues))];
    std::string line(unit);
    const std::size_t tab = line.find('\t', below(line.size() + 1));
    if (tab == std::string::npos)
        return line.insert(below(line.size() + 1), "\t" + std::string(value));
    const std::size_t end = std::min(line.find_first_of("\t\n", tab + 1), line.size());
    return line.replace(tab + 1, end - tab - 1, value);
}

std::string Mutator::changedUnit(const Units& units, std::size_t at)
{
    switch (language_) {
    case Language::dxfText:
        return changedTag(units, at);
    case Language::dxfBinary:
        return changedGroup(units, at);
    default:
        return changedLine(units[at]);
    }
}

void Mutator::changeUnits(std::string& input)
{
    Units units = cut(input);
    if (units.empty())
        return;
    const std::size_t at = below(units.size());
    const std::size_t count = std::min(units.size() - at, 1 + below(6));
    const auto first = units.begin() + static_cast<std::ptrdiff_t>(at);
    const auto behind = first + static_cast<std::ptrdiff_t>(count);
    std::string changed;
    switch (below(7)) {
    case 0: // drop some
        units.erase(first, behind);
        break;
    case 1: { // say some twice, somewhere
        const Units again(first, behind);
        const std::size_t place = below(units.size() + 1);
        units.insert(units.begin() + static_cast<std::ptrdiff_t>(place), again.begin(),
                     again.end());
        break;
    }
    case 2: // two change places
        std::swap(units[at], units[below(units.size())]);
        break;
    case 3: { // some of another input
        const Units& other = seeds_[below(seeds_.size())].units;
        const std::size_t from = below(other.size());
        const std::size_t much = std::min(other.size() - from, 1 + below(30));
        const auto begin = other.begin() + static_cast<std::ptrdiff_t>(from);
        units.insert(first, begin, begin + static_cast<std::ptrdiff_t>(much));
        break;
    }
    default:
        changed = changedUnit(units, at);
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
    std::string input = part(seeds_[below(seeds_.size())]);
    const std::size_t changes = 1 + below(6);
    for (std::size_t i = 0; i < changes; ++i)
        below(16) == 0 ? changeBytes(input) : changeUnits(input);
    return input;
}

} // namespace fuzz
