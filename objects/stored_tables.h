#pragma once

#include "description/table_def.h"
#include "store/od_record_iterator.h"

#include <map>
#include <string>
#include <unordered_map>

// The tables of a drawing's store as one command sees them: each is read once, since a table never
// changes once it is written. Must not outlive the command, nor the definitions it was asked about.
class StoredTables {
public:
    explicit StoredTables(AcDbObjectId storeId) : storeId_(storeId), rows_(newIterator(storeId)) {}

    AcDbObjectId storeId() const { return storeId_; }

    // Null if the store has no such table.
    const OdTable* find(std::wstring_view name);

    // The stored table has the definition's fields, or there is none of that name.
    bool matches(const TableDef& table);

    // All records of an entity, in the order of the walk; those that cannot be read have no fields.
    std::vector<OdRecord> recordsOf(AcDbObjectId entity);

private:
    AcDbObjectId storeId_;
    OdRecordIterator rows_;
    std::map<std::wstring, OdTable, std::less<>> tables_;
    std::unordered_map<const TableDef*, bool> matches_;
};
