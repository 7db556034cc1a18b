#pragma once

#include <string_view>

namespace host {

// The header variables of a new metric drawing, one a line: the name, then group codes and values.
// A code at the end of its line has the empty text. Times are not among them.
extern const std::string_view kNewDrawingHeader;

} // namespace host
