#pragma once

#include "description/object_def.h"
#include "host/db/object_id.h"

// What is done to an entity when the host has drawn it: the properties of its class that the object
// gives, then FinishObject. An entity of another class gets the latter alone; one that cannot be
// opened gets nothing. Nothing is printed.

// Explodes the entity into model space where the object says so; one that cannot be exploded is
// gone then. Gives the entity or its parts the common properties and the object's records.
void FinishObject(const ObjectDef& object, AcDbObjectId entity);

void Finish3dPolyline(const ObjectDef& object, AcDbObjectId entity);
void FinishDimension(const ObjectDef& object, AcDbObjectId entity);
void FinishHatch(const ObjectDef& object, AcDbObjectId entity);
void FinishMLeader(const ObjectDef& object, AcDbObjectId entity);
void FinishMline(const ObjectDef& object, AcDbObjectId entity);
void FinishMPolygon(const ObjectDef& object, AcDbObjectId entity);
void FinishPolyline(const ObjectDef& object, AcDbObjectId entity);

// Works on the last entity of the drawing, whichever it is given.
void FinishSpline(const ObjectDef& object, AcDbObjectId entity);

// Puts a circle of the object's radius in the place of a point.
void FinishCircleFromPoint(const ObjectDef& object, AcDbObjectId point);
