#pragma once

#include "description/description.h"
#include "objects/stored_tables.h"

#include <string_view>

// Taking objects off entities: their records go, the look stays.

// Takes one record of each of the object's tables off an entity that is the object; a second one
// with the same key stays. Where no object has the name, the class of that name is meant. True when
// they came off; false with nothing touched for an entity that is not the object. Should a record
// of a later table resist, those of earlier tables are gone.
bool removeObject(const Description& description, StoredTables& tables, AcDbObjectId entity,
                  std::wstring_view name);

// The same for each object that is directly in the class, not in a class below it; true when at
// least one came off.
bool removeClassObjects(const Description& description, StoredTables& tables, AcDbObjectId entity,
                        const ClassDef& classDef);
