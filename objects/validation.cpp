#include "objects/validation.h"

#include "description/field_rules.h"
#include "objects/object_key.h"
#include "objects/record_walk.h"
#include "objects/value_macros.h"
#include "store/od_comparison.h"
#include "store/od_tables.h"
#include "store/record_writing.h"
#include "text/text_comparison.h"

#include <algorithm>
#include <array>

namespace {

// The value of a field, none for a record that has no such position.
OdValue valueAt(const OdRecord& record, int position)
{
    const auto at = static_cast<std::size_t>(position);
    return position >= 0 && at < record.fields.size() ? record.fields[at].value : OdValue();
}

bool fieldIsLegal(const FieldDef& field, const ObjectDef& object, const OdTable& stored,
                  const OdRecord& record, Fields fields)
{
    if (fields == Fields::required && !field.hasFlag(kRequiredField))
        return true;
    const int position = findField(stored, field.name);
    if (position < 0)
        return false;
    const OdValue value = valueAt(record, position);
    if (field.hasFlag(kNotEmptyField) && value.displayText().empty())
        return false;
    return field.kind == FieldKind::defaultOnly || valueAccepted(field, object, value);
}

// Some record of the table on the entity has the object's key and, if asked for, legal values.
bool hasRecordOf(const ObjectDef& object, const TableDef& table, AcDbObjectId storeId,
                 AcDbObjectId entity, Values values, Fields fields)
{
    OdTable stored;
    if (getTable(storeId, table.name, stored) != AcMap::kOk)
        return false;
    const TableKey key = tableKey(table, object);
    const int keyPosition = findField(stored, key.field);
    if (keyPosition < 0)
        return false;

    const OdValue keyValue{key.value};
    OdRecordIterator iterator = newIterator(stored);
    return anyRecord(iterator, entity, [&](const OdRecord& record) {
        if (!valuesEqual(valueAt(record, keyPosition), keyValue))
            return false;
        return values == Values::any ||
               std::all_of(table.fields.begin(), table.fields.end(), [&](const FieldDef& field) {
                   return fieldIsLegal(field, object, stored, record, fields);
               });
    });
}

} // namespace

bool valueAccepted(const FieldDef& field, const ObjectDef& object, const OdValue& value)
{
    const auto expanded = [&](std::size_t at) { return expandMacros(object, field.values[at]); };
    switch (field.kind) {
    case FieldKind::noDefault:
        return true;
    case FieldKind::key:
        return textEqualNoCase(value.asText(), expandMacros(object, field.defaultValue));
    case FieldKind::list:
        for (std::size_t at = 0; at < field.values.size(); ++at)
            if (inList(value, std::array{expanded(at)}))
                return true;
        return false;
    case FieldKind::range:
        return field.values.size() >= 2 && inRange(value, expanded(0), expanded(1));
    case FieldKind::defaultOnly:
        return inList(value, std::array{expandMacros(object, field.defaultValue)});
    }
    return false;
}

bool validateObject(const Description& description, AcDbObjectId storeId, AcDbObjectId entity,
                    std::wstring_view name, Values values, Fields fields)
{
    const ObjectDef* const object = description.findObject(name);
    if (!object) {
        const ClassDef* const classDef = findClass(description.rootClass, name);
        return classDef && classValid(description, storeId, entity, *classDef);
    }

    const std::vector<std::wstring> carried = entityTables(storeId, entity);
    if (carried.empty())
        return false;
    return std::all_of(
        object->props.tables.begin(), object->props.tables.end(), [&](const TableDef& table) {
            return std::find(carried.begin(), carried.end(), table.name) != carried.end() &&
                   hasRecordOf(*object, table, storeId, entity, values, fields);
        });
}

bool classValid(const Description& description, AcDbObjectId storeId, AcDbObjectId entity,
                const ClassDef& classDef)
{
    return std::any_of(classDef.objects.begin(), classDef.objects.end(),
                       [&](const std::wstring& name) {
                           return validateObject(description, storeId, entity, name, Values::any,
                                                 Fields::all);
                       }) ||
           std::any_of(classDef.children.begin(), classDef.children.end(),
                       [&](const ClassDef& child) {
                           return classValid(description, storeId, entity, child);
                       });
}
