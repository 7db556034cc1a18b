#include "host/text/drawing_text.h"

#include <algorithm>
#include <array>
#include <optional>

namespace host {

namespace {

bool isPlain(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(), [](char byte) {
        return static_cast<signed char>(byte) >= 0 && byte != '\\' && byte != '^';
    });
}

// The four hexadecimal digits at `at`.
std::optional<unsigned> digitsAt(std::wstring_view text, std::size_t at)
{
    if (at > text.size() || text.size() - at < 4)
        return std::nullopt;
    unsigned value = 0;
    for (const wchar_t digit : text.substr(at, 4)) {
        value *= 16;
        if (digit >= L'0' && digit <= L'9')
            value += static_cast<unsigned>(digit - L'0');
        else if (digit >= L'A' && digit <= L'F')
            value += static_cast<unsigned>(digit - L'A' + 10);
        else if (digit >= L'a' && digit <= L'f')
            value += static_cast<unsigned>(digit - L'a' + 10);
        else
            return std::nullopt;
    }
    return value;
}

std::optional<unsigned> unitAt(std::wstring_view text, std::size_t at)
{
    return text.substr(std::min(at, text.size())).starts_with(L"\\U+") ? digitsAt(text, at + 3)
                                                                       : std::nullopt;
}

struct Escape {
    wchar_t character = 0;
    std::size_t length = 0; // 0: the text is no escape
};

Escape unicodeAt(std::wstring_view text, std::size_t at)
{
    constexpr std::size_t kLength = 7;
    const std::optional<unsigned> high = unitAt(text, at);
    if (!high)
        return {};
    if (*high < 0xD800 || *high > 0xDFFF)
        return {static_cast<wchar_t>(*high), kLength};
    // Half a pair names no character; it stays as it is spelled, so that it is written the same way
    // again.
    const std::optional<unsigned> low = unitAt(text, at + kLength);
    if (*high > 0xDBFF || !low || *low < 0xDC00 || *low > 0xDFFF)
        return {};
    return {static_cast<wchar_t>(0x10000 + ((*high - 0xD800) << 10) + (*low - 0xDC00)),
            2 * kLength};
}

Escape multiByteAt(std::wstring_view text, std::size_t at)
{
    static constexpr std::array<int, 5> kPages = {932, 950, 949, 1361, 936};
    if (!text.substr(at).starts_with(L"\\M+") || at + 3 >= text.size())
        return {};
    const wchar_t index = text[at + 3];
    const std::optional<unsigned> code = digitsAt(text, at + 4);
    if (index < L'1' || index > L'5' || !code)
        return {};
    std::string bytes;
    if (*code > 0xFF)
        bytes += static_cast<char>(*code >> 8);
    bytes += static_cast<char>(*code & 0xFF);
    const auto page = CodePage::byNumber(kPages[static_cast<std::size_t>(index - L'1')]);
    const std::wstring decoded = page->decode(bytes);
    const bool isCharacter = decoded.size() == 1 && (decoded[0] < 0xDC80 || decoded[0] > 0xDCFF);
    return isCharacter ? Escape{decoded[0], 8} : Escape{};
}

Escape caretAt(std::wstring_view text, std::size_t at)
{
    if (at + 1 >= text.size())
        return {};
    const wchar_t letter = text[at + 1];
    if (letter == L' ')
        return {L'^', 2};
    if (letter >= L'@' && letter <= L'_')
        return {letter - 64, 2};
    return {};
}

Escape escapeAt(std::wstring_view text, std::size_t at)
{
    if (text[at] == L'^')
        return caretAt(text, at);
    if (text[at] != L'\\')
        return {};
    const Escape unicode = unicodeAt(text, at);
    return unicode.length > 0 ? unicode : multiByteAt(text, at);
}

void appendUnit(unsigned unit, std::string& out)
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    out += "\\U+";
    for (int shift = 12; shift >= 0; shift -= 4)
        out += kDigits[unit >> shift & 0xF];
}

void spellOut(wchar_t character, std::string& out)
{
    const auto code = static_cast<unsigned>(character);
    if (code < 0x10000) {
        appendUnit(code, out);
    } else if (code <= 0x10FFFF) {
        appendUnit(0xD800 + ((code - 0x10000) >> 10), out);
        appendUnit(0xDC00 + ((code - 0x10000) & 0x3FF), out);
    } else {
        appendUnit(0xFFFD, out);
    }
}

} // namespace

std::wstring decodeDrawingText(std::string_view bytes, const CodePage& page)
{
    if (isPlain(bytes))
        return std::wstring(bytes.begin(), bytes.end());
    const std::wstring spelled = page.decode(bytes);
    if (spelled.find_first_of(L"\\^") == std::wstring::npos)
        return spelled;

    std::wstring text;
    text.reserve(spelled.size());
    for (std::size_t i = 0; i < spelled.size();) {
        const Escape escape = escapeAt(spelled, i);
        text += escape.length > 0 ? escape.character : spelled[i];
        i += std::max<std::size_t>(escape.length, 1);
    }
    return text;
}

std::string encodeDrawingText(std::wstring_view text, const CodePage& page)
{
    std::string bytes;
    bytes.reserve(text.size());
    const auto isSimple = [](wchar_t one) { return one >= L' ' && one < 0x80 && one != L'^'; };
    while (!text.empty()) {
        const auto end = std::find_if_not(text.begin(), text.end(), isSimple);
        bytes.append(text.begin(), end);
        text.remove_prefix(static_cast<std::size_t>(end - text.begin()));
        if (text.empty())
            break;
        const wchar_t character = text.front();
        text.remove_prefix(1);
        if (character == L'^') {
            bytes += "^ ";
        } else if (character >= 0 && character < L' ') {
            bytes += '^';
            bytes += static_cast<char>(character + 64);
        } else if (const std::optional<std::string> encoded = page.encode(character)) {
            bytes += *encoded;
        } else {
            spellOut(character, bytes);
        }
    }
    return bytes;
}

} // namespace host
