#include "host/db/polyline2d.h"

#include "host/db/exploding.h"
#include "host/db/thickness.h"
#include "host/db/transforming.h"
#include "host/db/vertex.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb2dPolyline, AcDbCurve, "POLYLINE")

std::vector<host::BulgeVertex> AcDb2dPolyline::vertices() const
{
    std::vector<host::BulgeVertex> all;
    for (const std::shared_ptr<const host::TagList>& child : host::childTags(*this)) {
        if (host::integerInRecord(*child, 70, 0) & host::kSplineControl)
            continue;
        const std::size_t place = host::findInRecord(*child, 10);
        if (place == host::TagList::npos)
            continue;
        host::BulgeVertex vertex;
        const AcGePoint3d p = host::pointAt(*child, place);
        vertex.point = {p.x, p.y};
        vertex.bulge = host::realInRecord(*child, 42, 0.0);
        vertex.startWidth = host::realInRecord(*child, 40, defaultStartWidth());
        vertex.endWidth = host::realInRecord(*child, 41, defaultEndWidth());
        all.push_back(vertex);
    }
    return all;
}

std::unique_ptr<AcDbObjectIterator> AcDb2dPolyline::vertexIterator() const
{
    return std::make_unique<AcDbObjectIterator>(host::childrenOf(*this));
}

Acad::ErrorStatus AcDb2dPolyline::appendVertex(AcDbObjectId& id, AcDbEntity* vertex)
{
    const Acad::ErrorStatus status = host::appendChild(*this, *vertex);
    if (status != Acad::eOk)
        return status;
    id = vertex->objectId();
    return setInteger(host::k2dPolylinePart, 66, 1, 0);
}

bool AcDb2dPolyline::strokes(host::StrokeSink& sink) const
{
    const AcGeVector3d up = normal();
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(up);
    const std::vector<host::BulgeVertex> all = vertices();
    return host::strokeThick(sink, up, thickness(), [&](host::StrokeSink& to) {
        host::strokeBulgePath(to, all, isClosed(), elevation(), plane);
    });
}

Acad::ErrorStatus AcDb2dPolyline::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{39, host::FieldForm::length},
                                                    {40, host::FieldForm::length},
                                                    {41, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const AcGePoint3d dummy = host::planePoint(tags(), host::k2dPolylinePart, 10);
    const double raised = (mapped.plane() * AcGePoint3d(0.0, 0.0, dummy.z)).z;
    host::mapFields(*this, host::k2dPolylinePart, kFields, mapped);
    if (raised != dummy.z)
        setPoint(host::k2dPolylinePart, 10, {dummy.x, dummy.y, raised});
    host::mapNormal(*this, host::k2dPolylinePart, mapped);
    host::mapVertices(*this, mapped, host::VertexSpace::plane);
    return Acad::eOk;
}

Acad::ErrorStatus AcDb2dPolyline::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    return host::explodeBulgePath(*this, vertices(), isClosed(),
                                  {elevation(), thickness(), normal()}, parts);
}

std::span<const std::string_view> AcDb2dPolyline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDb2dPolyline"};
    return kMarkers;
}
