#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kCircleOrder[] = {39, 10, 40, 210};
inline constexpr Subclass kCirclePart{"AcDbCircle", kCircleOrder};

} // namespace host

// A full circle. The file keeps the centre in the coordinates of the normal; here it is in the
// world.
class AcDbCircle : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbCircle)
public:
    AcDbCircle() = default;
    AcDbCircle(const AcGePoint3d& center, const AcGeVector3d& normal, double radius);

    AcGePoint3d center() const { return host::worldPoint(tags(), host::kCirclePart, 10, normal()); }
    double radius() const { return real(host::kCirclePart, 40, 0.0); }
    double thickness() const { return real(host::kCirclePart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kCirclePart); }
    bool isClosed() const override { return true; }

    Acad::ErrorStatus setCenter(const AcGePoint3d& center);
    Acad::ErrorStatus setRadius(double radius); // eInvalidInput for a negative one
    Acad::ErrorStatus setThickness(double value)
    {
        return setReal(host::kCirclePart, 39, value, 0.0);
    }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal); // the centre stays where it is

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "CIRCLE"; }
    std::span<const std::string_view> markers() const override;
};
