#include "description/resource_directives.h"

bool readResource(ReadingState& state, Tokens tokens, Message wrongCount)
{
    return tokens.size() == 2 || state.fail(wrongCount);
}
