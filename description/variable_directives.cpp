#include "description/variable_directives.h"

#include "text/number_text.h"
#include "text/text_splitting.h"

#include <algorithm>

namespace {

// False unless the text has one number for each coordinate.
bool readCoordinates(HostVariable& variable, std::wstring_view text, std::size_t coordinates)
{
    std::vector<std::wstring> parts = splitWithEscape(text, L",");
    std::erase_if(parts, [](const std::wstring& part) { return trimmedItem(part).empty(); });
    if (parts.size() != coordinates)
        return false;
    std::transform(parts.begin(), parts.end(), variable.reals.begin(), leadingReal);
    return true;
}

bool readValue(HostVariable& variable, const std::wstring& text)
{
    switch (variable.type) {
    case HostVariableType::unknown:
        return true;
    case HostVariableType::longInteger:
        variable.integer = leadingInteger(text);
        return true;
    case HostVariableType::shortInteger:
        variable.integer = static_cast<std::int16_t>(leadingInteger(text)); // the low 16 bits
        return true;
    case HostVariableType::point2d:
        return readCoordinates(variable, text, 2);
    case HostVariableType::point3d:
        return readCoordinates(variable, text, 3);
    case HostVariableType::real:
        variable.reals[0] = leadingReal(text);
        return true;
    case HostVariableType::text:
        variable.text = text;
        return true;
    }
    return true;
}

} // namespace

bool readVariable(ReadingState& state, Tokens tokens)
{
    if (tokens.size() != 3)
        return state.fail(Message::invalidVariable);
    HostVariable variable;
    variable.name = tokens[1];
    if (!ReadHostVariable(variable)) {
        state.warn(Message::unknownVariable, variable.name);
        return !state.failed;
    }
    if (!readValue(variable, tokens[2]))
        return state.fail(Message::invalidVariable);
    std::vector<HostVariable>& owner =
        state.currentName.empty() ? state.description.variables : state.currentObject.variables;
    owner.push_back(std::move(variable));
    return !state.failed;
}
