#pragma once

#include "description/object_def.h"

#include <memory>
#include <vector>

// Hands an object over to the host's command for it and returns at once; the engine does the rest.
// `saved` is written back when the drawing ends. An object that is not drawn ends here, told where
// it is the type's fault, and `saved` is dropped; unless it has no type at all, what was being
// drawn before is waited for no longer.
void StartDrawing(std::shared_ptr<const ObjectDef> object, bool repeat,
                  std::vector<HostVariable> saved);
