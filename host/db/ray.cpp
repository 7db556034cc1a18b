#include "host/db/ray.h"

#include "host/db/transforming.h"
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

void mapLine(host::TagWriter& line, const host::Subclass& part, const host::PlaneMap& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::direction}};
    host::mapFields(line, part, kFields, map);
    host::mapExtendedData(line, map);
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

Acad::ErrorStatus AcDbRay::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status == Acad::eOk)
        mapLine(*this, kRayPart, mapped);
    return status;
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

Acad::ErrorStatus AcDbXline::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status == Acad::eOk)
        mapLine(*this, kXlinePart, mapped);
    return status;
}

std::span<const std::string_view> AcDbXline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbXline"};
    return kMarkers;
}
