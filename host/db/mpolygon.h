#pragma once

#include "host/db/hatch.h"

namespace host {

inline constexpr short kMPolygonOrder[] = {70, 10, 210, 2, 63, 71, 91};
inline constexpr Subclass kMPolygonPart{"AcDbMPolygon", kMPolygonOrder};

} // namespace host

// A polygon of several rings, filled like a hatch. Its record is a hatch's with some fields
// elsewhere: 70 is a version, 71 tells a solid fill, 63 is the pattern's colour.
class AcDbMPolygon : public AcDbHatch {
    ACRX_DECLARE_MEMBERS(AcDbMPolygon)
public:
    AcDbMPolygon() = default;

    AcCmColor patternColor() const; // by layer where the file has none
    Acad::ErrorStatus setPatternColor(const AcCmColor& color);
    // Its rings, filled with the layer's colour until a pattern is set. eInvalidInput for paths
    // that are not polylines.
    Acad::ErrorStatus setRings(std::span<const host::HatchLoop> rings);

    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    std::string recordName() const override { return "MPOLYGON"; }
    std::span<const std::string_view> markers() const override;

protected:
    const host::Subclass& part() const override { return host::kMPolygonPart; }
    int solidCode() const override { return 71; }

private:
    std::size_t colorTag(int code) const;
};
