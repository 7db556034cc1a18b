#pragma once

#include "description/object_def.h"
#include "host/db/object_id.h"

// Closes the polyline that was drawn and fills it with an associative hatch, which becomes the
// object; the polyline stays as the host drew it. One of less than three vertices is erased.
void FinishHatchBoundary(const ObjectDef& object, AcDbObjectId polyline);
