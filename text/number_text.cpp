#include "text/number_text.h"

#include "host/text/wide_format.h"
#include "text/text_splitting.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace {

constexpr std::wstring_view kWhiteSpace = L" \t\n\v\f\r";

bool isDigit(wchar_t character)
{
    return character >= L'0' && character <= L'9';
}

std::size_t countDigits(std::wstring_view text, std::size_t from)
{
    std::size_t at = from;
    while (at < text.size() && isDigit(text[at]))
        ++at;
    return at - from;
}

// Whether digits with at most one point among them, times ten to the exponent, stay below 1. Not
// all of them are zero.
bool isBelowOne(std::wstring_view digits, std::int64_t exponent)
{
    const auto point = static_cast<std::int64_t>(std::min(digits.find(L'.'), digits.size()));
    const auto first = static_cast<std::int64_t>(digits.find_first_not_of(L"0."));
    return (first < point ? point - first - 1 : point - first) + exponent < 0;
}

// Takes white space and a real off the front of `text`; nothing if no digit is met.
std::optional<double> takeReal(std::wstring_view& text)
{
    const std::wstring_view number = trimmedLeft(text, kWhiteSpace);
    std::size_t end = 0;
    const bool negative = number.starts_with(L'-');
    if (negative || number.starts_with(L'+'))
        ++end;
    const std::size_t begin = end;
    const std::size_t whole = countDigits(number, end);
    end += whole;
    std::size_t fraction = 0;
    if (end < number.size() && number[end] == L'.') {
        fraction = countDigits(number, end + 1);
        end += 1 + fraction;
    }
    if (whole + fraction == 0)
        return std::nullopt;
    const std::wstring_view digits = number.substr(begin, end - begin);
    std::int64_t exponent = 0;
    if (end < number.size() && (number[end] == L'e' || number[end] == L'E')) {
        std::size_t first = end + 1;
        if (first < number.size() && (number[first] == L'-' || number[first] == L'+'))
            ++first;
        if (const std::size_t count = countDigits(number, first)) {
            exponent = leadingInteger(number.substr(end + 1));
            end = first + count;
        }
    }
    text = number.substr(end);

    const std::string ascii(number.begin() + static_cast<std::ptrdiff_t>(begin),
                            number.begin() + static_cast<std::ptrdiff_t>(end));
    double value = 0.0;
    const std::from_chars_result read =
        std::from_chars(ascii.data(), ascii.data() + ascii.size(), value);
    if (read.ec == std::errc::result_out_of_range)
        value = isBelowOne(digits, exponent) ? 0.0 : std::numeric_limits<double>::infinity();
    return negative ? -value : value;
}

} // namespace

bool isNumber(std::wstring_view text)
{
    std::wstring_view number = trimmedRight(trimmedLeft(text, kWhiteSpace), kWhiteSpace);
    if (number.empty())
        return false;
    if (number.front() == L'-')
        number.remove_prefix(1);
    bool point = false;
    for (const wchar_t character : number) {
        if (character == L'.' ? std::exchange(point, true) : !isDigit(character))
            return false;
    }
    return true;
}

std::int32_t leadingInteger(std::wstring_view text)
{
    std::wstring_view number = trimmedLeft(text, kWhiteSpace);
    const bool negative = number.starts_with(L'-');
    if (negative || number.starts_with(L'+'))
        number.remove_prefix(1);
    using Limits = std::numeric_limits<std::int32_t>;
    std::int64_t value = 0;
    for (std::size_t i = 0; i < number.size() && isDigit(number[i]) && value <= Limits::max(); ++i)
        value = value * 10 + (number[i] - L'0');
    if (negative)
        return static_cast<std::int32_t>(std::max<std::int64_t>(-value, Limits::min()));
    return static_cast<std::int32_t>(std::min<std::int64_t>(value, Limits::max()));
}

double leadingReal(std::wstring_view text)
{
    return takeReal(text).value_or(0.0);
}

std::optional<std::array<double, 3>> leadingPoint(std::wstring_view text)
{
    std::array<double, 3> xyz{};
    for (std::size_t i = 0; i < xyz.size(); ++i) {
        if (i > 0) {
            if (!text.starts_with(L','))
                return std::nullopt;
            text.remove_prefix(1);
        }
        const std::optional<double> value = takeReal(text);
        if (!value)
            return std::nullopt;
        xyz[i] = *value;
    }
    return xyz;
}

std::wstring integerText(std::int32_t value)
{
    return host::format(L"%i", value);
}

std::wstring realText(double value, int digits)
{
    return host::format(L"%.*lf", digits, value);
}

std::wstring pointText(const std::array<double, 3>& xyz)
{
    return realText(xyz[0]) + L',' + realText(xyz[1]) + L',' + realText(xyz[2]);
}

std::wstring trimZeros(std::wstring text)
{
    const std::size_t point = text.find(L'.');
    if (point == text.npos)
        return text;
    while (text.size() > point + 2 && text.back() == L'0')
        text.pop_back();
    return text;
}

double roundTo(double value, int digits)
{
    return leadingReal(realText(value, digits));
}

std::int32_t truncated(double value)
{
    using Limits = std::numeric_limits<std::int32_t>;
    if (std::isnan(value))
        return 0;
    if (value >= Limits::max())
        return Limits::max();
    if (value <= Limits::min())
        return Limits::min();
    return static_cast<std::int32_t>(value);
}
