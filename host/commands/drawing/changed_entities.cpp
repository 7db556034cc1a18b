#include "host/commands/drawing/changed_entities.h"

#include "host/commands/command_entities.h"
#include "host/db/database.h"
#include "host/db/hatch.h"
#include "host/db/id_mapping.h"
#include "host/db/layer_visibility.h"
#include "host/db/object_pointer.h"
#include "host/db/readable_text.h"
#include "host/edit/command_line.h"
#include "host/edit/pick_first.h"

#include <algorithm>
#include <map>
#include <unordered_set>

namespace host {

namespace {

bool isLocked(AcDbObjectId id)
{
    const AcDbDatabase* const database = id.database();
    return database &&
           layerIsLocked(database->drawing(), database->drawing().index[id.stubNumber()].layer);
}

void tellCount(int count, const wchar_t* ofOne, const wchar_t* ofMore)
{
    if (count > 0)
        acutPrintf(count == 1 ? ofOne : ofMore, count);
}

void tellUnchanged(int count)
{
    tellCount(count, L"%d object could not be changed.\n", L"%d objects could not be changed.\n");
}

void loseBoundary(AcDbHatch& hatch, const std::unordered_set<AcDbObjectId>& together)
{
    const std::vector<AcDbObjectId> sources = hatch.getAssocObjIds();
    if (std::any_of(sources.begin(), sources.end(),
                    [&](AcDbObjectId source) { return !together.contains(source); }))
        hatch.setAssociative(false);
}

Acad::ErrorStatus transformOne(AcDbEntity& entity, const AcGeMatrix3d& map, MirroredText text)
{
    return text == MirroredText::readable ? transformReadably(entity, map)
                                          : entity.transformBy(map);
}

} // namespace

std::optional<std::vector<AcDbObjectId>> entitiesToChange()
{
    std::optional<std::vector<AcDbObjectId>> entities = entitiesOfCommand();
    if (!entities)
        return std::nullopt;
    const auto locked = std::erase_if(*entities, isLocked);
    tellCount(static_cast<int>(locked), L"%d was on a locked layer.\n",
              L"%d were on a locked layer.\n");
    setPickFirst({});
    if (entities->empty())
        return std::nullopt;
    return entities;
}

void transformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& map,
                  MirroredText text)
{
    const std::unordered_set<AcDbObjectId> together(entities.begin(), entities.end());
    int unchanged = 0;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        if (!entity || transformOne(*entity, map, text) != Acad::eOk)
            ++unchanged;
        else if (AcDbHatch* const hatch = AcDbHatch::cast(entity.object());
                 hatch && hatch->associative())
            loseBoundary(*hatch, together);
    }
    tellUnchanged(unchanged);
}

std::vector<AcDbObjectId> transformCopies(const std::vector<AcDbObjectId>& entities,
                                          const AcGeMatrix3d& map, MirroredText text)
{
    std::map<AcDbObjectId, std::vector<AcDbObjectId>> byBlock; // each where its original is
    for (const AcDbObjectId id : entities)
        if (AcDbDatabase* const database = id.database())
            byBlock[database->drawing().id(database->drawing().blockOf(id.stubNumber()))].push_back(
                id);
    AcDbIdMapping mapping;
    for (const auto& [block, members] : byBlock)
        block.database()->deepCloneObjects(members, block, mapping);
    std::vector<AcDbObjectId> copies;
    int unchanged = 0;
    for (const AcDbObjectId id : entities) {
        const AcDbObjectId copy = mapping.valueOf(id);
        const AcDbObjectPointer<AcDbEntity> entity(copy, AcDb::kForWrite);
        if (!entity || transformOne(*entity, map, text) != Acad::eOk) {
            ++unchanged;
            if (entity)
                entity->erase();
        } else {
            copies.push_back(copy);
        }
    }
    tellUnchanged(unchanged);
    return copies;
}

} // namespace host
