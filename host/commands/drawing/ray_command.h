#pragma once

namespace host {

// RAY: lines from one point through others, without an end.
void rayCommand();

} // namespace host
