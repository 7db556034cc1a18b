#pragma once

namespace host {

// SPLINE: a smooth curve through points, or one that control points pull.
void splineCommand();

} // namespace host
