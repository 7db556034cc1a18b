#include "host/db/dimension_kinds.h"

using host::DimensionKind;

ACRX_DXF_DEFINE_MEMBERS(AcDbAlignedDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRotatedDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDb2LineAngularDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDb3PointAngularDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbArcDimension, AcDbDimension, "ARC_DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbDiametricDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimension, AcDbDimension, "DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbRadialDimensionLarge, AcDbDimension, "LARGE_RADIAL_DIMENSION")
ACRX_DXF_DEFINE_MEMBERS(AcDbOrdinateDimension, AcDbDimension, "DIMENSION")

AcDbAlignedDimension::AcDbAlignedDimension()
{
    setKind(DimensionKind::aligned);
}

std::span<const std::string_view> AcDbAlignedDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbAlignedDimension"};
    return kMarkers;
}

AcDbRotatedDimension::AcDbRotatedDimension()
{
    setKind(DimensionKind::rotated);
}

std::span<const std::string_view> AcDbRotatedDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbAlignedDimension", "AcDbRotatedDimension"};
    return kMarkers;
}

AcDb2LineAngularDimension::AcDb2LineAngularDimension()
{
    setKind(DimensionKind::angular2Line);
}

std::span<const std::string_view> AcDb2LineAngularDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDb2LineAngularDimension"};
    return kMarkers;
}

AcDb3PointAngularDimension::AcDb3PointAngularDimension()
{
    setKind(DimensionKind::angular3Point);
}

std::span<const std::string_view> AcDb3PointAngularDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDb3PointAngularDimension"};
    return kMarkers;
}

AcDbArcDimension::AcDbArcDimension()
{
    setKind(DimensionKind::angular3Point);
}

std::span<const std::string_view> AcDbArcDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbArcDimension"};
    return kMarkers;
}

AcDbDiametricDimension::AcDbDiametricDimension()
{
    setKind(DimensionKind::diametric);
}

std::span<const std::string_view> AcDbDiametricDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbDiametricDimension"};
    return kMarkers;
}

AcDbRadialDimension::AcDbRadialDimension()
{
    setKind(DimensionKind::radial);
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

AcDbOrdinateDimension::AcDbOrdinateDimension()
{
    setKind(DimensionKind::ordinate);
}

std::span<const std::string_view> AcDbOrdinateDimension::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbDimension",
                                                    "AcDbOrdinateDimension"};
    return kMarkers;
}
