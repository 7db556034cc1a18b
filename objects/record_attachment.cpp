#include "objects/record_attachment.h"

#include "description/stored_table.h"
#include "objects/value_macros.h"
#include "store/od_tables.h"
#include "store/record_writing.h"

bool attachRecord(const TableDef& table, AcDbObjectId entity, const ObjectDef& object,
                  AcDbObjectId storeId)
{
    if (ensureTable(table, storeId) == EnsuredTable::failed)
        return false;

    OdTable stored;
    getTable(storeId, table.name, stored);
    OdRecord record;
    initRecord(stored, record);
    for (const FieldDef& field : table.fields) {
        const int position = findField(stored, field.name);
        if (position >= 0)
            record.fields[static_cast<std::size_t>(position)].value =
                OdValue::fromText(field.type, expandMacros(object, field.defaultValue));
    }
    addRecord(stored, record, entity);
    return true;
}
