#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers in the texts of descriptions, records and prompts, whatever the process locale.

// Digits and at most one point, with at most one "-" in front; white space around does not matter.
// "+1" and "1e5" are no numbers; "-", "." and "-." are, and read as 0.
bool isNumber(std::wstring_view text);

// The number that a text begins with, behind white space: sign, digits and, for a real, a point and
// an exponent. 0 where there is none. Integers beyond 32 bits saturate, reals beyond the range
// become infinite.
std::int32_t leadingInteger(std::wstring_view text);
double leadingReal(std::wstring_view text);

// Three reals with a comma directly behind the first and the second; anything may follow the third.
std::optional<std::array<double, 3>> leadingPoint(std::wstring_view text);

std::wstring integerText(std::int32_t value);             // "%i"
std::wstring realText(double value, int digits = 6);      // "%.6lf"; never an exponent
std::wstring pointText(const std::array<double, 3>& xyz); // three reals with commas between

// Drops zeros at the end, but one digit behind the point stays; without a point nothing changes.
std::wstring trimZeros(std::wstring text);

// The value that its text of `digits` decimals reads back as.
double roundTo(double value, int digits);

// Toward zero; what lies beyond 32 bits saturates, what is no number gives 0.
std::int32_t truncated(double value);
