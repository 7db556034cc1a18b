#pragma once

#include "host/db/object_id.h"
#include "host/geom/point.h"
#include "host/geom/selection_shape.h"
#include "host/runtime/resbuf.h"

#include <optional>
#include <string>
#include <vector>

class AcDbDatabase;

namespace host {

// Which drawn things a search by geometry takes.
enum class Reach { inside, touching };

// Entities of model space that can be seen (layer neither frozen nor off, not invisible) by what
// they draw, in drawing order.
std::vector<AcDbObjectId> entitiesIn(AcDbDatabase& database, const SelectionShape& shape,
                                     Reach reach);
// The entity nearest to the point within the pick box, the one drawn last where several are as
// near; null when there is none.
AcDbObjectId entityAt(AcDbDatabase& database, const AcGePoint3d& point);
// Half the side of the pick box in drawing units: PICKBOX pixels of a window of 1,000 that shows
// the active view.
double pickBoxHalfSize(AcDbDatabase& database);

// Entities of model space that can be seen, in drawing order.
std::vector<AcDbObjectId> visibleEntities(AcDbDatabase& database);
// All entities of model space but those on frozen layers.
std::vector<AcDbObjectId> allEntities(AcDbDatabase& database);
// All entities of all spaces, frozen or not, that pass the filter.
std::vector<AcDbObjectId> filteredEntities(AcDbDatabase& database, const ResbufChain& filter);
AcDbObjectId lastEntity(AcDbDatabase& database);

// Does the entity answer every item? Known: 0 (DXF name), 2 (block name), 8 (layer), all with
// wildcards and several names apart by commas, and 62 (colour index); others let nothing through.
bool passesFilter(AcDbObjectId entity, const ResbufChain& filter);

// The entity that (handent "2F") names in the drawing; nothing for a text of
// another form, a null id for a handle that no living entity has.
std::optional<AcDbObjectId> entityByHandent(AcDbDatabase& database, std::wstring_view text);

} // namespace host
