#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kLeaderOrder[] = {3,  71, 72, 73,  74,  75,  40,  41,
                                         76, 10, 77, 340, 210, 211, 212, 213};
inline constexpr Subclass kLeaderPart{"AcDbLeader", kLeaderOrder};

} // namespace host

// A line, straight or splined, with an arrow; in world coordinates.
class AcDbLeader : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbLeader)
public:
    AcDbLeader() = default;

    AcDbObjectId dimensionStyle() const; // null id for a name that the drawing lacks
    std::wstring dimensionStyleName() const { return text(host::kLeaderPart, 3, L"STANDARD"); }
    bool isSplined() const { return integer(host::kLeaderPart, 72, 0) == 1; }
    bool hasArrowHead() const { return integer(host::kLeaderPart, 71, 1) != 0; }
    AcDbObjectId annotationObjId() const { return id(host::kLeaderPart, 340); }
    std::vector<AcGePoint3d> vertices() const;
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    Acad::ErrorStatus appendVertex(const AcGePoint3d& place);
    Acad::ErrorStatus detachAnnotation();

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "LEADER"; }
    std::span<const std::string_view> markers() const override;
};
