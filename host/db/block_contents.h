#pragma once

#include "host/db/object_id.h"
#include "host/geom/matrix.h"

#include <string>

namespace host {

class Drawing;
class StrokeSink;

// Draws a block's entities, mapped. Attribute definitions that are not constant are left out: what
// refers to the block shows its own attributes. Blocks that hold themselves, and nests deeper than
// any drawing has a use for, end without a word. False for an id that is no block.
bool strokeBlock(StrokeSink& sink, AcDbObjectId block, const AcGeMatrix3d& matrix);

// The block that a name in the file means; null id where the drawing lacks it.
AcDbObjectId blockNamed(Drawing* drawing, std::wstring_view name);

} // namespace host
