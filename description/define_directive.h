#pragma once

#include "description/reading_state.h"

// define NAME VALUE
bool readDefine(ReadingState& state, Tokens tokens);
