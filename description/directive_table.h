#pragma once

#include "description/reading_state.h"

// Does what a line says; its first token names the directive. False after an error.
bool runDirective(ReadingState& state, Tokens tokens);
