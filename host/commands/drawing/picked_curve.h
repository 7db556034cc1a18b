#pragma once

#include "host/db/object_id.h"
#include "host/geom/arc_construction.h"
#include "host/geom/nearest_stroke.h"

#include <optional>

namespace host {

// The straight or circular stroke of an entity that passes nearest to a point. None for an entity
// that draws neither.
std::optional<NearestStrokeSink::Stroke> strokeNear(AcDbObjectId entity, const AcGePoint3d& place);
// The same as a line without ends or a whole circle, seen from above.
std::optional<TangentTarget> targetNear(AcDbObjectId entity, const AcGePoint3d& place);
std::optional<PlaneLine> lineNear(AcDbObjectId entity, const AcGePoint3d& place);

} // namespace host
