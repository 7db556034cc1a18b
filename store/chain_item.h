#pragma once

#include "host/runtime/resbuf.h"
#include "store/od_value.h"

// Values as items of an xrecord: 90 integer (32 bits), 40 real, 1 character, 10 point.

OdType typeOfGroup(int group); // none for any other group code

// None for an item of any other group code.
OdValue valueOfItem(const resbuf& item);

// The value under its type's group code. A value of type none gives an item of group code 0, which
// no drawing takes.
resbuf itemOfValue(const OdValue& value);
