#include "frame/entity_filter.h"

#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/db/symbol_tables.h"

#include <unordered_set>

namespace {

std::unordered_set<AcDbObjectId> usableLayers(AcDbDatabase& database)
{
    std::unordered_set<AcDbObjectId> usable;
    AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
    if (!table)
        return usable;
    for (const auto layers = table->newIterator(); !layers->done(); layers->step()) {
        const AcDbObjectId id = layers->getRecordId();
        AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        if (layer && !layer->isFrozen() && !layer->isHidden() && !layer->isLocked() &&
            !layer->isOff())
            usable.insert(id);
    }
    return usable;
}

} // namespace

void filterUsableLayers(EntityList& entities)
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    if (!database)
        return entities.clear();

    const std::unordered_set<AcDbObjectId> usable = usableLayers(*database);
    keepIf(entities, [&](AcDbObjectId id) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        return entity && usable.contains(entity->layerId());
    });
}

void filterOpenable(EntityList& entities)
{
    keepIf(entities, [](AcDbObjectId id) {
        return static_cast<bool>(AcDbObjectPointer<AcDbEntity>(id, AcDb::kForRead));
    });
}
