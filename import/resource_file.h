#pragma once

#include "import/resource_kind.h"

#include <string_view>

// Brings what is wanted of some kinds from a file into the working drawing: from a drawing or a
// template (.dwg, .dwt) whatever it holds, from a .lin linetypes, from a .mln multiline styles,
// from a .pat patterns. What the drawing has stays as it is.
//
// `names` comes in as the wanted names and goes out as those found, of all kinds; an empty list
// asks for all that the file has, except of a .mln or .pat, where it asks for nothing. False, with
// `names` as they were: `kinds` is empty or nothing that the file can supply, it cannot be read, or
// the drawing refused it.
bool LoadResource(std::wstring_view path, ResourceKinds kinds, ResourceNames& names);
