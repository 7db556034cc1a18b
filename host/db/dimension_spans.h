#pragma once

#include "host/db/dimension_layout.h"

namespace host {

// Draws a dimension whose line runs between two extension lines: of a length, an angle, an arc's
// length. False for another kind.
bool drawSpanned(DimensionScene& scene);

} // namespace host
