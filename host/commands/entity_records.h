#pragma once

#include "host/commands/entity_properties.h"

namespace host {

// One attribute record of an entity: a row of an xrecord in its extension dictionary.
struct EntityRecord {
    std::wstring table; // the xrecord's name
    PropertyList values;
};

// All of them in the dictionary's order. Where the drawing defines a table of that name, the values
// stand under the table's field names, and an xrecord with several rows gives as many records.
// Without a definition that fits, an xrecord is one record of values under their group codes.
std::vector<EntityRecord> recordsOf(const AcDbEntity& entity);

} // namespace host
