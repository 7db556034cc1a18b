#pragma once

#include "store/od_table.h"

// The tables in a drawing's store. A table is one xrecord: for each field its name (group 1) and
// its default, whose group code alone tells the type: 90 integer, 40 real, 1 character, 10 point.

// An entry of that name, by the dictionary's own comparison of keys.
bool hasTable(AcDbObjectId storeId, std::wstring_view name);

// kNotFound if there is none. A repeated field name counts once, the first; pairs of other codes
// are passed over, and so is an item without its pair.
AcMap::EErrCode getTable(AcDbObjectId storeId, std::wstring_view name, OdTable& table);

// kTableExists if there is one, which then stays as it is.
AcMap::EErrCode createTable(AcDbObjectId storeId, std::wstring_view name,
                            std::span<const OdField> fields);

// Appends the names of all entries, in the dictionary's order, if `mode` is kAllTables. A drawing
// without a store gives none and gets none.
inline constexpr int kAllTables = 7;
AcMap::EErrCode listTables(AcDbDatabase& database, std::vector<std::wstring>& names, int mode);
