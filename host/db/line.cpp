#include "host/db/line.h"

#include "host/db/thickness.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbLine, AcDbCurve, "LINE")

AcDbLine::AcDbLine(const AcGePoint3d& from, const AcGePoint3d& to)
{
    setStartPoint(from);
    setEndPoint(to);
}

bool AcDbLine::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(),
                             [&](host::StrokeSink& to) { to.segment(startPoint(), endPoint()); });
}

std::span<const std::string_view> AcDbLine::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbLine"};
    return kMarkers;
}
