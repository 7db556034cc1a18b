#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kFaceOrder[] = {10, 11, 12, 13, 70};
inline constexpr Subclass kFacePart{"AcDbFace", kFaceOrder};

} // namespace host

// A face of three or four corners in world coordinates; each edge may be invisible.
class AcDbFace : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbFace)
public:
    AcDbFace() = default;

    // Corner 0 to 3; a face of three corners repeats the third.
    AcGePoint3d vertexAt(int corner) const;
    Acad::ErrorStatus setVertexAt(int corner, const AcGePoint3d& place); // eInvalidIndex
    bool isEdgeVisibleAt(int corner) const // of the edge from this corner to the next
    {
        return !flag(host::kFacePart, 70, 1 << corner);
    }
    Acad::ErrorStatus makeEdgeInvisibleAt(int corner) // eInvalidIndex
    {
        return corner < 0 || corner > 3 ? Acad::eInvalidIndex
                                        : setFlag(host::kFacePart, 70, 1 << corner, true);
    }

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "3DFACE"; }
    std::span<const std::string_view> markers() const override;
};
