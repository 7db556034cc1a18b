#pragma once

#include "import/resource_kind.h"

#include <filesystem>

// Clones what is wanted of these kinds from a drawing file into another drawing. Records that are
// there keep their look. `found` gets the names that the file had, lower-cased; an empty list of
// `wanted` takes all. Blocks that hold themselves are left out. False when the file or one of its
// tables cannot be read, or the target takes nothing.
bool cloneResources(const std::filesystem::path& path, ResourceKinds kinds,
                    const ResourceNames& wanted, AcDbDatabase& target, ResourceNames& found);
