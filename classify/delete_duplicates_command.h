#pragma once

// KELMARO_DEL_DUPLICATES: of the rows of a table with the same key it removes all but one, from
// every entity that is the object of that key, selects these entities and tells how many.
void deleteDuplicates();
