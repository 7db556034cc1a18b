#pragma once

#include "description/table_def.h"

// One key, and every default within its own list or range.
bool isWellFormed(const TableDef& table);

// Tables of one name (without case) must have the same fields in the same order: names without
// case, and types. Tables of different names are always compatible.
bool isCompatible(const TableDef& a, const TableDef& b);

// The same in all but the descriptions of the fields.
bool sameTable(const TableDef& a, const TableDef& b);
