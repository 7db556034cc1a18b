#include "host/db/ellipse.h"

#include "host/geom/stroke_sink.h"

#include <cmath>
#include <numbers>

using host::kEllipsePart;

ACRX_DXF_DEFINE_MEMBERS(AcDbEllipse, AcDbCurve, "ELLIPSE")

AcDbEllipse::AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal,
                         const AcGeVector3d& majorAxis, double radiusRatio, double startParam,
                         double endParam)
{
    setPoint(kEllipsePart, 10, center);
    setPoint(kEllipsePart, 11, AcGePoint3d() + majorAxis);
    setPoint(kEllipsePart, 210, AcGePoint3d() + normal.normal());
    host::setRealField(*this, kEllipsePart, 40, radiusRatio, host::kRequired);
    host::setRealField(*this, kEllipsePart, 41, startParam, host::kRequired);
    host::setRealField(*this, kEllipsePart, 42, endParam, host::kRequired);
}

AcGeVector3d AcDbEllipse::majorAxis() const
{
    return host::vectorField(tags(), kEllipsePart, 11).value_or(AcGeVector3d::kXAxis);
}

AcGeVector3d AcDbEllipse::minorAxis() const
{
    return normal().crossProduct(majorAxis()) * radiusRatio();
}

double AcDbEllipse::angleAtParam(double parameter) const
{
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const double turns = std::round(parameter / kTurn);
    const double rest = parameter - turns * kTurn; // within half a turn
    return turns * kTurn + std::atan2(radiusRatio() * std::sin(rest), std::cos(rest));
}

bool AcDbEllipse::isClosed() const
{
    return std::abs(std::abs(endParam() - startParam()) - 2.0 * std::numbers::pi) < 1e-9;
}

host::Arc3d AcDbEllipse::geometry() const
{
    return host::Arc3d::elliptical(center(), majorAxis(), normal(), radiusRatio(), startParam(),
                                   endParam());
}

bool AcDbEllipse::strokes(host::StrokeSink& sink) const
{
    sink.arc(geometry());
    return true;
}

std::span<const std::string_view> AcDbEllipse::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbEllipse"};
    return kMarkers;
}
