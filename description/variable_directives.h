#pragma once

#include "description/reading_state.h"

// variable NAME VALUE: of the file before the first object, else of the open object.
bool readVariable(ReadingState& state, Tokens tokens);
