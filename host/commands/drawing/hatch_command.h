#pragma once

namespace host {

// Hatches areas: what lies around picked points, selected objects, boundaries drawn on the spot.
// They are gathered point by point and become one hatch (or one each) when Enter ends the command.
// Escape at any prompt ends it and leaves no hatch; boundaries that were drawn to be kept stay, and
// pattern, scale and angle stay set for the next time.
void hatchCommand();

} // namespace host
