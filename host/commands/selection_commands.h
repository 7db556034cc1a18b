#pragma once

namespace host {

void pselectCommand(); // what is selected becomes the pick-first set
void selectCommand();  // and here the selection that "P" repeats

} // namespace host
