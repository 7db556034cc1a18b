#pragma once

namespace host {

// They play the journal of the current drawing and make no step of their own.
void uCommand();    // takes back one step
void undoCommand(); // several steps, or all since a mark; opens and closes a group of commands
void redoCommand(); // does again what was taken back last

} // namespace host
