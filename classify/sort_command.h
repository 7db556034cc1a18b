#pragma once

// KELMARO_SORT: draws entities in the order of the priority of the objects that they are, the
// highest on top and what is no object at the bottom. Asks nothing but what to sort, tells nothing;
// the selection stays.
void sortByPriority();
