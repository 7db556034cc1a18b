#pragma once

#include "host/db/drawing.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace host {

// What callers need of a drawing and its file may lack: the header, the symbol tables with the
// records that names in the file refer to, block records and spaces, the root dictionary. It is
// made here as stubs flagged kImplicit, of length 0 and with handles above all others, so that
// nothing of the file changes; the writer takes in what something written refers to.

// Called by the reader of files once index, handles, sections, tables and header are filled.
// Makes what is missing, fills `blocks`, and sets modelSpace, paperSpace and rootDictionary. In
// BLOCKS the place in the file decides which block an entity is in, in ENTITIES the owner if it is
// a block record, else group 67. Sets the owner of every entity (its block record, or for a child
// its POLYLINE or INSERT), table record, BLOCK and ENDBLK.
void completeDrawing(Drawing& drawing);

// The tags of an implicit object as its file would have them, from its stub: made when first asked
// for and not kept here. Empty for a stub that is not implicit.
std::shared_ptr<TagList> implicitTags(Drawing& drawing, std::uint32_t stub);

// Names of implicit table records, by stub.
using ImplicitNames = std::unordered_map<std::uint32_t, std::wstring>;

} // namespace host
