#pragma once

#include "host/commands/drawing/dimension_input.h"

namespace host {

// Dimensions of straight lengths, prompt by prompt. The new dimension; null when the user
// cancelled, and nothing is drawn then.

enum class Measures { byPlace, horizontally, vertically, atAngle };
AcDbObjectId drawLinearDimension(Measures measures, TextPrompt prompt);
AcDbObjectId drawAlignedDimension(TextPrompt prompt);

} // namespace host
