#include "frame/entity_gathering.h"

#include "frame/entity_filter.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/edit/selection_set.h"
#include "text/messages.h"

namespace {

void appendSet(EntityList& entities, const ads_name& set)
{
    std::int32_t length = 0;
    if (acedSSLength(set, length) != RTNORM)
        return;
    entities.reserve(entities.size() + static_cast<std::size_t>(length));
    for (std::int32_t at = 0; at < length; ++at) {
        ads_name name{};
        AcDbObjectId id;
        if (acedSSName(set, at, name) == RTNORM && acdbGetObjectId(id, name) == Acad::eOk)
            entities.append(id);
    }
}

} // namespace

void pickFirstEntities(EntityList& entities)
{
    ads_name set{};
    if (acedSSGet(L"_I", nullptr, nullptr, nullptr, set) != RTNORM)
        return;
    appendSet(entities, set);
    acedSSFree(set);
}

bool askEntities(EntityList& entities)
{
    ads_name set{};
    const int answer = acedSSGet(nullptr, nullptr, nullptr, nullptr, set);
    if (answer == RTCAN)
        return false;
    if (answer == RTNORM) {
        appendSet(entities, set);
        acedSSFree(set);
    }
    return true;
}

EntityList scanModelSpace()
{
    EntityList entities;
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        return entities;

    AcDbObjectPointer<AcDbBlockTable> blocks(database->blockTableId(), AcDb::kForRead);
    AcDbObjectId modelSpace;
    if (!blocks || blocks->getAt(ACDB_MODEL_SPACE, modelSpace) != Acad::eOk)
        return entities;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(modelSpace, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    if (!space || space->newIterator(walk) != Acad::eOk)
        return entities;
    for (; !walk->done(); walk->step()) {
        const AcDbObjectId id = walk->entityId();
        if (AcDbObjectPointer<AcDbEntity>(id, AcDb::kForRead))
            entities.append(id);
    }
    return entities;
}

Gathering fillIfEmpty(EntityList& entities, Fallback fallback)
{
    if (entities.empty() && fallback != Fallback::scan && !askEntities(entities))
        return Gathering::cancelled;
    if (entities.empty() && fallback != Fallback::ask)
        entities = scanModelSpace();
    return entities.empty() ? Gathering::nothing : Gathering::found;
}

bool gatherIfEmpty(EntityList& entities, Fallback fallback)
{
    const Gathering outcome = fillIfEmpty(entities, fallback);
    if (outcome == Gathering::nothing)
        tell(Message::noObjectsSelected);
    return outcome == Gathering::found;
}

void filterEntities(EntityList& entities)
{
    filterUsableLayers(entities);
    filterOpenable(entities);
}

std::optional<EntityList> usableEntities(Fallback fallback)
{
    EntityList entities;
    pickFirstEntities(entities);
    if (!gatherIfEmpty(entities, fallback))
        return std::nullopt;
    filterEntities(entities);
    return entities;
}
