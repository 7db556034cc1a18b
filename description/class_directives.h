#pragma once

#include "description/reading_state.h"

// class NAME FLAG [ICON], and /class
bool readClass(ReadingState& state, Tokens tokens);
bool readClassEnd(ReadingState& state, Tokens tokens);

// Puts the open object into the innermost class, unless it is in one already or is not complete.
void enterOpenObject(ReadingState& state);
