#pragma once

#include "host/db/dimension_layout.h"

namespace host {

// Draws a dimension that is led to its text: of a radius, a diameter, an ordinate. False for
// another kind.
bool drawLed(DimensionScene& scene);

} // namespace host
