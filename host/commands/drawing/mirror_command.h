#pragma once

namespace host {

void mirrorCommand();

} // namespace host
