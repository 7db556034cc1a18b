#pragma once

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/sort_ents_table.h"

#include <vector>

// Model space from bottom to top; empty when nothing was ever sorted.
inline std::vector<AcDbObjectId> drawOrderOf(AcDbDatabase& database)
{
    AcDbObjectPointer<AcDbBlockTableRecord> space(database.modelSpaceId(), AcDb::kForWrite);
    AcDbSortentsTable* opened = nullptr;
    if (space->getSortentsTable(opened, AcDb::kForRead, false) != Acad::eOk)
        return {};
    AcDbObjectPointer<AcDbSortentsTable> table;
    table.acquire(opened);
    return table->getFullDrawOrder();
}
