#pragma once

namespace host {

// WIPEOUT: an area that hides what lies behind it, and whether its frame shows.
void wipeoutCommand();

} // namespace host
