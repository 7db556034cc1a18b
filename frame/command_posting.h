#pragma once

#include <string_view>

// Queues text on the command line of the current document, unechoed; it runs when the host next
// reads input. Without a document nothing happens.
void PostCommandLine(std::wstring_view text);
