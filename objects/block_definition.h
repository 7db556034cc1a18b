#pragma once

#include "host/db/object_id.h"

#include <string>

class AcDbBlockReference;

// The block that a reference shows: the dynamic block's own definition where an anonymous variant
// stands in for it.
AcDbObjectId blockDefinition(const AcDbBlockReference& reference);

// Its name as written; empty if it cannot be opened.
std::wstring blockDefinitionName(const AcDbBlockReference& reference);

// Attribute definitions of a block that ask for a value.
int variableAttributeCount(AcDbObjectId block);
