#pragma once

#include "host/db/tag_view.h"
#include "host/geom/matrix.h"

#include <limits>

// Fields that many entities have in one form.
namespace host {

// As the fallback of a field that every record of its class has: it is written whatever its value.
inline constexpr double kRequired = std::numeric_limits<double>::quiet_NaN();

// The extrusion direction under 210, of length 1; the z axis where there is none.
AcGeVector3d normalField(const TagList& tags, const Subclass& part);

// A vector under a code; none where the file has none.
std::optional<AcGeVector3d> vectorField(const TagList& tags, const Subclass& part, int code);

// A point of an entity with an extrusion direction, in its own coordinates. Without a z of its own
// the elevation (38) counts, as the oldest files have it.
AcGePoint3d planePoint(const TagList& tags, const Subclass& part, int code);
// The same in world coordinates.
AcGePoint3d worldPoint(const TagList& tags, const Subclass& part, int code,
                       const AcGeVector3d& normal);

// A point from the tag at `i` on: x, and y and z where they follow.
AcGePoint3d pointAt(const TagList& tags, std::size_t i);

// A field of a record that is read as a whole, whatever its markers: what VERTEX and ATTRIB hang on
// is told by their parent.
std::size_t findInRecord(const TagList& tags, int code);
double realInRecord(const TagList& tags, int code, double fallback);
int integerInRecord(const TagList& tags, int code, int fallback);

} // namespace host
