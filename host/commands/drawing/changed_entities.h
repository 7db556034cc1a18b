#pragma once

#include "host/db/object_id.h"
#include "host/geom/matrix.h"

#include <optional>
#include <vector>

namespace host {

// What a command moves, turns, scales, mirrors or copies: the pick-first set, or else what the user
// selects, without what lies on locked layers, which is told. Nothing when cancelled or when
// nothing is left; the command then ends.
std::optional<std::vector<AcDbObjectId>> entitiesToChange();

enum class MirroredText { mirrored, readable };

// Maps each of them; what cannot be mapped stays and is told. A hatch that goes without its
// boundary is no longer bound to it.
void transformAll(const std::vector<AcDbObjectId>& entities, const AcGeMatrix3d& map,
                  MirroredText text = MirroredText::readable);

// Maps a copy of each; answers the copies. What cannot be mapped is not copied, and told.
std::vector<AcDbObjectId> transformCopies(const std::vector<AcDbObjectId>& entities,
                                          const AcGeMatrix3d& map,
                                          MirroredText text = MirroredText::readable);

} // namespace host
