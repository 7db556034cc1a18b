#pragma once

// KELMARO_SEL_NULL: the entities with an empty text in a record of a known object; of required
// fields only, unless the user answers 1.
void selectNullValues();
