#include "host/db/arc.h"

#include "host/db/thickness.h"
#include "host/db/transforming.h"

using host::kArcPart;
using host::kCirclePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbArc, AcDbCurve, "ARC")

AcDbArc::AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle)
{
    setCenter(center);
    setRadius(radius);
    setStartAngle(startAngle);
    setEndAngle(endAngle);
}

AcGeVector3d AcDbArc::normal() const
{
    const bool behindAngles = host::findField(tags(), kCirclePart, 210) == host::TagList::npos;
    return host::normalField(tags(), behindAngles ? kArcPart : kCirclePart);
}

host::Arc3d AcDbArc::geometry() const
{
    return host::Arc3d::circular(host::planePoint(tags(), kCirclePart, 10), radius(), startAngle(),
                                 endAngle(), AcGeMatrix3d::arbitraryAxes(normal()));
}

Acad::ErrorStatus AcDbArc::setCenter(const AcGePoint3d& center)
{
    return setPoint(kCirclePart, 10, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * center);
}

Acad::ErrorStatus AcDbArc::setRadius(double radius)
{
    if (!(radius >= 0.0))
        return Acad::eInvalidInput;
    return setReal(kCirclePart, 40, radius, host::kRequired);
}

Acad::ErrorStatus AcDbArc::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    const AcGePoint3d place = center();
    const bool behindAngles = host::findField(tags(), kArcPart, 210) != host::TagList::npos;
    const Acad::ErrorStatus status =
        setPoint(behindAngles ? kArcPart : kCirclePart, 210, AcGePoint3d() + unit);
    return status == Acad::eOk ? setCenter(place) : status;
}

bool AcDbArc::strokes(host::StrokeSink& sink) const
{
    const host::Arc3d part = geometry();
    return host::strokeThick(sink, normal(), thickness(),
                             [&](host::StrokeSink& to) { to.arc(part); });
}

Acad::ErrorStatus AcDbArc::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::planePoint},
                                                    {39, host::FieldForm::length},
                                                    {40, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const double first = mapped.degrees(real(kArcPart, 50, 0.0));
    const double last = mapped.degrees(real(kArcPart, 51, 360.0));
    const bool behindAngles = host::findField(tags(), kArcPart, 210) != host::TagList::npos;
    host::mapFields(*this, kCirclePart, kFields, mapped);
    host::mapNormal(*this, behindAngles ? kArcPart : kCirclePart, mapped);
    // always counter-clockwise
    setReal(kArcPart, 50, mapped.mirrors() ? last : first, host::kRequired);
    return setReal(kArcPart, 51, mapped.mirrors() ? first : last, host::kRequired);
}

std::span<const std::string_view> AcDbArc::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbCircle", "AcDbArc"};
    return kMarkers;
}
