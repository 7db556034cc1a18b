#include "host/db/dimension.h"

#include "host/db/block_contents.h"
#include "host/db/block_explosion.h"
#include "host/db/block_table.h"
#include "host/db/dimension_kinds.h"
#include "host/db/readable_text.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/transforming.h"

using host::kDimensionPart;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbDimension, AcDbEntity)

namespace {

constexpr int kOwnBlock = 32; // nobody else refers to the block

using host::FieldForm;

// The places of all kinds, and what else is theirs.
constexpr host::MappedField kCommonFields[] = {
    {10, FieldForm::point}, {11, FieldForm::planePoint}, {12, FieldForm::flatVector}};
constexpr host::MappedField kKindFields[] = {{13, FieldForm::point},
                                             {14, FieldForm::point},
                                             {15, FieldForm::point},
                                             {16, FieldForm::point},
                                             {17, FieldForm::point}};
constexpr host::MappedField kLeaderLength[] = {{40, FieldForm::length}};

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
    const Acad::ErrorStatus status = setText(kDimensionPart, 3, record->name(), L"STANDARD");
    if (status == Acad::eOk && drawing() && isNewObject() && !dimBlockId().isNull())
        recomputeDimBlock();
    return status;
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

void AcDbDimension::stateKind()
{
    if (host::findField(tags(), kDimensionPart, 70) == host::TagList::npos)
        setInteger(kDimensionPart, 70, static_cast<int>(kind()) | kOwnBlock, -1);
}

Acad::ErrorStatus AcDbDimension::setDefinitionPoint(const AcGePoint3d& p)
{
    const Acad::ErrorStatus status = setPoint(kDimensionPart, 10, p);
    if (status == Acad::eOk)
        stateKind();
    return status;
}

Acad::ErrorStatus AcDbDimension::setKindFlag(int bit, bool on)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    stateKind();
    return setFlag(kDimensionPart, 70, bit, on);
}

Acad::ErrorStatus AcDbDimension::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    // the parts of R12 are one, which no field may be mapped in twice
    const host::Subclass kindPart{markers()[2]};
    const double measured = measurement();
    host::mapFields(*this, kDimensionPart, kCommonFields, mapped);
    host::mapFields(*this, kindPart, kKindFields, mapped);
    if (kind() == host::DimensionKind::radial || kind() == host::DimensionKind::diametric)
        host::mapFields(*this, kindPart, kLeaderLength, mapped);
    if (kind() == host::DimensionKind::rotated)
        host::mapAngle(*this, kindPart, 50, mapped);
    if (kind() == host::DimensionKind::ordinate) {
        // the horizontal direction, counted clockwise
        const double direction = -real(kDimensionPart, 51, 0.0);
        const double now = mapped.degrees(direction);
        if (now != direction)
            setReal(kDimensionPart, 51, host::tidyDegrees(-now), 0.0);
    }
    if (flag(kindPart, 70, 1) && kindPart.marker == host::kArcDimensionPart.marker) {
        // a part of an arc, in radians
        const double first =
            host::toRadians(mapped.degrees(host::toDegrees(real(kindPart, 40, 0.0))));
        const double last =
            host::toRadians(mapped.degrees(host::toDegrees(real(kindPart, 41, 0.0))));
        setReal(kindPart, 40, mapped.mirrors() ? last : first, 0.0);
        setReal(kindPart, 41, mapped.mirrors() ? first : last, 0.0);
    }
    host::mapNormal(*this, kDimensionPart, mapped);
    if (measured > 0.0 && !measuresAngle())
        setMeasurement(measured * mapped.scale());
    // another size has another text, of the same height
    if (mapped.scale() == 1.0 || recomputeDimBlock() != Acad::eOk)
        host::transformContents(dimBlockId(), map);
    return Acad::eOk;
}

// Where the picture stands that was drawn for another place.
AcGeMatrix3d AcDbDimension::pictureTransform() const
{
    const AcGeVector3d moved =
        host::vectorField(tags(), kDimensionPart, 12).value_or(AcGeVector3d());
    return AcGeMatrix3d::translation(AcGeMatrix3d::arbitraryAxes(normal()) * moved);
}

Acad::ErrorStatus AcDbDimension::forgetBlock()
{
    return removeFieldOf(kDimensionPart, 2);
}

bool AcDbDimension::strokes(host::StrokeSink& sink) const
{
    return host::strokeBlock(sink, dimBlockId(), pictureTransform());
}

Acad::ErrorStatus AcDbDimension::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    return host::explodeBlock(*this, dimBlockId(), pictureTransform(), host::ByBlock::resolved,
                              parts);
}
