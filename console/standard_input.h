#pragma once

#include "console/console_output.h"
#include "host/edit/command_engine.h"

// Types what comes from standard input, line by line, until it ends or the engine has finished.
void typeStandardInput(host::CommandEngine& engine, ConsoleOutput& output, host::Origin origin);
