#pragma once

#include "host/db/color.h"
#include "host/db/object.h"
#include "host/geom/extents.h"
#include "host/geom/matrix.h"

#include <utility>

namespace host {
class StrokeSink;
}

namespace AcDb {

enum Visibility { kVisible = 0, kInvisible = 1 };

// Line weights in hundredths of a millimetre, and three markers.
enum LineWeight { kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3 };

} // namespace AcDb

// An entity: what is drawn. The common properties stand under AcDbEntity.
class AcDbEntity : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbEntity)
public:
    std::wstring layer() const;
    AcDbObjectId layerId() const; // from the index: splits no tags
    Acad::ErrorStatus
    setLayer(std::wstring_view name); // eKeyNotFound for a layer that is not there
    Acad::ErrorStatus setLayer(AcDbObjectId id);
    std::uint16_t colorIndex() const; // as AcCmColor::colorIndex
    AcCmColor color() const;
    Acad::ErrorStatus setColorIndex(std::uint16_t index);
    Acad::ErrorStatus setColor(const AcCmColor& color); // an index removes 420 and 430, a true
                                                        // colour writes 62 (nearest) and 420
    std::wstring
    linetype() const; // "ByLayer" where the file says nothing; as the record's name is written
    AcDbObjectId linetypeId() const;
    Acad::ErrorStatus setLinetype(std::wstring_view name); // eKeyNotFound
    Acad::ErrorStatus setLinetype(AcDbObjectId id);
    double linetypeScale() const;
    Acad::ErrorStatus setLinetypeScale(double scale); // eInvalidInput unless positive
    int lineWeight() const;
    Acad::ErrorStatus
    setLineWeight(int weight); // eInvalidInput for a weight that is none of the platform's
    AcDb::Visibility visibility() const;
    Acad::ErrorStatus setVisibility(AcDb::Visibility visibility);

    // Vertices or attributes of an entity outside of a database; they join a database with it.
    const std::vector<std::unique_ptr<AcDbEntity>>& newChildren() const { return newChildren_; }
    void addNewChild(std::unique_ptr<AcDbEntity> child)
    {
        newChildren_.push_back(std::move(child));
    }
    std::vector<std::unique_ptr<AcDbEntity>> takeNewChildren()
    {
        return std::exchange(newChildren_, {});
    }

    // The block record that holds it.
    AcDbObjectId blockId() const;

    // Extents in the world; eInvalidExtents for what has none (or is not understood).
    virtual Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
    // Draws itself with strokes in the world; false for what is not understood.
    virtual bool strokes(host::StrokeSink& sink) const;
    // Moves, turns, scales, mirrors. eCannotScaleNonUniformly for a map that the kind can't take;
    // eNotApplicable for what is not understood. It then stays as it was.
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& map);
    // The simpler entities that it is made of, in no drawing yet, with its common properties.
    // eNotApplicable for what is simple already or is not understood.
    virtual Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const;

    std::span<const std::string_view> markers() const override;

protected:
    AcDbEntity() = default;
    void subErase(bool erasing) override;

private:
    std::vector<std::unique_ptr<AcDbEntity>> newChildren_;
};

class AcDbCurve : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbCurve)
public:
    virtual bool isClosed() const { return false; }

protected:
    AcDbCurve() = default;
};

namespace host {

extern const Subclass kEntityPart; // AcDbEntity, with the order of its codes

} // namespace host
