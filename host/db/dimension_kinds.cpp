#include "host/db/dimension_kinds.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbArcDimension, AcDbDimension, "ARC_DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimensionLarge, AcDbDimension, "LARGE_RADIAL_DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbOrdinateDimension, AcDbDimension, "DIMENSION")

std::span<const std::string_view> AcDbAlignedDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbAlignedDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDbRotatedDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbAlignedDimension", "AcDbRotatedDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDb2LineAngularDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDb2LineAngularDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDb3PointAngularDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDb3PointAngularDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDbArcDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbArcDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDbDiametricDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbDiametricDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDbRadialDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbRadialDimension"};
    return kMarkers;
}

std::span<const std::string_view> AcDbRadialDimensionLarge::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbRadialDimensionLarge"};
    return kMarkers;
}

std::span<const std::string_view> AcDbOrdinateDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbOrdinateDimension"};
    return kMarkers;
}
