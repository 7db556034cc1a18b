#pragma once

#include "description/prop_constraint.h"
#include "description/table_def.h"

// What an object looks like, which tables it carries, and what it is called. Names are lower-case,
// as the property lines fold them; the text, the object's name and the types keep their case.
// Angles are degrees.
struct GraphicProps {
    PropConstraint<double> angle = openConstraint(kAnyReal);
    PropConstraint<std::wstring> blockName = openConstraint(anyText);
    PropConstraint<std::uint8_t> rotate = openConstraint(kAnyByte);
    PropConstraint<ScaleFactors> blockScale = openConstraint(anyScale);
    PropConstraint<std::wstring> circleMode = openConstraint(anyText);
    PropConstraint<double> circleRadius = openConstraint(kAnyReal);
    PropConstraint<std::uint8_t> closed = openConstraint(kAnyByte);
    PropConstraint<std::wstring> dimensionMode = openConstraint(anyText);
    PropConstraint<std::wstring> dimensionStyle = openConstraint(anyText);
    PropConstraint<std::wstring> ellipseMode = openConstraint(anyText);
    ColorList backgroundColor;
    PropConstraint<std::wstring> hatchMode = openConstraint(anyText);
    PropConstraint<std::wstring> pattern = openConstraint(anyText);
    PropConstraint<double> patternAngle = openConstraint(kAnyReal);
    PropConstraint<double> patternScale = openConstraint(kAnyReal);
    PropConstraint<std::wstring> meshMode = openConstraint(anyText);
    PropConstraint<std::wstring> mleaderStyle = openConstraint(anyText);
    PropConstraint<std::uint8_t> mlineJustification = openConstraint(kAnyByte);
    PropConstraint<double> mlineScale = openConstraint(kAnyReal);
    PropConstraint<std::wstring> mlineStyle = openConstraint(anyText);
    ColorList patternColor;
    PropConstraint<std::int32_t> mtextAttachmentPoint = openConstraint(kAnyCode);
    PropConstraint<double> constantWidth = openConstraint(kAnyReal);
    PropConstraint<double> elevation = openConstraint(kAnyReal);
    PropConstraint<double> textHeight = openConstraint(kAnyReal);
    PropConstraint<std::int32_t> textJustification = openConstraint(kAnyCode);
    PropConstraint<std::wstring> textStyle = openConstraint(anyText);
    PropConstraint<std::wstring> text = openConstraint(anyText);
    ColorList color;
    PropConstraint<std::wstring> layer = openConstraint(anyText);
    PropConstraint<std::wstring> linetype = openConstraint(anyText);
    PropConstraint<double> linetypeScale = openConstraint(kAnyReal);
    PropConstraint<std::int32_t> lineWeight = openConstraint(kAnyLineWeight);
    bool explode = false;

    std::wstring name; // as written
    std::vector<TableDef> tables;
    std::vector<std::wstring> types; // as written, the first is drawn

    // Has a name and a type.
    bool isValid() const;
    // Valid, and the first type is not the unknown one.
    bool isComplete() const;
};
