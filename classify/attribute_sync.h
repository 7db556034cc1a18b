#pragma once

#include "description/object_def.h"
#include "host/db/object_id.h"

#include <optional>
#include <set>
#include <string>

// The block that an entity refers to, lower-cased, a dynamic one by its own name; nothing for what
// is no block reference.
std::optional<std::wstring> referredBlock(AcDbObjectId entity);

// The blocks that references had before they became objects of another block.
class ReplacedBlocks {
public:
    // Notes the block if the object names another one.
    void note(const std::optional<std::wstring>& before, const ObjectDef& object);

    // Queues an update of attributes for each of those that have attribute definitions, by name.
    void postUpdates() const;

private:
    std::set<std::wstring> names_;
};
