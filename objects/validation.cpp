#include "objects/validation.h"

#include "description/field_rules.h"
#include "objects/object_key.h"
#include "objects/value_macros.h"
#include "store/od_comparison.h"
#include "text/text_comparison.h"

#include <algorithm>
#include <array>

namespace {

bool fieldIsLegal(const FieldDef& field, const ObjectDef& object, const OdTable& stored,
                  const OdRecord& record, Fields fields)
{
    if (fields == Fields::required && !field.hasFlag(kRequiredField))
        return true;
    const int position = findField(stored, field.name);
    if (position < 0 || static_cast<std::size_t>(position) >= record.fields.size())
        return false;
    const OdValue& value = record.fields[static_cast<std::size_t>(position)].value;
    if (field.hasFlag(kNotEmptyField) && value.displayText().empty())
        return false;
    return field.kind == FieldKind::defaultOnly || valueAccepted(field, object, value);
}

// What is asked of an entity whose records have been read.
struct Examination {
    StoredTables& tables;
    std::span<const OdRecord> records;
    Values values;
    Fields fields;

    // Some record of the table has the object's key and, if asked for, legal values.
    bool hasRecordOf(const ObjectDef& object, const TableDef& table) const
    {
        const auto carries = [&](const OdRecord& record) { return record.name == table.name; };
        if (std::none_of(records.begin(), records.end(), carries))
            return false;
        const OdTable* const stored = tables.find(table.name);
        if (!stored)
            return false;
        const TableKey key = tableKey(table, object);
        const int keyPosition = findField(*stored, key.field);
        if (keyPosition < 0)
            return false;

        const OdValue keyValue(key.value);
        const auto qualifies = [&](const OdRecord& record) {
            return record.name == stored->name &&
                   static_cast<std::size_t>(keyPosition) < record.fields.size() &&
                   valuesEqual(record.fields[static_cast<std::size_t>(keyPosition)].value,
                               keyValue) &&
                   (values == Values::any ||
                    std::all_of(table.fields.begin(), table.fields.end(),
                                [&](const FieldDef& field) {
                                    return fieldIsLegal(field, object, *stored, record, fields);
                                }));
        };
        return std::any_of(records.begin(), records.end(), qualifies);
    }

    bool isObject(const ObjectDef& object) const
    {
        return std::all_of(object.props.tables.begin(), object.props.tables.end(),
                           [&](const TableDef& table) { return hasRecordOf(object, table); });
    }

    bool isOfClass(const Description& description, const ClassDef& classDef) const
    {
        const auto named = [&](const std::wstring& name) { return has(description, name); };
        const auto below = [&](const ClassDef& child) { return isOfClass(description, child); };
        return std::any_of(classDef.objects.begin(), classDef.objects.end(), named) ||
               std::any_of(classDef.children.begin(), classDef.children.end(), below);
    }

    // The object of that name, else the class.
    bool has(const Description& description, std::wstring_view name) const
    {
        if (const ObjectDef* const object = description.findObject(name))
            return isObject(*object);
        const ClassDef* const classDef = findClass(description.rootClass, name);
        return classDef &&
               Examination{tables, records, Values::any, fields}.isOfClass(description, *classDef);
    }
};

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

bool validateObject(const Description& description, StoredTables& tables, AcDbObjectId entity,
                    std::wstring_view name, Values values, Fields fields)
{
    return validateObject(description, tables, tables.recordsOf(entity), name, values, fields);
}

bool validateObject(const Description& description, StoredTables& tables,
                    std::span<const OdRecord> records, std::wstring_view name, Values values,
                    Fields fields)
{
    return !records.empty() && Examination{tables, records, values, fields}.has(description, name);
}

bool classValid(const Description& description, StoredTables& tables, AcDbObjectId entity,
                const ClassDef& classDef)
{
    const std::vector<OdRecord> records = tables.recordsOf(entity);
    return !records.empty() &&
           Examination{tables, records, Values::any, Fields::all}.isOfClass(description, classDef);
}
