#pragma once

#include <cmath>
#include <numbers>

// Drawings keep angles in degrees, the program counts in radians.
namespace host {

constexpr double toRadians(double degrees)
{
    return degrees * (std::numbers::pi / 180.0);
}

// The shortest degrees that read back as this angle, so that 30 written and read stays 30.
inline double toDegrees(double radians)
{
    const double degrees = radians * (180.0 / std::numbers::pi);
    const double rounded = std::round(degrees * 1e9) / 1e9;
    return std::abs(toRadians(rounded) - radians) <= 1e-15 * (1.0 + std::abs(radians)) ? rounded
                                                                                       : degrees;
}

} // namespace host
