#include "host/db/viewport.h"

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

std::span<const std::string_view> AcDbViewport::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbViewport"};
    return kMarkers;
}
