#include "host/db/block_reference.h"

#include "host/db/attribute.h"
#include "host/db/block_contents.h"
#include "host/db/block_explosion.h"
#include "host/db/block_table.h"
#include "host/db/layer_visibility.h"
#include "host/db/readable_text.h"
#include "host/db/reading.h"
#include "host/db/text_stretching.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

#include <cmath>

ACRX_DXF_DEFINE_MEMBERS(AcDbBlockReference, AcDbEntity, "INSERT")
ACRX_DXF_DEFINE_MEMBERS(AcDbMInsertBlock, AcDbBlockReference, "INSERT")
ACRX_DXF_DEFINE_MEMBERS(AcDbTable, AcDbBlockReference, "ACAD_TABLE")

namespace {

// More cells than that are not drawn one by one.
constexpr int kMostCells = 10000;

} // namespace

AcDbBlockReference::AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block)
{
    setBlockTableRecord(block);
    setPosition(position);
}

const host::Subclass& AcDbBlockReference::part() const
{
    const host::TagList& own = tags();
    return own.find(100, host::kMInsertPart.marker) != host::TagList::npos
               ? host::kMInsertPart
               : host::kBlockReferencePart;
}

AcDbObjectId AcDbBlockReference::blockTableRecord() const
{
    return host::blockNamed(drawing(), blockName());
}

AcGeMatrix3d AcDbBlockReference::blockTransform() const
{
    const host::Reading<AcDbBlockTableRecord> block(blockTableRecord());
    const AcGePoint3d origin = block ? block->origin() : AcGePoint3d();
    return AcGeMatrix3d::arbitraryAxes(normal()) *
           AcGeMatrix3d::translation(host::planePoint(tags(), part(), 10).asVector()) *
           AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis) *
           AcGeMatrix3d::scaling(scaleFactors()) * AcGeMatrix3d::translation(-origin.asVector());
}

std::unique_ptr<AcDbObjectIterator> AcDbBlockReference::attributeIterator() const
{
    return std::make_unique<AcDbObjectIterator>(attributes());
}

Acad::ErrorStatus AcDbBlockReference::appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute)
{
    const Acad::ErrorStatus status = host::appendChild(*this, *attribute);
    if (status != Acad::eOk)
        return status;
    id = attribute->objectId();
    return setInteger(part(), 66, 1, 0);
}

Acad::ErrorStatus AcDbBlockReference::setBlockTableRecord(AcDbObjectId block)
{
    if (isWriteEnabled() && !block.isNull() && block == blockTableRecord())
        return Acad::eOk;
    const host::Reading<AcDbBlockTableRecord> record(block);
    if (!record)
        return Acad::eInvalidInput;
    return setText(part(), 2, record->name());
}

Acad::ErrorStatus AcDbBlockReference::setPosition(const AcGePoint3d& place)
{
    return setPoint(part(), 10, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * place);
}

Acad::ErrorStatus AcDbBlockReference::setScaleFactors(const AcGeScale3d& factors)
{
    if (factors.sx == 0.0 || factors.sy == 0.0 || factors.sz == 0.0)
        return Acad::eInvalidInput;
    for (unsigned axis = 0; axis < 3; ++axis) {
        const Acad::ErrorStatus status =
            setReal(part(), 41 + static_cast<int>(axis), factors[axis], 1.0);
        if (status != Acad::eOk)
            return status;
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    const AcGePoint3d place = position();
    const Acad::ErrorStatus status = setPoint(part(), 210, AcGePoint3d() + unit);
    return status == Acad::eOk ? setPosition(place) : status;
}

void AcDbBlockReference::strokeContents(host::StrokeSink& sink, const AcGeVector3d& offset) const
{
    host::strokeBlock(sink, blockTableRecord(),
                      AcGeMatrix3d::translation(offset) * blockTransform());
}

bool AcDbBlockReference::strokeAttributes(host::StrokeSink& sink) const
{
    for (const AcDbObjectId id : attributes()) {
        const host::Reading<AcDbEntity> attribute(id);
        if (attribute && !sink.done())
            attribute->strokes(sink);
    }
    return true;
}

bool AcDbBlockReference::strokes(host::StrokeSink& sink) const
{
    strokeContents(sink, {});
    return strokeAttributes(sink);
}

Acad::ErrorStatus AcDbBlockReference::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    return host::explodeBlock(*this, blockTableRecord(), blockTransform(), host::ByBlock::stays,
                              parts);
}

std::span<const std::string_view> AcDbBlockReference::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbBlockReference"};
    return kMarkers;
}

Acad::ErrorStatus AcDbBlockReference::transformBy(const AcGeMatrix3d& map, AttributeText text)
{
    using host::FieldForm;
    static constexpr host::MappedField kFields[] = {
        {10, FieldForm::planePoint}, {44, FieldForm::length}, {45, FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    if (!mapped.isSimilar()) {
        const Acad::ErrorStatus stretched = stretch(map);
        if (stretched != Acad::eOk)
            return stretched;
    } else {
        const AcGeScale3d factors = scaleFactors() * mapped.scale();
        const double columns = columnStep();
        host::mapFields(*this, part(), kFields, mapped);
        host::mapNormal(*this, part(), mapped);
        // a mirrored reference points the other way along its x axis
        host::mapAngle(*this, part(), 50, mapped, mapped.mirrors() ? 180.0 : 0.0);
        setReal(part(), 41, mapped.mirrors() ? -factors.sx : factors.sx, 1.0);
        setReal(part(), 42, factors.sy, 1.0);
        setReal(part(), 43, factors.sz, 1.0);
        if (mapped.mirrors())
            setReal(part(), 44, -columns * mapped.scale(), 0.0);
    }
    host::mapExtendedData(*this, mapped);
    const host::LayersUnlocked whole;
    const auto follow = [&](AcDbAttribute& attribute) {
        const Acad::ErrorStatus went = text == AttributeText::readable
                                           ? host::transformReadably(attribute, map)
                                           : attribute.transformBy(map);
        if (went == Acad::eCannotScaleNonUniformly)
            host::stretchText(attribute, map);
    };
    for (const AcDbObjectId id : attributes()) {
        const AcDbObjectPointer<AcDbAttribute> attribute(id, AcDb::kForWrite);
        if (attribute)
            follow(*attribute);
    }
    for (const std::unique_ptr<AcDbEntity>& child : newChildren())
        if (AcDbAttribute* const attribute = AcDbAttribute::cast(child.get()))
            follow(*attribute);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockReference::stretch(const AcGeMatrix3d& map)
{
    constexpr double kSquare = 1e-9;
    const AcGeMatrix3d axes = map * AcGeMatrix3d::arbitraryAxes(normal()) *
                              AcGeMatrix3d::rotation(rotation(), AcGeVector3d::kZAxis);
    const AcGeVector3d x = axes.axis(0);
    const AcGeVector3d y = axes.axis(1);
    const AcGeVector3d z = axes.axis(2);
    const auto square = [](const AcGeVector3d& a, const AcGeVector3d& b) {
        return std::abs(a.dotProduct(b)) <= kSquare * a.length() * b.length();
    };
    if (!square(x, y) || !square(y, z) || !square(z, x))
        return Acad::eCannotScaleNonUniformly;
    const double side = axes.det() < 0.0 ? -1.0 : 1.0;
    const AcGePoint3d place = map * position();
    const AcGeScale3d factors = scaleFactors();
    const double columns = columnStep();
    const double rows = real(part(), 45, 0.0);
    const AcGeMatrix3d back = AcGeMatrix3d::arbitraryAxes(z.normal()).inverse();
    const AcGeVector3d along = back * (x * side);
    setNormal(z.normal());
    setPosition(place);
    setReal(part(), 50, host::tidyDegrees(host::toDegrees(std::atan2(along.y, along.x))), 0.0);
    setReal(part(), 44, columns * x.length() * side, 0.0);
    setReal(part(), 45, rows * y.length(), 0.0);
    return setScaleFactors(
        {factors.sx * x.length() * side, factors.sy * y.length(), factors.sz * z.length()});
}

Acad::ErrorStatus AcDbTable::transformBy(const AcGeMatrix3d& map, AttributeText text)
{
    static constexpr host::MappedField kFields[] = {{11, host::FieldForm::direction}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    if (mapped.mirrors() || mapped.scale() != 1.0)
        return Acad::eNotApplicable;
    host::mapFields(*this, host::Subclass{"AcDbTable"}, kFields, mapped);
    return AcDbBlockReference::transformBy(map, text);
}

bool AcDbMInsertBlock::strokes(host::StrokeSink& sink) const
{
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(normal());
    const AcGeVector3d right =
        plane * AcGeVector3d(std::cos(rotation()), std::sin(rotation()), 0.0);
    const AcGeVector3d up = plane * AcGeVector3d(-std::sin(rotation()), std::cos(rotation()), 0.0);
    const int across = columns() > 0 ? columns() : 1;
    const int upward = rows() > 0 ? rows() : 1;
    const bool all = across <= kMostCells / upward;
    // of too many cells the corners stand for all
    const int columnStep = all || across == 1 ? 1 : across - 1;
    const int rowStep = all || upward == 1 ? 1 : upward - 1;
    for (int row = 0; row < upward; row += rowStep)
        for (int column = 0; column < across && !sink.done(); column += columnStep)
            strokeContents(sink, right * (columnSpacing() * column) + up * (rowSpacing() * row));
    return strokeAttributes(sink);
}

Acad::ErrorStatus AcDbMInsertBlock::explode(std::vector<std::unique_ptr<AcDbEntity>>&) const
{
    return Acad::eNotApplicable;
}

std::span<const std::string_view> AcDbMInsertBlock::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMInsertBlock"};
    return kMarkers;
}

std::span<const std::string_view> AcDbTable::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbBlockReference",
                                                    "AcDbTable"};
    return kMarkers;
}
