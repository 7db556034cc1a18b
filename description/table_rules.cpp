#include "description/table_rules.h"

#include "description/field_rules.h"
#include "text/text_comparison.h"

#include <algorithm>
#include <cassert>

namespace {

bool defaultFits(const FieldDef& field)
{
    const OdValue value = OdValue::fromText(field.type, field.defaultValue);
    if (field.kind == FieldKind::list)
        return inList(value, field.values);
    if (field.kind == FieldKind::range) {
        assert(field.values.size() == 2);
        return inRange(value, field.values[0], field.values[1]);
    }
    return true;
}

bool sameField(const FieldDef& a, const FieldDef& b)
{
    return a.kind == b.kind && a.name == b.name && a.flags == b.flags && a.type == b.type &&
           a.defaultValue == b.defaultValue && a.values == b.values;
}

} // namespace

bool isWellFormed(const TableDef& table)
{
    const auto keys =
        std::count_if(table.fields.begin(), table.fields.end(),
                      [](const FieldDef& field) { return field.kind == FieldKind::key; });
    return keys == 1 && std::all_of(table.fields.begin(), table.fields.end(), defaultFits);
}

bool isCompatible(const TableDef& a, const TableDef& b)
{
    if (!textEqualNoCase(a.name, b.name))
        return true;
    return std::equal(a.fields.begin(), a.fields.end(), b.fields.begin(), b.fields.end(),
                      [](const FieldDef& left, const FieldDef& right) {
                          return left.type == right.type && textEqualNoCase(left.name, right.name);
                      });
}

bool sameTable(const TableDef& a, const TableDef& b)
{
    return a.name == b.name && std::equal(a.fields.begin(), a.fields.end(), b.fields.begin(),
                                          b.fields.end(), sameField);
}
