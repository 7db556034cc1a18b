#pragma once

#include "host/db/spline.h"

namespace host {

inline constexpr short kHelixOrder[] = {90, 91, 10, 11, 12, 40, 41, 42, 290, 280};
inline constexpr Subclass kHelixPart{"AcDbHelix", kHelixOrder};

} // namespace host

// A helix, kept as the spline it looks like with what made it.
class AcDbHelix : public AcDbSpline {
    ACRX_DECLARE_MEMBERS(AcDbHelix)
public:
    AcDbHelix() = default;

    AcGePoint3d axisPoint() const { return point(host::kHelixPart, 10); }
    double baseRadius() const { return real(host::kHelixPart, 40, 1.0); }
    double turns() const { return real(host::kHelixPart, 41, 3.0); }
    double turnHeight() const { return real(host::kHelixPart, 42, 1.0); }

    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    std::string recordName() const override { return "HELIX"; }
    std::span<const std::string_view> markers() const override;
};
