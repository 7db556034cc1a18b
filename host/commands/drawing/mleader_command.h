#pragma once

namespace host {

// MLEADER: an arrow, a line to a landing, and a text behind it.
void mleaderCommand();

} // namespace host
