#pragma once

namespace host {

// ELLIPSE: by the ends of an axis or by its centre, whole or as an arc.
void ellipseCommand();

} // namespace host
