#pragma once

#include "host/db/angle.h"
#include "host/db/entity.h"
#include "host/db/entity_fields.h"

namespace host {

inline constexpr short kMTextOrder[] = {10, 40, 41, 46, 71, 72, 3,  1,  7, 210,
                                        11, 42, 43, 50, 73, 44, 90, 63, 45};
inline constexpr Subclass kMTextPart{"AcDbMText", kMTextOrder};

} // namespace host

// A text of several lines with format codes. The record splits long contents into chunks (3 ... 3
// 1); of the direction (11) and the angle (50) the later one counts.
class AcDbMText : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbMText)
public:
    // From top left, row by row.
    enum AttachmentPoint {
        kTopLeft = 1,
        kTopCenter,
        kTopRight,
        kMiddleLeft,
        kMiddleCenter,
        kMiddleRight,
        kBottomLeft,
        kBottomCenter,
        kBottomRight
    };

    AcDbMText() = default;

    AcGePoint3d location() const { return point(host::kMTextPart, 10); }
    AcGeVector3d normal() const { return host::normalField(tags(), host::kMTextPart); }
    AcGeVector3d direction() const; // of the writing, in the world
    double rotation() const;        // from the x axis of the normal's plane, -pi to pi
    double textHeight() const { return real(host::kMTextPart, 40, 0.0); }
    double width() const { return real(host::kMTextPart, 41, 0.0); } // 0: lines are not wrapped
    AttachmentPoint attachment() const;
    double lineSpacingFactor() const { return real(host::kMTextPart, 44, 1.0); }
    AcDbObjectId textStyle() const; // null id for a name that the drawing lacks
    std::wstring textStyleName() const { return text(host::kMTextPart, 7, L"STANDARD"); }
    std::wstring contents() const; // with format codes
    std::wstring text() const;     // without, see host::plainText

    Acad::ErrorStatus setLocation(const AcGePoint3d& p);
    Acad::ErrorStatus setRotation(double angle);
    Acad::ErrorStatus setTextHeight(double height); // eInvalidInput unless positive
    Acad::ErrorStatus setWidth(double width);       // eInvalidInput for a negative one
    Acad::ErrorStatus setAttachment(AttachmentPoint attachment);
    Acad::ErrorStatus setTextStyle(AcDbObjectId style); // eInvalidInput for an id that names none
    Acad::ErrorStatus setContents(std::wstring_view contents);

    // Between its columns; 0 for a text without any.
    Acad::ErrorStatus getColumnGutterWidth(double& width) const;
    // One column that grows with the contents, or of a height that is told; eInvalidInput for a
    // negative width.
    Acad::ErrorStatus setDynamicColumns(double width, double gutter, bool autoHeight);

    bool strokes(host::StrokeSink& sink) const override;
    Acad::ErrorStatus explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const override;
    Acad::ErrorStatus transformBy(const AcGeMatrix3d& map) override;
    std::string recordName() const override { return "MTEXT"; }
    std::span<const std::string_view> markers() const override;

private:
    using AcDbObject::text; // the field reader, beside the platform's text()
    void embedColumns(double width, double gutter, bool autoHeight);
    ResbufChain columnData(double width, double gutter, bool autoHeight) const;
    void alignColumns(); // with the text's place, direction and width
};
