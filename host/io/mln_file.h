#pragma once

#include "host/db/drawing_format.h"

namespace host {

// A multiline style file: "MLSTYLE", then the groups of a style as a drawing has them, a line for
// the code and one for the value; "0" ends a style. A style without a name or elements, or with a
// line that is no group, is left out.
std::vector<MlineStyleDefinition> readMlineStyles(std::wstring_view text);

} // namespace host
