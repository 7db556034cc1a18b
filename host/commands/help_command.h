#pragma once

namespace host {

void helpCommand(); // the names of all commands

} // namespace host
