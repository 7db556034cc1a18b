#include "host/db/point_entity.h"

#include "host/db/thickness.h"
#include "host/db/transforming.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, "POINT")

bool AcDbPoint::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(),
                             [&](host::StrokeSink& to) { to.point(position()); });
}

Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, host::kPointPart, kFields, mapped);
    host::mapThickness(*this, host::kPointPart, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbPoint::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbPoint"};
    return kMarkers;
}
