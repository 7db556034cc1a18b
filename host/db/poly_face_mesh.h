#pragma once

#include "host/db/polyline2d.h"

namespace host {

inline constexpr Subclass kPolyFaceMeshPart{"AcDbPolyFaceMesh", kOldPolylineOrder};

} // namespace host

// Vertices and, behind them, faces that name them by number; in world coordinates.
class AcDbPolyFaceMesh : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMesh)
public:
    AcDbPolyFaceMesh() = default;

    int numVertices() const { return integer(host::kPolyFaceMeshPart, 71, 0); }
    int numFaces() const { return integer(host::kPolyFaceMeshPart, 72, 0); }

    bool strokes(host::StrokeSink& sink) const override; // visible edges
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "POLYLINE"; }
    std::span<const std::string_view> markers() const override;
};
