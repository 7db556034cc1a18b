#pragma once

// KELMARO_TYPE: tells the words by which a description names the types of the selected entities.
// Needs no description; the selection stays.
void tellEntityTypes();
