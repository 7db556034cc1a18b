#pragma once

// Both look at required fields only, unless the user answers 1.

// KELMARO_SEL_NULL: the entities with an empty text in a record of a known object.
void selectNullValues();

// KELMARO_ASSERT: the entities with a record whose object's values are illegal.
void selectIllegalValues();
