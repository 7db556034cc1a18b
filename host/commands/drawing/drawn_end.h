#pragma once

#include "host/geom/point.h"

#include <optional>

namespace host {

// Where the line or arc that was drawn last ends, and in which direction; what Enter at the first
// prompt of LINE and ARC goes on from. None when another kind of entity was drawn last.
struct DrawnEnd {
    AcGePoint3d place;
    AcGeVector3d direction; // of length 1
    bool isArc = false;
};
std::optional<DrawnEnd> drawnEnd();

} // namespace host
