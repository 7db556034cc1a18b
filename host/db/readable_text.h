#pragma once

#include "host/db/object_id.h"
#include "host/geom/matrix.h"
#include "host/runtime/error_status.h"

class AcDbEntity;

// Text that can be read after a mirroring too.
namespace host {

class PlaneMap;

// A text between its first corner and where its writing and its letters lead.
struct TextFrame {
    AcGePoint3d corner;
    AcGeVector3d along; // with the text's width
    AcGeVector3d up;    // with its height, at a right angle; downward from an upper corner
};

// The place that a mirrored text takes, written so that it can be read; the mapped frame otherwise.
TextFrame readableFrame(const TextFrame& frame, const PlaneMap& map);

// Maps an entity so that its text can be read after a mirroring too: the letters take the mirrored
// place, written the way that is nearer to the one they had.
Acad::ErrorStatus transformReadably(AcDbEntity& entity, const AcGeMatrix3d& map);

// Maps all that is in a block.
void transformContents(AcDbObjectId block, const AcGeMatrix3d& map);

} // namespace host
