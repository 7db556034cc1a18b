#pragma once

namespace host {

// ARC: through three points, or from start, centre, end, angle, chord, direction and radius.
void arcCommand();

} // namespace host
