#include "draw/restore_command.h"

#include "draw/assignment.h"
#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "host/edit/prompts.h"
#include "objects/entity_objects.h"
#include "objects/validation.h"
#include "session/session.h"
#include "text/messages.h"
#include "text/number_text.h"

#include <limits>

namespace {

struct RestoreAnswers {
    bool toDefaults = false; // else allowed values stay
};

bool askMode(bool& toDefaults)
{
    const std::wstring prompt =
        filledIn(Message::allOrDefaultPrompt) + (toDefaults ? L"1" : L"0") + L">: ";
    std::wstring answer;
    if (acedGetString(0, prompt.c_str(), answer) != RTNORM)
        return false;
    if (!answer.empty())
        toDefaults = leadingInteger(answer) > 0;
    return true;
}

void tellRestored(int count, const EntityList& entities)
{
    tell(Message::completedOf, count, static_cast<int>(entities.size()));
}

// Those of the entities that are the object.
void restoreObject(const Description& description, const std::wstring& name, EntityList& entities,
                   bool force)
{
    const ObjectDef* const object = description.findObject(name);
    if (!object)
        return tell(Message::objectNotFound);
    LoadedDependencies dependencies;
    if (!dependencies.load(*object, description))
        return tell(Message::dependenciesNotLoaded);
    if (!gatherIfEmpty(entities, Fallback::ask))
        return;
    filterEntities(entities);

    StoredTables tables(currentStore());
    int count = 0;
    for (AcDbObjectId entity : entities)
        if (validateObject(description, tables, entity, name, Values::any, Fields::all) &&
            ApplyDefinition(description, name, tables.storeId(), entity,
                            {.assign = true, .force = force}, dependencies))
            ++count;
    tellRestored(count, entities);
}

// Of equal priorities the first by name.
const ObjectDef* foremost(std::span<const ObjectDef* const> objects)
{
    std::int32_t best = -std::numeric_limits<std::int32_t>::max();
    const ObjectDef* found = nullptr;
    for (const ObjectDef* const object : objects) {
        if (object->priority <= best)
            continue;
        best = object->priority;
        found = object;
    }
    return found;
}

// Each of the entities by its own records.
void restoreAll(const Description& description, EntityList& entities, bool force)
{
    if (fillIfEmpty(entities, Fallback::askScan) == Gathering::cancelled)
        return;
    filterEntities(entities);

    StoredTables tables(currentStore());
    int count = 0;
    for (AcDbObjectId entity : entities) {
        const std::vector<OdRecord> records = tables.recordsOf(entity);
        const ObjectDef* const object = foremost(objectsOfRecords(description, tables, records));
        if (object &&
            ApplyGraphicProps(*object, tables.storeId(), entity, {.assign = true, .force = force}))
            ++count;
    }
    tellRestored(count, entities);
}

} // namespace

void restoreObjects()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    const std::optional<std::wstring> name = askObjectName();
    bool& toDefaults = session().kept<RestoreAnswers>().toDefaults;
    if (!name || !askMode(toDefaults))
        return;
    if (name->empty())
        restoreAll(frame.description(), entities, toDefaults);
    else
        restoreObject(frame.description(), *name, entities, toDefaults);
}
