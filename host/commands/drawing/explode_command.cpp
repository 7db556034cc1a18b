#include "host/commands/drawing/explode_command.h"

#include "host/commands/command_entities.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/edit/command_line.h"
#include "host/edit/document.h"
#include "host/edit/pick_first.h"

namespace host {

namespace {

using Parts = std::vector<std::unique_ptr<AcDbEntity>>;

struct Counts {
    int locked = 0;
    int elsewhere = 0;
    int refused = 0;
};

bool mayExplode(const AcDbEntity& entity)
{
    const AcDbBlockReference* const reference = AcDbBlockReference::cast(&entity);
    if (!reference)
        return true;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(reference->blockTableRecord(),
                                                        AcDb::kForRead);
    return block && block->explodable();
}

void append(AcDbObjectId blockId, Parts& parts)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForWrite);
    if (!block)
        return;
    for (std::unique_ptr<AcDbEntity>& part : parts) {
        AcDbObjectPointer<AcDbEntity> entity;
        entity.acquire(part.release());
        block->appendAcDbEntity(entity.object());
    }
}

void explode(AcDbObjectId id, AcDbObjectId space, Counts& counts)
{
    AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
    if (entity.openStatus() == Acad::eOnLockedLayer) {
        ++counts.locked;
        return;
    }
    if (!entity || entity->blockId() != space) {
        ++counts.elsewhere;
        return;
    }
    Parts parts;
    if (!mayExplode(*entity) || entity->explode(parts) != Acad::eOk ||
        entity->erase() != Acad::eOk) {
        ++counts.refused;
        return;
    }
    entity.close();
    append(space, parts);
}

void tell(int count, const wchar_t* one, const wchar_t* many)
{
    if (count == 1)
        print(one);
    else if (count > 1)
        acutPrintf(many, count);
}

} // namespace

void explodeCommand()
{
    const AcApDocument* const document = documentOfCommand();
    if (!document)
        return;
    const auto entities = entitiesOfCommand();
    if (!entities)
        return;
    Counts counts;
    for (const AcDbObjectId id : *entities)
        explode(id, document->database()->currentSpaceId(), counts);
    tell(counts.elsewhere, L"1 was not in current space.\n", L"%d were not in current space.\n");
    tell(counts.locked, L"1 was on a locked layer.\n", L"%d were on a locked layer.\n");
    tell(counts.refused, L"1 could not be exploded.\n", L"%d could not be exploded.\n");
    setPickFirst({});
}

} // namespace host
