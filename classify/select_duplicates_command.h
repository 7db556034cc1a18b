#pragma once

// KELMARO_SEL_DUPLICATES: the entities that have more records of an object than it has tables.
void selectDuplicates();
