#include "description/define_directive.h"

#include "text/text_comparison.h"

bool readDefine(ReadingState& state, Tokens tokens)
{
    if (tokens.size() != 3)
        return state.fail(Message::invalidDefine);
    const std::wstring& name = tokens[1];
    // Told as an error, but the macro works: existing descriptions have such names.
    if (textEqualNoCase(name, L"obj_name") || hasForbiddenCharacter(name))
        state.warn(Message::invalidDefine);

    switch (state.defines.define(name, tokens[2])) {
    case MacroDefines::Outcome::defined:
        break;
    case MacroDefines::Outcome::replaced:
        state.warn(Message::macroRedefinition, name);
        break;
    case MacroDefines::Outcome::recursive:
        state.warn(Message::recursiveDefinition);
        break;
    }
    return true;
}
