#pragma once

namespace host {

void copyCommand();

} // namespace host
