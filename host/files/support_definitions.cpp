#include "host/files/support_definitions.h"

#include <array>
#include <charconv>
#include <cmath>
#include <span>
#include <string_view>

namespace host {

namespace {

// ---- numbers ----

constexpr double kRoot2 = 1.4142135623730951;
constexpr double kRoot3 = 1.7320508075688772;

std::string numberText(double value)
{
    constexpr int kDigits = 9; // enough that scaling a printed number shows no rounding
    char text[32];
    const auto [end, error] =
        std::to_chars(text, text + sizeof text, value, std::chars_format::general, kDigits);
    return error == std::errc() && value != 0.0 ? std::string(text, end) : "0";
}

// ---- patterns ----

constexpr double kSpacing = 0.125; // of the plain hatchings

constexpr std::size_t kMostFamilies = 9;
constexpr std::size_t kMostDashes = 6;
constexpr double kEnd = std::numeric_limits<double>::infinity();

struct Dashes {
    std::array<double, kMostDashes> lengths;
    std::size_t count;
};

template <class... Length> constexpr Dashes dashes(Length... lengths)
{
    static_assert(sizeof...(lengths) <= kMostDashes);
    return {{lengths...}, sizeof...(lengths)};
}

struct Family {
    double angle; // degrees
    double x, y;
    double along, across;
    Dashes broken;
};
