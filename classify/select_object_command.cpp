#include "classify/select_object_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "objects/validation.h"

namespace {

// `test` tells whether an entity has the name.
template <class Test> void selectByName(Test test)
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    const std::optional<std::wstring> name = askObjectName();
    if (!name || !gatherIfEmpty(entities, Fallback::scan))
        return;

    filterEntities(entities);
    if (entities.empty())
        return tellSelected(entities);
    StoredTables tables(currentStore());
    keepIf(entities,
           [&](AcDbObjectId entity) { return test(frame.description(), tables, entity, *name); });
    selectAndTell(entities);
}

} // namespace

void selectByObject()
{
    selectByName([](const Description& description, StoredTables& tables, AcDbObjectId entity,
                    const std::wstring& name) {
        return validateObject(description, tables, entity, name, Values::any, Fields::all);
    });
}

void selectByClass()
{
    selectByName([](const Description& description, StoredTables& tables, AcDbObjectId entity,
                    const std::wstring& name) {
        const ClassDef* const classDef = findClass(description.rootClass, name);
        return classDef && classValid(description, tables, entity, *classDef);
    });
}
