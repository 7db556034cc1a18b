#pragma once

#include <string>

// The texts of the definition files, made from one table each. Lengths are in inches for a scale
// of 1; the metric files are the same in millimetres.
namespace host {

inline constexpr double kMillimetresPerInch = 25.4;

// "*NAME, what it shows", then a line for each family of parallel lines: angle in degrees, a point
// on the first line, the step to the next one (along the lines, then across), and where the lines
// are broken their dashes: drawn when positive, left out when negative, a point when zero.
std::string patternDefinitions(double scale);

// "*NAME,what it shows" with a drawing of it, then "A," and the dashes as above.
std::string linetypeDefinitions(double scale);

// "MLSTYLE" and the groups of a style as a drawing has them, a line for the code and one for the
// value: name (2), flags (70), description (3), fill (62), end angles (51, 52), number of elements
// (71), and for each its offset (49), colour (62) and linetype (6); "0" ends a style. A style is
// scaled where it is used, so there is no metric one.
std::string multilineStyleDefinitions(double scale = 1.0);

} // namespace host
