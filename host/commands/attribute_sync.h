#pragma once

#include "host/db/object_id.h"

namespace host {

struct SyncOutcome {
    int references = 0; // of the block that the drawing has
    int locked = 0;     // of them those with something that a locked layer keeps as it was
};

// Brings the attributes of every reference of a block, in the spaces and in other blocks, to what
// the block defines now: where and how they stand, in the order of the definitions. An attribute
// that still has a definition of its tag keeps its value; what has none goes, what is lacking comes
// with the value of its definition. The anonymous blocks of a dynamic one get its definitions
// first. What had been changed at a single attribute, its extended data included, is lost.
SyncOutcome syncAttributes(AcDbObjectId block);

// References to the block itself or to one of its anonymous ones, in every block of the drawing.
std::vector<AcDbObjectId> referencesOfBlock(AcDbObjectId block);

} // namespace host
