#pragma once

#include "frame/entity_list.h"

#include <optional>

// What is selected when the command starts; appended to the list.
void pickFirstEntities(EntityList& entities);

// Asks the user to select; false only if he cancelled. Enter alone leaves the list empty.
bool askEntities(EntityList& entities);

// All entities of model space, in drawing order. Those of layouts and blocks are reached through a
// selection only.
EntityList scanModelSpace();

// What a command falls back to when nothing is selected before it.
enum class Fallback {
    ask,     // what the user picks
    scan,    // the whole of model space
    askScan, // what the user picks; Enter alone means the whole of model space
};

enum class Gathering { found, nothing, cancelled };

// Fills a list that is still empty.
Gathering fillIfEmpty(EntityList& entities, Fallback fallback);

// The same; false means that the command is to end: cancelled, or nothing there, which is told.
bool gatherIfEmpty(EntityList& entities, Fallback fallback);

// Both filters, in their order.
void filterEntities(EntityList& entities);

// All of it for a command that asks for nothing in between: what is selected, else the fallback,
// and of that what may be touched. Nothing when the command is to end.
std::optional<EntityList> usableEntities(Fallback fallback);
