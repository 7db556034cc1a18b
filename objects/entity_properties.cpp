#include "objects/entity_properties.h"

#include "host/db/block_reference.h"
#include "host/db/circle.h"
#include "host/db/database.h"
#include "host/db/dimension_kinds.h"
#include "host/db/ellipse.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/mtext.h"
#include "host/db/polyline3d.h"
#include "host/db/spline.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/db/text.h"
#include "objects/block_definition.h"
#include "objects/unit_scale.h"
#include "text/number_text.h"

#include <cmath>
#include <numbers>

namespace {

// The class is known from the row that the reader stands in.
template <class T> const T& as(const AcDbEntity& entity)
{
    return static_cast<const T&>(entity);
}

double degrees(double radians)
{
    return radians * 180.0 / std::numbers::pi;
}

std::uint8_t asByte(bool on)
{
    return on ? 1 : 0;
}

// The name of a style's record or object; empty if it cannot be opened.
template <class Style> std::wstring nameOf(AcDbObjectId id)
{
    const AcDbObjectPointer<Style> style(id, AcDb::kForRead);
    return style ? style->name() : std::wstring();
}

struct DimensionWord {
    AcRxClass* (*desc)();
    std::wstring_view word;
};

constexpr DimensionWord kDimensionWords[] = {
    {AcDbAlignedDimension::desc, L"Aligned"},       {AcDb2LineAngularDimension::desc, L"Angular"},
    {AcDb3PointAngularDimension::desc, L"Angular"}, {AcDbArcDimension::desc, L"Arc"},
    {AcDbDiametricDimension::desc, L"Diameter"},    {AcDbRadialDimensionLarge::desc, L"Jogged"},
    {AcDbRotatedDimension::desc, L"Linear"},        {AcDbOrdinateDimension::desc, L"Ordinate"},
    {AcDbRadialDimension::desc, L"Radius"},
};

std::wstring dimensionMode(const AcDbEntity& entity)
{
    for (const DimensionWord& row : kDimensionWords)
        if (row.desc() == entity.isA())
            return std::wstring(row.word);
    return {};
}

// Pi rounded up by few digits would make even a full turn too short: a full turn is told by itself.
std::wstring ellipseMode(const AcDbEntity& entity)
{
    constexpr double kTurnError = 1e-6; // of files that keep angles with six decimals
    const auto& ellipse = as<AcDbEllipse>(entity);
    const double turn = std::abs(ellipse.endAngle() - ellipse.startAngle());
    const double roundedTurn =
        2.0 *
        roundTo(3.1415926535897234, acdbHostApplicationServices()->workingDatabase()->luprec());
    const bool full = std::abs(turn - 2.0 * std::numbers::pi) < kTurnError || turn >= roundedTurn;
    return full ? L"circle" : L"arc";
}

ScaleFactors blockScale(const AcDbEntity& entity)
{
    const auto& reference = as<AcDbBlockReference>(entity);
    const AcGeScale3d factors = reference.scaleFactors();
    const double unit = UnitScaleFactor(reference);
    return {factors.sx / unit, factors.sy / unit, factors.sz / unit};
}

// A width that changes along the polyline is no width: it stays at the mark that fits nothing.
double constantWidth(const AcDbEntity& entity)
{
    double width = kAnyReal;
    as<AcDbPolyline>(entity).getConstantWidth(width);
    return width;
}

using Props = GraphicProps;
using Entity = AcDbEntity;

// Rows by type of value, each with the mark that leaves it open.
EntityProperty number(PropConstraint<double> Props::*property, double (*read)(const Entity&))
{
    return PropertyReading<double>{property, read, kAnyReal};
}
EntityProperty word(PropConstraint<std::wstring> Props::*property,
                    std::wstring (*read)(const Entity&))
{
    return PropertyReading<std::wstring>{property, read, anyText};
}
// Tested in lower case.
EntityProperty name(PropConstraint<std::wstring> Props::*property,
                    std::wstring (*read)(const Entity&))
{
    return PropertyReading<std::wstring>{property, read, anyText, true};
}
EntityProperty byte(PropConstraint<std::uint8_t> Props::*property,
                    std::uint8_t (*read)(const Entity&))
{
    return PropertyReading<std::uint8_t>{property, read, kAnyByte};
}
EntityProperty code(PropConstraint<std::int32_t> Props::*property,
                    std::int32_t (*read)(const Entity&), std::int32_t any = kAnyCode)
{
    return PropertyReading<std::int32_t>{property, read, any};
}
EntityProperty color(ColorList Props::*property, AcCmColor (*read)(const Entity&),
                     NoneColor none = NoneColor::refused)
{
    return ColorReading{property, read, none};
}

template <class T> double rotation(const Entity& entity)
{
    return degrees(as<T>(entity).rotation());
}
template <class T> std::uint8_t isClosed(const Entity& entity)
{
    return asByte(as<T>(entity).isClosed());
}
template <class T> std::wstring textStyle(const Entity& entity)
{
    return nameOf<AcDbTextStyleTableRecord>(as<T>(entity).textStyle());
}
template <class T> std::wstring pattern(const Entity& entity)
{
    return as<T>(entity).patternName();
}
template <class T> double patternAngle(const Entity& entity)
{
    return degrees(as<T>(entity).patternAngle());
}
template <class T> double patternScale(const Entity& entity)
{
    return as<T>(entity).patternScale();
}

struct ClassRow {
    AcRxClass* (*desc)();
    std::vector<EntityProperty> properties;
};

const std::vector<ClassRow>& classRows()
{
    static const std::vector<ClassRow> rows = {
        {AcDb3dPolyline::desc, {byte(&Props::closed, isClosed<AcDb3dPolyline>)}},
        {AcDbBlockReference::desc,
         {number(&Props::angle, rotation<AcDbBlockReference>),
          name(&Props::blockName,
               [](const Entity& e) { return blockDefinitionName(as<AcDbBlockReference>(e)); }),
          PropertyReading<ScaleFactors>{&Props::blockScale, blockScale, anyScale}}},
        {AcDbCircle::desc,
         {number(&Props::circleRadius,
                 [](const Entity& e) { return as<AcDbCircle>(e).radius(); })}},
        {AcDbEllipse::desc, {word(&Props::ellipseMode, ellipseMode)}},
        {AcDbHatch::desc,
         {word(&Props::pattern, pattern<AcDbHatch>),
          color(
              &Props::backgroundColor,
              [](const Entity& e) { return as<AcDbHatch>(e).backgroundColor(); },
              NoneColor::accepted),
          number(&Props::patternAngle, patternAngle<AcDbHatch>),
          number(&Props::patternScale, patternScale<AcDbHatch>)}},
        {AcDbMLeader::desc,
         {name(&Props::mleaderStyle,
               [](const Entity& e) {
                   return nameOf<AcDbMLeaderStyle>(as<AcDbMLeader>(e).MLeaderStyle());
               })}},
        {AcDbMline::desc,
         {byte(&Props::closed,
               [](const Entity& e) { return asByte(as<AcDbMline>(e).closedMline()); }),
          byte(&Props::mlineJustification,
               [](const Entity& e) {
                   return static_cast<std::uint8_t>(as<AcDbMline>(e).justification());
               }),
          number(&Props::mlineScale, [](const Entity& e) { return as<AcDbMline>(e).scale(); }),
          name(&Props::mlineStyle,
               [](const Entity& e) { return nameOf<AcDbMlineStyle>(as<AcDbMline>(e).style()); })}},
        {AcDbMPolygon::desc,
         {word(&Props::pattern, pattern<AcDbMPolygon>),
          number(&Props::patternAngle, patternAngle<AcDbMPolygon>),
          color(&Props::patternColor,
                [](const Entity& e) { return as<AcDbMPolygon>(e).patternColor(); }),
          number(&Props::patternScale, patternScale<AcDbMPolygon>)}},
        {AcDbMText::desc,
         {number(&Props::angle, rotation<AcDbMText>),
          code(&Props::mtextAttachmentPoint,
               [](const Entity& e) {
                   return static_cast<std::int32_t>(as<AcDbMText>(e).attachment());
               }),
          number(&Props::textHeight, [](const Entity& e) { return as<AcDbMText>(e).textHeight(); }),
          name(&Props::textStyle, textStyle<AcDbMText>),
          word(&Props::text, [](const Entity& e) { return as<AcDbMText>(e).text(); })}},
        {AcDbPolyline::desc,
         {byte(&Props::closed, isClosed<AcDbPolyline>),
          number(&Props::constantWidth, constantWidth),
          number(&Props::elevation,
                 [](const Entity& e) { return as<AcDbPolyline>(e).elevation(); })}},
        {AcDbSpline::desc, {byte(&Props::closed, isClosed<AcDbSpline>)}},
        {AcDbText::desc,
         {number(&Props::angle, rotation<AcDbText>),
          number(&Props::textHeight, [](const Entity& e) { return as<AcDbText>(e).height(); }),
          code(&Props::textJustification,
               [](const Entity& e) {
                   return static_cast<std::int32_t>(as<AcDbText>(e).justification());
               }),
          name(&Props::textStyle, textStyle<AcDbText>),
          word(&Props::text, [](const Entity& e) { return as<AcDbText>(e).textStringConst(); })}},
    };
    return rows;
}

const std::vector<EntityProperty>& dimensionProperties()
{
    static const std::vector<EntityProperty> rows = {
        name(&Props::dimensionMode, dimensionMode),
        word(&Props::dimensionStyle,
             [](const Entity& e) {
                 return nameOf<AcDbDimStyleTableRecord>(as<AcDbDimension>(e).dimensionStyle());
             }),
    };
    return rows;
}

} // namespace

std::span<const EntityProperty> commonProperties()
{
    static const std::vector<EntityProperty> rows = {
        color(&Props::color, [](const Entity& e) { return e.color(); }),
        word(&Props::layer, [](const Entity& e) { return e.layer(); }),
        word(&Props::linetype, [](const Entity& e) { return e.linetype(); }),
        number(&Props::linetypeScale, [](const Entity& e) { return e.linetypeScale(); }),
        code(
            &Props::lineWeight, [](const Entity& e) { return std::int32_t{e.lineWeight()}; },
            kAnyLineWeight),
    };
    return rows;
}

std::span<const EntityProperty> classProperties(const AcDbEntity& entity)
{
    const AcRxClass* const exact = entity.isA();
    for (const ClassRow& row : classRows())
        if (row.desc() == exact)
            return row.properties;
    if (entity.isKindOf(AcDbDimension::desc()))
        return dimensionProperties();
    return {};
}
