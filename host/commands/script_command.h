#pragma once

namespace host {

void scriptCommand(); // types the lines of a file

} // namespace host
