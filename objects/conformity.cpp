#include "objects/conformity.h"

#include "host/db/object_pointer.h"

#include "objects/entity_properties.h"
#include "objects/entity_type.h"

#include <algorithm>

namespace {

bool hasType(const GraphicProps& props, const AcDbEntity& entity)
{
    const std::wstring word = entityTypeName(entity);
    return std::find(props.types.begin(), props.types.end(), word) != props.types.end();
}

bool allPass(std::span<const EntityProperty> rows, const GraphicProps& props,
             const AcDbEntity& entity)
{
    return std::all_of(rows.begin(), rows.end(), [&](const EntityProperty& property) {
        return std::visit([&](const auto& row) { return row.accepts(props, entity); }, property);
    });
}

bool openConforms(const Description& description, const AcDbEntity& entity, std::wstring_view name);

bool openClassConforms(const Description& description, const AcDbEntity& entity,
                       const ClassDef& classDef)
{
    return std::any_of(
               classDef.objects.begin(), classDef.objects.end(),
               [&](const std::wstring& name) { return openConforms(description, entity, name); }) ||
           std::any_of(classDef.children.begin(), classDef.children.end(),
                       [&](const ClassDef& child) {
                           return openClassConforms(description, entity, child);
                       });
}

bool openConforms(const Description& description, const AcDbEntity& entity, std::wstring_view name)
{
    if (const ObjectDef* const object = description.findObject(name))
        return looksLike(*object, entity);
    const ClassDef* const classDef = findClass(description.rootClass, name);
    return classDef && openClassConforms(description, entity, *classDef);
}

} // namespace

bool conforms(const Description& description, AcDbObjectId entityId, std::wstring_view name)
{
    const AcDbObjectPointer<AcDbEntity> entity(entityId, AcDb::kForRead);
    return entity && openConforms(description, *entity, name);
}

bool classConforms(const Description& description, AcDbObjectId entityId, const ClassDef& classDef)
{
    const AcDbObjectPointer<AcDbEntity> entity(entityId, AcDb::kForRead);
    return entity && openClassConforms(description, *entity, classDef);
}

bool typeAccepted(const ObjectDef& object, const AcDbEntity& entity)
{
    return object.props.isComplete() && hasType(object.props, entity);
}

bool looksLike(const ObjectDef& object, const AcDbEntity& entity)
{
    return hasType(object.props, entity) && allPass(commonProperties(), object.props, entity) &&
           allPass(classProperties(entity), object.props, entity);
}
