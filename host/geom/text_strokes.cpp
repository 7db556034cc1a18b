#include "host/geom/text_strokes.h"

#include <cstdint>

namespace host {

namespace {

// Advances of the characters from blank to tilde in hundredths of the height of capitals.
constexpr std::uint8_t kAdvance[] = {
    // blank ! " # $ % & ' ( ) * + , - . /
    65, 34, 50, 96, 88, 106, 100, 30, 44, 44, 70, 92, 36, 80, 34, 76,
    // 0 to 9, : ; < = > ?
    88, 58, 86, 86, 92, 86, 88, 84, 88, 88, 34, 36, 84, 88, 84, 76,
    // @, A to O
    118, 92, 92, 92, 94, 84, 82, 96, 94, 34, 76, 92, 80, 108, 96, 100,
    // P to Z, [ \ ] ^ _
    90, 100, 92, 88, 84, 94, 92, 116, 90, 88, 88, 46, 76, 46, 72, 88,
    // `, a to o
    36, 78, 78, 74, 78, 76, 54, 78, 76, 32, 40, 70, 32, 108, 76, 78,
    // p to z, { | } ~
    78, 78, 58, 70, 54, 76, 72, 98, 70, 72, 70, 52, 30, 52, 84};
static_assert(sizeof kAdvance == '~' - ' ' + 1);

struct Range {
    std::uint32_t first;
    std::uint32_t last;
    std::uint8_t advance;
};

// In order; what none of them has takes kOther.
constexpr Range kRanges[] = {
    {0x00, 0x1F, 0},         {0xB0, 0xB0, 46},
    {0x300, 0x36F, 0},                              // accents stand on the letter before
    {0x410, 0x42F, 98},                             // Cyrillic capitals
    {0x430, 0x44F, 80},                             // and small letters
    {0x1100, 0x11FF, 120},                          // Korean letters
    {0x200B, 0x200F, 0},                            // without width
    {0x2E80, 0xA4CF, 120},                          // Chinese, Japanese
    {0xAC00, 0xD7A3, 120},                          // Korean syllables
    {0xF900, 0xFAFF, 120},   {0xFF00, 0xFF60, 120}, // full-width forms
    {0x20000, 0x3FFFF, 120},
};
constexpr int kOther = 86;

int advanceOf(std::uint32_t c)
{
    if (c >= ' ' && c <= '~')
        return kAdvance[c - ' '];
    for (const Range& range : kRanges)
        if (c >= range.first && c <= range.last)
            return range.advance;
    return kOther;
}

constexpr std::uint32_t kDegree = 0xB0;
constexpr std::uint32_t kPlusMinus = 0xB1;
constexpr std::uint32_t kDiameter = 0x2205;

struct ControlCode {
    wchar_t letter;
    std::uint32_t character; // zero: drawn around the text, no character of its own
};
constexpr ControlCode kControlCodes[] = {
    {L'd', kDegree}, {L'p', kPlusMinus}, {L'c', kDiameter}, {L'%', L'%'},
    {L'u', 0},       {L'o', 0},          {L'k', 0},
};

struct Taken {
    std::size_t length = 0; // zero: no control code here
    int advance = 0;
};

// `rest` begins behind "%%".
Taken controlCode(std::wstring_view rest)
{
    const auto isDigit = [](wchar_t c) { return c >= L'0' && c <= L'9'; };
    if (rest.empty())
        return {};
    const wchar_t letter = rest[0] >= L'A' && rest[0] <= L'Z' ? rest[0] - L'A' + L'a' : rest[0];
    for (const ControlCode& code : kControlCodes)
        if (code.letter == letter)
            return {1, code.character ? advanceOf(code.character) : 0};
    std::uint32_t number = 0;
    std::size_t digits = 0;
    for (; digits < rest.size() && digits < 3 && isDigit(rest[digits]); ++digits)
        number = number * 10 + static_cast<std::uint32_t>(rest[digits] - L'0');
    return digits == 3 ? Taken{3, advanceOf(number)} : Taken{};
}

} // namespace

double textWidth(std::wstring_view text, double height, double widthFactor)
{
    long hundredths = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text.substr(i, 2) == L"%%") {
            const Taken code = controlCode(text.substr(i + 2));
            if (code.length > 0) {
                hundredths += code.advance;
                i += 1 + code.length;
                continue;
            }
        }
        hundredths += advanceOf(static_cast<std::uint32_t>(text[i]));
    }
    return static_cast<double>(hundredths) / 100.0 * height * widthFactor;
}

} // namespace host
