#pragma once

#include "description/description.h"
#include "draw/object_dependencies.h"
#include "host/db/object_id.h"

#include <string_view>

// What is done to an entity that becomes an object.
struct AssignmentSteps {
    bool assign = false; // the look
    bool attach = false; // the records
    bool force = false;  // see WantedLook
};

// Brings one entity into line with an object. Another block or another multiline style takes a new
// entity, which stands in `id` then and has what hung on the old one. False when the entity cannot
// be opened for write or its class is none of the object's; nothing is changed then. Runs inside a
// command.
bool ApplyGraphicProps(const ObjectDef& object, AcDbObjectId storeId, AcDbObjectId& id,
                       AssignmentSteps steps);

// The same by the object's name, with the object's dependencies loaded before. Tells of a name that
// is none and of dependencies that cannot be loaded, and is false then.
bool ApplyDefinition(const Description& description, std::wstring_view name, AcDbObjectId storeId,
                     AcDbObjectId& id, AssignmentSteps steps, LoadedDependencies& dependencies);
