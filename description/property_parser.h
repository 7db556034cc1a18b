#pragma once

#include "description/graphic_props.h"

#include <string_view>

// Puts one property line into `props`. `accepted` is empty, a list with commas, or a range
// low:high; "*" as an item leaves the property open. False at the first item that does not read;
// the ones before it stay.
bool parseProperty(GraphicProps& props, std::wstring_view keyword, std::wstring_view value,
                   std::wstring_view accepted);
