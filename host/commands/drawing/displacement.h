#pragma once

#include "host/geom/vector.h"

#include <optional>

namespace host {

// A displacement as three lengths along the axes. Nothing when cancelled.
std::optional<AcGeVector3d> askDisplacement();

} // namespace host
