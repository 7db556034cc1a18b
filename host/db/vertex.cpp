#include "host/db/vertex.h"

#include "host/db/layer_visibility.h"
#include "host/db/object_pointer.h"
#include "host/db/sequence.h"
#include "host/db/transforming.h"

#include <algorithm>

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbVertex, AcDbEntity)
ACRX_DXF_DEFINE_MEMBERS(AcDb2dVertex, AcDbVertex, "VERTEX")
ACRX_DXF_DEFINE_MEMBERS(AcDb3dPolylineVertex, AcDbVertex, "VERTEX")
ACRX_DXF_DEFINE_MEMBERS(AcDbPolygonMeshVertex, AcDbVertex, "VERTEX")
ACRX_DXF_DEFINE_MEMBERS(AcDbPolyFaceMeshVertex, AcDbVertex, "VERTEX")
ACRX_DXF_DEFINE_MEMBERS(AcDbFaceRecord, AcDbVertex, "VERTEX")

AcGePoint3d AcDbVertex::position() const
{
    const std::size_t i = host::findInRecord(tags(), 10);
    return i == host::TagList::npos ? AcGePoint3d() : host::pointAt(tags(), i);
}

void AcDbVertex::follow(const host::PlaneMap& map, host::VertexSpace space)
{
    using host::FieldForm;
    static constexpr host::MappedField kFlat[] = {{10, FieldForm::planePoint},
                                                  {40, FieldForm::length},
                                                  {41, FieldForm::length},
                                                  {42, FieldForm::bulge},
                                                  {50, FieldForm::angle}};
    static constexpr host::MappedField kSpatial[] = {{10, FieldForm::point}};
    if ((vertexFlags() & (host::kMeshVertex | host::kFaceVertex)) == host::kFaceVertex)
        return; // a face has no place of its own
    const host::TagRange all{host::recordHead(tags()).end,
                             std::min(tags().find(101), host::dataEnd(tags()))};
    if (space == host::VertexSpace::plane)
        host::mapFields(*this, all, kFlat, map);
    else
        host::mapFields(*this, all, kSpatial, map);
}

AcDb2dVertex::AcDb2dVertex(const AcGePoint3d& position, double bulge)
{
    setPosition(position);
    setReal(host::k2dVertexPart, 42, bulge, 0.0);
}

AcDb3dPolylineVertex::AcDb3dPolylineVertex(const AcGePoint3d& position)
{
    setPosition(position);
    setInteger(host::k3dVertexPart, 70, host::k3dVertex, 0);
}

std::span<const std::string_view> AcDb2dVertex::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbVertex", "AcDb2dVertex"};
    return kMarkers;
}

std::span<const std::string_view> AcDb3dPolylineVertex::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbVertex",
                                                    "AcDb3dPolylineVertex"};
    return kMarkers;
}

std::span<const std::string_view> AcDbPolygonMeshVertex::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbVertex",
                                                    "AcDbPolygonMeshVertex"};
    return kMarkers;
}

std::span<const std::string_view> AcDbPolyFaceMeshVertex::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbVertex",
                                                    "AcDbPolyFaceMeshVertex"};
    return kMarkers;
}

std::span<const std::string_view> AcDbFaceRecord::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbFaceRecord"};
    return kMarkers;
}

namespace host {

void mapVertices(const AcDbEntity& parent, const PlaneMap& map, VertexSpace space)
{
    const LayersUnlocked whole;
    for (const AcDbObjectId id : childrenOf(parent)) {
        const AcDbObjectPointer<AcDbVertex> vertex(id, AcDb::kForWrite);
        if (vertex)
            vertex->follow(map, space);
    }
    for (const std::unique_ptr<AcDbEntity>& child : parent.newChildren())
        if (AcDbVertex* const vertex = AcDbVertex::cast(child.get()))
            vertex->follow(map, space);
}

Acad::ErrorStatus transformByVertices(const AcDbEntity& parent, TagWriter& fields,
                                      const AcGeMatrix3d& map)
{
    const PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(parent, PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    mapExtendedData(fields, mapped);
    mapVertices(parent, mapped, VertexSpace::world);
    return Acad::eOk;
}

} // namespace host
