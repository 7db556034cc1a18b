#pragma once

// KELMARO_SEL_CLASSIFIED: the entities that are valid objects of the description, or those that
// are none.
void selectClassified();
