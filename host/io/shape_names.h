#pragma once

#include <string_view>

namespace host {

// The number of a named shape in the bytes of a compiled shape file; 0 for none. Such a file has a
// line of text that ends with the byte 1A, then in two bytes each the lowest number, the highest
// and the count of its shapes, for each its number and length, and the shapes themselves: a name
// that a zero ends and the strokes, the length counting both.
int shapeNumberIn(std::string_view bytes, std::string_view name);

} // namespace host
