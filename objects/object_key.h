#pragma once

#include "description/object_def.h"

#include <string>

// The field that tells of a record which object it stands for, and what it holds for one object.
struct TableKey {
    std::wstring field; // both empty for a table without a key
    std::wstring value; // macros expanded
};

TableKey tableKey(const TableDef& table, const ObjectDef& object);
