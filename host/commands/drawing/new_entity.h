#pragma once

#include "host/db/object_id.h"
#include "host/edit/system_variables.h"

#include <memory>

class AcDbEntity;

namespace host {

// Puts a new entity into the current space of the working drawing, with the properties that are
// current. Null when the space doesn't take it.
AcDbObjectId appendNew(std::unique_ptr<AcDbEntity> entity);

// The same for a kind that has a thickness, with the current one.
template <class Thick> AcDbObjectId appendThick(std::unique_ptr<Thick> entity)
{
    entity->setThickness(realVariable(L"THICKNESS", 0.0));
    return appendNew(std::move(entity));
}

// Erases what the running command drew, for its Undo option, or what it replaces.
void eraseEntity(AcDbObjectId entity);

} // namespace host
