#include "host/db/tolerance_frame.h"

#include "host/geom/stroke_sink.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbFcf, AcDbEntity, "TOLERANCE")

bool AcDbFcf::strokes(host::StrokeSink& sink) const
{
    sink.point(location());
    return true;
}

std::span<const std::string_view> AcDbFcf::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbFcf"};
    return kMarkers;
}
