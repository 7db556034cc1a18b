#pragma once

namespace host {

// -LAYER: options until Enter. Names may be lists with commas and have wildcards; names with blanks
// stand in double quotes.
void layerCommand();

} // namespace host
