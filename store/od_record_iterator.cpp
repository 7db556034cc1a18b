#include "store/od_record_iterator.h"

#include "host/db/database.h"
#include "host/db/xrecord.h"
#include "store/chain_item.h"
#include "store/od_store.h"

#include <algorithm>

OdRecordIterator::OdRecordIterator(AcDbObjectId owner, std::optional<std::wstring> tableFilter)
    : owner_(owner), tableFilter_(std::move(tableFilter))
{
}

OdRecordIterator newIterator(AcDbObjectId storeId)
{
    return OdRecordIterator(storeId);
}

OdRecordIterator newIterator(const OdTable& table)
{
    return OdRecordIterator(table.id, table.name);
}

void OdRecordIterator::useStoreOf(AcDbDatabase& database)
{
    const bool sameDrawing = storeId_.databaseNumber() == dictionaryId_.databaseNumber();
    if (sameDrawing && !storeId_.isErased())
        return;
    layouts_.clear();
    storeId_ = existingStoreId(database);
}

bool OdRecordIterator::inStore(const std::wstring& name)
{
    if (layouts_.contains(name))
        return true;
    const AcDbObjectPointer<AcDbDictionary> store(storeId_, AcDb::kForRead);
    if (!store || !store->has(name))
        return false;
    layouts_.emplace(name, std::nullopt);
    return true;
}

const OdRecordIterator::TableLayout& OdRecordIterator::layoutOf(const std::wstring& name)
{
    static const TableLayout kNoTable;
    if (!inStore(name))
        return kNoTable;
    std::optional<TableLayout>& layout = layouts_[name];
    if (layout)
        return *layout;

    const AcDbObjectPointer<AcDbDictionary> store(storeId_, AcDb::kForRead);
    AcDbObjectId id;
    if (!store || store->getAt(name, id) != Acad::eOk)
        return kNoTable;
    const AcDbObjectPointer<AcDbXrecord> definition(id, AcDb::kForRead);
    ResbufChain chain;
    if (!definition || definition->rbChain(chain) != Acad::eOk)
        return kNoTable;
    layout.emplace();
    layout->items = chain.size();
    for (std::size_t i = 0; i < chain.size(); i += 2) {
        if (typeOfGroup(chain[i].restype) == OdType::character)
            layout->fieldNames.push_back(chain[i].resval.rstring);
    }
    return *layout;
}

void OdRecordIterator::stepToFilter()
{
    while (tableFilter_ && !entries_->done() && entries_->name() != *tableFilter_)
        entries_->next();
}

void OdRecordIterator::enterEntry()
{
    offset_ = 0;
    rowLength_ = 0;
    lastRow_ = false;
    rowGone_ = false;
    ahead_.reset();
    entered_ = !entriesDone();
    if (entered_)
        currentId_ = entries_->objectId();
}

void OdRecordIterator::stepEntry()
{
    entries_->next();
    stepToFilter();
    enterEntry();
}

AcMap::EErrCode OdRecordIterator::open(AcDbObjectId entityId)
{
    entries_.reset();
    enterEntry();
    {
        const AcDbObjectPointer<AcDbObject> entity(entityId, AcDb::kForRead);
        if (!entity)
            return AcMap::kEntityNotOpened;
        dictionaryId_ = entity->extensionDictionary();
    }
    if (dictionaryId_.isNull())
        return AcMap::kNotFound;
    const AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId_, AcDb::kForRead);
    if (!dictionary)
        return AcMap::kNotFound;

    useStoreOf(*dictionary->database());
    entries_ = dictionary->newIterator();
    while (!entries_->done() && !inStore(entries_->name()))
        entries_->next();
    if (entries_->done()) {
        entries_.reset();
        return AcMap::kNotFound;
    }
    stepToFilter();
    enterEntry();
    return AcMap::kOk;
}

// Leaves entries whose rows have gone or that never had one.
void OdRecordIterator::settle()
{
    while (!entriesDone()) {
        if (!rowGone_) {
            if (!std::exchange(entered_, false))
                return;
            ResbufChain chain;
            if (currentChain(chain) != AcMap::kOk)
                return; // reading it tells
            if (!chain.empty()) {
                ahead_ = std::move(chain);
                return;
            }
        }
        stepEntry();
    }
}

AcMap::EErrCode OdRecordIterator::currentChain(ResbufChain& chain)
{
    if (ahead_) {
        chain = std::move(*ahead_);
        ahead_.reset();
        return AcMap::kOk;
    }
    const AcDbObjectPointer<AcDbXrecord> rows(currentId_, AcDb::kForRead);
    if (dictionaryId_.isErased() || !rows || rows->rbChain(chain) != Acad::eOk)
        return AcMap::kRecordNotOpened;
    return AcMap::kOk;
}

bool OdRecordIterator::isDone()
{
    settle();
    return entriesDone();
}

void OdRecordIterator::next()
{
    if (entriesDone())
        return;
    ahead_.reset();
    if (lastRow_)
        stepEntry();
    else
        offset_ += rowLength_;
}

AcMap::EErrCode OdRecordIterator::readRecord(OdRecord& record)
{
    record.name.clear();
    record.fields.clear();
    ResbufChain chain;
    for (;;) {
        if (isDone())
            return AcMap::kNotFound;
        record.name = entries_->name();
        if (currentChain(chain) != AcMap::kOk) {
            lastRow_ = true; // there is no row length to move by
            return AcMap::kRecordNotOpened;
        }
        if (offset_ < chain.size())
            break;
        stepEntry(); // somebody else has shortened the chain
    }

    const std::vector<std::wstring>& names = layoutOf(record.name).fieldNames;
    rowLength_ = names.size();
    record.fields.reserve(rowLength_);
    for (std::size_t i = 0; i < rowLength_; ++i) {
        OdField& field = record.fields.emplace_back(names[i]);
        if (offset_ + i < chain.size())
            field.value.become(valueOfItem(chain[offset_ + i]));
    }
    // An entry that is no table of the store has no rows to step over: one reading is all it gives.
    if (rowLength_ == 0 || offset_ + rowLength_ >= chain.size())
        lastRow_ = true;
    return AcMap::kOk;
}

AcMap::EErrCode OdRecordIterator::updateRecord(const OdRecord& record)
{
    if (entriesDone())
        return AcMap::kNotFound;
    ahead_.reset();
    const AcDbObjectPointer<AcDbXrecord> rows(entries_->objectId(), AcDb::kForWrite);
    ResbufChain chain;
    if (!rows || rows->rbChain(chain) != Acad::eOk)
        return AcMap::kNotFound;
    std::size_t at = offset_;
    for (const OdField& field : record.fields) {
        if (at >= chain.size())
            break;
        if (field.getType() != OdType::none && field.getType() == typeOfGroup(chain[at].restype))
            chain[at] = itemOfValue(field.value);
        ++at;
    }
    if (at >= chain.size())
        lastRow_ = true;
    return rows->setFromRbChain(chain) == Acad::eOk ? AcMap::kOk : AcMap::kNotFound;
}

AcMap::EErrCode OdRecordIterator::removeRecord()
{
    if (entriesDone())
        return AcMap::kNotFound;
    ahead_.reset();
    const AcDbObjectPointer<AcDbXrecord> rows(currentId_, AcDb::kForWrite);
    ResbufChain chain;
    if (!rows || rows->rbChain(chain) != Acad::eOk)
        return AcMap::kNotFound;
    const std::size_t length = layoutOf(entries_->name()).items / 2;
    if (length == 0)
        return AcMap::kNotFound; // no table of the store: nobody knows its rows

    const std::size_t begin = std::min(offset_, chain.size());
    const std::size_t end = std::min(begin + length, chain.size());
    rowGone_ = end == chain.size();
    lastRow_ = lastRow_ || rowGone_;
    chain.erase(chain.begin() + static_cast<std::ptrdiff_t>(begin),
                chain.begin() + static_cast<std::ptrdiff_t>(end));
    if (!chain.empty())
        return rows->setFromRbChain(chain) == Acad::eOk ? AcMap::kOk : AcMap::kNotFound;
    removeEntry();
    return rows->erase() == Acad::eOk ? AcMap::kOk : AcMap::kNotFound;
}

void OdRecordIterator::removeEntry()
{
    AcDbObjectPointer<AcDbDictionary> dictionary(dictionaryId_, AcDb::kForWrite);
    if (!dictionary)
        return;
    dictionary->remove(currentId_);
    const AcDbObjectId entityId = dictionary->ownerId();
    dictionary.close();
    const AcDbObjectPointer<AcDbObject> entity(entityId, AcDb::kForWrite);
    if (entity)
        entity->releaseExtensionDictionary(); // stays while other entries are in it
}
