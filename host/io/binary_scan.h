#pragma once

#include "host/io/binary_form.h"
#include "host/io/record_notes.h"

namespace host {

// Told by the byte behind the first code, which is 0: it is zero again where codes have two bytes,
// the "S" of SECTION where they have one.
BinaryCodes binaryCodesOf(std::string_view file);

// The one pass over a binary file: every tag has to lie inside the file, every code in a range.
// Reals that are no finite number are refused as in text.
ScanTrouble scanBinary(std::string_view file, BinaryCodes codes, RecordNotes& notes, bool& ended);

} // namespace host
