#include "host/io/binary_form.h"

#include "host/text/drawing_text.h"
#include "host/text/number_format.h"

#include <bit>
#include <cmath>
#include <cstring>

namespace host {

namespace {

// Bytes of a value; 0 for texts and chunks, which tell their length themselves.
std::size_t widthOf(TagKind kind)
{
    switch (kind) {
    case TagKind::real:
    case TagKind::int64:
        return 8;
    case TagKind::int32:
        return 4;
    case TagKind::int16:
        return 2;
    case TagKind::boolean:
        return 1;
    default:
        return 0;
    }
}

std::uint64_t fromBytes(const char* bytes, std::size_t count)
{
    std::uint64_t value = 0;
    for (std::size_t i = count; i-- > 0;)
        value = value << 8 | static_cast<unsigned char>(bytes[i]);
    return value;
}

std::string toBytes(std::uint64_t value, std::size_t count)
{
    std::string bytes;
    for (std::size_t i = 0; i < count; ++i, value >>= 8)
        bytes += static_cast<char>(value & 255);
    return bytes;
}

bool inRange(int code)
{
    struct Range {
        int first;
        int last;
    };
    constexpr Range kTexts[] = {{0, 9},     {100, 105}, {300, 309}, {410, 419},
                                {430, 439}, {470, 479}, {999, 999}, {1000, 1009}};
    for (const Range& range : kTexts)
        if (code >= range.first && code <= range.last)
            return true;
    return false;
}

} // namespace

std::optional<TagKind> binaryKind(int code)
{
    const TagKind kind = tagKind(code);
    if (kind != TagKind::text || inRange(code))
        return kind;
    return std::nullopt;
}

BinaryTrouble takeBinaryTag(const char*& at, const char* last, BinaryCodes codes, Tag& tag)
{
    const std::size_t left = static_cast<std::size_t>(last - at);
    std::size_t codeLength = codes == BinaryCodes::twoBytes ? 2 : 1;
    if (left < codeLength)
        return BinaryTrouble::cut;
    int code = static_cast<unsigned char>(at[0]);
    if (codes == BinaryCodes::twoBytes) {
        code = static_cast<std::int16_t>(fromBytes(at, 2));
    } else if (code == 255) {
        codeLength = 3;
        if (left < codeLength)
            return BinaryTrouble::cut;
        code = static_cast<std::int16_t>(fromBytes(at + 1, 2));
    }
    const std::optional<TagKind> kind = binaryKind(code);
    if (!kind)
        return BinaryTrouble::unknownCode;

    const char* const value = at + codeLength;
    const std::size_t room = static_cast<std::size_t>(last - value);
    std::size_t length = widthOf(*kind);
    std::size_t end = 0;
    if (*kind == TagKind::binary) {
        if (room < 1)
            return BinaryTrouble::cut;
        length = 1 + static_cast<unsigned char>(value[0]);
    } else if (length == 0) {
        const void* const zero = std::memchr(value, 0, room);
        if (!zero)
            return BinaryTrouble::cut;
        length = static_cast<std::size_t>(static_cast<const char*>(zero) - value);
        end = 1;
    }
    if (room < length + end)
        return BinaryTrouble::cut;

    tag.codeLine = at;
    tag.codeLength = static_cast<std::uint8_t>(codeLength);
    tag.code = static_cast<std::int16_t>(code);
    tag.value = value;
    tag.length = static_cast<std::uint32_t>(length);
    tag.endLength = static_cast<std::uint8_t>(end);
    at = value + length + end;
    return BinaryTrouble::none;
}

BinaryForm::BinaryForm(DxfVersion version, CodePage page, BinaryCodes codes)
    : version_(version), page_(std::move(page)), codes_(codes)
{
}

void BinaryForm::split(const char* first, std::size_t length, std::vector<Tag>& tags) const
{
    const char* at = first;
    const char* const last = first + length;
    if (std::string_view(first, length).starts_with(kBinarySentinel))
        at += kBinarySentinel.size();
    while (at < last) {
        Tag tag;
        if (takeBinaryTag(at, last, codes_, tag) != BinaryTrouble::none)
            return;
        tags.push_back(tag);
        if (tag.code == 0 && tag.bytes() == "EOF")
            return;
    }
}

std::wstring BinaryForm::text(const Tag& tag) const
{
    return decodeDrawingText(tag.bytes(), page_);
}

double BinaryForm::real(const Tag& tag) const
{
    return tagKind(tag.code) == TagKind::real ? std::bit_cast<double>(fromBytes(tag.value, 8))
                                              : 0.0;
}

std::int64_t BinaryForm::integer(const Tag& tag) const
{
    switch (tagKind(tag.code)) {
    case TagKind::boolean:
        return static_cast<unsigned char>(tag.value[0]);
    case TagKind::int16:
        return static_cast<std::int16_t>(fromBytes(tag.value, 2));
    case TagKind::int32:
        return static_cast<std::int32_t>(fromBytes(tag.value, 4));
    case TagKind::int64:
        return static_cast<std::int64_t>(fromBytes(tag.value, 8));
    default:
        return 0;
    }
}

std::uint64_t BinaryForm::handle(const Tag& tag) const
{
    return parseHandle(tag.bytes()).value_or(0);
}

std::vector<std::uint8_t> BinaryForm::binary(const Tag& tag) const
{
    const std::string_view bytes = tag.bytes();
    return bytes.empty() ? std::vector<std::uint8_t>()
                         : std::vector<std::uint8_t>(bytes.begin() + 1, bytes.end());
}

std::string BinaryForm::textValue(int, std::wstring_view value) const
{
    return encodeDrawingText(value, page_);
}

std::string BinaryForm::realValue(int, double value) const
{
    const double number = std::isfinite(value) ? value : 0.0; // as the text form
    return toBytes(std::bit_cast<std::uint64_t>(number), 8);
}

std::string BinaryForm::integerValue(int code, std::int64_t value) const
{
    const std::size_t width = widthOf(tagKind(code));
    return toBytes(static_cast<std::uint64_t>(value), width ? width : 2);
}

std::string BinaryForm::handleValue(int, std::uint64_t value) const
{
    return handleText(value);
}

std::string BinaryForm::binaryValue(int, std::span<const std::uint8_t> value) const
{
    constexpr std::size_t kLongest = 255;
    value = value.first(std::min(value.size(), kLongest));
    std::string bytes(1, static_cast<char>(value.size()));
    bytes.append(value.begin(), value.end());
    return bytes;
}

void BinaryForm::write(const Tag& tag, std::string& out) const
{
    if (tag.codeLine) {
        out.append(tag.codeLine, tag.codeLength);
    } else if (codes_ == BinaryCodes::twoBytes) {
        out += toBytes(static_cast<std::uint16_t>(tag.code), 2);
    } else if (tag.code >= 0 && tag.code < 255) {
        out += static_cast<char>(tag.code);
    } else {
        out += '\xFF';
        out += toBytes(static_cast<std::uint16_t>(tag.code), 2);
    }
    out += tag.bytes();
    const TagKind kind = tagKind(tag.code);
    if (widthOf(kind) == 0 && kind != TagKind::binary)
        out += '\0';
}

} // namespace host
