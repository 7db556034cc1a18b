#pragma once

#include "host/db/implicit_objects.h"
#include "host/db/layer_visibility.h"
#include "host/db/symbol_names.h"

namespace host {

// What a database keeps to find things without opening them; all of it can be made anew from the
// drawing but the names of implicit records.
struct Lookups {
    SymbolNames symbols;
    LayerStates layers;
    ImplicitNames implicitNames;
    std::shared_ptr<const TagList> header; // as the file has it; null until asked for
};

} // namespace host
