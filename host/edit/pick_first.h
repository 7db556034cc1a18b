#pragma once

#include "host/db/object_id.h"

#include <vector>

namespace host {

// What the user selected before a command, of the current document. Erased entities are left out.
std::vector<AcDbObjectId> currentPickFirst();

// Replaces it and tells the editor's reactors (pickfirstModified) when it was not empty on both
// sides.
void setPickFirst(std::vector<AcDbObjectId> ids);

// The selection that "P" repeats, of the current document.
std::vector<AcDbObjectId> previousSelection();
void setPreviousSelection(std::vector<AcDbObjectId> ids);

} // namespace host
