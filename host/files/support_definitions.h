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

// Groups of a multiline style as a drawing has them: code line, value line. A name at least, then
// fill, end angles, and for each element offset, colour and linetype. The scale does not matter.
std::string multilineStyleDefinitions(double scale);

} // namespace host
