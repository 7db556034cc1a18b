#pragma once

#include "description/object_def.h"

#include <string>
#include <string_view>

// Replaces the macros of defaults and keys, "$(obj_name)", "$(file_name)", "$(computer_name)",
// "$(user_name)" and the parts of the local time from "$(year)" to "$(second)", in lower case
// only. Anything else of that shape is no macro and stays. What a replacement holds is expanded in
// turn; a name that holds its own macro is expanded a few times and then left.
std::wstring expandMacros(const ObjectDef& object, std::wstring_view text);
