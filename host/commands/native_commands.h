#pragma once

class AcEdCommandStack;

namespace host {

// Adds the commands that make the host usable alone, in the group "NATIVE".
void registerNativeCommands(AcEdCommandStack& stack);

} // namespace host
