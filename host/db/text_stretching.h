#pragma once

#include "host/geom/matrix.h"

class AcDbText;

namespace host {

// Maps a text so that its letters fill the parallelogram that the map makes of them: with another
// height, width factor and slant. One that the map makes flat stays as it was. A mirrored text
// faces the other way.
void stretchText(AcDbText& text, const AcGeMatrix3d& map);

} // namespace host
