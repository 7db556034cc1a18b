#include "classify/removal.h"

#include "objects/object_key.h"
#include "objects/validation.h"
#include "store/od_comparison.h"

namespace {

bool removeFirstRecord(const OdTable& stored, AcDbObjectId entity, const TableKey& key)
{
    const int position = findField(stored, key.field);
    if (position < 0)
        return false;
    const std::size_t at = static_cast<std::size_t>(position);
    const OdValue keyValue(key.value);
    OdRecordIterator rows = newIterator(stored);
    OdRecord record;
    for (rows.open(entity); !rows.isDone(); rows.next()) {
        rows.readRecord(record);
        if (at < record.fields.size() && valuesEqual(record.fields[at].value, keyValue))
            return rows.removeRecord() == AcMap::kOk;
    }
    return false;
}

} // namespace

bool removeObject(const Description& description, StoredTables& tables, AcDbObjectId entity,
                  std::wstring_view name)
{
    const ObjectDef* const object = description.findObject(name);
    if (!object) {
        const ClassDef* const classDef = findClass(description.rootClass, name);
        return classDef && removeClassObjects(description, tables, entity, *classDef);
    }
    if (!validateObject(description, tables, entity, name, Values::any, Fields::all))
        return false;
    for (const TableDef& table : object->props.tables) {
        const OdTable* const stored = tables.find(table.name);
        if (!stored || !removeFirstRecord(*stored, entity, tableKey(table, *object)))
            return false;
    }
    return true;
}

bool removeClassObjects(const Description& description, StoredTables& tables, AcDbObjectId entity,
                        const ClassDef& classDef)
{
    bool removed = false;
    for (const std::wstring& name : classDef.objects)
        removed |= removeObject(description, tables, entity, name);
    return removed;
}
