#pragma once

namespace host {

// 3DPOLY: a polyline of straight segments in space.
void polyline3dCommand();

} // namespace host
