#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

#include <array>

namespace host {

inline constexpr short kTraceOrder[] = {10, 11, 12, 13, 39, 210};
inline constexpr Subclass kTracePart{"AcDbTrace", kTraceOrder};

// The corners of a filled area in the world, in the order of its outline: the file keeps the third
// and the fourth crossed.
std::array<AcGePoint3d, 4> outlineOfTrace(const TagList& tags);

} // namespace host

// A filled area of three or four corners. Its record has the marker of a trace.
class AcDbSolid : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbSolid)
public:
    AcDbSolid() = default;

    AcGePoint3d getPointAt(int corner) const; // 0 to 3 in the order of the file
    Acad::ErrorStatus setPointAt(int corner, const AcGePoint3d& place); // eInvalidIndex
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal); // before the corners; not zero
    double thickness() const { return real(host::kTracePart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kTracePart); }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "SOLID"; }
    std::span<const std::string_view> markers() const override;
};

class AcDbTrace : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbTrace)
public:
    AcDbTrace() = default;

    double thickness() const { return real(host::kTracePart, 39, 0.0); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kTracePart); }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "TRACE"; }
    std::span<const std::string_view> markers() const override;
};
