#pragma once

#include "host/text/wide_format.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

// Numbers as text, whatever the process locale.
namespace host {

// The shortest text that reads back equal, with ".0" where there is neither point nor exponent. An
// exponent is used below 0.0001 and from 1e16 on. What is no finite number gives "0.0".
std::string shortestReal(double value);

// The whole text is the number; blanks and tabs around it and a leading "+" do not matter. "1." and
// ".5" are numbers, "inf", "nan" and what is too great for a double are not. What is too small is
// zero.
std::optional<double> parseReal(std::string_view text);

// Decimal, otherwise as parseReal; nothing when it does not fit.
std::optional<std::int64_t> parseInteger(std::string_view text);

// 1 to 16 hexadecimal digits in either case, blanks and tabs around them.
std::optional<std::uint64_t> parseHandle(std::string_view text);
std::string handleText(std::uint64_t handle); // upper case, without leading zeros

} // namespace host
