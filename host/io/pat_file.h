#pragma once

#include "host/db/drawing_format.h"

namespace host {

// A pattern file, line by line; ";" begins a remark:
//
//     *NAME, what it shows
//     angle, x, y, along, across [, dash ...]
//
// with a line for each family of parallel lines: the angle in degrees, a point on the first line,
// the step to the next one, and the dashes of a broken line. A line that is none of these is left
// out; so is a header without a name, with all that follows up to the next one.
std::vector<PatternDefinition> readPatterns(std::wstring_view text);

} // namespace host
