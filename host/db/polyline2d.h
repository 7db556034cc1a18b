#pragma once

#include "host/db/bulge_path.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"
#include "host/db/sequence.h"

namespace host {

inline constexpr short kOldPolylineOrder[] = {66, 10, 39, 70, 40, 41, 71, 72, 73, 74, 75, 210};
inline constexpr Subclass k2dPolylinePart{"AcDb2dPolyline", kOldPolylineOrder};

} // namespace host

// A flat polyline whose vertices are records of their own. Curve-fitted and splined ones hold the
// fitted vertices beside those the user gave.
class AcDb2dPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDb2dPolyline)
public:
    AcDb2dPolyline() = default;

    bool isClosed() const override { return flag(host::k2dPolylinePart, 70, 1); }
    double elevation() const { return host::planePoint(tags(), host::k2dPolylinePart, 10).z; }
    double thickness() const { return real(host::k2dPolylinePart, 39, 0.0); }
    double defaultStartWidth() const { return real(host::k2dPolylinePart, 40, 0.0); }
    double defaultEndWidth() const { return real(host::k2dPolylinePart, 41, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::k2dPolylinePart); }
    // On the curve: control points of a splined one are left out.
    std::vector<host::BulgeVertex> vertices() const;
    std::unique_ptr<AcDbObjectIterator> vertexIterator() const;
    Acad::ErrorStatus appendVertex(AcDbObjectId& id, AcDbEntity* vertex);

    Acad::ErrorStatus setClosed(bool closed)
    {
        return setFlag(host::k2dPolylinePart, 70, 1, closed);
    }
    Acad::ErrorStatus setElevation(double elevation)
    {
        return setPoint(host::k2dPolylinePart, 10, {0.0, 0.0, elevation});
    }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "POLYLINE"; }
    std::span<const std::string_view> markers() const override;
};
