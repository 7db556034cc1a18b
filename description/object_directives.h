#pragma once

#include "description/reading_state.h"

// obj_name NAME DRAWABLE PRIORITY [ICON]; obj_type TYPES; obj_prop KEYWORD VALUE [ACCEPTED]
bool readObjName(ReadingState& state, Tokens tokens);
bool readObjType(ReadingState& state, Tokens tokens);
bool readObjProp(ReadingState& state, Tokens tokens);

// Puts the open object, if there is one, into the description at the end of the file.
bool finishLastObject(ReadingState& state);
