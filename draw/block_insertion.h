#pragma once

#include "host/db/object_id.h"
#include "host/geom/point.h"

#include <string>

// Inserts a block of the working drawing with the host's command, from inside a command, unechoed.
// Attributes take their defaults. What the host asks beyond what it is given goes to the user. The
// new reference; a null id when the drawing has no such block or the insert brought nothing.
AcDbObjectId insertBlock(const std::wstring& blockName, const AcGePoint3d& position,
                         const AcGeScale3d& scale);
