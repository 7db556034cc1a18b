#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kPointOrder[] = {10, 39, 210, 50};
inline constexpr Subclass kPointPart{"AcDbPoint", kPointOrder};

} // namespace host

// A point, in world coordinates.
class AcDbPoint : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbPoint)
public:
    AcDbPoint() = default;
    explicit AcDbPoint(const AcGePoint3d& position) { setPosition(position); }

    AcGePoint3d position() const { return host::planePoint(tags(), host::kPointPart, 10); }
    double thickness() const { return real(host::kPointPart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kPointPart); }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p)
    {
        return setPoint(host::kPointPart, 10, p);
    }
    Acad::ErrorStatus setThickness(double value)
    {
        return setReal(host::kPointPart, 39, value, 0.0);
    }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "POINT"; }
    std::span<const std::string_view> markers() const override;
};
