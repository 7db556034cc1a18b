#include "templates/object_from_entity.h"

#include "description/property_table.h"
#include "host/db/block_reference.h"
#include "host/db/mtext.h"
#include "host/db/text.h"
#include "objects/entity_properties.h"
#include "objects/entity_type.h"
#include "store/od_comparison.h"

#include <algorithm>
#include <iterator>

namespace {

using Props = GraphicProps;

// What conformity tests, but entities of one look differ in.
const PropertyMember kLeftOpen[] = {
    &Props::angle, &Props::circleRadius,    &Props::elevation,    &Props::ellipseMode,
    &Props::text,  &Props::backgroundColor, &Props::patternColor,
};

struct RotatedClass {
    AcRxClass* (*desc)();
    double (*rotation)(const AcDbEntity& entity); // radians
};

template <class T> double rotationOf(const AcDbEntity& entity)
{
    return static_cast<const T&>(entity).rotation();
}

constexpr RotatedClass kRotatedClasses[] = {
    {AcDbBlockReference::desc, rotationOf<AcDbBlockReference>},
    {AcDbMText::desc, rotationOf<AcDbMText>},
    {AcDbText::desc, rotationOf<AcDbText>},
};

bool isRotated(const AcDbEntity& entity)
{
    const AcRxClass* const exact = entity.isA();
    for (const RotatedClass& row : kRotatedClasses)
        if (row.desc() == exact)
            return !nearlyEqual(row.rotation(entity), 0.0);
    return false;
}

ColorEntry entryOf(const AcCmColor& color)
{
    if (color.isByColor())
        return {color.red(), color.green(), color.blue()};
    return {color.colorIndex()};
}

template <class T>
void take(GraphicProps& props, const PropertyReading<T>& reading, const AcDbEntity& entity)
{
    props.*reading.property = {kOneValue, reading.read(entity), {}};
}

void take(GraphicProps& props, const ColorReading& reading, const AcDbEntity& entity)
{
    props.*reading.property = {entryOf(reading.read(entity))};
}

void takeAll(GraphicProps& props, std::span<const EntityProperty> properties,
             const AcDbEntity& entity)
{
    for (const EntityProperty& property : properties)
        std::visit(
            [&](const auto& reading) {
                const PropertyMember member = reading.property;
                if (std::find(std::begin(kLeftOpen), std::end(kLeftOpen), member) ==
                    std::end(kLeftOpen))
                    take(props, reading, entity);
            },
            property);
}

} // namespace

void ObjectFromEntity(GraphicProps& props, const AcDbEntity& entity)
{
    props = {};
    takeAll(props, commonProperties(), entity);
    props.types = {entityTypeName(entity)};
    takeAll(props, classProperties(entity), entity);
    if (isRotated(entity))
        props.rotate = {kOneValue, 1, {}};
}
