#pragma once

// KELMARO_TEMPLATE: writes a description with one object for each look among the entities, as a
// start for the user's own.
void generateTemplate();
