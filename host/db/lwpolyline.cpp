#include "host/db/lwpolyline.h"

#include "host/db/exploding.h"
#include "host/db/thickness.h"
#include "host/db/transforming.h"

using host::BulgeVertex;
using host::kPolylinePart;
using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbPolyline, AcDbCurve, "LWPOLYLINE")

const std::vector<BulgeVertex>& AcDbPolyline::vertices() const
{
    if (decoded_)
        return *decoded_;
    decoded_ = std::make_unique<std::vector<BulgeVertex>>();
    std::vector<BulgeVertex>& all = *decoded_;
    const TagList& own = tags();
    const host::TagRange range =
        host::subclassRange(own, kPolylinePart.marker).value_or(host::TagRange());
    const double constant = real(kPolylinePart, 43, 0.0);
    for (std::size_t i = range.first; i < range.last; ++i) {
        const int code = own[i].code;
        if (code == 10) {
            const AcGePoint3d p = host::pointAt(own, i);
            all.push_back({{p.x, p.y}, 0.0, constant, constant, false});
        } else if (all.empty()) {
            continue;
        } else if (code == 42) {
            all.back().bulge = own.real(i);
        } else if (code == 40 || code == 41) {
            (code == 40 ? all.back().startWidth : all.back().endWidth) = own.real(i);
            all.back().ownWidths = true;
        }
    }
    return all;
}

std::vector<std::size_t> AcDbPolyline::vertexPlaces() const
{
    const TagList& own = tags();
    const host::TagRange range =
        host::subclassRange(own, kPolylinePart.marker).value_or(host::TagRange());
    std::vector<std::size_t> places;
    std::size_t end = range.last;
    for (std::size_t i = range.first; i < range.last; ++i) {
        const int code = own[i].code;
        if (code == 10)
            places.push_back(i);
        const bool belongs = code == 10 || code == 20 || (code >= 40 && code <= 42) || code == 91;
        if (!places.empty() && belongs)
            end = i + 1;
    }
    places.push_back(end);
    return places;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned index, AcGePoint3d& point) const
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    point =
        AcGeMatrix3d::arbitraryAxes(normal()) * AcGePoint3d(vertices()[index].point, elevation());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getPointAt(unsigned index, AcGePoint2d& point) const
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    point = vertices()[index].point;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getBulgeAt(unsigned index, double& bulge) const
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    bulge = vertices()[index].bulge;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getWidthsAt(unsigned index, double& start, double& end) const
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    start = vertices()[index].startWidth;
    end = vertices()[index].endWidth;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::getConstantWidth(double& width) const
{
    const std::vector<BulgeVertex>& all = vertices();
    const double first = all.empty() ? real(kPolylinePart, 43, 0.0) : all.front().startWidth;
    for (const BulgeVertex& vertex : all)
        if (vertex.startWidth != first || vertex.endWidth != first)
            return Acad::eInvalidInput;
    width = first;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setConstantWidth(double width)
{
    if (!(width >= 0.0))
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    double now = 0.0;
    if (getConstantWidth(now) == Acad::eOk && now == width)
        return Acad::eOk;
    const std::vector<std::size_t> places = vertexPlaces();
    TagList& own = tagsForWrite();
    for (std::size_t i = places.back(); i-- > places.front();)
        if (own[i].code == 40 || own[i].code == 41)
            own.erase(i, i + 1);
    return setReal(kPolylinePart, 43, width, host::kRequired);
}

Acad::ErrorStatus AcDbPolyline::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    if (isWriteEnabled() && host::findField(tags(), kPolylinePart, 210) == TagList::npos) {
        const std::size_t at = vertexPlaces().back(); // behind the vertices, not between them
        TagList& own = tagsForWrite();
        for (const unsigned axis : {0u, 1u, 2u})
            own.insertReal(at + axis, 210 + 10 * static_cast<int>(axis),
                           unit[axis] + 0.0); // no -0.0
        return Acad::eOk;
    }
    return setPoint(kPolylinePart, 210, AcGePoint3d() + unit);
}

Acad::ErrorStatus AcDbPolyline::addVertexAt(unsigned index, const AcGePoint2d& point, double bulge,
                                            double startWidth, double endWidth)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::vector<std::size_t> places = vertexPlaces();
    const int count = static_cast<int>(places.size()) - 1;
    std::size_t at = places[std::min<std::size_t>(index, static_cast<std::size_t>(count))];
    TagList& own = tagsForWrite();
    own.insertReal(at++, 10, point.x);
    own.insertReal(at++, 20, point.y);
    if (startWidth >= 0.0 && endWidth >= 0.0) {
        own.insertReal(at++, 40, startWidth);
        own.insertReal(at++, 41, endWidth);
    }
    if (bulge != 0.0)
        own.insertReal(at++, 42, bulge);
    setInteger(kPolylinePart, 90, count + 1, -1);
    return setInteger(kPolylinePart, 70, integer(kPolylinePart, 70, 0), -1);
}

Acad::ErrorStatus AcDbPolyline::setPointAt(unsigned index, const AcGePoint2d& point)
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (vertices()[index].point == point)
        return Acad::eOk;
    const std::size_t at = vertexPlaces()[index];
    TagList& own = tagsForWrite();
    own.setReal(at, point.x);
    if (at + 1 < own.size() && own[at + 1].code == 20)
        own.setReal(at + 1, point.y);
    else
        own.insertReal(at + 1, 20, point.y);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::setBulgeAt(unsigned index, double bulge)
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (vertices()[index].bulge == bulge)
        return Acad::eOk;
    const std::vector<std::size_t> places = vertexPlaces();
    TagList& own = tagsForWrite();
    std::size_t place = places[index] + 1;
    for (std::size_t i = places[index]; i < places[index + 1]; ++i) {
        if (own[i].code == 42) {
            own.setReal(i, bulge);
            return Acad::eOk;
        }
        if (own[i].code == 20 || own[i].code == 40 || own[i].code == 41)
            place = i + 1;
    }
    own.insertReal(place, 42, bulge);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbPolyline::removeVertexAt(unsigned index)
{
    if (index >= numVerts())
        return Acad::eInvalidIndex;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::vector<std::size_t> places = vertexPlaces();
    tagsForWrite().erase(places[index], places[index + 1]);
    return setInteger(kPolylinePart, 90, static_cast<int>(places.size()) - 2, -1);
}

bool AcDbPolyline::strokes(host::StrokeSink& sink) const
{
    const AcGeVector3d up = normal();
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(up);
    return host::strokeThick(sink, up, thickness(), [&](host::StrokeSink& to) {
        host::strokeBulgePath(to, vertices(), isClosed(), elevation(), plane);
    });
}

Acad::ErrorStatus AcDbPolyline::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::flatPoint}, {39, host::FieldForm::length},
        {40, host::FieldForm::length},    {41, host::FieldForm::length},
        {42, host::FieldForm::bulge},     {43, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const double raised = (mapped.plane() * AcGePoint3d(0.0, 0.0, elevation())).z;
    host::mapFields(*this, kPolylinePart, kFields, mapped);
    setElevation(raised);
    return mapped.normal() == mapped.oldNormal() ? Acad::eOk : setNormal(mapped.normal());
}

Acad::ErrorStatus AcDbPolyline::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    return host::explodeBulgePath(*this, vertices(), isClosed(),
                                  {elevation(), thickness(), normal()}, parts);
}

std::span<const std::string_view> AcDbPolyline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbPolyline"};
    return kMarkers;
}
