#pragma once

#include "host/db/dictionary.h"
#include "store/od_table.h"

#include <map>
#include <memory>
#include <optional>

// Walks the records of an entity: the rows of each table, in the order of the entity's extension
// dictionary. An entry's chain is its rows one after the other, as many items each as the table has
// fields; what is left of a last, shorter row has type none.
//
//     for (iterator.open(entity); !iterator.isDone(); iterator.next())
//         if (iterator.readRecord(record) == AcMap::kOk) ...
//
// A row must be read before `next`, which moves by the length that reading found: without it the
// walk stays where it is. One iterator may be opened for one entity after another; it remembers the
// tables' definitions, which never change once written, for as long as it lives. It should end with
// its command.
class OdRecordIterator {
public:
    explicit OdRecordIterator(AcDbObjectId owner, std::optional<std::wstring> tableFilter = {});

    // The store or the table that the walk was made for.
    AcDbObjectId owner() const { return owner_; }

    // Stands on the entity's first record. kEntityNotOpened; kNotFound without an extension
    // dictionary or when none of its entries bears the name of a table; the walk is then done.
    // Entries of other names are passed over up to the first table's, not behind it.
    AcMap::EErrCode open(AcDbObjectId entity);

    // Passes over entries that hold no row.
    bool isDone();
    void next();

    // The current row, with types and values as stored. kRecordNotOpened also for an entry that is
    // no xrecord; `record` then has no fields.
    AcMap::EErrCode readRecord(OdRecord& record);
    // Overwrites the row's items, each under its own group code. A field must have the type that is
    // stored; one that has not leaves its item as it is. kNotFound when the row cannot be written.
    AcMap::EErrCode updateRecord(const OdRecord& record);
    // Afterwards the row that followed is the current one: don't call `next` for the one removed.
    // The last row takes its entry along, the last entry the extension dictionary.
    AcMap::EErrCode removeRecord();

private:
    struct TableLayout {
        std::vector<std::wstring> fieldNames;
        std::size_t items = 0; // of the definition, two for a field
    };

    bool entriesDone() const { return !entries_ || entries_->done(); }
    void useStoreOf(AcDbDatabase& database);
    bool inStore(const std::wstring& name);
    const TableLayout& layoutOf(const std::wstring& name);
    void stepToFilter();
    void enterEntry();
    void stepEntry();
    void settle();
    AcMap::EErrCode currentChain(ResbufChain& chain);
    void removeEntry();

    AcDbObjectId owner_;                      // the store or the table that the walk was made for
    std::optional<std::wstring> tableFilter_; // exact
    AcDbObjectId dictionaryId_;
    std::unique_ptr<AcDbDictionaryIterator> entries_;
    AcDbObjectId currentId_;
    std::size_t offset_ = 0; // in items
    std::size_t rowLength_ = 0;
    bool lastRow_ = false;

    bool entered_ = false;             // not yet known whether the current entry has a row at all
    bool rowGone_ = false;             // the entry's last row was removed
    std::optional<ResbufChain> ahead_; // what settling has read, for the reading that follows

    AcDbObjectId storeId_;
    std::map<std::wstring, std::optional<TableLayout>, std::less<>>
        layouts_; // of entries in the store
};

// An iterator over all records, and one over those of a table.
OdRecordIterator newIterator(AcDbObjectId storeId);
OdRecordIterator newIterator(const OdTable& table);
