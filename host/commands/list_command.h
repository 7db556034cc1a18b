#pragma once

namespace host {

// Of each entity of the pick-first set or of a selection: type and layer, its handle, its
// properties and its attribute records.
void listCommand();

} // namespace host
