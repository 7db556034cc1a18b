#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

// The object that a record stands for, by the value of its key alone: nothing on an entity refers
// to a description. Null when there is none, and when a table of the object differs from the
// drawing's.
const ObjectDef* objectOfRecord(const Description& description, const OdRecord& record,
                                StoredTables& tables);

// The same without a look at the drawing's tables.
const ObjectDef* objectOfRecordUnchecked(const Description& description, const OdRecord& record);
