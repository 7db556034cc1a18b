#include "host/commands/property_text.h"

#include "host/db/angle.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <vector>

namespace host {

namespace {

constexpr const wchar_t* kColorNames[] = {L"red",  L"yellow",  L"green", L"cyan",
                                          L"blue", L"magenta", L"white"}; // from index 1 on
constexpr int kGreatestIndex = 255;

constexpr int kLineWeights[] = {0,  5,  9,  13, 15, 18,  20,  25,  30,  35,  40,  50,
                                53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

struct WeightName {
    int weight;
    const wchar_t* name;
};
constexpr WeightName kWeightNames[] = {{-1, L"ByLayer"}, {-2, L"ByBlock"}, {-3, L"Default"}};

std::vector<std::wstring_view> splitByComma(std::wstring_view text)
{
    std::vector<std::wstring_view> parts;
    for (;;) {
        const std::size_t comma = text.find(L',');
        parts.push_back(text.substr(0, comma));
        if (comma == std::wstring_view::npos)
            return parts;
        text.remove_prefix(comma + 1);
    }
}

} // namespace

std::wstring numberText(double value)
{
    return fromUtf8(shortestReal(value));
}

std::wstring pointText(const AcGePoint3d& point)
{
    return numberText(point.x) + L"," + numberText(point.y) + L"," + numberText(point.z);
}

std::wstring pointText(const AcGePoint2d& point)
{
    return numberText(point.x) + L"," + numberText(point.y);
}

// Files keep degrees, so digits behind the twelfth tell of the way there and back only.
std::wstring angleText(double radians)
{
    return format(L"%.12g", toDegrees(radians));
}

std::wstring quotedText(std::wstring_view text)
{
    return L'"' + std::wstring(text) + L'"';
}

std::optional<AcCmColor> colorFromText(std::wstring_view text)
{
    AcCmColor color;
    for (std::size_t i = 0; i < std::size(kColorNames); ++i)
        if (equalNoCase(text, kColorNames[i])) {
            color.setColorIndex(static_cast<std::uint16_t>(i + 1));
            return color;
        }
    std::vector<std::int64_t> numbers;
    for (const std::wstring_view part : splitByComma(text)) {
        const auto number = parseInteger(toUtf8(part));
        if (!number || *number < 0 || *number > kGreatestIndex)
            return std::nullopt;
        numbers.push_back(*number);
    }
    if (numbers.size() == 1 && numbers[0] > 0) {
        color.setColorIndex(static_cast<std::uint16_t>(numbers[0]));
        return color;
    }
    if (numbers.size() != 3)
        return std::nullopt;
    color.setRGB(static_cast<std::uint8_t>(numbers[0]), static_cast<std::uint8_t>(numbers[1]),
                 static_cast<std::uint8_t>(numbers[2]));
    return color;
}

std::wstring colorText(const AcCmColor& color)
{
    if (color.isByLayer())
        return L"ByLayer";
    if (color.isByBlock())
        return L"ByBlock";
    if (color.isNone())
        return L"None";
    if (color.isByColor())
        return std::to_wstring(color.red()) + L"," + std::to_wstring(color.green()) + L"," +
               std::to_wstring(color.blue());
    const std::size_t index = color.colorIndex();
    const std::wstring number = std::to_wstring(index);
    return index >= 1 && index <= std::size(kColorNames)
               ? number + L" (" + kColorNames[index - 1] + L")"
               : number;
}

std::optional<int> lineWeightFromText(std::wstring_view text)
{
    constexpr int kDefault = -3;
    if (equalNoCase(text, L"Default"))
        return kDefault;
    const auto millimetres = parseReal(toUtf8(text));
    constexpr double kGreatest = 2.11;
    if (!millimetres || *millimetres < 0.0 || *millimetres > kGreatest)
        return std::nullopt;
    const double hundredths = *millimetres * 100.0;
    return *std::ranges::min_element(kLineWeights, {},
                                     [&](int weight) { return std::abs(weight - hundredths); });
}

std::wstring lineWeightText(int weight)
{
    for (const WeightName& row : kWeightNames)
        if (row.weight == weight)
            return row.name;
    return format(L"%.2f mm", weight / 100.0);
}

} // namespace host
