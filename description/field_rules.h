#pragma once

#include "description/table_def.h"

#include <span>
#include <string_view>

// Whether a value is one of a field's texts: texts without regard to case, other types as values of
// the same type. False for type none.
bool inList(const OdValue& value, std::span<const std::wstring> values);

// Whether it lies between two bounds, ends included: integers, reals, texts in lower-cased code
// unit order, each coordinate of a point by itself. False for type none.
bool inRange(const OdValue& value, std::wstring_view lower, std::wstring_view upper);
