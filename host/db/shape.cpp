#include "host/db/shape.h"

#include "host/geom/stroke_sink.h"

#include <cmath>

ACRX_DXF_DEFINE_MEMBERS(AcDbShape, AcDbEntity, "SHAPE")

bool AcDbShape::strokes(host::StrokeSink& sink) const
{
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(normal());
    const double angle = rotation();
    const AcGeVector3d along(std::cos(angle), std::sin(angle), 0.0);
    const AcGeVector3d up(-along.y, along.x, 0.0);
    host::TextBox box;
    box.corner = position();
    box.along = plane * (along * (size() * widthFactor()));
    box.up = plane * (up * size());
    sink.polyline(box.outline(), true);
    return true;
}

std::span<const std::string_view> AcDbShape::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbShape"};
    return kMarkers;
}
