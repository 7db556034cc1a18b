#pragma once

namespace host {

// MPOLYGON: a filled polygon of several rings.
void mpolygonCommand();

} // namespace host
