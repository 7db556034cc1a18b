#include "host/db/dynamic_block.h"

#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/reading.h"

namespace {

AcDbObjectId entryOf(AcDbObjectId dictionary, std::wstring_view name)
{
    const host::Reading<AcDbDictionary> open(dictionary);
    AcDbObjectId id;
    if (open)
        open->getAt(name, id);
    return id;
}

// The definition named by the reference's representation data.
AcDbObjectId representedBlock(const AcDbBlockReference& reference)
{
    const AcDbObjectId dictionary = reference.extensionDictionary();
    if (dictionary.isNull())
        return {};
    const AcDbObjectId data =
        entryOf(entryOf(dictionary, L"AcDbBlockRepresentation"), L"AcDbRepData");
    if (data.isNull())
        return {};
    host::Drawing& drawing = reference.database()->drawing();
    const std::shared_ptr<const host::TagList> tags = drawing.tagsOf(data.stubNumber());
    const std::uint64_t handle = host::handleField(*tags, {"AcDbBlockRepresentationData"}, 340);
    const AcDbObjectId block = drawing.idOfHandle(handle);
    return block.isErased() ? AcDbObjectId() : block;
}

} // namespace

AcDbDynBlockReference::AcDbDynBlockReference(AcDbObjectId reference)
{
    const host::Reading<AcDbBlockReference> open(reference);
    if (open)
        read(*open);
}

AcDbDynBlockReference::AcDbDynBlockReference(const AcDbBlockReference* reference)
{
    if (reference)
        read(*reference);
}

void AcDbDynBlockReference::read(const AcDbBlockReference& reference)
{
    block_ = reference.blockTableRecord();
    const host::Reading<AcDbBlockTableRecord> block(block_);
    if (!block)
        return;
    if (block->isAnonymous()) {
        definition_ = representedBlock(reference);
        if (definition_.isNull())
            definition_ = block->dynamicDefinition();
    } else if (block->isDynamicBlock()) {
        definition_ = block_;
    }
}
