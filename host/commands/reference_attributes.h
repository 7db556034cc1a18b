#pragma once

#include "host/db/object_id.h"

#include <memory>
#include <string_view>
#include <vector>

class AcDbAttribute;
class AcDbAttributeDefinition;
class AcDbBlockReference;

namespace host {

// The definitions of a block that its references have attributes of, in the block's order: constant
// ones belong to the block itself.
std::vector<AcDbObjectId> variableDefinitions(AcDbObjectId block);

// A new attribute of a definition, as it stands in a reference: moved, turned and scaled with the
// block. All that the definition says of a text is kept.
std::unique_ptr<AcDbAttribute> attributeOf(const AcDbAttributeDefinition& definition,
                                           const AcDbBlockReference& reference,
                                           std::wstring_view value);

} // namespace host
