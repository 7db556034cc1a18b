#include "host/io/text_form.h"

#include "host/io/text_lines.h"
#include "host/text/drawing_text.h"
#include "host/text/number_format.h"

#include <cstring>

namespace host {

namespace {

// The line at `at` without its end, which is "\n" or "\r\n"; moves behind it. The last line of a
// file may have no end.
std::string_view takeLine(const char*& at, const char* last)
{
    const char* const first = at;
    const void* const found = std::memchr(first, '\n', static_cast<std::size_t>(last - first));
    const char* end = found ? static_cast<const char*>(found) : last;
    at = found ? end + 1 : last;
    if (end > first && end[-1] == '\r')
        --end;
    return {first, static_cast<std::size_t>(end - first)};
}

std::size_t paddedWidth(std::string_view line)
{
    return line.starts_with(' ') ? line.size() : 0;
}

std::string padded(std::string text, std::size_t width)
{
    if (text.size() < width)
        text.insert(0, width - text.size(), ' ');
    return text;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    return -1;
}

} // namespace

TextStyle TextStyle::learn(std::string_view bytes)
{
    constexpr int kTagsToLook = 4000;
    constexpr std::size_t kFullShort = 5; // a longer integer may fill its column by itself
    constexpr std::size_t kFullLong = 8;
    TextStyle style;
    const char* at = bytes.data();
    const char* const last = at + bytes.size();
    if (bytes.starts_with("\xEF\xBB\xBF"))
        at += 3;
    bool ends = false, codes = false, shorts = false, longs = false;
    for (int i = 0; i < kTagsToLook && at < last && !(ends && codes && shorts && longs); ++i) {
        const std::string_view codeLine = takeLine(at, last);
        if (!ends) {
            style.lineEnd = codeLine.end() < at && *codeLine.end() == '\r' ? "\r\n" : "\n";
            ends = true;
        }
        const std::string_view value = takeLine(at, last);
        const std::optional<std::int64_t> code = parseInteger(codeLine);
        if (!code)
            break;
        if (!codes && *code >= 0 && *code < 100) {
            style.codeWidth = paddedWidth(codeLine);
            codes = true;
        }
        const TagKind kind = tagKind(static_cast<int>(*code));
        if (!shorts && (kind == TagKind::int16 || kind == TagKind::boolean) &&
            (value.starts_with(' ') || value.size() <= kFullShort)) {
            style.int16Width = paddedWidth(value);
            shorts = true;
        }
        if (!longs && kind == TagKind::int32 &&
            (value.starts_with(' ') || value.size() <= kFullLong)) {
            style.int32Width = paddedWidth(value);
            longs = true;
        }
    }
    if (shorts && !longs)
        style.int32Width = style.int16Width ? 9 : 0;
    if (codes && !shorts && !style.codeWidth)
        style.int16Width = style.int32Width = 0;
    return style;
}

TextForm::TextForm(DxfVersion version, CodePage page, TextStyle style)
    : version_(version), page_(std::move(page)), style_(std::move(style))
{
}

void TextForm::split(const char* first, std::size_t length, std::vector<Tag>& tags) const
{
    const char* at = first;
    const char* const last = first + length;
    if (std::string_view(first, length).starts_with("\xEF\xBB\xBF"))
        at += 3;
    while (at < last) {
        Tag tag;
        tag.codeLine = at;
        const int code = takeCode(at, last);
        if (code == kNoCode)
            return; // what follows EOF is no tag
        tag.code = static_cast<std::int16_t>(code);
        tag.codeLength = static_cast<std::uint8_t>(at - tag.codeLine);
        tag.value = at;
        const char* const end = findLineEnd(at, last, at);
        tag.length = static_cast<std::uint32_t>(end - tag.value);
        tag.endLength = static_cast<std::uint8_t>(at - end);
        tags.push_back(tag);
        if (code == 0 && tag.bytes() == "EOF")
            return;
    }
}

std::wstring TextForm::text(const Tag& tag) const
{
    return decodeDrawingText(tag.bytes(), page_);
}

double TextForm::real(const Tag& tag) const
{
    return parseReal(tag.bytes()).value_or(0.0);
}

std::int64_t TextForm::integer(const Tag& tag) const
{
    return parseInteger(tag.bytes()).value_or(0);
}

std::uint64_t TextForm::handle(const Tag& tag) const
{
    return parseHandle(tag.bytes()).value_or(0);
}

std::vector<std::uint8_t> TextForm::binary(const Tag& tag) const
{
    std::vector<std::uint8_t> bytes;
    const std::string_view digits = tag.bytes();
    bytes.reserve(digits.size() / 2);
    for (std::size_t i = 0; i + 1 < digits.size(); i += 2) {
        const int high = hexDigit(digits[i]);
        const int low = hexDigit(digits[i + 1]);
        if (high < 0 || low < 0)
            break;
        bytes.push_back(static_cast<std::uint8_t>(high * 16 + low));
    }
    return bytes;
}

std::string TextForm::textValue(int, std::wstring_view value) const
{
    return encodeDrawingText(value, page_);
}

std::string TextForm::realValue(int, double value) const
{
    return shortestReal(value);
}

std::string TextForm::integerValue(int code, std::int64_t value) const
{
    std::size_t width = 0;
    switch (tagKind(code)) {
    case TagKind::int16:
    case TagKind::boolean:
        width = style_.int16Width;
        break;
    case TagKind::int32:
        width = style_.int32Width;
        break;
    default:
        break;
    }
    return padded(std::to_string(value), width);
}

std::string TextForm::handleValue(int, std::uint64_t value) const
{
    return handleText(value);
}

std::string TextForm::binaryValue(int, std::span<const std::uint8_t> value) const
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string digits;
    digits.reserve(value.size() * 2);
    for (const std::uint8_t byte : value) {
        digits += kDigits[byte >> 4];
        digits += kDigits[byte & 15];
    }
    return digits;
}

void TextForm::write(const Tag& tag, std::string& out) const
{
    if (!tag.codeLine) {
        out += padded(std::to_string(tag.code), style_.codeWidth);
        out += style_.lineEnd;
        out += tag.bytes();
        out += style_.lineEnd;
        return;
    }
    const std::string_view codeLine(tag.codeLine, tag.codeLength);
    out += codeLine;
    out += tag.bytes();
    if (tag.value == codeLine.end() && tag.endLength)
        out.append(tag.value + tag.length, tag.endLength);
    else
        out += codeLine.ends_with("\r\n") ? "\r\n" : "\n";
}

CodePage pageOfDrawing(DxfVersion version, std::string_view dwgCodePage)
{
    return CodePage::forDrawing(dwgCodePage, version >= DxfVersion::r2007);
}

} // namespace host
