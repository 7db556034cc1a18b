#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dimension_leaders.h"
#include "host/db/dimension_measure.h"
#include "host/db/dimension_spans.h"
#include "host/db/dimension_text.h"
#include "host/db/mtext.h"

namespace {

bool isOwnBlock(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
    return block && block->isAnonymous() && block->name().starts_with(L"*D");
}

// The dimension's own block without its old contents, or a new one.
AcDbObjectPointer<AcDbBlockTableRecord> blockToFill(const AcDbDimension& dimension)
{
    const AcDbObjectId old = dimension.dimBlockId();
    AcDbObjectPointer<AcDbBlockTableRecord> block;
    if (isOwnBlock(old)) {
        block.open(old, AcDb::kForWrite);
        std::unique_ptr<AcDbBlockTableRecordIterator> walk;
        if (!block || block->newIterator(walk) != Acad::eOk)
            return block;
        for (; !walk->done(); walk->step())
            if (const AcDbObjectPointer<AcDbEntity> part(walk->entityId(), AcDb::kForWrite); part)
                part->erase();
        return block;
    }
    const AcDbObjectPointer<AcDbBlockTable> table(dimension.database()->blockTableId(),
                                                  AcDb::kForWrite);
    block.create();
    block->setName(L"*D");
    AcDbObjectId id;
    if (!table || table->add(id, block.object()) != Acad::eOk)
        block.close();
    return block;
}

} // namespace

Acad::ErrorStatus AcDbDimension::recomputeDimBlock()
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!drawing())
        return Acad::eNotInDatabase;
    if (!normal().isCodirectionalTo(AcGeVector3d::kZAxis))
        return Acad::eNotApplicable;
    const std::optional<double> value = host::measured(*this);
    if (!value)
        return Acad::eInvalidInput;

    const host::DimensionStyle style = host::dimensionStyleOf(*this);
    const bool plain = tags().form().version() <= host::DxfVersion::r12;
    const double elevation = definitionPoint().z;
    host::DimensionPicture picture(*database(), style, elevation, plain);
    host::DimensionScene scene{*this, style, picture, {}, 0.0, {}, {}};
    scene.contents = host::withMeasured(dimensionText(), host::measuredText(*this, style));
    scene.width = picture.textWidthOf(scene.contents);
    if (!isUsingDefaultTextPosition())
        scene.placed = textPosition().convert2d();
    if (!host::drawSpanned(scene) && !host::drawLed(scene))
        return Acad::eNotApplicable;

    const AcDbObjectPointer<AcDbBlockTableRecord> block = blockToFill(*this);
    if (!block)
        return block.openStatus();
    picture.moveTo(*block);
    setDimBlockId(block->objectId());
    setMeasurement(*value);
    setTextAttachment(AcDbMText::kMiddleCenter);
    if (isUsingDefaultTextPosition())
        setTextPosition({scene.middle, elevation});
    return Acad::eOk;
}
