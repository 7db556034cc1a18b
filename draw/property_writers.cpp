#include "draw/property_writers.h"

#include "draw/close_spline.h"
#include "draw/named_styles.h"
#include "host/db/angle.h"
#include "host/db/block_reference.h"
#include "host/db/circle.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/mtext.h"
#include "host/db/object_pointer.h"
#include "host/db/polyline3d.h"
#include "host/db/sequence.h"
#include "host/db/text.h"
#include "objects/entity_properties.h"

namespace {

using Props = GraphicProps;

// How the entity answers a property; null for a class that has no such property.
template <class Row, class Property>
const Row* readingOf(const AcDbEntity& entity, Property Props::*property)
{
    for (const std::span<const EntityProperty> rows : {classProperties(entity), commonProperties()})
        for (const EntityProperty& each : rows)
            if (const Row* const row = std::get_if<Row>(&each); row && row->property == property)
                return row;
    return nullptr;
}

// The class is known from the row of the table below.
template <class T> T& as(AcDbEntity& entity)
{
    return static_cast<T&>(entity);
}

template <class T, class Write>
void assign(const WantedLook& look, AcDbEntity& entity, PropConstraint<T> Props::*property,
            Write write)
{
    if (callsForWrite(look, entity, property))
        write((look.props.*property).value);
}

// Nothing for an entry with another number of components.
std::optional<AcCmColor> colorOf(const ColorEntry& entry, NoneColor none = NoneColor::refused)
{
    AcCmColor color;
    if (entry.size() == 3)
        color.setRGB(static_cast<std::uint8_t>(entry[0]), static_cast<std::uint8_t>(entry[1]),
                     static_cast<std::uint8_t>(entry[2]));
    else if (entry.size() != 1 || (entry[0] < 0 && none == NoneColor::refused))
        return std::nullopt;
    else if (entry[0] == -1)
        color.setNone();
    else
        color.setColorIndex(static_cast<std::uint16_t>(entry[0]));
    return color;
}

template <class Write>
void assignColor(const WantedLook& look, AcDbEntity& entity, ColorList Props::*property,
                 Write write, NoneColor none = NoneColor::refused)
{
    if (!callsForWrite(look, entity, property))
        return;
    if (const std::optional<AcCmColor> color = colorOf((look.props.*property).front(), none))
        write(*color);
}

void assign3dPolyline(const WantedLook& look, AcDbEntity& entity)
{
    assign(look, entity, &Props::closed,
           [&](std::uint8_t closed) { as<AcDb3dPolyline>(entity).setClosed(closed != 0); });
}

void assignCircle(const WantedLook& look, AcDbEntity& entity)
{
    assign(look, entity, &Props::circleRadius,
           [&](double radius) { as<AcDbCircle>(entity).setRadius(radius); });
}

void assignDimension(const WantedLook& look, AcDbEntity& entity)
{
    assign(look, entity, &Props::dimensionStyle, [&](const std::wstring& name) {
        auto& dimension = as<AcDbDimension>(entity);
        dimension.setDimensionStyle(dimensionStyleNamed(*entity.database(), name));
    });
}

void assignHatch(const WantedLook& look, AcDbEntity& entity)
{
    auto& hatch = as<AcDbHatch>(entity);
    assign(look, entity, &Props::pattern,
           [&](const std::wstring& name) { setPattern(hatch, name); });
    assignBackgroundColor(look, hatch);
    assign(look, entity, &Props::patternAngle,
           [&](double angle) { hatch.setPatternAngle(host::toRadians(angle)); });
    assign(look, entity, &Props::patternScale, [&](double scale) { hatch.setPatternScale(scale); });
    // the lines follow a new angle and scale only when the pattern is set again
    setPattern(hatch, hatch.patternName());
}

void assignMLeader(const WantedLook& look, AcDbEntity& entity)
{
    assign(look, entity, &Props::mleaderStyle, [&](const std::wstring& name) {
        const AcDbObjectId style = dictionaryEntry(*entity.database(), L"ACAD_MLEADERSTYLE", name);
        if (!style.isNull())
            as<AcDbMLeader>(entity).setMLeaderStyle(style);
    });
}

void assignMline(const WantedLook& look, AcDbEntity& entity)
{
    auto& mline = as<AcDbMline>(entity);
    assign(look, entity, &Props::closed,
           [&](std::uint8_t closed) { mline.setClosedMline(closed != 0); });
    assign(look, entity, &Props::mlineJustification,
           [&](std::uint8_t code) { mline.setJustification(code); });
    assign(look, entity, &Props::mlineScale, [&](double scale) { mline.setScale(scale); });
}

void assignMPolygon(const WantedLook& look, AcDbEntity& entity)
{
    auto& polygon = as<AcDbMPolygon>(entity);
    assign(look, entity, &Props::patternAngle,
           [&](double angle) { polygon.setPatternAngle(host::toRadians(angle)); });
    assignColor(look, entity, &Props::patternColor,
                [&](const AcCmColor& color) { polygon.setPatternColor(color); });
    assign(look, entity, &Props::patternScale,
           [&](double scale) { polygon.setPatternScale(scale); });
    assign(look, entity, &Props::pattern,
           [&](const std::wstring& name) { setPattern(polygon, name); });
}

// Of texts the style alone is left alone by force.
template <class T> void assignTextStyle(const WantedLook& look, AcDbEntity& entity)
{
    if (look.force)
        return;
    assign(look, entity, &Props::textStyle,
           [&](const std::wstring& name) { setTextStyleNamed(as<T>(entity), name); });
}

void assignMText(const WantedLook& look, AcDbEntity& entity)
{
    auto& text = as<AcDbMText>(entity);
    assign(look, entity, &Props::mtextAttachmentPoint, [&](std::int32_t point) {
        text.setAttachment(static_cast<AcDbMText::AttachmentPoint>(point));
    });
    assign(look, entity, &Props::textHeight, [&](double height) { text.setTextHeight(height); });
    assignTextStyle<AcDbMText>(look, entity);
}

void assignPolyline(const WantedLook& look, AcDbEntity& entity)
{
    auto& polyline = as<AcDbPolyline>(entity);
    assign(look, entity, &Props::closed,
           [&](std::uint8_t closed) { polyline.setClosed(closed != 0); });
    assign(look, entity, &Props::constantWidth,
           [&](double width) { polyline.setConstantWidth(width); });
    // The elevation alone is tested the other way round: without force an accepted one becomes the
    // one to draw with, and one that is not accepted stays.
    const PropConstraint<double>& elevation = look.props.elevation;
    const bool given = callsForWrite({look.props, true}, entity, &Props::elevation);
    if (given && (look.force || !callsForWrite(look, entity, &Props::elevation)))
        polyline.setElevation(elevation.value);
}

void assignSpline(const WantedLook& look, AcDbEntity& entity)
{
    assign(look, entity, &Props::closed, [&](std::uint8_t closed) {
        if (closed != 0) // none is ever opened
            CloseSpline(as<AcDbSpline>(entity));
    });
}

// Keeps the text where it is seen.
void justify(AcDbText& text, std::int32_t code)
{
    text.setJustification(0);
    const AcGePoint3d place = text.position();
    text.setJustification(code);
    alignAt(text, place);
}

void assignText(const WantedLook& look, AcDbEntity& entity)
{
    auto& text = as<AcDbText>(entity);
    assign(look, entity, &Props::textHeight, [&](double height) { text.setHeight(height); });
    assign(look, entity, &Props::textJustification,
           [&](std::int32_t code) { justify(text, code); });
    assignTextStyle<AcDbText>(look, entity);
}

// Writes to the vertices of a polyline or a mesh, too. The attributes of a reference have a look of
// their own.
template <class Write> void writeWithParts(AcDbEntity& entity, Write write)
{
    write(entity);
    if (entity.isKindOf(AcDbBlockReference::desc()))
        return;
    for (const AcDbObjectId id : host::childrenOf(entity))
        if (const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForWrite); part)
            write(*part);
}

struct ClassStep {
    AcRxClass* (*desc)();
    void (*assign)(const WantedLook& look, AcDbEntity& entity);
};

// By exact class; a class without a row has nothing to set.
constexpr ClassStep kClassSteps[] = {
    {AcDb3dPolyline::desc, assign3dPolyline}, {AcDbCircle::desc, assignCircle},
    {AcDbHatch::desc, assignHatch},           {AcDbMLeader::desc, assignMLeader},
    {AcDbMline::desc, assignMline},           {AcDbMPolygon::desc, assignMPolygon},
    {AcDbMText::desc, assignMText},           {AcDbPolyline::desc, assignPolyline},
    {AcDbSpline::desc, assignSpline},         {AcDbText::desc, assignText},
};

} // namespace

template <class T>
bool callsForWrite(const WantedLook& look, const AcDbEntity& entity,
                   PropConstraint<T> Props::*property)
{
    const auto* const row = readingOf<PropertyReading<T>>(entity, property);
    return row && !row->isOpen(look.props) && (look.force || !row->accepts(look.props, entity));
}

template bool callsForWrite(const WantedLook&, const AcDbEntity&, PropConstraint<double> Props::*);
template bool callsForWrite(const WantedLook&, const AcDbEntity&,
                            PropConstraint<std::wstring> Props::*);
template bool callsForWrite(const WantedLook&, const AcDbEntity&,
                            PropConstraint<std::uint8_t> Props::*);
template bool callsForWrite(const WantedLook&, const AcDbEntity&,
                            PropConstraint<std::int32_t> Props::*);
template bool callsForWrite(const WantedLook&, const AcDbEntity&,
                            PropConstraint<ScaleFactors> Props::*);

bool callsForWrite(const WantedLook& look, const AcDbEntity& entity, ColorList Props::*property)
{
    const ColorList& colors = look.props.*property;
    const auto* const row = readingOf<ColorReading>(entity, property);
    const bool given = row && !colors.empty() && !colors.front().empty();
    return given && (look.force || !row->accepts(look.props, entity));
}

void setPattern(AcDbHatch& hatch, const std::wstring& name)
{
    if (hatch.setPattern(AcDbHatch::kPreDefined, name.c_str()) != Acad::eOk)
        hatch.setPattern(AcDbHatch::kCustomDefined, name.c_str());
}

void assignBackgroundColor(const WantedLook& look, AcDbHatch& hatch)
{
    assignColor(
        look, hatch, &Props::backgroundColor,
        [&](const AcCmColor& color) { hatch.setBackgroundColor(color); }, NoneColor::accepted);
}

void alignAt(AcDbText& text, const AcGePoint3d& place)
{
    const AcDb::TextHorzMode across = text.horizontalMode();
    const bool byPosition =
        across == AcDb::kTextLeft || across == AcDb::kTextAlign || across == AcDb::kTextFit;
    if (!byPosition || text.verticalMode() != AcDb::kTextBase)
        text.setAlignmentPoint(place);
}

void assignClassProperties(const WantedLook& look, AcDbEntity& entity)
{
    const AcRxClass* const exact = entity.isA();
    for (const ClassStep& step : kClassSteps)
        if (step.desc() == exact)
            return step.assign(look, entity);
    if (entity.isKindOf(AcDbDimension::desc()))
        assignDimension(look, entity);
}

void assignCommonProperties(const WantedLook& look, AcDbEntity& entity)
{
    assignColor(look, entity, &Props::color, [&](const AcCmColor& color) {
        writeWithParts(entity, [&](AcDbEntity& part) { part.setColor(color); });
    });
    assign(look, entity, &Props::layer, [&](const std::wstring& name) {
        writeWithParts(entity, [&](AcDbEntity& part) { part.setLayer(name); });
    });
    assign(look, entity, &Props::linetype, [&](const std::wstring& name) {
        writeWithParts(entity, [&](AcDbEntity& part) { part.setLinetype(name); });
    });
    assign(look, entity, &Props::linetypeScale, [&](double scale) {
        writeWithParts(entity, [&](AcDbEntity& part) { part.setLinetypeScale(scale); });
    });
    assign(look, entity, &Props::lineWeight, [&](std::int32_t weight) {
        writeWithParts(entity, [&](AcDbEntity& part) { part.setLineWeight(weight); });
    });
}
