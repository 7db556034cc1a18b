#pragma once

namespace host {

void moveCommand();

} // namespace host
