#include "store/record_writing.h"

#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"
#include "host/db/xrecord.h"
#include "store/chain_item.h"
#include "store/od_record_iterator.h"

namespace {

Acad::ErrorStatus extensionDictionaryForRows(AcDbObjectId entityId, AcDbObjectId& dictionaryId)
{
    const AcDbObjectPointer<AcDbObject> entity(entityId, AcDb::kForWrite);
    if (!entity)
        return entity.openStatus();
    if (entity->extensionDictionary().isNull())
        entity->createExtensionDictionary();
    dictionaryId = entity->extensionDictionary();
    return Acad::eOk;
}

// The entity's xrecord for a table, open for write, made if there is none.
Acad::ErrorStatus openRows(AcDbObjectId dictionaryId, const std::wstring& tableName,
                           AcDbObjectPointer<AcDbXrecord>& rows)
{
    const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId, AcDb::kForWrite);
    if (!dictionary)
        return dictionary.openStatus();
    AcDbObjectId id;
    if (dictionary->getAt(tableName, id) == Acad::eOk)
        return rows.open(id, AcDb::kForWrite);
    rows.create();
    return dictionary->setAt(tableName, rows.object(), id);
}

} // namespace

AcMap::EErrCode addRecord(const OdTable& table, const OdRecord& record, AcDbObjectId entityId)
{
    OdRecord row = record;
    if (row.fields.empty())
        initRecord(table, row);

    AcDbObjectId dictionaryId;
    if (extensionDictionaryForRows(entityId, dictionaryId) != Acad::eOk)
        return AcMap::kEntityNotOpened;
    AcDbObjectPointer<AcDbXrecord> rows;
    ResbufChain chain;
    if (openRows(dictionaryId, row.name, rows) != Acad::eOk || rows->rbChain(chain) != Acad::eOk)
        return AcMap::kRecordNotOpened;

    for (const OdField& field : row.fields) {
        // The first writing of a real keeps its whole part alone, as drawings in use have it.
        chain.push_back(field.getType() == OdType::real
                            ? itemOfValue(OdValue(static_cast<double>(field.value.asInteger())))
                            : itemOfValue(field.value));
    }
    return rows->setFromRbChain(chain) == Acad::eOk ? AcMap::kOk : AcMap::kRecordNotOpened;
}

std::vector<std::wstring> entityTables(AcDbObjectId storeId, AcDbObjectId entityId)
{
    std::vector<std::wstring> names;
    OdRecordIterator records = newIterator(storeId);
    OdRecord record;
    for (records.open(entityId); !records.isDone(); records.next()) {
        records.readRecord(record);
        names.push_back(record.name);
    }
    return names;
}
