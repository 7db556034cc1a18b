#pragma once

namespace host {

// ATTSYNC: the attributes of a block's references follow its definitions. Escape leaves everything
// as it was, at every prompt; a block that is named wrongly ends the command with a message.
void attsyncCommand();

} // namespace host
