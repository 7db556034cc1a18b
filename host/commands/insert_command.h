#pragma once

namespace host {

// -INSERT: a block of the drawing at a point, scaled, turned, with its attributes asked for.
void insertCommand();

} // namespace host
