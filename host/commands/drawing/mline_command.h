#pragma once

namespace host {

// MLINE: parallel lines after a style along a path.
void mlineCommand();

} // namespace host
