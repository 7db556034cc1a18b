#include "host/db/mpolygon.h"

#include <algorithm>

// The platform's class is no hatch, though it is read like one.
ACRX_DXF_DEFINE_MEMBERS(AcDbMPolygon, AcDbEntity, "MPOLYGON")

std::size_t AcDbMPolygon::colorTag(int code) const
{
    const std::size_t at = findInHead(code);
    if (at != host::TagList::npos)
        return at;
    // behind the paths the colours of a gradient have the same code
    const host::TagRange range = host::hatchParts(tags(), part()).pattern;
    return tags().find(code, range.first, std::min(findInPattern(450), range.last));
}

AcCmColor AcDbMPolygon::patternColor() const
{
    AcCmColor color;
    const std::size_t index = colorTag(63);
    const std::size_t rgb = colorTag(421);
    if (rgb != host::TagList::npos) {
        const auto value = static_cast<std::uint32_t>(tags().integer(rgb));
        color.setRGB(static_cast<std::uint8_t>(value >> 16), static_cast<std::uint8_t>(value >> 8),
                     static_cast<std::uint8_t>(value));
    } else if (index != host::TagList::npos) {
        color.setColorIndex(static_cast<std::uint16_t>(tags().integer(index)));
    }
    return color;
}

Acad::ErrorStatus AcDbMPolygon::setPatternColor(const AcCmColor& color)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (color == patternColor())
        return Acad::eOk;
    if (const std::size_t rgb = colorTag(421); rgb != host::TagList::npos)
        tagsForWrite().erase(rgb, rgb + 1);
    std::size_t index = colorTag(63);
    if (index != host::TagList::npos) {
        tagsForWrite().setInteger(index, color.colorIndex());
    } else {
        index = placeInHead(63);
        tagsForWrite().insertInteger(index, 63, color.colorIndex());
    }
    if (color.isByColor())
        tagsForWrite().insertInteger(index + 1, 421,
                                     color.red() << 16 | color.green() << 8 | color.blue());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMPolygon::setRings(std::span<const host::HatchLoop> rings)
{
    constexpr int kVersion = 1;
    constexpr int kByLayer = 256;
    for (const host::HatchLoop& ring : rings)
        if (!ring.isPolyline())
            return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setHeadInteger(70, kVersion, -1);
    setLoops(rings);
    setSolidFill();
    host::TagList& own = tagsForWrite();
    const host::HatchParts parts = host::hatchParts(own, part());
    // of a hatch only: seed points, the style, and where a path comes from
    for (std::size_t i = parts.pattern.last; i-- > parts.loops.first;) {
        static constexpr short kOfHatch[] = {75, 97, 98};
        if (std::find(std::begin(kOfHatch), std::end(kOfHatch), own[i].code) != std::end(kOfHatch))
            own.erase(i, i + 1);
    }
    std::size_t at = host::hatchParts(own, part()).pattern.last;
    own.insertInteger(at++, 63, kByLayer);
    own.insertReal(at++, 11, 0.0); // no offset
    own.insertReal(at++, 21, 0.0);
    own.insertInteger(at, 99, 0); // no ring without an area
    return Acad::eOk;
}

std::span<const std::string_view> AcDbMPolygon::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMPolygon"};
    return kMarkers;
}
