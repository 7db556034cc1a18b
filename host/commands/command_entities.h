#pragma once

#include "host/db/object_id.h"

#include <optional>
#include <string_view>
#include <vector>

class AcApDocument;

namespace host {

// The current document; null, with a message, when none is open.
AcApDocument* documentOfCommand();

// What a command works on: the pick-first set, or else what the user selects. Nothing when the user
// cancelled; nothing selected is an empty list.
std::optional<std::vector<AcDbObjectId>> entitiesOfCommand();

// Asks for Yes or No; Enter is the default, a cancel is No.
bool confirmed(std::wstring_view question, bool byDefault);

} // namespace host
