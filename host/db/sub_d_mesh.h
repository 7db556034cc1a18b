#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

// A mesh that is smoothed by subdivision: vertices and faces of the coarse shape, in world
// coordinates. It is drawn unsmoothed.
class AcDbSubDMesh : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbSubDMesh)
public:
    AcDbSubDMesh() = default;

    std::vector<AcGePoint3d> vertices() const;
    std::vector<std::vector<int>> faces() const; // indices of vertices, from 0

    // What the mesh is made of; indices that are no vertex's are refused with eInvalidInput.
    Acad::ErrorStatus setSubDMesh(std::span<const AcGePoint3d> vertices,
                                  const std::vector<std::vector<int>>& faces);

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "MESH"; }
    std::span<const std::string_view> markers() const override;
};
