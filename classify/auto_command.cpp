#include "classify/auto_command.h"

#include "classify/attribute_sync.h"
#include "classify/objects_by_look.h"
#include "draw/assignment.h"
#include "frame/command_frame.h"
#include "frame/echo_off.h"
#include "frame/entity_gathering.h"
#include "frame/prompts.h"
#include "host/db/object_pointer.h"
#include "objects/record_object.h"
#include "objects/validation.h"
#include "session/session.h"
#include "text/messages.h"

#include <limits>

namespace {

struct AutoAnswers {
    int byRecords = 0; // else by look
    int undrawable = 0;
};

// How many got records that they did not have.
int attachByLook(const Description& description, const EntityList& entities, Undrawable undrawable)
{
    ObjectsByLook objects(description, undrawable);
    LoadedDependencies dependencies;
    StoredTables tables(currentStore());
    int count = 0;
    for (AcDbObjectId id : entities) {
        const ObjectDef* best = nullptr;
        if (const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead); entity)
            best = objects.bestFor(*entity);
        if (!best)
            continue;
        const std::wstring& name = best->props.name;
        if (!validateObject(description, tables, id, name, Values::any, Fields::all) &&
            ApplyDefinition(description, name, tables.storeId(), id, {.attach = true},
                            dependencies))
            ++count;
    }
    return count;
}

// Of equal priorities that of the first record. The least priority but one never counts.
const ObjectDef* bestByRecords(const Description& description, StoredTables& tables,
                               AcDbObjectId entity, Undrawable undrawable)
{
    std::int32_t priority = -std::numeric_limits<std::int32_t>::max();
    const ObjectDef* best = nullptr;
    for (const OdRecord& record : tables.recordsOf(entity)) {
        const ObjectDef* const object = objectOfRecord(description, record, tables);
        if (!object || (!object->drawable && undrawable == Undrawable::leftOut) ||
            object->priority <= priority)
            continue;
        priority = object->priority;
        best = object;
    }
    return best;
}

// How many got the look; those that could not be given it leave the list.
int assignByRecords(const Description& description, EntityList& entities, Undrawable undrawable,
                    ReplacedBlocks& replaced)
{
    LoadedDependencies dependencies;
    StoredTables tables(currentStore());
    int count = 0;
    keepIf(entities, [&](AcDbObjectId id) {
        const ObjectDef* const best = bestByRecords(description, tables, id, undrawable);
        if (!best)
            return true;
        const std::optional<std::wstring> block = referredBlock(id);
        if (!ApplyDefinition(description, best->props.name, tables.storeId(), id, {.assign = true},
                             dependencies))
            return false;
        ++count;
        replaced.note(block, *best);
        return true;
    });
    return count;
}

} // namespace

void classifyAutomatically()
{
    const CommandFrame frame;
    if (!frame)
        return;
    EntityList entities;
    pickFirstEntities(entities);
    auto& answers = session().kept<AutoAnswers>();
    if (!askZeroOne(Message::graphicsOrClassesPrompt, answers.byRecords) ||
        !askZeroOne(Message::undrawablePrompt, answers.undrawable) ||
        fillIfEmpty(entities, Fallback::askScan) == Gathering::cancelled)
        return;
    filterEntities(entities);
    if (entities.empty())
        return;

    const Undrawable undrawable = answers.undrawable ? Undrawable::takesPart : Undrawable::leftOut;
    ReplacedBlocks replaced;
    const int count = answers.byRecords
                          ? assignByRecords(frame.description(), entities, undrawable, replaced)
                          : attachByLook(frame.description(), entities, undrawable);
    {
        const EchoOff echo;
        replaced.postUpdates();
    }
    tell(Message::completedOf, count, static_cast<int>(entities.size()));
}
