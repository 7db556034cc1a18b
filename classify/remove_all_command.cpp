#include "classify/remove_all_command.h"

#include "frame/command_frame.h"
#include "frame/entity_gathering.h"
#include "objects/record_object.h"
#include "text/messages.h"

namespace {

int removeKnownRecords(const Description& description, StoredTables& tables,
                       OdRecordIterator& records, AcDbObjectId entity)
{
    int removed = 0;
    if (records.open(entity) != AcMap::kOk)
        return removed;
    OdRecord record;
    while (!records.isDone()) {
        records.readRecord(record);
        // the row behind a removed one takes its place
        if (objectOfRecord(description, record, tables) && records.removeRecord() == AcMap::kOk)
            ++removed;
        else
            records.next();
    }
    return removed;
}

} // namespace

void removeAllObjects()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities || entities->empty())
        return;

    StoredTables tables(currentStore());
    OdRecordIterator records = newIterator(tables.storeId());
    int removed = 0;
    for (const AcDbObjectId entity : *entities)
        removed += removeKnownRecords(frame.description(), tables, records, entity);
    tell(Message::completed, removed);
}
