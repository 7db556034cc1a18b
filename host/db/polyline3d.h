#pragma once

#include "host/db/polyline2d.h"

namespace host {

inline constexpr Subclass k3dPolylinePart{"AcDb3dPolyline", kOldPolylineOrder};

} // namespace host

// A polyline in space; its vertices are records of their own, in world coordinates.
class AcDb3dPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDb3dPolyline)
public:
    AcDb3dPolyline() = default;

    bool isClosed() const override { return flag(host::k3dPolylinePart, 70, 1); }
    // On the curve: control points of a splined one are left out.
    std::vector<AcGePoint3d> vertices() const;
    std::unique_ptr<AcDbObjectIterator> vertexIterator() const;
    // The polyline has to be in a database already; the vertex is then open for write.
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbEntity* vertex);

    Acad::ErrorStatus setClosed(bool closed)
    {
        return setFlag(host::k3dPolylinePart, 70, 1, closed);
    }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "POLYLINE"; }
    std::span<const std::string_view> markers() const override;
};
