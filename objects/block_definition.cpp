#include "objects/block_definition.h"

#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/dynamic_block.h"
#include "host/db/object_pointer.h"

AcDbObjectId blockDefinition(const AcDbBlockReference& reference)
{
    return AcDbDynBlockReference(&reference).dynamicBlockTableRecord();
}

std::wstring blockDefinitionName(const AcDbBlockReference& reference)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockDefinition(reference), AcDb::kForRead);
    return block ? block->name() : std::wstring();
}

int variableAttributeCount(AcDbObjectId blockId)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    if (!block || block->newIterator(walk) != Acad::eOk)
        return 0;
    int count = 0;
    for (; !walk->done(); walk->step()) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(walk->entityId(),
                                                                    AcDb::kForRead);
        if (definition && !definition->isConstant())
            ++count;
    }
    return count;
}
