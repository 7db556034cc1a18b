#include "import/block_file.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/id_mapping.h"
#include "import/block_nesting.h"
#include "import/readable_file.h"

#include <string>

namespace {

std::vector<AcDbObjectId> entitiesOf(AcDbObjectId space)
{
    std::vector<AcDbObjectId> entities;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(space, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> entity;
    if (!block || block->newIterator(entity) != Acad::eOk)
        return entities;
    for (; !entity->done(); entity->step())
        entities.push_back(entity->entityId());
    return entities;
}

// Null id when the drawing refuses it.
AcDbObjectId addBlock(AcDbDatabase& database, std::wstring_view name)
{
    AcDbObjectId id;
    AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    block.create();
    if (!table || block->setName(name) != Acad::eOk || table->add(id, block.object()) != Acad::eOk)
        id.setNull();
    return id;
}

bool hasBlock(const AcDbDatabase& database, std::wstring_view name)
{
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    return table && table->has(name);
}

} // namespace

bool LoadBlockFile(std::wstring_view path, std::wstring_view blockName, AcDbDatabase& database)
{
    if (hasBlock(database, blockName))
        return true;
    const std::optional<std::filesystem::path> file = readableFile(path);
    const auto source = std::make_unique<AcDbDatabase>(false, true);
    if (!file || source->readDwgFile(*file) != Acad::eOk)
        return false;
    // A block of the same name inside would take the place of the one that is made.
    const AcDbObjectId space = source->modelSpaceId();
    if (BlockNesting().isEndless(space) || BlockNesting::holds(space, blockName))
        return false;

    const std::vector<AcDbObjectId> entities = entitiesOf(space);
    if (entities.empty())
        return true;
    const AcDbObjectId block = addBlock(database, blockName);
    if (block.isNull())
        return false;
    AcDbIdMapping mapping;
    return database.wblockCloneObjects(entities, block, mapping, AcDb::kDrcReplace) == Acad::eOk;
}
