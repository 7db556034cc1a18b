#pragma once

#include "host/db/object_id.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class AcDbAttribute;
class AcDbAttributeDefinition;
class AcDbBlockReference;

namespace host {

class TagList;

// The definitions of a block that its references have attributes of, in the block's order: constant
// ones belong to the block itself.
std::vector<AcDbObjectId> variableDefinitions(AcDbObjectId block);

// A new attribute of a definition, as it stands in a reference: moved, turned and scaled with the
// block. All that the definition says of a text is kept.
std::unique_ptr<AcDbAttribute> attributeOf(const AcDbAttributeDefinition& definition,
                                           const AcDbBlockReference& reference,
                                           std::wstring_view value);

// The contents of an attribute of several lines, in the chunks in which the text embedded in its
// record has them; empty for an attribute of one line, which takes none.
std::vector<std::wstring> linesOf(const TagList& tags);
void setLines(TagList& tags, const std::vector<std::wstring>& lines);

} // namespace host
