#include "host/db/tolerance_frame.h"

#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbFcf, AcDbEntity, "TOLERANCE")

bool AcDbFcf::strokes(host::StrokeSink& sink) const
{
    sink.point(location());
    return true;
}

Acad::ErrorStatus AcDbFcf::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::direction}};
    const host::PlaneMap mapped(map, host::normalField(tags(), host::kTolerancePart));
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, host::kTolerancePart, kFields, mapped);
    host::mapNormal(*this, host::kTolerancePart, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbFcf::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbFcf"};
    return kMarkers;
}
