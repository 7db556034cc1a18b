#pragma once

#include "console/arguments.h"
#include "host/start/host_session.h"

// What --save and -o ask for at the end. False when something could not be saved; the reason is on
// standard error, what was saved differently than read in the transcript.
bool saveDrawings(host::HostSession& session, const Arguments& arguments);
