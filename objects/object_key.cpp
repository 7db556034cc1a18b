#include "objects/object_key.h"

#include "objects/value_macros.h"

TableKey tableKey(const TableDef& table, const ObjectDef& object)
{
    for (const FieldDef& field : table.fields)
        if (field.kind == FieldKind::key)
            return {field.name, expandMacros(object, field.defaultValue)};
    return {};
}
