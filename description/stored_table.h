#pragma once

#include "description/table_def.h"
#include "host/db/object_id.h"

#include <string_view>

enum class EnsuredTable { existed = 0, failed = 1, created = 2 };

// Makes the table in the drawing's store if it has none of that name, with zero defaults.
EnsuredTable ensureTable(const TableDef& table, AcDbObjectId storeId);

// True if the store's table has the same fields in the same order (names without case, and types),
// or if the store has no table of that name.
bool tableMatches(const TableDef& table, AcDbObjectId storeId);

// The position of the first field of that name, without regard to case; -1 if there is none.
int findField(const TableDef& table, std::wstring_view name);
