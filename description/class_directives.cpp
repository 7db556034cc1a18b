#include "description/class_directives.h"

#include "host/text/case_mapping.h"
#include "text/number_text.h"
#include "text/text_splitting.h"

void enterOpenObject(ReadingState& state)
{
    if (state.currentName == state.lastClassedName || !state.currentObject.props.isComplete())
        return;
    state.classStack.back()->objects.push_back(state.currentName);
    state.lastClassedName = state.currentName;
}

bool readClass(ReadingState& state, Tokens tokens)
{
    if (tokens.size() != 3 && tokens.size() != 4)
        return state.fail(Message::invalidClass);
    ++state.classDepth;
    enterOpenObject(state);

    ClassDef classDef;
    classDef.name = trimmedItem(tokens[1]);
    // Names of classes compare folded with the new name as it is written: only a repeat in lower
    // case is caught, as descriptions in use rely on.
    if (state.classNames.contains(classDef.name))
        return state.fail(Message::redefinition, classDef.name);
    state.classNames.insert(host::lowerCased(classDef.name));
    classDef.drawable = leadingInteger(tokens[2]) > 0;
    state.classEnabled = classDef.drawable;
    if (tokens.size() == 4)
        classDef.icon = tokens[3];

    std::vector<ClassDef>& siblings = state.classStack.back()->children;
    state.classStack.push_back(&siblings.emplace_back(std::move(classDef)));
    return true;
}

bool readClassEnd(ReadingState& state, Tokens tokens)
{
    if (tokens.size() != 1)
        return state.fail(Message::invalidClass);
    --state.classDepth;
    // Also inside a class that is switched off: what follows a nested class is drawable again.
    state.classEnabled = true;
    if (state.classDepth < 0)
        return state.fail(Message::invalidClass);
    enterOpenObject(state);
    if (state.classStack.size() > 1)
        state.classStack.pop_back();
    return true;
}
