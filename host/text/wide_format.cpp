#include "host/text/wide_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace host {

namespace {

// One directive: %[flags][width][.precision][size]conversion
struct Directive {
    bool left = false;
    bool plus = false;
    bool blank = false;
    bool zeros = false;
    bool alternate = false;
    int width = 0;
    int precision = -1; // none given
    enum class Size { byte, half, plain, full } size = Size::plain;
    wchar_t conversion = 0;
};

// A va_list in a struct can be handed down by reference; the bare type decays differently on each
// machine.
struct Arguments {
    std::va_list list;
};

class DirectiveReader {
public:
    DirectiveReader(const wchar_t* at, Arguments& arguments) : at_(at), arguments_(arguments) {}

    Directive read()
    {
        Directive directive;
        readFlags(directive);
        directive.width = number();
        if (directive.width < 0) {
            directive.left = true;
            directive.width = -directive.width;
        }
        if (*at_ == L'.') {
            ++at_;
            directive.precision = std::max(number(), -1);
        }
        directive.size = size();
        directive.conversion = *at_;
        if (*at_)
            ++at_;
        return directive;
    }

    const wchar_t* at() const { return at_; }

private:
    void readFlags(Directive& directive)
    {
        for (;; ++at_) {
            switch (*at_) {
            case L'-':
                directive.left = true;
                break;
            case L'+':
                directive.plus = true;
                break;
            case L' ':
                directive.blank = true;
                break;
            case L'0':
                directive.zeros = true;
                break;
            case L'#':
                directive.alternate = true;
                break;
            default:
                return;
            }
        }
    }

    int number()
    {
        if (*at_ == L'*') {
            ++at_;
            return std::max(va_arg(arguments_.list, int), -kLongest);
        }
        int value = 0;
        for (; *at_ >= L'0' && *at_ <= L'9'; ++at_)
            value = std::min(value * 10 + (*at_ - L'0'), kLongest);
        return value;
    }

    Directive::Size size()
    {
        struct Name {
            std::wstring_view text;
            Directive::Size size;
        };
        static constexpr Name kNames[] = {
            {L"I64", Directive::Size::full}, {L"hh", Directive::Size::byte},
            {L"h", Directive::Size::half},   {L"ll", Directive::Size::full},
            {L"l", Directive::Size::full},   {L"z", Directive::Size::full},
            {L"j", Directive::Size::full},
        };
        for (const Name& name : kNames) {
            if (std::wstring_view(at_).starts_with(name.text)) {
                at_ += name.text.size();
                return name.size;
            }
        }
        return Directive::Size::plain;
    }

    static constexpr int kLongest = 4096; // no caller wants a wider field

    const wchar_t* at_;
    Arguments& arguments_;
};

void appendPadded(std::wstring& out, const Directive& directive, std::wstring_view sign,
                  std::wstring_view body, bool zerosAllowed)
{
    const std::size_t used = sign.size() + body.size();
    const auto width = static_cast<std::size_t>(directive.width);
    const std::size_t padding = width > used ? width - used : 0;
    const bool zeros = directive.zeros && zerosAllowed && !directive.left;
    if (!directive.left && !zeros)
        out.append(padding, L' ');
    out += sign;
    if (zeros)
        out.append(padding, L'0');
    out += body;
    if (directive.left)
        out.append(padding, L' ');
}

std::wstring_view signOf(const Directive& directive, bool negative)
{
    return negative ? L"-" : directive.plus ? L"+" : directive.blank ? L" " : L"";
}

void appendDigits(std::wstring& out, const Directive& directive, std::wstring_view sign,
                  std::uint64_t magnitude, int base)
{
    char buffer[72];
    char* end = std::to_chars(buffer, buffer + sizeof buffer, magnitude, base).ptr;
    if (magnitude == 0 && directive.precision == 0)
        end = buffer;
    std::wstring digits(buffer, end);
    if (directive.conversion == L'X')
        std::transform(digits.begin(), digits.end(), digits.begin(),
                       [](wchar_t one) { return one >= L'a' ? one - 32 : one; });
    const auto least = static_cast<std::size_t>(std::max(directive.precision, 0));
    if (digits.size() < least)
        digits.insert(0, least - digits.size(), L'0');
    if (directive.alternate && base == 8 && !digits.starts_with(L'0'))
        digits.insert(0, 1, L'0');
    appendPadded(out, directive, sign, digits, directive.precision < 0);
}

void appendSigned(std::wstring& out, const Directive& directive, Arguments& arguments)
{
    std::int64_t value = 0;
    if (directive.size == Directive::Size::full)
        value = va_arg(arguments.list, long long);
    else
        value = va_arg(arguments.list, int);
    if (directive.size == Directive::Size::half)
        value = static_cast<short>(value);
    if (directive.size == Directive::Size::byte)
        value = static_cast<signed char>(value);
    const bool negative = value < 0;
    const auto bits = static_cast<std::uint64_t>(value);
    appendDigits(out, directive, signOf(directive, negative), negative ? 0 - bits : bits, 10);
}

void appendUnsigned(std::wstring& out, const Directive& directive, Arguments& arguments)
{
    std::uint64_t value = 0;
    if (directive.size == Directive::Size::full)
        value = va_arg(arguments.list, unsigned long long);
    else
        value = va_arg(arguments.list, unsigned);
    if (directive.size == Directive::Size::half)
        value = static_cast<unsigned short>(value);
    if (directive.size == Directive::Size::byte)
        value = static_cast<unsigned char>(value);
    const int base = directive.conversion == L'u' ? 10 : directive.conversion == L'o' ? 8 : 16;
    const bool prefixed = directive.alternate && base == 16 && value != 0;
    const std::wstring_view prefix = !prefixed ? L"" : directive.conversion == L'X' ? L"0X" : L"0x";
    appendDigits(out, directive, prefix, value, base);
}

void appendReal(std::wstring& out, const Directive& directive, double value)
{
    const wchar_t kind = directive.conversion | 0x20;
    const auto shape = kind == L'f'   ? std::chars_format::fixed
                       : kind == L'e' ? std::chars_format::scientific
                                      : std::chars_format::general;
    const int precision = directive.precision < 0 ? 6 : std::min(directive.precision, 1000);
    char buffer[1500]; // 309 digits before the point, 1000 behind it
    const char* end =
        std::to_chars(buffer, buffer + sizeof buffer, std::fabs(value), shape, precision).ptr;
    std::wstring body(static_cast<const char*>(buffer), end);
    if (directive.conversion < L'a') {
        std::transform(body.begin(), body.end(), body.begin(),
                       [](wchar_t one) { return one >= L'a' && one <= L'z' ? one - 32 : one; });
    }
    appendPadded(out, directive, signOf(directive, std::signbit(value)), body,
                 std::isfinite(value));
}

void appendText(std::wstring& out, const Directive& directive, const wchar_t* text)
{
    // With a precision the text need not end with a zero.
    const std::size_t limit =
        directive.precision < 0 ? SIZE_MAX : static_cast<std::size_t>(directive.precision);
    std::wstring_view shown = L"(null)";
    if (text) {
        std::size_t length = 0;
        while (length < limit && text[length])
            ++length;
        shown = {text, length};
    }
    appendPadded(out, directive, L"", shown.substr(0, limit), false);
}

bool append(std::wstring& out, const Directive& directive, Arguments& arguments)
{
    switch (directive.conversion) {
    case L'd':
    case L'i':
        appendSigned(out, directive, arguments);
        return true;
    case L'u':
    case L'x':
    case L'X':
    case L'o':
        appendUnsigned(out, directive, arguments);
        return true;
    case L'f':
    case L'F':
    case L'e':
    case L'E':
    case L'g':
    case L'G':
        appendReal(out, directive, va_arg(arguments.list, double));
        return true;
    case L's':
        appendText(out, directive, va_arg(arguments.list, const wchar_t*));
        return true;
    case L'c': {
        const auto character = static_cast<wchar_t>(va_arg(arguments.list, int));
        appendPadded(out, directive, L"", {&character, 1}, false);
        return true;
    }
    case L'%':
        out += L'%';
        return true;
    default:
        return false;
    }
}

} // namespace

std::wstring format(const wchar_t* pattern, ...)
{
    std::va_list arguments;
    va_start(arguments, pattern);
    std::wstring result = formatList(pattern, arguments);
    va_end(arguments);
    return result;
}

std::wstring formatList(const wchar_t* pattern, std::va_list list)
{
    Arguments arguments;
    va_copy(arguments.list, list);
    std::wstring out;
    while (*pattern) {
        if (*pattern != L'%') {
            out += *pattern++;
            continue;
        }
        DirectiveReader reader(pattern + 1, arguments);
        const Directive directive = reader.read();
        if (!append(out, directive, arguments))
            out.append(pattern, reader.at());
        pattern = reader.at();
    }
    va_end(arguments.list);
    return out;
}

} // namespace host
