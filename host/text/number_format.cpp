#include "host/text/number_format.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>

namespace host {

namespace {

bool isBlank(char character)
{
    return character == ' ' || character == '\t';
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

// Without one leading "+", which the conversions below do not know; empty for "+-1".
std::string_view withoutPlus(std::string_view text)
{
    if (text.empty() || text.front() != '+')
        return text;
    text.remove_prefix(1);
    return !text.empty() && text.front() == '-' ? std::string_view{} : text;
}

// Whether a number that no double holds is too small, rather than too great: the power of ten of
// its first digit that is not 0.
bool isTiny(std::string_view number)
{
    const std::size_t exponentAt = number.find_first_of("eE");
    const std::string_view digits = number.substr(0, exponentAt);
    const std::size_t first = digits.find_first_of("123456789");
    if (first == std::string_view::npos)
        return true;
    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const std::int64_t power = point - static_cast<std::int64_t>(first);

    if (exponentAt == std::string_view::npos)
        return power < 0;
    std::string_view exponentText = number.substr(exponentAt + 1);
    const bool negative = !exponentText.empty() && exponentText.front() == '-';
    if (!exponentText.empty() && exponentText.front() == '+')
        exponentText.remove_prefix(1);
    std::int64_t exponent = 0;
    const auto result =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (result.ec != std::errc())
        return negative;
    return exponent < -power;
}

} // namespace

std::string shortestReal(double value)
{
    if (!std::isfinite(value))
        return "0.0";
    const double magnitude = std::fabs(value);
    const bool fixed = magnitude == 0.0 || (magnitude >= 1e-4 && magnitude < 1e16);
    char buffer[64];
    const auto [end, failure] =
        std::to_chars(buffer, buffer + sizeof buffer, value,
                      fixed ? std::chars_format::fixed : std::chars_format::scientific);
    std::string text(buffer, end);
    if (text.find_first_of(".e") == std::string::npos)
        text += ".0";
    return text;
}

std::optional<double> parseReal(std::string_view text)
{
    const std::string_view number = withoutPlus(trimmed(text));
    const std::size_t digitAt = !number.empty() && number.front() == '-' ? 1 : 0;
    if (number.size() <= digitAt)
        return std::nullopt;
    const char first = number[digitAt];
    if (first != '.' && (first < '0' || first > '9'))
        return std::nullopt; // "inf" and "nan" too
    double value = 0.0;
    const auto [end, failure] =
        std::from_chars(number.data(), number.data() + number.size(), value);
    if (end != number.data() + number.size())
        return std::nullopt;
    if (failure == std::errc::result_out_of_range && isTiny(number.substr(digitAt)))
        return digitAt ? -0.0 : 0.0;
    if (failure != std::errc() || !std::isfinite(value))
        return std::nullopt;
    return value;
}

std::optional<std::int64_t> parseInteger(std::string_view text)
{
    const std::string_view number = withoutPlus(trimmed(text));
    std::int64_t value = 0;
    const auto [end, failure] =
        std::from_chars(number.data(), number.data() + number.size(), value);
    if (failure != std::errc() || end != number.data() + number.size())
        return std::nullopt;
    return value;
}

std::optional<std::uint64_t> parseHandle(std::string_view text)
{
    const std::string_view digits = trimmed(text);
    if (digits.empty() || digits.size() > 16)
        return std::nullopt;
    std::uint64_t value = 0;
    const auto [end, failure] =
        std::from_chars(digits.data(), digits.data() + digits.size(), value, 16);
    if (failure != std::errc() || end != digits.data() + digits.size())
        return std::nullopt;
    return value;
}

std::string handleText(std::uint64_t handle)
{
    char buffer[16];
    const auto [end, failure] = std::to_chars(buffer, buffer + sizeof buffer, handle, 16);
    for (char* digit = buffer; digit != end; ++digit) {
        if (*digit >= 'a')
            *digit = static_cast<char>(*digit - 32);
    }
    return std::string(buffer, end);
}

} // namespace host
