#pragma once

#include "host/db/object_id.h"

#include <string_view>

namespace host {

// The block of an arrowhead: the drawing's one of that name, or else one of the platform's own
// ("_Dot", "DOT"), which is then made. Null for the filled arrowhead, which needs no block, and for
// an unknown name. No block table may be open.
AcDbObjectId arrowBlock(AcDbDatabase& database, std::wstring_view name);

// Whether a dimension line runs on to the arrow's tip, because the block leaves its place free.
bool lineReachesTip(std::wstring_view name);

} // namespace host
