#pragma once

#include <string>
#include <string_view>

namespace host {

// Tags spelled one a line, the code and behind a blank the value, as lines of a text drawing: codes
// three columns wide, short integers six, long ones nine. A line without a blank has an empty
// value.
std::string tagsFromScript(std::string_view script);

} // namespace host
