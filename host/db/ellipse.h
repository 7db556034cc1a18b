#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"
#include "host/geom/arc.h"

namespace host {

inline constexpr short kEllipseOrder[] = {10, 11, 210, 40, 41, 42};
inline constexpr Subclass kEllipsePart{"AcDbEllipse", kEllipseOrder};

} // namespace host

// An ellipse or a part of one, in world coordinates. The file keeps parameters; the angles are
// those between the major axis and the ray from the centre to the curve, counted through whole
// turns as the parameters are.
class AcDbEllipse : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbEllipse)
public:
    AcDbEllipse() = default;
    AcDbEllipse(const AcGePoint3d& center, const AcGeVector3d& normal,
                const AcGeVector3d& majorAxis, double radiusRatio, double startParam = 0.0,
                double endParam = 6.283185307179586);

    AcGePoint3d center() const { return point(host::kEllipsePart, 10); }
    AcGeVector3d majorAxis() const;
    AcGeVector3d minorAxis() const;
    AcGeVector3d normal() const { return host::normalField(tags(), host::kEllipsePart); }
    double radiusRatio() const { return real(host::kEllipsePart, 40, 1.0); }
    double startParam() const { return real(host::kEllipsePart, 41, 0.0); }
    double endParam() const { return real(host::kEllipsePart, 42, 6.283185307179586); }
    double startAngle() const { return angleAtParam(startParam()); }
    double endAngle() const { return angleAtParam(endParam()); }
    double angleAtParam(double parameter) const;
    bool isClosed() const override;
    host::Arc3d geometry() const;

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "ELLIPSE"; }
    std::span<const std::string_view> markers() const override;

private:
    Acad::ErrorStatus skew(const AcGeMatrix3d& map); // by a map of several scales
};
