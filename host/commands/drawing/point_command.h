#pragma once

namespace host {

// POINT: one point.
void pointCommand();

} // namespace host
