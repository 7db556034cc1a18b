#include "host/db/shape.h"

#include "host/db/transforming.h"
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

Acad::ErrorStatus AcDbShape::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::planePoint},
                                                    {39, host::FieldForm::length},
                                                    {40, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, host::kShapePart, kFields, mapped);
    host::mapNormal(*this, host::kShapePart, mapped);
    host::mapAngle(*this, host::kShapePart, 50, mapped, mapped.mirrors() ? 180.0 : 0.0);
    return mapped.mirrors() ? setReal(host::kShapePart, 41, -widthFactor(), 1.0) : Acad::eOk;
}

std::span<const std::string_view> AcDbShape::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbShape"};
    return kMarkers;
}
