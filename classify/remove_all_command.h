#pragma once

// KELMARO_REMOVE_ALL: takes all records that stand for an object of the description off the
// entities and tells how many went. What the description does not know stays, and so does the
// selection.
void removeAllObjects();
