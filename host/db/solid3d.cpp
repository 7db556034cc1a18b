#include "host/db/solid3d.h"

ACRX_DXF_DEFINE_MEMBERS(AcDb3dSolid, AcDbEntity, "3DSOLID")
ACRX_DXF_DEFINE_MEMBERS(AcDbRegion, AcDbEntity, "REGION")
ACRX_DXF_DEFINE_MEMBERS(AcDbBody, AcDbEntity, "BODY")

namespace {

constexpr std::string_view kSolidMarkers[] = {"AcDbEntity", "AcDbModelerGeometry", "AcDb3dSolid"};
constexpr std::string_view kBodyMarkers[] = {"AcDbEntity", "AcDbModelerGeometry"};

} // namespace

std::span<const std::string_view> AcDb3dSolid::markers() const
{
    return kSolidMarkers;
}

std::span<const std::string_view> AcDbRegion::markers() const
{
    return kBodyMarkers;
}

std::span<const std::string_view> AcDbBody::markers() const
{
    return kBodyMarkers;
}
