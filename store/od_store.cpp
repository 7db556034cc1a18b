#include "store/od_store.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/edit/document.h"
#include "text/text_comparison.h"

namespace {

// Locks the current document, if there is one, as long as it lives.
class ExclusiveWrite {
public:
    ExclusiveWrite() : document_(acDocManagerPtr()->curDocument())
    {
        if (document_)
            acDocManagerPtr()->lockDocument(document_, AcAp::kXWrite);
    }
    ~ExclusiveWrite()
    {
        if (document_)
            acDocManagerPtr()->unlockDocument(document_);
    }
    ExclusiveWrite(const ExclusiveWrite&) = delete;
    ExclusiveWrite& operator=(const ExclusiveWrite&) = delete;

private:
    AcApDocument* document_;
};

AcDbObjectId makeStore(AcDbDictionary& namedObjects)
{
    const ExclusiveWrite lock;
    AcDbObjectId id;
    if (namedObjects.upgradeOpen() != Acad::eOk)
        return id;
    AcDbObjectPointer<AcDbDictionary> store;
    store.create();
    if (namedObjects.setAt(kStoreName, store.object(), id) != Acad::eOk)
        id.setNull();
    namedObjects.downgradeOpen();
    return id;
}

} // namespace

AcDbDatabase* OdStore::currentDatabase()
{
    return acdbHostApplicationServices()->workingDatabase();
}

AcDbObjectId OdStore::getStoreId(AcDbDatabase* database)
{
    if (!database)
        return {};
    const std::lock_guard guard(mutex_);
    const AcDbObjectId namedObjectsId = database->namedObjectsDictionaryId();
    const AcDbObjectPointer<AcDbDictionary> namedObjects(namedObjectsId, AcDb::kForRead);
    if (!namedObjects)
        return {};
    // Undo may have taken back the dictionary, or somebody may have put another in its place.
    AcDbObjectId& id = stores_[namedObjectsId.databaseNumber()];
    std::wstring key;
    if (namedObjects->nameAt(id, key) == Acad::eOk && textEqualNoCase(key, kStoreName))
        return id;
    if (namedObjects->getAt(kStoreName, id) == Acad::eKeyNotFound)
        id = makeStore(*namedObjects);
    return id;
}

AcDbObjectId existingStoreId(AcDbDatabase& database)
{
    AcDbObjectId id;
    const AcDbObjectPointer<AcDbDictionary> namedObjects(database.namedObjectsDictionaryId(),
                                                         AcDb::kForRead);
    if (!namedObjects || namedObjects->getAt(kStoreName, id) != Acad::eOk)
        id.setNull();
    return id;
}
