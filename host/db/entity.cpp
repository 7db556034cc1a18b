#include "host/db/entity.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/drawing.h"
#include "host/db/layer_visibility.h"
#include "host/db/reading.h"
#include "host/db/symbol_tables.h"
#include "host/geom/stroke_sink.h"
#include "host/text/case_mapping.h"

#include <algorithm>

using host::kEntityPart;
using host::TagList;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbEntity, AcDbObject)
ACRX_NO_CONS_DEFINE_MEMBERS(AcDbCurve, AcDbEntity)

namespace {

constexpr short kEntityOrder[] = {67,  410, 8,  6,  347, 348, 62,  420, 430,
                                  440, 48,  60, 92, 160, 310, 370, 390, 284};
constexpr std::string_view kEntityMarkers[] = {"AcDbEntity"};

constexpr int kByLayer = 256;

// Line weights that the platform knows, in hundredths of a millimetre, ascending.
constexpr int kLineWeights[] = {-3, -2, -1, 0,  5,  9,  13,  15,  18,  20,  25,  30,  35, 40,
                                50, 53, 60, 70, 80, 90, 100, 106, 120, 140, 158, 200, 211};

constexpr int kTrueColorMask = 0xFFFFFF;

} // namespace

const host::Subclass host::kEntityPart{"AcDbEntity", kEntityOrder};

std::span<const std::string_view> AcDbEntity::markers() const
{
    return kEntityMarkers;
}

// ---- layer ----

AcDbObjectId AcDbEntity::layerId() const
{
    if (!drawing())
        return {};
    if (!isWriteEnabled())
        return host::layerRecord(*drawing(), drawing()->index[stubNumber()].layer);
    const std::size_t at = findField(tags(), kEntityPart, 8);
    const std::uint32_t number =
        at == TagList::npos ? 0 : drawing()->index.layers().number(tags()[at].bytes());
    return host::layerRecord(*drawing(), number);
}

std::wstring AcDbEntity::layer() const
{
    const AcDbObjectId id = layerId();
    if (id.isNull())
        return text(kEntityPart, 8, L"0");
    const host::Reading<AcDbLayerTableRecord> record(id);
    return record ? record->name() : text(kEntityPart, 8, L"0");
}

Acad::ErrorStatus AcDbEntity::setLayer(std::wstring_view name)
{
    if (!drawing())
        return setText(kEntityPart, 8, name, L"0");
    const host::Reading<AcDbLayerTable> table(database()->layerTableId());
    AcDbObjectId id;
    if (!table || table->getAt(name, id) != Acad::eOk)
        return Acad::eKeyNotFound;
    return setLayer(id);
}

Acad::ErrorStatus AcDbEntity::setLayer(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (drawing() && !id.isNull() && id.database() != database())
        return Acad::eWrongDatabase;
    if (id == layerId())
        return Acad::eOk;
    const host::Reading<AcDbLayerTableRecord> record(id);
    if (!record)
        return Acad::eKeyNotFound;
    return setText(kEntityPart, 8, record->name(), L"0");
}

// ---- colour ----

AcCmColor AcDbEntity::color() const
{
    AcCmColor color;
    const std::uint16_t index = host::colorIndexOfTag(integer(kEntityPart, 62, kByLayer));
    const std::size_t rgb = findField(tags(), kEntityPart, 420);
    if (rgb == TagList::npos) {
        color.setColorIndex(index);
        return color;
    }
    const auto value = static_cast<std::uint32_t>(tags().integer(rgb) & kTrueColorMask);
    color.setRGB(static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                 static_cast<std::uint8_t>(value));
    if (findField(tags(), kEntityPart, 62) != TagList::npos)
        color.setStoredIndex(index);
    return color;
}

std::uint16_t AcDbEntity::colorIndex() const
{
    return color().colorIndex();
}

Acad::ErrorStatus AcDbEntity::setColorIndex(std::uint16_t index)
{
    if (index > 257)
        return Acad::eInvalidInput;
    AcCmColor color;
    color.setColorIndex(index);
    return setColor(color);
}

Acad::ErrorStatus AcDbEntity::setColor(const AcCmColor& value)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (color() == value)
        return Acad::eOk;
    setInteger(kEntityPart, 62, value.colorIndex(), kByLayer);
    if (value.isByColor()) {
        const int rgb = value.red() << 16 | value.green() << 8 | value.blue();
        setInteger(kEntityPart, 420, rgb, -1);
    } else {
        removeFieldOf(kEntityPart, 420);
    }
    return removeFieldOf(kEntityPart,
                         430); // the name of a colour book's entry that no longer holds
}

// ---- linetype ----

AcDbObjectId AcDbEntity::linetypeId() const
{
    if (!drawing())
        return {};
    const std::wstring name = text(kEntityPart, 6, L"ByLayer");
    const host::Reading<AcDbLinetypeTable> table(database()->linetypeTableId());
    AcDbObjectId id;
    if (table)
        table->getAt(name, id);
    return id;
}

std::wstring AcDbEntity::linetype() const
{
    const AcDbObjectId id = linetypeId();
    const host::Reading<AcDbLinetypeTableRecord> record(id);
    return record ? record->name() : text(kEntityPart, 6, L"ByLayer");
}

Acad::ErrorStatus AcDbEntity::setLinetype(std::wstring_view name)
{
    if (!drawing())
        return setText(kEntityPart, 6, name, L"ByLayer");
    const host::Reading<AcDbLinetypeTable> table(database()->linetypeTableId());
    AcDbObjectId id;
    if (!table || table->getAt(name, id) != Acad::eOk)
        return Acad::eKeyNotFound;
    return setLinetype(id);
}

Acad::ErrorStatus AcDbEntity::setLinetype(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (drawing() && !id.isNull() && id.database() != database())
        return Acad::eWrongDatabase;
    if (id == linetypeId())
        return Acad::eOk;
    const host::Reading<AcDbLinetypeTableRecord> record(id);
    if (!record)
        return Acad::eKeyNotFound;
    const std::wstring name = record->name();
    return setText(kEntityPart, 6, name,
                   host::equalNoCase(name, L"ByLayer") ? std::wstring_view(name) : L"ByLayer");
}

double AcDbEntity::linetypeScale() const
{
    return real(kEntityPart, 48, 1.0);
}

Acad::ErrorStatus AcDbEntity::setLinetypeScale(double scale)
{
    return scale > 0.0 ? setReal(kEntityPart, 48, scale, 1.0) : Acad::eInvalidInput;
}

// ---- line weight, visibility ----

int AcDbEntity::lineWeight() const
{
    return integer(kEntityPart, 370, AcDb::kLnWtByLayer);
}

Acad::ErrorStatus AcDbEntity::setLineWeight(int weight)
{
    if (!std::binary_search(std::begin(kLineWeights), std::end(kLineWeights), weight))
        return Acad::eInvalidInput;
    return setInteger(kEntityPart, 370, weight, AcDb::kLnWtByLayer);
}

AcDb::Visibility AcDbEntity::visibility() const
{
    return integer(kEntityPart, 60, 0) != 0 ? AcDb::kInvisible : AcDb::kVisible;
}

Acad::ErrorStatus AcDbEntity::setVisibility(AcDb::Visibility visibility)
{
    return setInteger(kEntityPart, 60, visibility, AcDb::kVisible);
}

// ---- place and shape ----

AcDbObjectId AcDbEntity::blockId() const
{
    return drawing() ? drawing()->id(drawing()->blockOf(stubNumber())) : AcDbObjectId();
}

Acad::ErrorStatus AcDbEntity::getGeomExtents(AcDbExtents& extents) const
{
    host::ExtentsSink sink;
    if (!strokes(sink) || !sink.extents().isValid())
        return Acad::eInvalidExtents;
    extents = sink.extents();
    return Acad::eOk;
}

bool AcDbEntity::strokes(host::StrokeSink&) const
{
    return false;
}

Acad::ErrorStatus AcDbEntity::transformBy(const AcGeMatrix3d&)
{
    return Acad::eNotApplicable;
}

Acad::ErrorStatus AcDbEntity::explode(std::vector<std::unique_ptr<AcDbEntity>>&) const
{
    return Acad::eNotApplicable;
}

void AcDbEntity::subErase(bool erasing)
{
    drawing()->eraseChildren(stubNumber(), erasing);
}
