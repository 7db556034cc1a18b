#pragma once

#include "description/description.h"

#include <memory>
#include <string_view>

// Draws an object by its lower-cased name: asks for what its definition leaves open, brings what it
// needs into the drawing, sets its variables and starts the host's command for it. Tells whatever
// stops it. The description's `current` becomes the object with the user's answers; the drawing
// that is started shares the description.
void DrawObject(const std::shared_ptr<Description>& description, std::wstring_view name);
