#pragma once

namespace host {

// EXPLODE: what is selected falls into its parts, which take its place in its block; its own
// records go with it. What can't be exploded, lies on a locked layer or in another space stays and
// is counted. Escape at the selection leaves everything as it was.
void explodeCommand();

} // namespace host
