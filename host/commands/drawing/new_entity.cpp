#include "host/commands/drawing/new_entity.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/database_defaults.h"
#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/edit/document.h"

namespace host {

AcDbObjectId appendNew(std::unique_ptr<AcDbEntity> entity)
{
    const AcApDocument* const document = curDoc();
    if (!document)
        return {};
    const AcDbObjectPointer<AcDbBlockTableRecord> space(document->database()->currentSpaceId(),
                                                        AcDb::kForWrite);
    AcDbObjectPointer<AcDbEntity> appended;
    appended.acquire(entity.release());
    AcDbObjectId id;
    if (!space || space->appendAcDbEntity(id, appended.object()) != Acad::eOk)
        return {};
    setDatabaseDefaults(*appended);
    return id;
}

void eraseEntity(AcDbObjectId entity)
{
    const AcDbObjectPointer<AcDbEntity> drawn(entity, AcDb::kForWrite);
    if (drawn)
        drawn->erase();
}

} // namespace host
