#include "host/db/circle.h"

#include "host/db/thickness.h"
#include "host/db/transforming.h"

using host::kCirclePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbCircle, AcDbCurve, "CIRCLE")

AcDbCircle::AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius)
{
    setNormal(normal);
    setCenter(center);
    setRadius(radius);
}

Acad::ErrorStatus AcDbCircle::setCenter(const AcGePoint3d& center)
{
    return setPoint(kCirclePart, 10, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * center);
}

Acad::ErrorStatus AcDbCircle::setRadius(double radius)
{
    if (!(radius >= 0.0))
        return Acad::eInvalidInput;
    return setReal(kCirclePart, 40, radius, host::kRequired);
}

Acad::ErrorStatus AcDbCircle::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    const AcGePoint3d place = center();
    const Acad::ErrorStatus status = setPoint(kCirclePart, 210, AcGePoint3d() + unit);
    return status == Acad::eOk ? setCenter(place) : status;
}

bool AcDbCircle::strokes(host::StrokeSink& sink) const
{
    const AcGeVector3d up = normal();
    const host::Arc3d whole = host::Arc3d::circle(host::planePoint(tags(), kCirclePart, 10),
                                                  radius(), AcGeMatrix3d::arbitraryAxes(up));
    return host::strokeThick(sink, up, thickness(), [&](host::StrokeSink& to) { to.arc(whole); });
}

Acad::ErrorStatus AcDbCircle::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::planePoint},
                                                    {39, host::FieldForm::length},
                                                    {40, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, kCirclePart, kFields, mapped);
    host::mapNormal(*this, kCirclePart, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbCircle::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbCircle"};
    return kMarkers;
}
