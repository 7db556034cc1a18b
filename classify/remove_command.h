#pragma once

// KELMARO_REMOVE: takes an object, or the objects of a class, off the selected entities and tells
// from how many. The selection stays.
void removeNamedObject();
