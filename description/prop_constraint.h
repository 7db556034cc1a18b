#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

// "Any": the value of a text property that a description leaves open.
inline const std::wstring anyText = L"*";
// The type of an object that the author has not decided yet.
inline const std::wstring unknownType = L"?";

using ScaleFactors = std::array<double, 3>; // X, Y, Z

// What the other kinds of property hold when they were never given.
inline constexpr double kAnyReal = -1.7976931348623157e308;
inline constexpr ScaleFactors anyScale{kAnyReal, kAnyReal, kAnyReal};
inline constexpr std::uint8_t kAnyByte = 254;
inline constexpr std::int32_t kAnyCode = -2;
inline constexpr std::int32_t kAnyLineWeight = -2147483647;

enum ConstraintMode : std::int32_t {
    kNotGiven = 0,
    kOneValue = 1,
    kValueAndList = 2,
    kValueAndRange = 3,
};

// What to draw with, and what is accepted beside it.
template <class T> struct PropConstraint {
    std::int32_t mode = kNotGiven;
    T value{};               // to draw with; the "any" mark of its kind while not given
    std::vector<T> accepted; // further values; with a range the lower, then the upper bound

    bool isGiven() const { return mode != kNotGiven; }
    bool operator==(const PropConstraint&) const = default;
};

template <class T> PropConstraint<T> openConstraint(T any)
{
    return {kNotGiven, std::move(any), {}};
}

// Empty: any. One number: a colour index, 0 by block, 256 by layer, -1 none. Three: red, green,
// blue.
using ColorEntry = std::vector<std::int32_t>;
// The first is the colour to draw with, all are accepted. Empty when not given.
using ColorList = std::vector<ColorEntry>;
