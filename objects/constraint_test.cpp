#include "objects/constraint_test.h"

#include "store/od_comparison.h"
#include "text/text_comparison.h"

#include <functional>

namespace {

template <class Test>
bool onEachAxis(const ScaleFactors& left, const ScaleFactors& right, Test test)
{
    return test(left[0], right[0]) && test(left[1], right[1]) && test(left[2], right[2]);
}

bool accepts(const ColorEntry& color, const AcCmColor& actual, NoneColor none)
{
    switch (color.size()) {
    case 0:
        return true;
    case 1:
        return color[0] == actual.colorIndex() ||
               (none == NoneColor::accepted && color[0] == -1 && actual.isNone());
    case 3: {
        AcCmColor wanted;
        wanted.setRGB(static_cast<std::uint8_t>(color[0]), static_cast<std::uint8_t>(color[1]),
                      static_cast<std::uint8_t>(color[2]));
        return wanted == actual;
    }
    default:
        return false;
    }
}

} // namespace

bool sameValue(double left, double right)
{
    return nearlyEqual(left, right);
}

bool sameValue(const std::wstring& left, const std::wstring& right)
{
    return textEqualNoCase(left, right);
}

bool sameValue(const ScaleFactors& left, const ScaleFactors& right)
{
    return onEachAxis(left, right, [](double a, double b) { return nearlyEqual(a, b); });
}

bool isBelow(double left, double right)
{
    return left < right;
}

bool isBelow(const std::wstring& left, const std::wstring& right)
{
    return left < right;
}

bool isBelow(const ScaleFactors& left, const ScaleFactors& right)
{
    return onEachAxis(left, right, std::less<>{});
}

bool matches(const ColorList& colors, const AcCmColor& actual, NoneColor none)
{
    return colors.empty() ||
           std::any_of(colors.begin(), colors.end(),
                       [&](const ColorEntry& color) { return accepts(color, actual, none); });
}
