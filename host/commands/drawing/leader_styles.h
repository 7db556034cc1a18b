#pragma once

#include "host/db/object_id.h"

class AcDbDatabase;

namespace host {

// The current style of multileaders (CMLEADERSTYLE), or the standard one where the drawing has not
// that; drawings from before there were such styles get it with their first multileader.
AcDbObjectId currentLeaderStyle(AcDbDatabase& database);

} // namespace host
