#pragma once

#include "host/db/angle.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kDimensionOrder[] = {280, 2,  10, 11, 12, 70, 71, 72,  41,
                                            42,  73, 74, 75, 1,  53, 51, 210, 3};
inline constexpr Subclass kDimensionPart{"AcDbDimension", kDimensionOrder};

// The kind of a dimension in the low bits of its flags (70).
enum class DimensionKind {
    rotated,
    aligned,
    angular2Line,
    diametric,
    radial,
    angular3Point,
    ordinate,
    jogged = 9
};

} // namespace host

// A dimension: the places it measures, its style by name, and an anonymous block with what it looks
// like, in world coordinates.
class AcDbDimension : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbDimension)
public:
    AcDbObjectId dimensionStyle() const; // null id for a name that the drawing lacks
    std::wstring dimensionStyleName() const { return text(host::kDimensionPart, 3, L"STANDARD"); }
    AcDbObjectId dimBlockId() const; // null id while it has none
    std::wstring dimensionText() const { return text(host::kDimensionPart, 1); }
    double measurement() const { return real(host::kDimensionPart, 42, -1.0); }
    AcGePoint3d textPosition() const
    {
        return host::worldPoint(tags(), host::kDimensionPart, 11, normal());
    }
    AcGePoint3d definitionPoint() const { return place(host::kDimensionPart, 10); }
    // Whether the text stands where its kind and its style put it.
    bool isUsingDefaultTextPosition() const { return !flag(host::kDimensionPart, 70, 128); }
    double textRotation() const // radians; 0: as its kind and its style turn it
    {
        return host::toRadians(real(host::kDimensionPart, 53, 0.0));
    }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kDimensionPart); }

    // eInvalidInput for an id that names no dimension style. One that was made since the drawing
    // was opened is drawn anew; one of the file keeps the look that it was saved with.
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    Acad::ErrorStatus setDimensionText(std::wstring_view value)
    {
        return setText(host::kDimensionPart, 1, value);
    }
    Acad::ErrorStatus setDimBlockId(AcDbObjectId block); // eInvalidInput for an id of no block
    Acad::ErrorStatus forgetBlock(); // of a copy, since the block belongs to one dimension
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& place);
    Acad::ErrorStatus useDefaultTextPosition() { return setKindFlag(128, false); }
    Acad::ErrorStatus useSetTextPosition() { return setKindFlag(128, true); }
    Acad::ErrorStatus setTextRotation(double angle)
    {
        return setReal(host::kDimensionPart, 53, host::toDegrees(angle), 0.0);
    }
    Acad::ErrorStatus setTextAttachment(int attachment) // as AcDbMText::AttachmentPoint
    {
        return setInteger(host::kDimensionPart, 71, attachment, -1);
    }
    Acad::ErrorStatus setMeasurement(double value)
    {
        return setReal(host::kDimensionPart, 42, value, host::kRequired);
    }

    // Draws it anew from the places it measures, its style and its own overrides: the block that it
    // looks like (a new anonymous one where it has none), its measurement and, unless the user
    // placed it, its text's position. eNotInDatabase outside of a drawing, eNotApplicable for one
    // that doesn't lie parallel to the xy plane, eInvalidInput for one that measures nothing; it
    // then stays as it was.
    Acad::ErrorStatus recomputeDimBlock();

    bool strokes(host::StrokeSink& sink) const override; // false without a block
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    // What its block shows goes along, its text readable; scaled, it is drawn anew.
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "DIMENSION"; }

protected:
    AcDbDimension() = default;
    AcGeMatrix3d pictureTransform() const;
    // A place of the dimension's definition, in the world.
    AcGePoint3d place(const host::Subclass& part, int code) const { return point(part, code); }
    virtual host::DimensionKind kind() const = 0;
    virtual bool measuresAngle() const { return false; }
    // The place under 10; writes the kind into a record that states none yet.
    Acad::ErrorStatus setDefinitionPoint(const AcGePoint3d& p);
    Acad::ErrorStatus setKindFlag(int bit, bool on);

private:
    void stateKind();
};
