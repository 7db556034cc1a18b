#pragma once

#include "host/io/written_records.h"

#include <optional>
#include <string>

namespace host {

// Why a drawing of R12 or older cannot stay as it is, and the version that can hold it.
struct Raise {
    DxfVersion version = DxfVersion::r2000;
    std::wstring reason; // "line weights"
    // What the raised file has no place for: children in no sequence, and what stands in sections
    // that R12 does not have.
    std::size_t strayChildren = 0;
    std::size_t foreignRecords = 0;
};

// R2004 for a true colour; R2000 for a line weight, for a dictionary that holds something, and for
// an entity that R12 does not know. Nothing for a drawing that can stay.
std::optional<Raise> findRaise(Drawing& drawing, const WrittenRecords& written);

// What the user is told, what is left out included.
std::wstring raiseMessage(const Raise& raise);

} // namespace host
