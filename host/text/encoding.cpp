#include "host/text/encoding.h"

#include <cstdint>
#include <cstring>

namespace host {

namespace {

constexpr wchar_t kByteBase = 0xDC00; // an undecodable byte is this plus its value

bool isAsciiBlock(const char* at)
{
    std::uint64_t block;
    std::memcpy(&block, at, sizeof block);
    return (block & 0x8080808080808080u) == 0;
}

// Length of the sequence that the bytes begin with and its code point; 0 when they begin with none.
std::size_t sequenceAt(std::string_view bytes, char32_t& code)
{
    const auto byteAt = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned lead = byteAt(0);
    std::size_t length = 0;
    char32_t least = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        least = 0x80;
        code = lead & 0x1F;
    } else if ((lead & 0xF0) == 0xE0) {
        length = 3;
        least = 0x800;
        code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        least = 0x10000;
        code = lead & 0x07;
    }
    if (length == 0 || length > bytes.size())
        return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byteAt(i) & 0xC0) != 0x80)
            return 0;
        code = code << 6 | (byteAt(i) & 0x3F);
    }
    const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code < least || code > 0x10FFFF || surrogate ? 0 : length;
}

} // namespace

std::wstring fromUtf8(std::string_view bytes)
{
    std::wstring text;
    text.reserve(bytes.size());
    while (!bytes.empty()) {
        std::size_t plain = 0;
        while (plain + 8 <= bytes.size() && isAsciiBlock(bytes.data() + plain))
            plain += 8;
        while (plain < bytes.size() && static_cast<unsigned char>(bytes[plain]) < 0x80)
            ++plain;
        text.append(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(plain));
        bytes.remove_prefix(plain);
        if (bytes.empty())
            break;

        char32_t code = 0;
        const std::size_t length = sequenceAt(bytes, code);
        text += length > 0 ? static_cast<wchar_t>(code)
                           : kByteBase + static_cast<unsigned char>(bytes[0]);
        bytes.remove_prefix(length > 0 ? length : 1);
    }
    return text;
}

std::string toUtf8(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    const auto put = [&](char32_t value) { bytes += static_cast<char>(value); };
    for (const wchar_t character : text) {
        char32_t code = static_cast<char32_t>(character);
        if (code < 0x80) {
            put(code);
            continue;
        }
        if (code >= kByteBase + 0x80u && code <= kByteBase + 0xFFu) {
            put(code - kByteBase);
            continue;
        }
        if (code > 0x10FFFF || (code >= 0xD800 && code <= 0xDFFF))
            code = 0xFFFD;
        if (code < 0x800) {
            put(0xC0 | code >> 6);
        } else {
            if (code < 0x10000) {
                put(0xE0 | code >> 12);
            } else {
                put(0xF0 | code >> 18);
                put(0x80 | (code >> 12 & 0x3F));
            }
            put(0x80 | (code >> 6 & 0x3F));
        }
        put(0x80 | (code & 0x3F));
    }
    return bytes;
}

} // namespace host
