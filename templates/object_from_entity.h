#pragma once

#include "description/graphic_props.h"
#include "host/db/entity.h"

// Fills fresh properties with what an object would have to state so that the entity, which is open
// for reading, is one of it: everything as one value. What belongs to the single entity, such as
// its radius, its angle or its text, is left open.
void ObjectFromEntity(GraphicProps& props, const AcDbEntity& entity);
