#pragma once

#include "host/db/object_pointer.h"

class AcDbEntity;

// Gives a new entity to model space of the working drawing, with the properties that a new entity
// of that drawing has. It is then open for write; its id, or null when it was not taken.
AcDbObjectId appendToModelSpace(AcDbEntity& entity);

// The same for an entity that keeps the properties it has.
AcDbObjectId appendPartToModelSpace(AcDbEntity& entity);
