#pragma once

#include "host/db/spline.h"

// Closes a spline that is open for write. One with fit points runs smoothly through the first of
// them again; one of control points is only flagged.
void CloseSpline(AcDbSpline& spline);
