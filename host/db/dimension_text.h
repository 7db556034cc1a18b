#pragma once

#include "host/db/dimension_style.h"

namespace host {

// What a dimension says, as the text of an MTEXT.

// A length in the style's unit: scaled by its factor, rounded, without the zeros that it leaves
// out. `mark` stands before the number where the style has no prefix of its own ("R").
std::wstring measuredLength(double length, const DimensionStyle& style,
                            std::wstring_view mark = {});
std::wstring measuredAngle(double radians, const DimensionStyle& style);

// What the user wrote instead, with "<>" standing for the measured text: empty is the measured text
// alone, one blank is no text.
std::wstring withMeasured(std::wstring_view written, const std::wstring& measured);

} // namespace host
