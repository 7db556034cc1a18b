#pragma once

// KELMARO_ASSERT: the entities with a record whose object's values are illegal; of required fields
// only, unless the user answers 1.
void selectIllegalValues();
