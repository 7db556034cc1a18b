#pragma once

#include "console/console_output.h"
#include "host/edit/command_engine.h"

#include <filesystem>

// Types what the user types at the terminal, until the end (Ctrl+D) or until the engine has
// finished. Lines can be edited and come back from the history, which is kept in a file; Tab
// completes names of commands and variables, keywords, and paths. Ctrl+C cancels.
void typeAtTerminal(host::CommandEngine& engine, ConsoleOutput& output,
                    const std::filesystem::path& historyFile);
