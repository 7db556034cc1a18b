#pragma once

#include "host/io/written_records.h"

namespace host {

// The whole file of an R12 drawing in a later version, text or binary as the drawing is: every
// record gets handle, owner and subclass markers, the tables theirs, the blocks their records, and
// OBJECTS with what every drawing has are added. Nothing else of the records changes.
std::string raisedDrawing(Drawing& drawing, const WrittenRecords& written, DxfVersion version);

} // namespace host
