#pragma once

#include "host/db/angle.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kShapeOrder[] = {39, 10, 40, 2, 50, 41, 51, 210};
inline constexpr Subclass kShapePart{"AcDbShape", kShapeOrder};

} // namespace host

// A figure of a shape file, by name. Drawn as the square that it is designed in.
class AcDbShape : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbShape)
public:
    AcDbShape() = default;

    AcGePoint3d position() const
    {
        return host::worldPoint(tags(), host::kShapePart, 10, normal());
    }
    double size() const { return real(host::kShapePart, 40, 0.0); }
    std::wstring name() const { return text(host::kShapePart, 2); }
    double rotation() const { return host::toRadians(real(host::kShapePart, 50, 0.0)); }
    double widthFactor() const { return real(host::kShapePart, 41, 1.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kShapePart); }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "SHAPE"; }
    std::span<const std::string_view> markers() const override;
};
