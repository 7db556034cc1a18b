#pragma once

#include <string>

namespace host {

// The text of a new metric drawing of R2018: header, all tables, both spaces with a layout each,
// and the dictionaries that every drawing has.
std::string newDrawingText();

} // namespace host
