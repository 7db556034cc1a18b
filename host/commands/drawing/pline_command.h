#pragma once

namespace host {

// PLINE: a flat polyline of straight segments and arcs, with widths.
void plineCommand();

} // namespace host
