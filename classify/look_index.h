#pragma once

#include "description/object_def.h"
#include "objects/entity_properties.h"

#include <memory>
#include <span>
#include <vector>

// Which of many objects an entity looks like, without testing each of them: an entity's value in a
// property leaves the objects that accept it, and since drawings repeat few values in most
// properties, what was found for one value is kept for the next entity that has it.
//
// For entities of one type word and one class, whose properties beside the common ones are given.
// Must not outlive the objects, nor the command: the precision of the drawing counts.
class LookIndex {
public:
    LookIndex(std::vector<const ObjectDef*> objects,
              std::span<const EntityProperty> classProperties);
    ~LookIndex();
    LookIndex(const LookIndex&) = delete;
    LookIndex& operator=(const LookIndex&) = delete;

    // The first of the objects whose properties all accept the entity's; null when there is none.
    // That their types have its word is not tested.
    const ObjectDef* firstLike(const AcDbEntity& entity);

private:
    class PropertyIndex;
    template <class Reading> class ValueIndex;

    void add(std::span<const EntityProperty> properties);

    std::vector<const ObjectDef*> objects_;
    std::vector<std::unique_ptr<PropertyIndex>> properties_; // those that some object states
};
