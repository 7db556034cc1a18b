#pragma once

namespace host {

// XLINE: lines without ends, through a point and another, level, upright, at an angle, halving an
// angle, or beside a line.
void xlineCommand();

} // namespace host
