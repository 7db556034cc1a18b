#pragma once

#include "host/db/drawing.h"
#include "host/runtime/error_status.h"

namespace host {

// What the record points to as its own and that names it as owner; erased ones are included.
std::vector<std::uint32_t> hardOwnedBy(Drawing& drawing, std::uint32_t owner);

// Why an object can't be erased, eOk if it can. A BLOCK or an ENDBLK goes with its block record
// only: eNotApplicable. What goes with the object must not be open, lest half of it stay:
// eWasOpenForRead, eWasOpenForWrite.
Acad::ErrorStatus refusalToErase(Drawing& drawing, std::uint32_t stub);

} // namespace host
