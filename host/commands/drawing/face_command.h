#pragma once

namespace host {

// 3DFACE: faces of three or four corners, one after the other along a strip.
void faceCommand();

} // namespace host
