#include "host/db/surface.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbSurface, AcDbEntity, "SURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbExtrudedSurface, AcDbSurface, "EXTRUDEDSURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbLoftedSurface, AcDbSurface, "LOFTEDSURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbRevolvedSurface, AcDbSurface, "REVOLVEDSURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbSweptSurface, AcDbSurface, "SWEPTSURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbPlaneSurface, AcDbSurface, "PLANESURFACE")
ACRX_DXF_DEFINE_MEMBERS(AcDbNurbSurface, AcDbSurface, "NURBSURFACE")

std::span<const std::string_view> AcDbSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbExtrudedSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbExtrudedSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbLoftedSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbLoftedSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbRevolvedSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbRevolvedSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbSweptSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbSweptSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbPlaneSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbPlaneSurface"};
    return kMarkers;
}

std::span<const std::string_view> AcDbNurbSurface::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbModelerGeometry",
                                                    "AcDbSurface", "AcDbNurbSurface"};
    return kMarkers;
}
