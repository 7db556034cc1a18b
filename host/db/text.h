#pragma once

#include "host/db/angle.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace AcDb {

enum TextHorzMode { kTextLeft, kTextCenter, kTextRight, kTextAlign, kTextMid, kTextFit };
enum TextVertMode { kTextBase, kTextBottom, kTextVertMid, kTextTop };

} // namespace AcDb

namespace host {

inline constexpr short kTextOrder[] = {39, 10, 40, 1, 50, 41, 51, 7, 71, 72, 11, 210};
inline constexpr Subclass kTextPart{"AcDbText", kTextOrder};

struct TextBox;

} // namespace host

// One line of text. Its record has the marker AcDbText twice; the vertical mode stands behind the
// second one. Angles in radians, counter-clockwise from the x axis of the normal's plane.
class AcDbText : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbText)
public:
    AcDbText() = default;

    AcGePoint3d position() const // lower left corner, on the baseline
    {
        return host::worldPoint(tags(), host::kTextPart, 10, normal());
    }
    AcGePoint3d alignmentPoint() const
    {
        return host::worldPoint(tags(), host::kTextPart, 11, normal());
    }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kTextPart); }
    double thickness() const { return real(host::kTextPart, 39, 0.0); }
    double height() const { return real(host::kTextPart, 40, 0.0); }
    double rotation() const { return host::toRadians(real(host::kTextPart, 50, 0.0)); }
    double widthFactor() const { return real(host::kTextPart, 41, 1.0); }
    double oblique() const { return host::toRadians(real(host::kTextPart, 51, 0.0)); }
    std::wstring textString() const { return text(host::kTextPart, 1); }
    std::wstring textStringConst() const { return textString(); }
    AcDbObjectId textStyle() const; // null id for a name that the drawing lacks
    std::wstring textStyleName() const { return text(host::kTextPart, 7, L"STANDARD"); }
    AcDb::TextHorzMode horizontalMode() const;
    AcDb::TextVertMode verticalMode() const;
    // left 0, center 1, right 2, aligned 3, middle 4, fit 5, then top, middle and bottom rows, each
    // left, center, right: 6 to 14.
    int justification() const;

    Acad::ErrorStatus setPosition(const AcGePoint3d& place);
    // Moves a text that is not left-justified there.
    Acad::ErrorStatus setAlignmentPoint(const AcGePoint3d& place);
    Acad::ErrorStatus setHeight(double height); // eInvalidInput unless positive
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setWidthFactor(double factor); // eInvalidInput unless positive
    Acad::ErrorStatus setOblique(double angle)
    {
        return setReal(host::kTextPart, 51, host::toDegrees(angle), 0.0);
    }
    Acad::ErrorStatus setTextString(std::wstring_view value)
    {
        return setText(host::kTextPart, 1, value, L"\1"); // empty ones are written too
    }
    Acad::ErrorStatus setTextStyle(AcDbObjectId style); // eInvalidInput for an id that names none
    Acad::ErrorStatus setJustification(int code);       // eInvalidInput outside of 0 to 14
    Acad::ErrorStatus setNormal(const AcGeVector3d& normal);

    // Where its letters are; `font` and `text` of the box are views that the caller fills.
    host::TextBox box() const;

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "TEXT"; }
    std::span<const std::string_view> markers() const override;

protected:
    virtual std::wstring drawnText() const { return textString(); }
    // Where the vertical mode stands.
    virtual int verticalModeCode() const { return 73; }
    virtual Acad::ErrorStatus setVerticalMode(int mode);

private:
    Acad::ErrorStatus placeByAlignment();
};
