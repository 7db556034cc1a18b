#pragma once

#include "description/description.h"
#include "host/db/entity.h"

#include <string_view>

// Whether an entity looks as the description says: its class, its common properties and those of
// its class. Nothing is changed or printed. An entity that cannot be opened does not conform.

// `name` is an object or, where no object has it, a class, of which some object must conform.
bool conforms(const Description& description, AcDbObjectId entityId, std::wstring_view name);

// Some object of the class or of a class below it conforms.
bool classConforms(const Description& description, AcDbObjectId entityId, const ClassDef& classDef);

// The object may be drawn, and the entity's class is one of its types.
bool typeAccepted(const ObjectDef& object, const AcDbEntity& entity);

// The entity has the look of this object; its class counts too.
bool looksLike(const ObjectDef& object, const AcDbEntity& entity);
