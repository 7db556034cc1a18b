#pragma once

#include "host/db/dimension_style.h"
#include "host/geom/point.h"

#include <memory>
#include <vector>

class AcDbBlockTableRecord;
class AcDbEntity;

namespace host {

enum class DimensionEnd { first, second };

// Collects what a dimension looks like: lines, arrowheads and text in the xy plane at one
// elevation, with the style's colours, weights and sizes. A line of no length is left out.
class DimensionPicture {
public:
    // `plain`: for the oldest files, which know neither MTEXT nor line weights.
    DimensionPicture(AcDbDatabase& database, const DimensionStyle& style, double elevation,
                     bool plain);
    ~DimensionPicture();

    void dimensionLine(AcGePoint2d from, AcGePoint2d to);
    void extensionLine(AcGePoint2d from, AcGePoint2d to);
    void dimensionArc(AcGePoint2d centre, double radius, double from, double to);
    // `pointing` is of length 1 and leads along the arrow to its tip.
    void arrow(AcGePoint2d tip, AcGeVector2d pointing, DimensionEnd end);
    void text(AcGePoint2d middle, double angle, const std::wstring& contents);
    void definitionPoint(AcGePoint2d place);

    double arrowSize() const;
    double lineStart(DimensionEnd end) const; // from the tip to where the dimension line begins
    double textHeight() const;
    double textWidthOf(const std::wstring& contents) const;

    // Puts everything into a block.
    void moveTo(AcDbBlockTableRecord& block);

private:
    const std::wstring& arrowName(DimensionEnd end) const;
    void add(std::unique_ptr<AcDbEntity> entity, double color, double weight);
    AcGePoint3d raised(AcGePoint2d p) const { return {p, elevation_}; }

    AcDbDatabase& database_;
    const DimensionStyle& style_;
    double elevation_;
    bool plain_;
    AcDbObjectId textStyle_;
    double textHeight_ = 0.0;
    double widthFactor_ = 1.0;
    std::vector<std::unique_ptr<AcDbEntity>> parts_;
    std::vector<std::unique_ptr<AcDbEntity>> points_;
};

} // namespace host
