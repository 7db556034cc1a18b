#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kLineOrder[] = {39, 10, 11, 210};
inline constexpr Subclass kLinePart{"AcDbLine", kLineOrder};

} // namespace host

// A segment; both points are in world coordinates.
class AcDbLine : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbLine)
public:
    AcDbLine() = default;
    AcDbLine(const AcGePoint3d& from, const AcGePoint3d& to);

    AcGePoint3d startPoint() const { return host::planePoint(tags(), host::kLinePart, 10); }
    AcGePoint3d endPoint() const { return host::planePoint(tags(), host::kLinePart, 11); }
    double thickness() const { return real(host::kLinePart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kLinePart); }

    Acad::ErrorStatus setStartPoint(const AcGePoint3d& p)
    {
        return setPoint(host::kLinePart, 10, p);
    }
    Acad::ErrorStatus setEndPoint(const AcGePoint3d& p) { return setPoint(host::kLinePart, 11, p); }
    Acad::ErrorStatus setThickness(double value)
    {
        return setReal(host::kLinePart, 39, value, 0.0);
    }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal); // eInvalidInput for zero

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "LINE"; }
    std::span<const std::string_view> markers() const override;
};
