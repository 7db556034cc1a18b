#pragma once

#include "host/commands/drawing/dimension_input.h"

namespace host {

// Dimensions of circles and arcs by their size, and of a place by a coordinate, prompt by prompt.
// The new dimension; null when the user cancelled, and nothing is drawn then.
AcDbObjectId drawRadiusDimension(TextPrompt prompt);
AcDbObjectId drawDiameterDimension(TextPrompt prompt);
AcDbObjectId drawJoggedDimension(TextPrompt prompt);
AcDbObjectId drawOrdinateDimension(TextPrompt prompt);

} // namespace host
