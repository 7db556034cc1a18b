#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kViewportOrder[] = {10, 40, 41, 68, 69, 12, 13, 14, 15,
                                           16, 17, 42, 43, 44, 45, 50, 51};
inline constexpr Subclass kViewportPart{"AcDbViewport", kViewportOrder};

} // namespace host

// A window of a layout into model space; centre and size in paper space.
class AcDbViewport : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbViewport)
public:
    AcDbViewport() = default;

    AcGePoint3d centerPoint() const { return point(host::kViewportPart, 10); }
    double width() const { return real(host::kViewportPart, 40, 0.0); }
    double height() const { return real(host::kViewportPart, 41, 0.0); }
    int number() const { return integer(host::kViewportPart, 69, 0); } // 1 is the sheet itself

    bool strokes(host::StrokeSink& sink) const override; // the frame; nothing for the sheet
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "VIEWPORT"; }
    std::span<const std::string_view> markers() const override;
};
