#pragma once

#include "store/od_table.h"

// A table that some object carries.
struct TableUse {
    OdTable definition; // as it stands in the drawing
    std::vector<std::wstring>
        keyFields; // lower-cased; one for each distinct key that objects give it
};
