#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

#include <vector>

// The objects that an entity's records stand for, each once, in the order of their lower-cased
// names.
std::vector<const ObjectDef*> objectsOfEntity(const Description& description, StoredTables& tables,
                                              AcDbObjectId entity);
