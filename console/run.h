#pragma once

#include "console/arguments.h"

// Opens, loads, types and saves as the arguments say; trouble is reported on standard error.
ExitStatus run(const Arguments& arguments);
