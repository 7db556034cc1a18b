#pragma once

#include "host/db/object_id.h"
#include "store/od_field.h"

#include <span>
#include <string>
#include <string_view>
#include <vector>

// A table as the drawing holds it: fields with their defaults, in order.
struct OdTable {
    std::wstring name; // as first written
    AcDbObjectId id;   // of the xrecord that holds it
    std::vector<OdField> fields;
};

// One row of a table, with the fields' names as the table has them.
struct OdRecord {
    std::wstring name; // the table's
    std::vector<OdField> fields;
};

// The position of the first field of that name, without regard to case; -1 if there is none.
int findField(std::span<const OdField> fields, std::wstring_view name);
inline int findField(const OdTable& table, std::wstring_view name)
{
    return findField(table.fields, name);
}
inline int findField(const OdRecord& record, std::wstring_view name)
{
    return findField(record.fields, name);
}

// A copy of a field; kNotFound behind the last one.
AcMap::EErrCode getField(const OdTable& table, std::size_t index, OdField& field);

// Gives a record the table's name and its fields with their defaults.
void initRecord(const OdTable& table, OdRecord& record);
