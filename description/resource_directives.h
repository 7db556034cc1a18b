#pragma once

#include "description/reading_state.h"

// KEYWORD PATTERN: files that supply what objects name. Each is noted with the kinds that are asked
// of it until all objects are known; the folder of a font or shape file is told to the host at
// once. A pattern that no file matches is an error. Each directive has its own message for a wrong
// count of tokens, by which it is known here.
bool readResource(ReadingState& state, Tokens tokens, Message wrongCount);

template <Message wrongCount> bool readResource(ReadingState& state, Tokens tokens)
{
    return readResource(state, tokens, wrongCount);
}
