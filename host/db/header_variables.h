#pragma once

#include "host/db/drawing.h"
#include "host/runtime/resbuf.h"

#include <optional>
#include <string_view>

namespace host {

// The variables of a drawing's HEADER section, by name without the "$". A variable's type follows
// from its group code: 1 to 9 text, 10 a point (RTPOINT with two coordinates in the file, RT3DPOINT
// with three), 40 and 50 real, 62, 70, 280, 290 short, 90 and 160 long, 5 a handle as text.
std::optional<resbuf> headerVariable(const Drawing& drawing, std::string_view name);

// Replaces the value of a variable that the header has, or adds one under the given code; told to
// the journal and to the database's reactors. A value of another type is converted where that loses
// nothing; else false and nothing changes.
bool setHeaderVariable(Drawing& drawing, std::string_view name, int code, const resbuf& value);

// The group code under which the header holds the variable; 0 when it does not.
int headerVariableCode(const Drawing& drawing, std::string_view name);

// All names in file order, without the "$".
std::vector<std::string> headerVariableNames(const Drawing& drawing);

} // namespace host
