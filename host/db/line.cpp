#include "host/db/line.h"

#include "host/db/thickness.h"
#include "host/db/transforming.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, "LINE")

AcDbLine::AcDbLine(const AcGePoint3d& from, const AcGePoint3d& to)
{
    setStartPoint(from);
    setEndPoint(to);
}

Acad::ErrorStatus AcDbLine::setNormal(const AcGeVector3d& direction)
{
    if (direction.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = direction.normal();
    return unit == normal() ? Acad::eOk : setPoint(host::kLinePart, 210, AcGePoint3d() + unit);
}

bool AcDbLine::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(),
                             [&](host::StrokeSink& to) { to.segment(startPoint(), endPoint()); });
}

Acad::ErrorStatus AcDbLine::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::point}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, host::kLinePart, kFields, mapped);
    host::mapThickness(*this, host::kLinePart, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbLine::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbLine"};
    return kMarkers;
}
