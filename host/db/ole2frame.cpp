#include "host/db/ole2frame.h"

#include "host/geom/stroke_sink.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbOle2Frame, AcDbEntity, "OLE2FRAME")

bool AcDbOle2Frame::strokes(host::StrokeSink& sink) const
{
    const AcGePoint3d from = upperLeft();
    const AcGePoint3d to = lowerRight();
    const AcGePoint3d corners[] = {from, {to.x, from.y, from.z}, to, {from.x, to.y, to.z}};
    sink.polyline(corners, true);
    return true;
}

std::span<const std::string_view> AcDbOle2Frame::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbOle2Frame"};
    return kMarkers;
}
