#pragma once

namespace host {

void scaleCommand();

} // namespace host
