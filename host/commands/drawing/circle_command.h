#pragma once

namespace host {

// CIRCLE: by centre and radius or diameter, by points, or tangent to two curves.
void circleCommand();

} // namespace host
