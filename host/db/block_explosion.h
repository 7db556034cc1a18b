#pragma once

#include "host/db/exploding.h"
#include "host/db/object_id.h"

namespace host {

// Whether what a part leaves to its block ("by block", the layer 0) stays so or is taken from the
// whole.
enum class ByBlock { stays, resolved };

// Copies of all that is in a block, mapped, attribute definitions included. What a map that is not
// similar would distort takes another form: circles and arcs become ellipses; polylines with arcs,
// texts of several lines and references that would be skewed fall into their parts. Hatches and
// leaders lose the entities that they followed; dimensions come without their picture, which
// belongs to the one in the block. The first refusal of a part that takes no other form; `parts`
// then stays as it was. eNotApplicable for what is no block, an external reference, or empty.
Acad::ErrorStatus explodeBlock(const AcDbEntity& whole, AcDbObjectId block, const AcGeMatrix3d& map,
                               ByBlock byBlock, EntityParts& parts);

} // namespace host
