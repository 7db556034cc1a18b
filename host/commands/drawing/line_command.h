#pragma once

namespace host {

// LINE: segments from point to point, each an entity of its own.
void lineCommand();

} // namespace host
