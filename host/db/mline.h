#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace Mline {

enum MlineJustification { kTop = 0, kZero = 1, kBottom = 2 };

} // namespace Mline

namespace host {

inline constexpr short kMlineOrder[] = {2,   340, 40, 70, 71, 72, 73, 10,
                                        210, 11,  12, 13, 74, 41, 75, 42};
inline constexpr Subclass kMlinePart{"AcDbMline", kMlineOrder};

} // namespace host

// A multiline: parallel lines along a path of vertices, in world coordinates. Which lines there are
// tells a style. At each vertex the record keeps the direction of the segment, the direction of the
// mitre, and how far along the mitre each line passes; they are made anew when something that they
// follow from changes.
class AcDbMline : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbMline)
public:
    AcDbMline() = default;

    AcDbObjectId style() const;
    std::wstring styleName() const { return text(host::kMlinePart, 2, L"STANDARD"); }
    double scale() const { return real(host::kMlinePart, 40, 1.0); }
    int justification() const { return integer(host::kMlinePart, 70, Mline::kTop); }
    bool closedMline() const { return flag(host::kMlinePart, 71, 2); }
    bool supressStartCaps() const { return flag(host::kMlinePart, 71, 4); }
    bool supressEndCaps() const { return flag(host::kMlinePart, 71, 8); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kMlinePart); }
    int numVertices() const { return static_cast<int>(vertices().size()); }
    AcGePoint3d vertexAt(int index) const; // the origin for an index that is none
    std::vector<AcGePoint3d> vertices() const;

    Acad::ErrorStatus setStyle(AcDbObjectId style); // eInvalidInput for an id that names none
    Acad::ErrorStatus setScale(double scale);
    Acad::ErrorStatus setJustification(int justification); // eInvalidInput outside of 0 to 2
    Acad::ErrorStatus setClosedMline(bool closed);
    Acad::ErrorStatus setSupressStartCaps(bool on) { return setFlag(host::kMlinePart, 71, 4, on); }
    Acad::ErrorStatus setSupressEndCaps(bool on) { return setFlag(host::kMlinePart, 71, 8, on); }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);
    Acad::ErrorStatus appendSeg(const AcGePoint3d& vertex);

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "MLINE"; }
    std::span<const std::string_view> markers() const override;

private:
    void writePath(const std::vector<AcGePoint3d>& path);
};
