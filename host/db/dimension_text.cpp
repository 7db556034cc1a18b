#include "host/db/dimension_text.h"

#include "host/text/wide_format.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace host {

namespace {

enum LengthUnit { kScientific = 1, kDecimal, kEngineering, kArchitectural, kFractional };
enum AngleUnit { kDegrees, kDegreesMinutesSeconds, kGrads, kRadians };

constexpr std::wstring_view kMeasured = L"<>";

// "0.50" without the zeros in front of the point or at the end.
std::wstring trimmed(std::wstring number, bool leading, bool trailing)
{
    if (trailing && number.find(L'.') != number.npos) {
        number.erase(number.find_last_not_of(L'0') + 1);
        if (number.back() == L'.')
            number.pop_back();
    }
    const std::size_t sign = number.starts_with(L'-') ? 1 : 0;
    if (leading && number.compare(sign, 2, L"0.") == 0 && number.size() > sign + 2)
        number.erase(sign, 1);
    return number;
}

std::wstring withSeparator(std::wstring number, const DimensionStyle& style)
{
    if (const std::size_t point = number.find(L'.'); point != number.npos && style.dsep > 0)
        number[point] = static_cast<wchar_t>(style.dsep);
    return number;
}

int digits(double value)
{
    return std::clamp(static_cast<int>(value), 0, 8);
}

std::wstring decimalText(double value, const DimensionStyle& style)
{
    const int suppressed = static_cast<int>(style.zin);
    std::wstring text = format(L"%.*f", digits(style.dec), value);
    if (text.starts_with(L'-') && text.find_first_not_of(L"-0.") == text.npos)
        text.erase(0, 1);
    return trimmed(text, (suppressed & 4) != 0, (suppressed & 8) != 0);
}

std::wstring fractionText(std::int64_t numerator, std::int64_t denominator,
                          const DimensionStyle& style)
{
    while (numerator % 2 == 0 && denominator > 1) {
        numerator /= 2;
        denominator /= 2;
    }
    const std::wstring top = std::to_wstring(numerator);
    const std::wstring bottom = std::to_wstring(denominator);
    if (style.frac >= 2)
        return L" " + top + L"/" + bottom;
    return L"{\\H1x;\\S" + top + (style.frac >= 1 ? L"#" : L"/") + bottom + L";}";
}

// Whole ones and a fraction of halves, quarters, eighths and so on: the decimals count the
// halvings.
enum class Zero { shown, leftOut };
std::wstring mixedText(double value, const DimensionStyle& style, Zero zero)
{
    const std::int64_t denominator = std::int64_t{1} << digits(style.dec);
    const std::int64_t parts = std::llround(value * static_cast<double>(denominator));
    const std::int64_t whole = parts / denominator;
    const std::int64_t rest = parts % denominator;
    std::wstring text =
        whole != 0 || rest == 0 || zero == Zero::shown ? std::to_wstring(whole) : L"";
    return rest == 0 ? text : text + fractionText(rest, denominator, style);
}

// Inches as feet and inches. The low bits of the zeros say whether 0' and 0" are shown: 0 neither,
// 1 both, 2 the feet, 3 the inches.
std::wstring feetText(double inches, const DimensionStyle& style)
{
    const int zeros = static_cast<int>(style.zin) & 3;
    const bool architectural = static_cast<int>(style.lunit) == kArchitectural;
    const double unit =
        architectural ? std::pow(0.5, digits(style.dec)) : std::pow(10.0, -digits(style.dec));
    const double rounded = std::round(inches / unit) * unit;
    const double feet = std::floor(rounded / 12.0 + 1e-9);
    const double rest = std::max(0.0, rounded - 12.0 * feet);
    const bool noInches = rest < unit / 2;
    std::wstring text;
    if (feet > 0 || zeros == 1 || zeros == 2)
        text = format(L"%.0f'", feet);
    if (noInches && !text.empty() && (zeros == 0 || zeros == 2))
        return text;
    const Zero zero = text.empty() ? Zero::leftOut : Zero::shown;
    if (!text.empty())
        text += L'-';
    return text + (architectural ? mixedText(rest, style, zero) : decimalText(rest, style)) + L'"';
}

std::wstring lengthNumber(double value, const DimensionStyle& style)
{
    const std::wstring sign = value < 0.0 ? L"-" : L"";
    switch (static_cast<int>(style.lunit)) {
    case kScientific:
        return withSeparator(format(L"%.*E", digits(style.dec), value), style);
    case kEngineering:
    case kArchitectural:
        return sign + feetText(std::abs(value), style);
    case kFractional:
        return sign + mixedText(std::abs(value), style, Zero::leftOut);
    default:
        return withSeparator(decimalText(value, style), style);
    }
}

std::wstring sexagesimal(double degrees, int precision)
{
    const int parts = precision >= 3 ? 3 : precision >= 1 ? 2 : 1; // degrees, minutes, seconds
    const int decimals = std::max(0, precision - 4);
    const double units = parts == 1 ? 1.0 : parts == 2 ? 60.0 : 3600.0 * std::pow(10.0, decimals);
    double rest = std::round(degrees * units) / units;
    const double whole = std::floor(rest + 1e-12);
    rest = std::max(0.0, (rest - whole) * 60.0);
    std::wstring text = format(L"%.0f%%%%d", whole);
    if (parts == 1)
        return text;
    if (parts == 2)
        return text + format(L"%.0f'", rest);
    const double minutes = std::floor(rest + 1e-9);
    return text + format(L"%.0f'%.*f\"", minutes, decimals, std::max(0.0, rest - minutes) * 60.0);
}

} // namespace

std::wstring measuredLength(double length, const DimensionStyle& style, std::wstring_view mark)
{
    double value = length * std::abs(style.lfac);
    if (style.rnd > 0.0)
        value = std::round(value / style.rnd) * style.rnd;
    const std::wstring number = lengthNumber(value, style);
    const std::size_t at = style.post.find(kMeasured);
    if (at == std::wstring::npos) // all of it comes behind the number
        return std::wstring(mark) + number + style.post;
    const std::wstring prefix = style.post.substr(0, at);
    return (prefix.empty() ? std::wstring(mark) : prefix) + number +
           style.post.substr(at + kMeasured.size());
}

std::wstring measuredAngle(double radians, const DimensionStyle& style)
{
    const int precision = digits(style.adec < 0 ? style.dec : style.adec);
    const double degrees = radians * (180.0 / std::numbers::pi);
    const int suppressed = static_cast<int>(style.azin);
    const auto number = [&](double value) {
        return withSeparator(trimmed(format(L"%.*f", precision, value), (suppressed & 1) != 0,
                                     (suppressed & 2) != 0),
                             style);
    };
    switch (static_cast<int>(style.aunit)) {
    case kDegreesMinutesSeconds:
        return sexagesimal(degrees, precision);
    case kGrads:
        return number(degrees / 0.9) + L"g";
    case kRadians:
        return number(radians) + L"r";
    default:
        return number(degrees) + L"%%d";
    }
}

std::wstring withMeasured(std::wstring_view written, const std::wstring& measured)
{
    if (written.empty())
        return measured;
    if (written == L" ")
        return {};
    std::wstring text(written);
    for (std::size_t at = 0; (at = text.find(kMeasured, at)) != text.npos; at += measured.size())
        text.replace(at, kMeasured.size(), measured);
    return text;
}

} // namespace host
