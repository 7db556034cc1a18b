#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kOle2FrameOrder[] = {70, 3, 10, 11, 71, 72, 73, 90, 310, 1};
inline constexpr Subclass kOle2FramePart{"AcDbOle2Frame", kOle2FrameOrder};

} // namespace host

// An object of another program, between two corners; what it shows is that program's own.
class AcDbOle2Frame : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbOle2Frame)
public:
    AcDbOle2Frame() = default;

    AcGePoint3d upperLeft() const { return point(host::kOle2FramePart, 10); }
    AcGePoint3d lowerRight() const { return point(host::kOle2FramePart, 11); }

    bool strokes(host::StrokeSink& sink) const override;
    std::string recordName() const override { return "OLE2FRAME"; }
    std::span<const std::string_view> markers() const override;
};
