#include "objects/stored_tables.h"

#include "description/stored_table.h"
#include "store/od_tables.h"

const OdTable* StoredTables::find(std::wstring_view name)
{
    if (const auto known = tables_.find(name); known != tables_.end())
        return &known->second;
    OdTable table;
    if (getTable(storeId_, name, table) != AcMap::kOk)
        return nullptr;
    return &tables_.emplace(name, std::move(table)).first->second;
}

bool StoredTables::matches(const TableDef& table)
{
    if (const auto known = matches_.find(&table); known != matches_.end())
        return known->second;
    if (!find(table.name))
        return true;
    return matches_[&table] = tableMatches(table, storeId_);
}

std::vector<OdRecord> StoredTables::recordsOf(AcDbObjectId entity)
{
    std::vector<OdRecord> records;
    for (rows_.open(entity); !rows_.isDone(); rows_.next()) {
        OdRecord record;
        rows_.readRecord(record);
        records.push_back(std::move(record));
    }
    return records;
}
