#pragma once

namespace host {

void rotateCommand();

} // namespace host
