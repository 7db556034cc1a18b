#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

#include <span>
#include <vector>

// The objects that records of an entity stand for, each once, in the order of their lower-cased
// names.
std::vector<const ObjectDef*> objectsOfRecords(const Description& description, StoredTables& tables,
                                               std::span<const OdRecord> records);
