#pragma once

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
    AcGeVector3d normal() const { return host::normalField(tags(), host::kDimensionPart); }

    // eInvalidInput for an id that names no dimension style.
    Acad::ErrorStatus setDimensionStyle(AcDbObjectId style);
    Acad::ErrorStatus setDimensionText(std::wstring_view value)
    {
        return setText(host::kDimensionPart, 1, value);
    }
    Acad::ErrorStatus setDimBlockId(AcDbObjectId block); // eInvalidInput for an id of no block
    Acad::ErrorStatus setTextPosition(const AcGePoint3d& place);
    Acad::ErrorStatus setMeasurement(double value)
    {
        return setReal(host::kDimensionPart, 42, value, host::kRequired);
    }

    bool strokes(host::StrokeSink& sink) const override; // false without a block
    std::string recordName() const override { return "DIMENSION"; }

protected:
    AcDbDimension() = default;
    // A place of the dimension's definition, in the world.
    AcGePoint3d place(const host::Subclass& part, int code) const { return point(part, code); }
    virtual host::DimensionKind kind() const = 0;
    // The place under 10; writes the kind into a record that states none yet.
    Acad::ErrorStatus setDefinitionPoint(const AcGePoint3d& p);
};
