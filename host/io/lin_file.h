#pragma once

#include "host/db/drawing_format.h"

namespace host {

// A linetype file, line by line; ";" at the beginning makes a remark:
//
//     *NAME,what it shows
//     A,dash,dash,["TEXT",STYLE,S=scale,R=angle,X=along,Y=across],dash ...
//
// A bracket belongs to the dash before it: a text in quotes with its style, or the name of a shape
// with the shape file. R turns from the line, A from the world's x axis, U so that it can be read;
// degrees, or with an "r" or "g" behind the number radians or grads. A linetype with a line that
// cannot be read, or without one, is left out.
std::vector<LinetypeDefinition> readLinetypes(std::wstring_view text);

} // namespace host
