#pragma once

#include "host/db/object.h"

namespace host {

// A record of a drawing as a new object for a drawing of another version, outside of both and
// without a head. What that version has no place for is left out. Handles and names are still the
// original drawing's; the arrow blocks of a dimension style stand under their handles (342 to 344)
// in every version.
std::unique_ptr<AcDbObject> copyForVersion(Drawing& from, std::uint32_t stub, DxfVersion version);

// Arrow blocks of a mapped dimension style as its drawing's version spells them: by name up to R14.
void spellArrows(AcDbObject& dimensionStyle);

} // namespace host
