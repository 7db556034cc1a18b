#pragma once

#include "description/graphic_props.h"

#include <cstddef>
#include <string>
#include <string_view>

// The name that the format gives an object: "%i" its number within its type, "%L" its layer and
// "%T" its first type, "%l" and "%t" the same in lower case. Anything else stays as it is. They are
// put in one after another in this order: "%i", "%L", "%l", "%T", "%t"; so what a layer's name
// brings along of the later ones is replaced too.
std::wstring FormatObjectName(std::wstring_view format, const GraphicProps& props,
                              std::size_t number);

// Whether it tells types and numbers apart, without which names would repeat.
bool isObjectNameFormat(std::wstring_view format);
