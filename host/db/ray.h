#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kInfiniteLineOrder[] = {10, 11};
inline constexpr Subclass kRayPart{"AcDbRay", kInfiniteLineOrder};
inline constexpr Subclass kXlinePart{"AcDbXline", kInfiniteLineOrder};

// How far a line without an end is drawn from its base point, in drawing units: beyond any drawing,
// near enough for its points to be exact to a millionth.
inline constexpr double kInfiniteReach = 1e9;

} // namespace host

// A line that begins at its base point and has no end.
class AcDbRay : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbRay)
public:
    AcDbRay() = default;

    AcGePoint3d basePoint() const { return point(host::kRayPart, 10); }
    AcGeVector3d unitDir() const;
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& p) { return setPoint(host::kRayPart, 10, p); }
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction); // eInvalidInput for zero

    Acad::ErrorStatus getGeomExtents(AcDbExtents&) const override { return Acad::eInvalidExtents; }
    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "RAY"; }
    std::span<const std::string_view> markers() const override;
};

// A line without ends on both sides of its base point.
class AcDbXline : public AcDbCurve {
    ACRX_DECLARE_MEMBERS(AcDbXline)
public:
    AcDbXline() = default;

    AcGePoint3d basePoint() const { return point(host::kXlinePart, 10); }
    AcGeVector3d unitDir() const;
    Acad::ErrorStatus setBasePoint(const AcGePoint3d& p)
    {
        return setPoint(host::kXlinePart, 10, p);
    }
    Acad::ErrorStatus setUnitDir(const AcGeVector3d& direction); // eInvalidInput for zero

    Acad::ErrorStatus getGeomExtents(AcDbExtents&) const override { return Acad::eInvalidExtents; }
    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "XLINE"; }
    std::span<const std::string_view> markers() const override;
};
