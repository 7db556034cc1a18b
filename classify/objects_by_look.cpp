#include "classify/objects_by_look.h"

#include "objects/entity_type.h"

#include <algorithm>
#include <iterator>
#include <limits>

ObjectsByLook::ObjectsByLook(const Description& description, Undrawable undrawable)
{
    for (const auto& [name, object] : description.objects)
        if ((object.drawable || undrawable == Undrawable::takesPart) &&
            object.priority > std::numeric_limits<std::int32_t>::min())
            ranked_.push_back(&object);
    std::ranges::stable_sort(ranked_, std::ranges::greater{}, &ObjectDef::priority);
}

std::vector<const ObjectDef*> ObjectsByLook::ofType(const std::wstring& word) const
{
    std::vector<const ObjectDef*> objects;
    std::ranges::copy_if(ranked_, std::back_inserter(objects), [&](const ObjectDef* object) {
        return std::ranges::find(object->props.types, word) != object->props.types.end();
    });
    return objects;
}

const ObjectDef* ObjectsByLook::bestFor(const AcDbEntity& entity)
{
    const std::span<const EntityProperty> properties = classProperties(entity);
    Kind kind(entityTypeName(entity), properties.data());
    auto found = byKind_.find(kind);
    if (found == byKind_.end()) {
        std::vector<const ObjectDef*> objects = ofType(kind.first);
        found = byKind_.try_emplace(std::move(kind), std::move(objects), properties).first;
    }
    return found->second.firstLike(entity);
}
