#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kImageOrder[] = {90,  10,  11,  12,  13, 340, 70, 280,
                                        281, 282, 283, 360, 71, 91,  14, 290};
inline constexpr Subclass kRasterImagePart{"AcDbRasterImage", kImageOrder};
inline constexpr Subclass kWipeoutPart{"AcDbWipeout", kImageOrder};

} // namespace host

// A picture in space: a corner and the vectors of one pixel, in world coordinates. A clip boundary
// is stated in pixels from the upper left, the centre of the first pixel being 0.
class AcDbRasterImage : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbRasterImage)
public:
    AcDbRasterImage() = default;

    AcGePoint3d origin() const { return point(part(), 10); }
    AcGeVector3d pixelAcross() const { return point(part(), 11, {1.0, 0.0, 0.0}).asVector(); }
    AcGeVector3d pixelUp() const { return point(part(), 12, {0.0, 1.0, 0.0}).asVector(); }
    AcGeVector2d imageSize() const; // in pixels
    AcDbObjectId imageDefId() const { return id(part(), 340); }
    bool isClipped() const { return integer(part(), 280, 0) != 0; }
    std::vector<AcGePoint3d> frame() const; // the clip boundary, or the picture's own, in the world

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "IMAGE"; }
    std::span<const std::string_view> markers() const override;

protected:
    virtual const host::Subclass& part() const { return host::kRasterImagePart; }
};

// A picture without a picture: its frame hides what lies behind it.
class AcDbWipeout : public AcDbRasterImage {
    ACRX_DECLARE_MEMBERS(AcDbWipeout)
public:
    AcDbWipeout() = default;

    // The frame becomes this outline, of at least three corners, in a plane of constant z.
    // eInvalidInput for one that encloses nothing.
    Acad::ErrorStatus setOutline(std::span<const AcGePoint3d> outline);

    std::string recordName() const override { return "WIPEOUT"; }
    std::span<const std::string_view> markers() const override;

protected:
    const host::Subclass& part() const override { return host::kWipeoutPart; }
};
