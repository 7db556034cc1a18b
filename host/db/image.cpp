#include "host/db/image.h"

#include "host/db/transforming.h"
#include "host/geom/extents.h"
#include "host/geom/stroke_sink.h"

#include <algorithm>

using host::kWipeoutPart;
using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbRasterImage, AcDbEntity, "IMAGE")
ACRX_DXF_DEFINE_MEMBERS(AcDbWipeout, AcDbRasterImage, "WIPEOUT")

AcGeVector2d AcDbRasterImage::imageSize() const
{
    return point(part(), 13, {1.0, 1.0, 0.0}).asVector().convert2d();
}

std::vector<AcGePoint3d> AcDbRasterImage::frame() const
{
    const AcGeVector2d size = imageSize();
    std::vector<AcGePoint2d> clip; // in pixels, from the upper left
    if (isClipped()) {
        const TagList& own = tags();
        const host::TagRange range =
            host::subclassRange(own, part().marker).value_or(host::TagRange());
        for (std::size_t i = range.first; i < range.last; ++i)
            if (own[i].code == 14)
                clip.push_back(host::pointAt(own, i).convert2d());
    }
    if (clip.size() < 2)
        clip = {{-0.5, -0.5}, {size.x - 0.5, size.y - 0.5}};
    if (clip.size() == 2) // opposite corners
        clip = {clip[0], {clip[1].x, clip[0].y}, clip[1], {clip[0].x, clip[1].y}};
    std::vector<AcGePoint3d> places;
    places.reserve(clip.size());
    for (const AcGePoint2d& p : clip)
        places.push_back(origin() + pixelAcross() * (p.x + 0.5) +
                         pixelUp() * (size.y - (p.y + 0.5)));
    if (places.size() > 1 && places.back() == places.front())
        places.pop_back();
    return places;
}

bool AcDbRasterImage::strokes(host::StrokeSink& sink) const
{
    sink.polyline(frame(), true);
    return true;
}

Acad::ErrorStatus AcDbRasterImage::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::point}, {11, host::FieldForm::vector}, {12, host::FieldForm::vector}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, part(), kFields, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbRasterImage::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbRasterImage"};
    return kMarkers;
}

Acad::ErrorStatus AcDbWipeout::setOutline(std::span<const AcGePoint3d> outline)
{
    AcDbExtents box;
    for (const AcGePoint3d& p : outline)
        box.addPoint(p);
    const AcGeVector3d diagonal = box.maxPoint() - box.minPoint();
    const double side = std::max(diagonal.x, diagonal.y);
    if (outline.size() < 3 || !(side > 0.0))
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;

    setInteger(kWipeoutPart, 90, 0, -1);
    setPoint(kWipeoutPart, 10, box.minPoint());
    setPoint(kWipeoutPart, 11, {side, 0.0, 0.0});
    setPoint(kWipeoutPart, 12, {0.0, side, 0.0});
    if (host::findField(tags(), kWipeoutPart, 13) == TagList::npos) {
        const std::size_t at = host::placeOfField(tags(), kWipeoutPart, 13);
        tagsForWrite().insertReal(at, 13, 1.0);
        tagsForWrite().insertReal(at + 1, 23, 1.0);
        tagsForWrite().insertHandle(at + 2, 340, 0);
    }
    setInteger(kWipeoutPart, 70, 7, -1); // shown, aligned or not, clipped
    setInteger(kWipeoutPart, 280, 1, -1);
    setInteger(kWipeoutPart, 281, integer(kWipeoutPart, 281, 50), -1);
    setInteger(kWipeoutPart, 282, integer(kWipeoutPart, 282, 50), -1);
    setInteger(kWipeoutPart, 283, integer(kWipeoutPart, 283, 0), -1);
    setInteger(kWipeoutPart, 71, 2, -1); // a polygon
    setInteger(kWipeoutPart, 91, static_cast<int>(outline.size()) + 1, -1);
    TagList& own = tagsForWrite();
    const host::TagRange range = *host::subclassRange(own, kWipeoutPart.marker);
    std::size_t at = own.find(91, range.first, range.last) + 1;
    std::size_t end = at;
    while (end < range.last && (own[end].code == 14 || own[end].code == 24))
        ++end;
    own.erase(at, end);
    for (std::size_t i = 0; i <= outline.size(); ++i) { // the first corner again at the end
        const AcGePoint3d& p = outline[i % outline.size()];
        own.insertReal(at++, 14, (p.x - box.minPoint().x) / side - 0.5);
        own.insertReal(at++, 24, 0.5 - (p.y - box.minPoint().y) / side);
    }
    return Acad::eOk;
}

std::span<const std::string_view> AcDbWipeout::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbWipeout"};
    return kMarkers;
}
