#pragma once

#include "host/db/bulge_path.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kPolylineOrder[] = {90, 70, 43, 38, 39, 10, 40, 41, 42, 91, 210};
inline constexpr Subclass kPolylinePart{"AcDbPolyline", kPolylineOrder};

} // namespace host

// A flat polyline in one record: vertices in the plane of its normal at one elevation. Widths stand
// at the vertices, or once for all of them (43).
class AcDbPolyline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbPolyline)
public:
    AcDbPolyline() = default;

    bool isClosed() const override { return flag(host::kPolylinePart, 70, 1); }
    bool hasPlinegen() const { return flag(host::kPolylinePart, 70, 128); }
    double elevation() const { return real(host::kPolylinePart, 38, 0.0); }
    double thickness() const { return real(host::kPolylinePart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kPolylinePart); }

    unsigned numVerts() const { return static_cast<unsigned>(vertices().size()); }
    const std::vector<host::BulgeVertex>& vertices() const;
    Acad::ErrorStatus getPointAt(unsigned index, AcGePoint3d& point) const; // in the world
    Acad::ErrorStatus getPointAt(unsigned index, AcGePoint2d& point) const; // in the plane
    Acad::ErrorStatus getBulgeAt(unsigned index, double& bulge) const;
    Acad::ErrorStatus getWidthsAt(unsigned index, double& start, double& end) const;
    // eInvalidInput when the segments have different widths.
    Acad::ErrorStatus getConstantWidth(double& width) const;

    Acad::ErrorStatus setClosed(bool closed) { return setFlag(host::kPolylinePart, 70, 1, closed); }
    Acad::ErrorStatus setElevation(double elevation)
    {
        return setReal(host::kPolylinePart, 38, elevation, 0.0);
    }
    Acad::ErrorStatus setThickness(double value)
    {
        return setReal(host::kPolylinePart, 39, value, 0.0);
    }
    Acad::ErrorStatus setConstantWidth(double width); // eInvalidInput for a negative one
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    // Before the vertex with that index; past the last one: at the end. Negative widths: none of
    // its own.
    Acad::ErrorStatus addVertexAt(unsigned index, const AcGePoint2d& point, double bulge = 0.0,
                                  double startWidth = -1.0, double endWidth = -1.0);
    Acad::ErrorStatus setPointAt(unsigned index, const AcGePoint2d& point);
    Acad::ErrorStatus setBulgeAt(unsigned index, double bulge);
    Acad::ErrorStatus removeVertexAt(unsigned index);

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "LWPOLYLINE"; }
    std::span<const std::string_view> markers() const override;
    host::TagList& tagsForWrite() override
    {
        decoded_.reset();
        return AcDbCurve::tagsForWrite();
    }

protected:
    void tagsReplaced() override { decoded_.reset(); }

private:
    // Positions of the vertices' first tags (10), and the end of the last vertex.
    std::vector<std::size_t> vertexPlaces() const;

    mutable std::unique_ptr<std::vector<host::BulgeVertex>> decoded_;
};
