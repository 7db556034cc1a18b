#include "host/db/symbol_tables.h"

#include "host/db/drawing.h"
#include "host/db/symbol_names.h"

#include <cstdlib>

#define HOST_DEFINE_TABLE(TABLE, RECORD, NAME)                                                     \
    ACRX_DXF_DEFINE_MEMBERS(TABLE, AcDbSymbolTable, "TABLE " NAME)                                 \
    ACRX_DXF_DEFINE_MEMBERS(RECORD, AcDbSymbolTableRecord, NAME)                                   \
    host::Subclass RECORD::part() const                                                            \
    {                                                                                              \
        static const host::Subclass own = host::symbolKind(NAME)->part;                            \
        return own;                                                                                \
    }                                                                                              \
    std::span<const std::string_view> RECORD::markers() const                                      \
    {                                                                                              \
        static const std::string_view own[] = {"AcDbSymbolTableRecord", part().marker};            \
        return own;                                                                                \
    }

HOST_DEFINE_TABLE(AcDbLayerTable, AcDbLayerTableRecord, "LAYER")
HOST_DEFINE_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord, "LTYPE")
HOST_DEFINE_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord, "STYLE")
HOST_DEFINE_TABLE(AcDbDimStyleTable, AcDbDimStyleTableRecord, "DIMSTYLE")
HOST_DEFINE_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord, "APPID")
HOST_DEFINE_TABLE(AcDbUCSTable, AcDbUCSTableRecord, "UCS")
HOST_DEFINE_TABLE(AcDbViewTable, AcDbViewTableRecord, "VIEW")
HOST_DEFINE_TABLE(AcDbViewportTable, AcDbViewportTableRecord, "VPORT")

namespace {

constexpr int kFlags = 70;
constexpr int kFrozenBit = 1;
constexpr int kLockedBit = 4;
constexpr int kColor = 62; // negative while the layer is off
constexpr int kTrueColor = 420;
constexpr int kColorName = 430;
constexpr int kWhite = 7;
constexpr int kLineWeight = 370;
constexpr int kDefaultLineWeight = -3;

constexpr int kShapeFileBit = 1;
constexpr double kRadiansOfDegree = 3.14159265358979323846 / 180.0;

} // namespace

// ---- layers ----

bool AcDbLayerTableRecord::isFrozen() const
{
    return flag(part(), kFlags, kFrozenBit);
}

bool AcDbLayerTableRecord::isLocked() const
{
    return flag(part(), kFlags, kLockedBit);
}

bool AcDbLayerTableRecord::isOff() const
{
    return integer(part(), kColor, kWhite) < 0;
}

bool AcDbLayerTableRecord::isHidden() const
{
    return false;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsFrozen(bool on)
{
    const Acad::ErrorStatus status = setFlag(part(), kFlags, kFrozenBit, on);
    noteSymbolChange();
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsLocked(bool on)
{
    const Acad::ErrorStatus status = setFlag(part(), kFlags, kLockedBit, on);
    noteSymbolChange();
    return status;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsOff(bool on)
{
    const int index = host::colorIndexOfTag(integer(part(), kColor, kWhite));
    const Acad::ErrorStatus status = setInteger(part(), kColor, on ? -index : index, kWhite);
    noteSymbolChange();
    return status;
}

AcCmColor AcDbLayerTableRecord::color() const
{
    AcCmColor color;
    const std::uint16_t index = host::colorIndexOfTag(integer(part(), kColor, kWhite));
    if (const int rgb = integer(part(), kTrueColor, -1); rgb >= 0) {
        color.setRGB(static_cast<std::uint8_t>(rgb >> 16), static_cast<std::uint8_t>(rgb >> 8),
                     static_cast<std::uint8_t>(rgb));
        color.setStoredIndex(index);
    } else {
        color.setColorIndex(index);
    }
    return color;
}

Acad::ErrorStatus AcDbLayerTableRecord::setColor(const AcCmColor& color)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!color.isByColor() && !color.isByACI())
        return Acad::eInvalidInput; // a layer has a colour of its own
    if (color == this->color())
        return Acad::eOk;
    const int index = color.colorIndex();
    setInteger(part(), kColor, isOff() ? -index : index, kWhite);
    removeFieldOf(part(), kColorName);
    if (!color.isByColor())
        return removeFieldOf(part(), kTrueColor);
    return setInteger(part(), kTrueColor, color.red() << 16 | color.green() << 8 | color.blue(),
                      -1);
}

AcDbObjectId AcDbLayerTableRecord::linetypeObjectId() const
{
    return drawing() ? host::findSymbol(*drawing(), "LTYPE", text(part(), 6, L"Continuous"))
                     : AcDbObjectId();
}

Acad::ErrorStatus AcDbLayerTableRecord::setLinetypeObjectId(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (!drawing())
        return Acad::eNotInDatabase;
    if (id.database() != database() || id.isErased())
        return Acad::eInvalidInput;
    const std::wstring name = host::symbolName(*drawing(), "LTYPE", id.stubNumber());
    if (name.empty() || id == linetypeObjectId())
        return name.empty() ? Acad::eInvalidInput : Acad::eOk;
    return setText(part(), 6, name);
}

int AcDbLayerTableRecord::lineWeight() const
{
    return integer(part(), kLineWeight, kDefaultLineWeight);
}

Acad::ErrorStatus AcDbLayerTableRecord::setLineWeight(int weight)
{
    return setInteger(part(), kLineWeight, weight, kDefaultLineWeight);
}

bool AcDbLayerTableRecord::isPlottable() const
{
    return integer(part(), 290, 1) != 0;
}

Acad::ErrorStatus AcDbLayerTableRecord::setIsPlottable(bool on)
{
    return setInteger(part(), 290, on, 1);
}

// ---- linetypes, text styles ----

std::wstring AcDbLinetypeTableRecord::comments() const
{
    return text(part(), 3);
}

double AcDbTextStyleTableRecord::textSize() const
{
    return real(part(), 40, 0.0);
}

double AcDbTextStyleTableRecord::xScale() const
{
    return real(part(), 41, 1.0);
}

double AcDbTextStyleTableRecord::obliquingAngle() const
{
    return real(part(), 50, 0.0) * kRadiansOfDegree; // degrees in the file
}

std::wstring AcDbTextStyleTableRecord::fileName() const
{
    return text(part(), 3);
}

bool AcDbTextStyleTableRecord::isShapeFile() const
{
    return flag(part(), kFlags, kShapeFileBit);
}

Acad::ErrorStatus AcDbTextStyleTableRecord::setShapeFile(std::wstring_view file)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (host::findField(tags(), part(), 2) == host::TagList::npos)
        tagsForWrite().insertText(host::placeOfField(tags(), part(), 2), 2, L"");
    setFlag(part(), kFlags, kShapeFileBit, true);
    return setText(part(), 3, file);
}
