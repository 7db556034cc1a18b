#include "host/db/ray.h"

#include "host/geom/stroke_sink.h"

using host::kInfiniteReach;
using host::kRayPart;
using host::kXlinePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbRay, AcDbCurve, "RAY")
ACRX_DXF_DEFINE_MEMBERS(AcDbXline, AcDbCurve, "XLINE")

namespace {

AcGeVector3d directionOf(const host::TagList& tags, const host::Subclass& part)
{
    return host::vectorField(tags, part, 11).value_or(AcGeVector3d::kXAxis).normal();
}

} // namespace

AcGeVector3d AcDbRay::unitDir() const
{
    return directionOf(tags(), kRayPart);
}

Acad::ErrorStatus AcDbRay::setUnitDir(const AcGeVector3d& direction)
{
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    return setPoint(kRayPart, 11, AcGePoint3d() + direction.normal());
}

bool AcDbRay::strokes(host::StrokeSink& sink) const
{
    sink.segment(basePoint(), basePoint() + unitDir() * kInfiniteReach);
    return true;
}

std::span<const std::string_view> AcDbRay::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbRay"};
    return kMarkers;
}

AcGeVector3d AcDbXline::unitDir() const
{
    return directionOf(tags(), kXlinePart);
}

Acad::ErrorStatus AcDbXline::setUnitDir(const AcGeVector3d& direction)
{
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    return setPoint(kXlinePart, 11, AcGePoint3d() + direction.normal());
}

bool AcDbXline::strokes(host::StrokeSink& sink) const
{
    const AcGeVector3d reach = unitDir() * kInfiniteReach;
    const AcGePoint3d points[] = {basePoint() - reach, basePoint(), basePoint() + reach};
    sink.polyline(points, false);
    return true;
}

std::span<const std::string_view> AcDbXline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbXline"};
    return kMarkers;
}
