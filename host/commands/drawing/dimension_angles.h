#pragma once

#include "host/commands/drawing/dimension_input.h"

namespace host {

// Dimensions of angles and of the lengths of arcs, prompt by prompt. The new dimension; null when
// the user cancelled, and nothing is drawn then.
AcDbObjectId drawAngularDimension(TextPrompt prompt);
AcDbObjectId drawArcDimension(TextPrompt prompt);

} // namespace host
