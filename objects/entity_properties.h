#pragma once

#include "description/graphic_props.h"
#include "host/db/entity.h"
#include "host/text/case_mapping.h"
#include "objects/constraint_test.h"

#include <cstdint>
#include <span>
#include <string>
#include <type_traits>
#include <variant>

// How the entities of a class answer the properties that a description can state. A row is one
// property of one class: where its constraint stands, and how the entity's value is read. Angles
// are read in degrees, scales of block references by the units of their block.
template <class T> struct PropertyReading {
    PropConstraint<T> GraphicProps::*property;
    T (*read)(const AcDbEntity& entity);
    T any;                  // the property's mark for "left open"
    bool foldsCase = false; // tested in lower case, which counts for ranges of texts

    // Not given, or given as "any": nothing to test and nothing to write.
    bool isOpen(const GraphicProps& props) const
    {
        return !(props.*property).isGiven() || (props.*property).value == any;
    }
    T tested(const AcDbEntity& entity) const
    {
        if constexpr (std::is_same_v<T, std::wstring>)
            return foldsCase ? host::lowerCased(read(entity)) : read(entity);
        else
            return read(entity);
    }
    bool accepts(const GraphicProps& props, const AcDbEntity& entity) const
    {
        return isOpen(props) || matches(props.*property, any, tested(entity));
    }
};

struct ColorReading {
    ColorList GraphicProps::*property;
    AcCmColor (*read)(const AcDbEntity& entity);
    NoneColor none = NoneColor::refused;

    bool accepts(const GraphicProps& props, const AcDbEntity& entity) const
    {
        const ColorList& colors = props.*property;
        return colors.empty() || matches(colors, read(entity), none);
    }
};

using EntityProperty = std::variant<PropertyReading<double>, PropertyReading<std::wstring>,
                                    PropertyReading<std::uint8_t>, PropertyReading<std::int32_t>,
                                    PropertyReading<ScaleFactors>, ColorReading>;

// Of every entity, and of the entity's exact class (dimensions: of their kind), each in the order
// of testing. The empty text is read for a style or block that cannot be opened.
std::span<const EntityProperty> commonProperties();
std::span<const EntityProperty> classProperties(const AcDbEntity& entity);
