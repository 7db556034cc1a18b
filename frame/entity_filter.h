#pragma once

#include "frame/entity_list.h"

// Removes what lies on a layer that is frozen, hidden, locked or off, also when the user selected
// it by hand, and what cannot be opened. Says nothing.
void filterUsableLayers(EntityList& entities);

// Removes what cannot be opened for reading.
void filterOpenable(EntityList& entities);
