#pragma once

#include "description/reading_state.h"

// od_name NAME; od_key NAME; od_fld NAME DESCRIPTION TYPE [DEFAULT [CONSTRAINT]]; autoconst FLAG
bool readOdName(ReadingState& state, Tokens tokens);
bool readOdKey(ReadingState& state, Tokens tokens);
bool readOdFld(ReadingState& state, Tokens tokens);
bool readAutoConst(ReadingState& state, Tokens tokens);

// Gives the open table, if there is one, to its object. An error when it differs from the drawing's
// table of that name or from one that another object has.
bool finishTable(ReadingState& state);
