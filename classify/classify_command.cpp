#include "classify/classify_command.h"

#include "classify/attribute_sync.h"
#include "classify/removal.h"
#include "dialogs/gui_classify.h"
#include "dialogs/gui_od.h"
#include "draw/assignment.h"
#include "frame/command_frame.h"
#include "frame/command_posting.h"
#include "frame/echo_off.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "frame/selection_result.h"
#include "host/db/object_pointer.h"
#include "host/ui/file_dialog.h"
#include "objects/conformity.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "session/session.h"
#include "text/messages.h"

#include <unordered_set>

namespace {

// What the entities are now: the names of objects, each once, in the order of first sighting.
std::vector<std::wstring> presentObjects(const Description& description, StoredTables& tables,
                                         const EntityList& entities)
{
    std::vector<std::wstring> names;
    std::unordered_set<std::wstring> seen;
    for (const AcDbObjectId entity : entities)
        for (const OdRecord& record : tables.recordsOf(entity)) {
            const ObjectDef* const object = objectOfRecord(description, record, tables);
            if (object && seen.insert(object->props.name).second)
                names.push_back(object->props.name);
        }
    return names;
}

bool accepts(const ObjectDef& object, AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
    return entity && typeAccepted(object, *entity);
}

bool isObject(const Description& description, StoredTables& tables, AcDbObjectId entity,
              const std::wstring& name)
{
    return validateObject(description, tables, entity, name, Values::any, Fields::all);
}

struct Classification {
    const Description& description;
    const ObjectDef& object;
    std::wstring name; // as typed
    ClassifyParameters parameters;
    std::vector<std::wstring> toRemove; // names of objects
    LoadedDependencies dependencies;
    ReplacedBlocks replaced;
    int count = 0;

    // Replaced entities stand in `ids` in the place of the old ones.
    void run(std::vector<AcDbObjectId>& ids, StoredTables& tables)
    {
        for (AcDbObjectId& id : ids)
            if (accepts(object, id)) {
                makeObject(id, tables);
                ++count; // whether it could be made one or not
            }
    }

private:
    void makeObject(AcDbObjectId& id, StoredTables& tables)
    {
        for (const std::wstring& present : toRemove)
            removeObject(description, tables, id, present);
        std::optional<std::wstring> block;
        if (parameters.assign)
            block = referredBlock(id);
        const bool needsRecords = parameters.attach && !isObject(description, tables, id, name);
        if (ApplyDefinition(description, name, tables.storeId(), id,
                            {.assign = parameters.assign, .attach = needsRecords}, dependencies))
            replaced.note(block, object);
    }
};

void postUpdates(const Classification& classification)
{
    const EchoOff echo;
    classification.replaced.postUpdates();
    if (classification.count > 0)
        PostCommandLine(L"_.regen\n");
}

// False if the command ends: cancelled, or nothing to be done.
bool askParameters(ClassifyParameters& parameters)
{
    return GUIClassify(parameters).DoModal() == IDOK && (parameters.assign || parameters.attach);
}

// The same, of what the entities are to cease to be.
bool askRemovals(std::vector<std::wstring>& names)
{
    return names.empty() || GUIOD(names).DoModal() == IDOK;
}

} // namespace

void classifyEntities()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    const std::optional<std::wstring> name = askObjectName();
    if (!name)
        return;
    const Description& description = frame.description();
    const ObjectDef* const object = description.findObject(*name);
    if (!object)
        return tell(Message::objectNotFound);
    LoadedDependencies dependencies;
    if (!dependencies.load(*object, description))
        return tell(Message::dependenciesNotLoaded);
    auto& parameters = session().kept<ClassifyParameters>();
    if (!askParameters(parameters) || !gatherIfEmpty(entities, Fallback::ask))
        return;
    filterEntities(entities);
    if (entities.empty())
        return tell(Message::noObjectsSelected);

    StoredTables tables(currentStore());
    Classification classification{description, *object, *name, parameters, {}, dependencies};
    if (parameters.change) {
        classification.toRemove = presentObjects(description, tables, entities);
        if (!askRemovals(classification.toRemove))
            return;
    }
    std::vector<AcDbObjectId> ids = entities.ids();
    classification.run(ids, tables);
    postUpdates(classification);

    // tables may have come into being
    StoredTables tablesNow(tables.storeId());
    EntityList classified(std::move(ids));
    keepIf(classified,
           [&](AcDbObjectId id) { return isObject(description, tablesNow, id, *name); });
    selectResult(classified);
    session().tellClassified(*name);
    tell(Message::completed, classification.count);
}
