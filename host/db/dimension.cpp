#include "host/db/dimension.h"

#include "host/db/block_contents.h"
#include "host/db/block_table.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"

using host::kDimensionPart;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

namespace {

constexpr int kOwnBlock = 32; // nobody else refers to the block

} // namespace

AcDbObjectId AcDbDimension::dimensionStyle() const
{
    return drawing() ? host::findSymbol(*drawing(), "DIMSTYLE", dimensionStyleName())
                     : AcDbObjectId();
}

AcDbObjectId AcDbDimension::dimBlockId() const
{
    return host::blockNamed(drawing(), text(kDimensionPart, 2));
}

Acad::ErrorStatus AcDbDimension::setDimensionStyle(AcDbObjectId style)
{
    if (isWriteEnabled() && !style.isNull() && style == dimensionStyle())
        return Acad::eOk;
    const host::Reading<AcDbDimStyleTableRecord> record(style);
    if (!record)
        return Acad::eInvalidInput;
    return setText(kDimensionPart, 3, record->name(), L"STANDARD");
}

Acad::ErrorStatus AcDbDimension::setDimBlockId(AcDbObjectId block)
{
    const host::Reading<AcDbBlockTableRecord> record(block);
    if (!record)
        return Acad::eInvalidInput;
    return setText(kDimensionPart, 2, record->name());
}

Acad::ErrorStatus AcDbDimension::setTextPosition(const AcGePoint3d& place)
{
    return setPoint(kDimensionPart, 11, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * place);
}

Acad::ErrorStatus AcDbDimension::setDefinitionPoint(const AcGePoint3d& p)
{
    const Acad::ErrorStatus status = setPoint(kDimensionPart, 10, p);
    if (status != Acad::eOk || host::findField(tags(), kDimensionPart, 70) != host::TagList::npos)
        return status;
    return setInteger(kDimensionPart, 70, static_cast<int>(kind()) | kOwnBlock, -1);
}

bool AcDbDimension::strokes(host::StrokeSink& sink) const
{
    const AcGeVector3d moved =
        host::vectorField(tags(), kDimensionPart, 12).value_or(AcGeVector3d());
    const AcGeMatrix3d place =
        AcGeMatrix3d::translation(AcGeMatrix3d::arbitraryAxes(normal()) * moved);
    return host::strokeBlock(sink, dimBlockId(), place);
}
