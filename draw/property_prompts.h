#pragma once

#include "description/graphic_props.h"

#include <string_view>

// Asks for a property by its keyword and puts the answer into `props`. False when the user
// cancelled or the answer does not read; an empty one leaves the property as it is.
bool PromptProperty(std::wstring_view keyword, GraphicProps& props);

// Asks for every property that is stated and left open, in the order of asking, until one fails.
// Each is reset before it is asked for.
bool promptOpenProperties(GraphicProps& props);
