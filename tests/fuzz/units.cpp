#include "tests/fuzz/units.h"

#include "host/db/tag.h"

#include <algorithm>

namespace fuzz {

std::size_t afterLine(std::string_view text, std::size_t at)
{
    const std::size_t end = text.find('\n', at);
    return end == std::string_view::npos ? text.size() : end + 1;
}

TextTag::TextTag(std::string_view unit) : codeLine(unit.substr(0, afterLine(unit, 0)))
{
    const std::string_view line = unit.substr(codeLine.size());
    const std::size_t end = line.find_last_not_of("\r\n");
    value = line.substr(0, end == std::string_view::npos ? 0 : end + 1);
    lineEnd = line.substr(value.size());
}

std::string_view TextTag::code() const
{
    const std::size_t first = std::min(codeLine.find_first_not_of(' '), codeLine.size());
    const std::size_t end = std::min(codeLine.find_first_of(" \r\n", first), codeLine.size());
    return codeLine.substr(first, end - first);
}

BinaryGroup::BinaryGroup(std::string_view input, std::size_t at, bool wideCodes)
{
    const auto byte = [&](std::size_t place) {
        return place < input.size() ? static_cast<unsigned char>(input[place]) : 0;
    };
    if (wideCodes) {
        code = byte(at) | byte(at + 1) << 8;
        codeLength = 2;
    } else if (byte(at) == 255) {
        code = byte(at + 1) | byte(at + 2) << 8;
        codeLength = 3;
    } else {
        code = byte(at);
        codeLength = 1;
    }
}

std::size_t BinaryGroup::valueLength(std::string_view input, std::size_t at) const
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
        return at < input.size() ? 1u + static_cast<unsigned char>(input[at]) : 1u;
    default: {
        const std::size_t end = input.find('\0', at);
        return end == std::string_view::npos ? std::max<std::size_t>(input.size() - at, 1)
                                             : end + 1 - at;
    }
    }
}

bool hasWideCodes(std::string_view input)
{
    return input.size() <= kBinaryHead + 1 || input[kBinaryHead + 1] == '\0';
}

} // namespace fuzz
