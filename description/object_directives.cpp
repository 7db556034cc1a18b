#include "description/object_directives.h"

#include "description/class_directives.h"
#include "description/property_parser.h"
#include "description/table_directives.h"
#include "host/text/case_mapping.h"
#include "text/number_text.h"
#include "text/text_splitting.h"

namespace {

constexpr std::size_t kLongestObjectName = 132;

enum class RepeatedName { ofOpenObject, ofStoredObject };

bool finishObject(ReadingState& state, RepeatedName told)
{
    if (state.currentName.empty())
        return true;
    if (!state.currentObject.props.isComplete())
        return state.fail(Message::invalidObject);
    const auto stored = state.description.objects.find(state.currentName);
    if (stored != state.description.objects.end()) {
        const ObjectDef& named =
            told == RepeatedName::ofOpenObject ? state.currentObject : stored->second;
        return state.fail(Message::redefinition, named.props.name);
    }
    if (!finishTable(state))
        return false;
    enterOpenObject(state);
    state.description.objects.emplace(state.currentName, std::move(state.currentObject));
    return true;
}

// Empty when one of the types is.
std::vector<std::wstring> typesOf(std::wstring_view text)
{
    std::vector<std::wstring> types = splitWithEscape(text, L",");
    for (std::wstring& type : types) {
        type = std::wstring(trimmedItem(type));
        if (type.empty())
            return {};
    }
    return types;
}

bool hasType(const GraphicProps& props)
{
    // Two marks of "no type" that a file can hold as text.
    return !props.types.empty() && props.types.front() != L"\x01" &&
           props.types.front() != L"\xFFFF";
}

} // namespace

bool finishLastObject(ReadingState& state)
{
    return finishObject(state, RepeatedName::ofStoredObject);
}

bool readObjName(ReadingState& state, Tokens tokens)
{
    if (!finishObject(state, RepeatedName::ofOpenObject))
        return false;
    state.currentObject = {};
    state.currentTable = {};

    if ((tokens.size() != 4 && tokens.size() != 5) || tokens[1].empty() ||
        tokens[1].size() > kLongestObjectName)
        return state.fail(Message::invalidObjName);
    ObjectDef& object = state.currentObject;
    state.currentName = host::lowerCased(tokens[1]);
    object.props.name = tokens[1];
    object.drawable = state.classEnabled && leadingInteger(tokens[2]) != 0;
    object.priority = leadingInteger(tokens[3]);
    if (tokens.size() == 5)
        object.icon = tokens[4];
    return true;
}

bool readObjType(ReadingState& state, Tokens tokens)
{
    if (state.currentName.empty())
        return state.fail(Message::objNameUndefined);
    if (tokens.size() != 2)
        return state.fail(Message::invalidObjType);
    GraphicProps props;
    props.name = std::move(state.currentObject.props.name);
    props.types = typesOf(tokens[1]);
    state.currentObject.props = std::move(props);
    return state.currentObject.props.isValid() || state.fail(Message::invalidObjType);
}

bool readObjProp(ReadingState& state, Tokens tokens)
{
    if (state.currentName.empty())
        return state.fail(Message::objNameUndefined);
    GraphicProps& props = state.currentObject.props;
    if (!hasType(props))
        return state.fail(Message::objTypeUndefined);
    if (tokens.size() < 3)
        return true; // nothing is said, so nothing is told
    const bool read = tokens.size() <= 4 && parseProperty(props, tokens[1], tokens[2],
                                                          tokens.size() == 4 ? tokens[3] : L"");
    if (!read)
        state.warn(Message::invalidObjProp);
    return true;
}
