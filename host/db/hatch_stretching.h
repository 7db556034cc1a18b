#pragma once

#include "host/db/hatch.h"

#include <memory>

namespace host {

// A copy of a filled hatch under a map that need not be similar: arcs of its paths become
// elliptical ones. Null when the map makes it flat, and for a pattern, whose lines such a map would
// distort.
std::unique_ptr<AcDbEntity> stretchedHatch(const AcDbHatch& hatch, const AcGeMatrix3d& map);

} // namespace host
