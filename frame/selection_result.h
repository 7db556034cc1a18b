#pragma once

#include "frame/entity_list.h"

// Makes the entities the current selection, with grips; none clears it.
void selectResult(const EntityList& entities);

// Tells how many there are.
void tellSelected(const EntityList& entities);

// Both: how a selecting command ends.
void selectAndTell(const EntityList& entities);
