#pragma once

#include "host/db/tag_list.h"

#include <span>
#include <string_view>
#include <vector>

namespace host {

// A part of a record: its marker and the codes that belong there. The part without codes takes what
// no other part names.
struct SubclassPart {
    std::string_view marker;
    std::span<const short> codes = {};
};

// The parts of an entity behind AcDbEntity, in order, for the types of R12 and those that have one
// part. `parentFlags` is the 70 of the POLYLINE that a VERTEX belongs to. Empty for SEQEND and for
// types that are not known.
std::vector<SubclassPart> partsOfEntity(const TagList& tags, std::int64_t parentFlags);

// R12 knows the type.
bool isEntityOfR12(std::string_view type);

} // namespace host
