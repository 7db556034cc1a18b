#pragma once

#include "text/messages.h"

#include <optional>
#include <string>

// "Object: ", blanks allowed; nothing if the user cancelled.
std::optional<std::wstring> askObjectName();

// A 0/1 question; `kept` is shown as the answer of Enter alone and takes the new one. False if the
// user cancelled. A number below 0 counts as 0, one above 1 as 1, a text without one as 0.
bool askZeroOne(Message question, int& kept);
