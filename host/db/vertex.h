#pragma once

#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kVertexOrder[] = {10, 40, 41, 42, 70, 50, 71, 72, 73, 74, 91};
inline constexpr Subclass k2dVertexPart{"AcDb2dVertex", kVertexOrder};
inline constexpr Subclass k3dVertexPart{"AcDb3dPolylineVertex", kVertexOrder};
inline constexpr Subclass kMeshVertexPart{"AcDbPolygonMeshVertex", kVertexOrder};
inline constexpr Subclass kFaceVertexPart{"AcDbPolyFaceMeshVertex", kVertexOrder};
inline constexpr Subclass kFaceRecordPart{"AcDbFaceRecord", kVertexOrder};

// Bits of a vertex's flags (70).
enum VertexFlag {
    kFittedVertex = 1,
    kTangentDefined = 2,
    kSplineVertex = 8,
    kSplineControl = 16, // of the frame, not on the curve
    k3dVertex = 32,
    kMeshVertex = 64,
    kFaceVertex = 128 // alone: the record of a face
};

class PlaneMap;

// Maps the vertices that hang on an entity, by the coordinates that they are in.
enum class VertexSpace { plane, world };
void mapVertices(const AcDbEntity& parent, const PlaneMap& map, VertexSpace space);
// AcDbEntity::transformBy of an entity whose places are all in its vertices, in the world; `fields`
// are its own. Takes any map.
Acad::ErrorStatus transformByVertices(const AcDbEntity& parent, TagWriter& fields,
                                      const AcGeMatrix3d& map);

} // namespace host

// A vertex of a polyline or mesh; hangs on it.
class AcDbVertex : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbVertex)
public:
    // In the parent's coordinates: of a flat polyline those of its plane, else the world's.
    AcGePoint3d position() const;
    int vertexFlags() const { return host::integerInRecord(tags(), 70, 0); }
    void follow(const host::PlaneMap& map, host::VertexSpace space);
    bool strokes(host::StrokeSink&) const override { return true; } // drawn by its parent
    std::string recordName() const override { return "VERTEX"; }

protected:
    AcDbVertex() = default;
};

class AcDb2dVertex : public AcDbVertex {
    ACRX_DECLARE_MEMBERS(AcDb2dVertex)
public:
    AcDb2dVertex() = default;
    explicit AcDb2dVertex(const AcGePoint3d& position, double bulge = 0.0);
    double bulge() const { return real(host::k2dVertexPart, 42, 0.0); }
    double startWidth() const { return real(host::k2dVertexPart, 40, 0.0); }
    double endWidth() const { return real(host::k2dVertexPart, 41, 0.0); }
    Acad::ErrorStatus setPosition(const AcGePoint3d& p)
    {
        return setPoint(host::k2dVertexPart, 10, p);
    }
    std::span<const std::string_view> markers() const override;
};

class AcDb3dPolylineVertex : public AcDbVertex {
    ACRX_DECLARE_MEMBERS(AcDb3dPolylineVertex)
public:
    AcDb3dPolylineVertex() = default;
    explicit AcDb3dPolylineVertex(const AcGePoint3d& position);
    Acad::ErrorStatus setPosition(const AcGePoint3d& p)
    {
        return setPoint(host::k3dVertexPart, 10, p);
    }
    std::span<const std::string_view> markers() const override;
};

class AcDbPolygonMeshVertex : public AcDbVertex {
    ACRX_DECLARE_MEMBERS(AcDbPolygonMeshVertex)
public:
    AcDbPolygonMeshVertex() = default;
    std::span<const std::string_view> markers() const override;
};

class AcDbPolyFaceMeshVertex : public AcDbVertex {
    ACRX_DECLARE_MEMBERS(AcDbPolyFaceMeshVertex)
public:
    AcDbPolyFaceMeshVertex() = default;
    std::span<const std::string_view> markers() const override;
};

// A face of a polyface mesh: numbers of its vertices from 1 on, negative before an invisible edge.
class AcDbFaceRecord : public AcDbVertex {
    ACRX_DECLARE_MEMBERS(AcDbFaceRecord)
public:
    AcDbFaceRecord() = default;
    int vertexAt(int corner) const { return integer(host::kFaceRecordPart, 71 + corner, 0); }
    std::span<const std::string_view> markers() const override;
};
