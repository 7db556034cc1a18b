#pragma once

#include "host/db/polyline2d.h"

namespace host {

inline constexpr Subclass kPolygonMeshPart{"AcDbPolygonMesh", kOldPolylineOrder};

} // namespace host

// A grid of vertices, M rows of N, in world coordinates. A smoothed one holds the finer grid beside
// its control points.
class AcDbPolygonMesh : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbPolygonMesh)
public:
    AcDbPolygonMesh() = default;

    bool isMClosed() const { return flag(host::kPolygonMeshPart, 70, 1); }
    bool isNClosed() const { return flag(host::kPolygonMeshPart, 70, 32); }
    bool isSmooth() const { return flag(host::kPolygonMeshPart, 70, 4); }
    int mSize() const { return integer(host::kPolygonMeshPart, isSmooth() ? 73 : 71, 0); }
    int nSize() const { return integer(host::kPolygonMeshPart, isSmooth() ? 74 : 72, 0); }
    std::vector<AcGePoint3d> vertices() const; // of the grid that is drawn

    bool strokes(host::StrokeSink& sink) const override; // false for a grid with vertices missing
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "POLYLINE"; }
    std::span<const std::string_view> markers() const override;
};
