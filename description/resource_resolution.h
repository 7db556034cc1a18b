#pragma once

#include "description/reading_state.h"

// Decides, once all objects are known, which of the requested files supplies what they name, loads
// it into the working drawing, and warns of what is then still missing there. Files are visited in
// the order of their lower-cased paths, and none that no object needs, save for layouts; the first
// to have a name supplies it. False, and the error told, when a file cannot be loaded.
bool resolveResources(ReadingState& state);
