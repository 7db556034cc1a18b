#include "classify/sort_command.h"

#include "classify/priority_order.h"
#include "frame/command_frame.h"
#include "frame/command_posting.h"
#include "frame/entity_gathering.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/sort_ents_table.h"
#include "host/edit/document.h"
#include "host/edit/system_variables.h"
#include "objects/entity_objects.h"

namespace {

constexpr std::int16_t kAllOperations = 127; // that honour the display order

void honourDrawOrder()
{
    resbuf variable;
    if (acedGetVar(L"SORTENTS", variable) != RTNORM ||
        (variable.resval.rint & kAllOperations) == kAllOperations)
        return;
    variable.resval.rint = static_cast<std::int16_t>(variable.resval.rint | kAllOperations);
    acedSetVar(L"SORTENTS", variable);
}

// The current document locked for writing while the scope lasts.
class DocumentLock {
public:
    DocumentLock() : document_(curDoc())
    {
        acDocManagerPtr()->lockDocument(document_, AcAp::kWrite);
    }
    ~DocumentLock() { acDocManagerPtr()->unlockDocument(document_); }
    DocumentLock(const DocumentLock&) = delete;
    DocumentLock& operator=(const DocumentLock&) = delete;

private:
    AcApDocument* document_;
};

AcDbObjectPointer<AcDbBlockTableRecord> modelSpaceForWrite()
{
    AcDbObjectPointer<AcDbBlockTableRecord> space;
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    const AcDbObjectPointer<AcDbBlockTable> blocks(
        database ? database->blockTableId() : AcDbObjectId(), AcDb::kForRead);
    AcDbObjectId id;
    if (blocks && blocks->getAt(ACDB_MODEL_SPACE, id) == Acad::eOk)
        space.open(id, AcDb::kForWrite);
    return space;
}

// From bottom to top.
std::vector<AcDbObjectId> drawOrder(const Description& description, const EntityList& entities)
{
    StoredTables tables(currentStore());
    const ValidObjects objects(description, tables);
    std::vector<std::int32_t> priorities;
    priorities.reserve(entities.size());
    for (const AcDbObjectId entity : entities)
        priorities.push_back(objects.highestPriority(tables.recordsOf(entity)));

    std::vector<AcDbObjectId> ordered;
    ordered.reserve(entities.size());
    for (const std::size_t at : priorityOrder(priorities))
        ordered.push_back(entities[at]);
    return ordered;
}

} // namespace

void sortByPriority()
{
    const CommandFrame frame;
    if (!frame)
        return;
    const std::optional<EntityList> entities = usableEntities(Fallback::askScan);
    if (!entities || entities->empty())
        return;

    honourDrawOrder();
    AcDbObjectPointer<AcDbBlockTableRecord> space = modelSpaceForWrite();
    AcDbSortentsTable* opened = nullptr;
    if (!space || space->getSortentsTable(opened, AcDb::kForWrite, true) != Acad::eOk)
        return;
    AcDbObjectPointer<AcDbSortentsTable> table;
    table.acquire(opened);
    {
        const DocumentLock lock;
        table->setRelativeDrawOrder(drawOrder(frame.description(), *entities));
        table.close();
        space.close();
    }
    PostCommandLine(L"_.regen\n");
}
