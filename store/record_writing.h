#pragma once

#include "store/od_table.h"

// Appends a row to the entity's rows of the record's table, and makes the extension dictionary if
// there is none. A record without fields becomes the table's defaults. A real loses its fraction
// here; only OdRecordIterator::updateRecord keeps it. kEntityNotOpened; kRecordNotOpened when the
// host refuses the dictionary or the xrecord.
AcMap::EErrCode addRecord(const OdTable& table, const OdRecord& record, AcDbObjectId entity);

// The name of the table of each of the entity's records, in the order of the walk: as often as the
// table has rows there.
std::vector<std::wstring> entityTables(AcDbObjectId storeId, AcDbObjectId entity);
