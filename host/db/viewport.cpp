#include "host/db/viewport.h"

#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbViewport, AcDbEntity, "VIEWPORT")

bool AcDbViewport::strokes(host::StrokeSink& sink) const
{
    if (number() == 1)
        return true;
    const AcGePoint3d centre = centerPoint();
    const AcGeVector3d right(0.5 * width(), 0.0, 0.0);
    const AcGeVector3d up(0.0, 0.5 * height(), 0.0);
    const AcGePoint3d corners[] = {centre - right - up, centre + right - up, centre + right + up,
                                   centre - right + up};
    sink.polyline(corners, true);
    return true;
}

Acad::ErrorStatus AcDbViewport::transformBy(const AcGeMatrix3d& map)
{
    // the frame stays upright
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::point}, {40, host::FieldForm::length}, {41, host::FieldForm::length}};
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, host::kViewportPart, kFields, mapped);
    return Acad::eOk;
}

std::span<const std::string_view> AcDbViewport::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbViewport"};
    return kMarkers;
}
