#include "host/db/point_entity.h"

#include "host/db/thickness.h"

ACRX_DXF_DEFINE_MEMBERS(AcDbPoint, AcDbEntity, "POINT")

bool AcDbPoint::strokes(host::StrokeSink& sink) const
{
    return host::strokeThick(sink, normal(), thickness(),
                             [&](host::StrokeSink& to) { to.point(position()); });
}

std::span<const std::string_view> AcDbPoint::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbPoint"};
    return kMarkers;
}
