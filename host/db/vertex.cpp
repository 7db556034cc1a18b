#include "host/db/vertex.h"

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
