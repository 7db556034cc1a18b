#include "description/stored_table.h"

#include "store/od_tables.h"
#include "text/text_comparison.h"

#include <algorithm>

EnsuredTable ensureTable(const TableDef& table, AcDbObjectId storeId)
{
    if (hasTable(storeId, table.name))
        return EnsuredTable::existed;
    std::vector<OdField> fields;
    for (const FieldDef& field : table.fields) {
        if (findField(fields, field.name) < 0)
            fields.emplace_back(field.name, field.type);
    }
    return createTable(storeId, table.name, fields) == AcMap::kOk ? EnsuredTable::created
                                                                  : EnsuredTable::failed;
}

bool tableMatches(const TableDef& table, AcDbObjectId storeId)
{
    if (!hasTable(storeId, table.name))
        return true;
    OdTable stored;
    getTable(storeId, table.name, stored);
    return std::equal(stored.fields.begin(), stored.fields.end(), table.fields.begin(),
                      table.fields.end(), [](const OdField& left, const FieldDef& right) {
                          return left.getType() == right.type &&
                                 textEqualNoCase(left.getName(), right.name);
                      });
}

int findField(const TableDef& table, std::wstring_view name)
{
    for (std::size_t i = 0; i < table.fields.size(); ++i) {
        if (textEqualNoCase(table.fields[i].name, name))
            return static_cast<int>(i);
    }
    return -1;
}
