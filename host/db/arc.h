#pragma once

#include "host/db/angle.h"
#include "host/db/circle.h"
#include "host/geom/arc.h"

namespace host {

inline constexpr short kArcOrder[] = {50, 51, 210};
inline constexpr Subclass kArcPart{"AcDbArc", kArcOrder};

} // namespace host

// A part of a circle, counter-clockwise from the start to the end angle (radians). Centre, radius
// and normal stand under AcDbCircle; some programs write the normal behind the angles.
class AcDbArc : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbArc)
public:
    AcDbArc() = default;
    AcDbArc(const AcGePoint3d& center, double radius, double startAngle, double endAngle);

    AcGePoint3d center() const { return host::worldPoint(tags(), host::kCirclePart, 10, normal()); }
    double radius() const { return real(host::kCirclePart, 40, 0.0); }
    double startAngle() const { return host::toRadians(real(host::kArcPart, 50, 0.0)); }
    double endAngle() const { return host::toRadians(real(host::kArcPart, 51, 360.0)); }
    double thickness() const { return real(host::kCirclePart, 39, 0.0); }
    AcGeVector3d normal() const;
    host::Arc3d geometry() const;

    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    Acad::ErrorStatus setRadius(double radius); // eInvalidInput for a negative one
    Acad::ErrorStatus setStartAngle(double angle)
    {
        return setReal(host::kArcPart, 50, host::toDegrees(angle), host::kRequired);
    }
    Acad::ErrorStatus setEndAngle(double angle)
    {
        return setReal(host::kArcPart, 51, host::toDegrees(angle), host::kRequired);
    }
    Acad::ErrorStatus setThickness(double value)
    {
        return setReal(host::kCirclePart, 39, value, 0.0);
    }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal); // the centre stays where it is

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "ARC"; }
    std::span<const std::string_view> markers() const override;
};
