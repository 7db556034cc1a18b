#pragma once

#include "console/arguments.h"

#include <optional>
#include <string>
#include <vector>

// What the sources type: scripts without their comments, texts with the Enter at their end. A
// script that cannot be opened is reported, and there is no answer.
std::optional<std::vector<std::wstring>> typedTexts(const std::vector<Arguments::Source>& sources);
