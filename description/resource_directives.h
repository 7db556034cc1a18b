#pragma once

#include "description/reading_state.h"

// KEYWORD PATTERN: files that supply what objects name. Each directive has its own message for a
// wrong count of tokens.
bool readResource(ReadingState& state, Tokens tokens, Message wrongCount);

template <Message wrongCount> bool readResource(ReadingState& state, Tokens tokens)
{
    return readResource(state, tokens, wrongCount);
}
