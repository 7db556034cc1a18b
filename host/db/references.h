#pragma once

#include "host/db/tag_view.h"

#include <string_view>
#include <vector>

namespace host {

// How a record points to another: by handle, or by the name of a symbol table's record. A hard
// pointer needs its target, a soft one does without; an owner's target goes with it.
enum class ReferenceKind { softPointer, hardPointer, softOwner, hardOwner, name };

struct Reference {
    std::size_t at = 0; // position in the tags
    ReferenceKind kind = ReferenceKind::softPointer;
    std::string_view table = {}; // of a name: "LAYER"
};

// All that the record points to, in order: its fields, its extended data and the groups of its
// head, but neither its own handle nor its owner.
std::vector<Reference> referencesOf(const TagList& tags);

} // namespace host
