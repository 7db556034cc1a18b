#pragma once

#include "host/db/object_id.h"
#include "host/geom/point.h"

// Hands an entity to the host's rotation about a point, from inside a command: the user shows the
// angle. The entity is open for nobody meanwhile.
void rotateByUser(AcDbObjectId entity, const AcGePoint3d& base);
