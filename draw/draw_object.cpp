#include "draw/draw_object.h"

#include "description/stored_table.h"
#include "draw/object_dependencies.h"
#include "draw/property_prompts.h"
#include "draw/start_drawing.h"
#include "frame/command_frame.h"
#include "host/ui/message_box.h"
#include "text/messages.h"

namespace {

// The drawing may have a table of the same name with other fields; told for the first of them.
bool tablesMatch(const ObjectDef& object)
{
    const AcDbObjectId store = currentStore();
    for (const TableDef& table : object.props.tables) {
        if (tableMatches(table, store))
            continue;
        MessageBoxW(nullptr, filledIn(Message::tableDiffersBox, table.name).c_str(),
                    textOf(Message::errorTitle), MB_ICONERROR);
        return false;
    }
    return true;
}

// The values before. A point is not read: what is put back later is the value set here.
std::vector<HostVariable> setVariables(const std::vector<HostVariable>& variables)
{
    std::vector<HostVariable> saved = variables;
    for (std::size_t at = 0; at < variables.size(); ++at) {
        ReadHostVariable(saved[at]);
        WriteHostVariable(variables[at]);
    }
    return saved;
}

} // namespace

void DrawObject(const std::shared_ptr<Description>& description, std::wstring_view name)
{
    const auto found = description->objects.find(std::wstring(name));
    if (found == description->objects.end())
        return tell(Message::undefinedObject, std::wstring(name));
    ObjectDef& current = description->current;
    current = found->second;

    if (!tablesMatch(current))
        return;
    if (!promptOpenProperties(current.props))
        return tell(Message::invalidValue);
    if (!LoadObjectDependencies(current.props, *description))
        return tell(Message::objectDependenciesNotLoaded, current.props.name);
    for (const HostVariable& variable : description->variables)
        WriteHostVariable(variable);
    std::vector<HostVariable> saved = setVariables(current.variables);
    StartDrawing(std::shared_ptr<const ObjectDef>(description, &current), true, std::move(saved));
}
