#include "store/od_tables.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/xrecord.h"
#include "store/chain_item.h"
#include "store/od_store.h"

bool hasTable(AcDbObjectId storeId, std::wstring_view name)
{
    const AcDbObjectPointer<AcDbDictionary> store(storeId, AcDb::kForRead);
    return store && store->has(name);
}

AcMap::EErrCode getTable(AcDbObjectId storeId, std::wstring_view name, OdTable& table)
{
    const AcDbObjectPointer<AcDbDictionary> store(storeId, AcDb::kForRead);
    if (!store || store->getAt(name, table.id) != Acad::eOk)
        return AcMap::kNotFound;
    const AcDbObjectPointer<AcDbXrecord> definition(table.id, AcDb::kForRead);
    ResbufChain chain;
    if (!definition || store->nameAt(table.id, table.name) != Acad::eOk ||
        definition->rbChain(chain) != Acad::eOk)
        return AcMap::kNotFound;

    table.fields.clear();
    for (std::size_t i = 0; i + 1 < chain.size(); i += 2) {
        const std::wstring& field = chain[i].resval.rstring;
        if (typeOfGroup(chain[i + 1].restype) == OdType::none || findField(table, field) >= 0)
            continue;
        table.fields.emplace_back(field).value.become(valueOfItem(chain[i + 1]));
    }
    return AcMap::kOk;
}

AcMap::EErrCode createTable(AcDbObjectId storeId, std::wstring_view name,
                            std::span<const OdField> fields)
{
    AcDbObjectPointer<AcDbDictionary> store(storeId, AcDb::kForWrite);
    if (!store)
        return AcMap::kNotFound;
    if (store->has(name))
        return AcMap::kTableExists;

    AcDbObjectPointer<AcDbXrecord> definition;
    definition.create();
    AcDbObjectId id;
    if (store->setAt(name, definition.object(), id) != Acad::eOk)
        return AcMap::kNotFound;
    store.close();

    ResbufChain chain;
    chain.reserve(2 * fields.size());
    for (const OdField& field : fields) {
        chain.push_back(itemOfValue(OdValue(field.getName())));
        chain.push_back(itemOfValue(field.value));
    }
    return definition->setFromRbChain(chain) == Acad::eOk ? AcMap::kOk : AcMap::kNotFound;
}

AcMap::EErrCode listTables(AcDbDatabase& database, std::vector<std::wstring>& names, int mode)
{
    const AcDbObjectPointer<AcDbDictionary> store(existingStoreId(database), AcDb::kForRead);
    if (mode != kAllTables || !store)
        return AcMap::kOk;
    for (const auto entry = store->newIterator(); !entry->done(); entry->next())
        names.push_back(entry->name());
    return AcMap::kOk;
}
