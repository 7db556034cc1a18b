#pragma once

#include <string_view>

// Prints to the command line, in printf's form: %s takes wide text. Answers RTNORM.
int acutPrintf(const wchar_t* format, ...);

// A warning to the user, on a line of its own. Answers RTNORM.
int acedAlert(const wchar_t* text);

namespace host {

void print(std::wstring_view text);

} // namespace host
