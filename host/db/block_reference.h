#pragma once

#include "host/db/angle.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"
#include "host/db/sequence.h"

class AcDbAttribute;

namespace host {

inline constexpr short kBlockReferenceOrder[] = {66, 2, 10, 41, 42, 43, 50, 70, 71, 44, 45, 210};
inline constexpr Subclass kBlockReferencePart{"AcDbBlockReference", kBlockReferenceOrder};
inline constexpr Subclass kMInsertPart{"AcDbMInsertBlock", kBlockReferenceOrder};

} // namespace host

// A reference to a block, by the block's name. The attributes hang on it.
class AcDbBlockReference : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbBlockReference)
public:
    AcDbBlockReference() = default;
    AcDbBlockReference(const AcGePoint3d& position, AcDbObjectId block);

    AcDbObjectId blockTableRecord() const; // null id for a name that the drawing lacks
    std::wstring blockName() const { return text(part(), 2); } // as the file writes it
    AcGePoint3d position() const { return host::worldPoint(tags(), part(), 10, normal()); }
    AcGeScale3d scaleFactors() const
    {
        return {real(part(), 41, 1.0), real(part(), 42, 1.0), real(part(), 43, 1.0)};
    }
    double rotation() const { return host::toRadians(real(part(), 50, 0.0)); }
    AcGeVector3d normal() const { return host::normalField(tags(), part()); }
    // From the block's coordinates, its origin considered, to the world.
    AcGeMatrix3d blockTransform() const;

    std::vector<AcDbObjectId> attributes() const { return host::childrenOf(*this); }
    std::unique_ptr<AcDbObjectIterator> attributeIterator() const;
    // The reference has to be in a database already; the attribute is then open for write.
    Acad::ErrorStatus appendAttribute(AcDbObjectId& id, AcDbAttribute* attribute);

    Acad::ErrorStatus setBlockTableRecord(AcDbObjectId block); // eInvalidInput if it is none
    Acad::ErrorStatus setPosition(const AcGePoint3d& place);
    Acad::ErrorStatus setScaleFactors(const AcGeScale3d& factors); // eInvalidInput with a zero
    Acad::ErrorStatus setRotation(double angle)
    {
        return setReal(part(), 50, host::toDegrees(angle), 0.0);
    }
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal); // the position stays where it is

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    // The attributes go along. Axes that the map leaves at right angles may be scaled each by its
    // own factor.
    enum class AttributeText { mirrored, readable };
    virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& map, AttributeText text);
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override
    {
        return transformBy(map, AttributeText::mirrored);
    }
    std::string recordName() const override { return "INSERT"; }
    std::span<const std::string_view> markers() const override;

protected:
    // The marker that the record uses: that of a rectangular array replaces the plain one.
    const host::Subclass& part() const;
    double columnStep() const { return real(part(), 44, 0.0); } // of an array
    void strokeContents(host::StrokeSink& sink, const AcGeVector3d& offset) const;
    bool strokeAttributes(host::StrokeSink& sink) const;

private:
    Acad::ErrorStatus stretch(const AcGeMatrix3d& map);
};

// A rectangular array of references in one record.
class AcDbMInsertBlock : public AcDbBlockReference {
    ACRX_DECLARE_MEMBERS(AcDbMInsertBlock)
public:
    AcDbMInsertBlock() = default;

    int columns() const { return integer(part(), 70, 1); }
    int rows() const { return integer(part(), 71, 1); }
    double columnSpacing() const { return columnStep(); } // along the rotated axes
    double rowSpacing() const { return real(part(), 45, 0.0); }

    bool strokes(host::StrokeSink& sink) const override;
    // An array is not to be exploded.
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    std::span<const std::string_view> markers() const override;
};

// A table; what it looks like is an anonymous block that it refers to.
class AcDbTable : public AcDbBlockReference {
    ACRX_DECLARE_MEMBERS(AcDbTable)
public:
    AcDbTable() = default;
    // Moves and turns it; its cells are of the size that its block shows.
    using AcDbBlockReference::transformBy;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map, AttributeText text) override;
    std::string recordName() const override { return "ACAD_TABLE"; }
    std::span<const std::string_view> markers() const override;
};
