#pragma once

#include "description/object_def.h"
#include "host/db/object_id.h"

// Writes one record of the table onto the entity: the defaults of the definition, macros expanded;
// fields that only the drawing's table has keep its defaults, fields that it lacks are passed over.
// False when the drawing has no such table and none could be made.
bool attachRecord(const TableDef& table, AcDbObjectId entity, const ObjectDef& object,
                  AcDbObjectId storeId);
