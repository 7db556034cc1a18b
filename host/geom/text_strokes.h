#pragma once

#include <string_view>

namespace host {

// Distance between the baselines of lines of text, in heights of capitals, at a line spacing of 1.
inline constexpr double kTextLineAdvance = 5.0 / 3.0;

// The width that one line of text takes, in drawing units, in a plain stroke font: near enough for
// extents and selection. `height` is the height of capitals. "%%d", "%%c", "%%p", "%%%" and "%%nnn"
// are one character each, "%%u", "%%o" and
// "%%k" none.
double textWidth(std::wstring_view text, double height, double widthFactor);

} // namespace host
