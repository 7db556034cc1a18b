#pragma once

#include "host/io/written_records.h"

#include <optional>
#include <string>

namespace host {

// The version to which a drawing of R12 or older has to be raised when it is saved: R2004 for a
// true colour, R2000 for a line weight, for a dictionary that holds something, or for an entity
// that R12 does not know. Nothing for a drawing that can stay as it is.
std::optional<DxfVersion> versionToRaiseTo(Drawing& drawing, const WrittenRecords& written);

// The whole file in that version, in text or binary as the drawing is: every record gets handle,
// owner and subclass markers, the tables theirs, the blocks their records, and an OBJECTS section
// with what every drawing has. Nothing else of the records changes.
std::string raisedDrawing(Drawing& drawing, const WrittenRecords& written, DxfVersion version);

// "The drawing was raised to AutoCAD 2000 (AC1015): ..." for the user.
std::wstring raiseMessage(DxfVersion version);

} // namespace host
