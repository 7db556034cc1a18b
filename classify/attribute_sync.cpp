#include "classify/attribute_sync.h"

#include "frame/command_posting.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/text/case_mapping.h"
#include "objects/block_definition.h"

std::optional<std::wstring> referredBlock(AcDbObjectId entity)
{
    const AcDbObjectPointer<AcDbBlockReference> reference(entity, AcDb::kForRead);
    if (!reference)
        return std::nullopt;
    return host::lowerCased(blockDefinitionName(*reference));
}

void ReplacedBlocks::note(const std::optional<std::wstring>& before, const ObjectDef& object)
{
    const std::wstring& wanted = object.props.blockName.value;
    if (before && wanted != anyText && host::lowerCased(wanted) != *before)
        names_.insert(*before);
}

void ReplacedBlocks::postUpdates() const
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbBlockTable> blocks(
        database ? database->blockTableId() : AcDbObjectId(), AcDb::kForRead);
    for (const std::wstring& name : names_) {
        AcDbObjectId id;
        if (!blocks || blocks->getAt(name, id) != Acad::eOk)
            continue;
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        if (block && block->hasAttributeDefinitions())
            PostCommandLine(L"_.attsync _n " + name + L"\n");
    }
}
