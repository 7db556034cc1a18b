#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kToleranceOrder[] = {3, 10, 1, 210, 11};
inline constexpr Subclass kTolerancePart{"AcDbFcf", kToleranceOrder};

} // namespace host

// A frame with geometric tolerances; its looks follow from a dimension style. Drawn by its place.
class AcDbFcf : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbFcf)
public:
    AcDbFcf() = default;

    AcGePoint3d location() const { return point(host::kTolerancePart, 10); }
    std::wstring contents() const { return text(host::kTolerancePart, 1); }
    std::wstring dimensionStyleName() const { return text(host::kTolerancePart, 3, L"STANDARD"); }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "TOLERANCE"; }
    std::span<const std::string_view> markers() const override;
};
