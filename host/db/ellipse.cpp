#include "host/db/ellipse.h"

#include "host/db/transforming.h"
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

Acad::ErrorStatus AcDbEllipse::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {{10, host::FieldForm::point},
                                                    {11, host::FieldForm::vector}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this, host::PlaneMap::Takes::any);
    if (status != Acad::eOk)
        return status;
    if (!mapped.isSimilar())
        return skew(map);
    host::mapExtendedData(*this, mapped);
    const double first = startParam();
    const double last = endParam();
    host::mapFields(*this, kEllipsePart, kFields, mapped);
    host::mapNormal(*this, kEllipsePart, mapped);
    if (!mapped.mirrors())
        return Acad::eOk;
    // the same part, counter-clockwise again
    constexpr double kTurn = 2.0 * std::numbers::pi;
    const double back = last > kTurn ? std::ceil(last / kTurn) * kTurn : kTurn;
    setReal(kEllipsePart, 41, back - last, host::kRequired);
    return setReal(kEllipsePart, 42, back - first, host::kRequired);
}

// The mapped axes are conjugate diameters; the principal ones lie a turn of the parameter further.
Acad::ErrorStatus AcDbEllipse::skew(const AcGeMatrix3d& map)
{
    const host::Arc3d image = geometry().transformed(map);
    const AcGeVector3d& a = image.cosAxis;
    const AcGeVector3d& b = image.sinAxis;
    const double turn = 0.5 * std::atan2(2.0 * a.dotProduct(b), a.lengthSqrd() - b.lengthSqrd());
    const AcGeVector3d major = a * std::cos(turn) + b * std::sin(turn);
    const AcGeVector3d minor = b * std::cos(turn) - a * std::sin(turn);
    if (minor.length() <= 1e-6 * major.length())
        return Acad::eCannotScaleNonUniformly; // flat
    const bool whole = isClosed();
    setPoint(kEllipsePart, 10, image.centre);
    setPoint(kEllipsePart, 11, AcGePoint3d() + major);
    setPoint(kEllipsePart, 210, AcGePoint3d() + major.crossProduct(minor).normal());
    setReal(kEllipsePart, 40, minor.length() / major.length(), host::kRequired);
    if (whole)
        return Acad::eOk;
    const double back = image.start - turn < 0.0 ? 2.0 * std::numbers::pi : 0.0;
    setReal(kEllipsePart, 41, image.start - turn + back, host::kRequired);
    return setReal(kEllipsePart, 42, image.end - turn + back, host::kRequired);
}

std::span<const std::string_view> AcDbEllipse::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbEllipse"};
    return kMarkers;
}
