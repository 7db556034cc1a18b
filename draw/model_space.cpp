#include "draw/model_space.h"

#include "draw/named_styles.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/database_defaults.h"
#include "host/db/entity.h"

AcDbObjectId appendPartToModelSpace(AcDbEntity& entity)
{
    const AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectId id;
    if (!database)
        return id;
    const AcDbObjectPointer<AcDbBlockTableRecord> space(blockNamed(*database, ACDB_MODEL_SPACE),
                                                        AcDb::kForWrite);
    if (space)
        space->appendAcDbEntity(id, &entity);
    return id;
}

AcDbObjectId appendToModelSpace(AcDbEntity& entity)
{
    const AcDbObjectId id = appendPartToModelSpace(entity);
    if (!id.isNull())
        host::setDatabaseDefaults(entity);
    return id;
}
