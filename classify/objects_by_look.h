#pragma once

#include "description/description.h"
#include "host/db/entity.h"

#include <cstdint>
#include <string>
#include <unordered_map>
#include <vector>

enum class Undrawable { leftOut, takesPart };

// Finds the object of highest priority that an entity looks like; of equal priorities the first by
// lower-cased name. Only the objects that accept the entity's type and layer are tried, from the
// highest priority down, so that a description of a thousand objects costs an entity a few tests.
// Must not outlive the description.
class ObjectsByLook {
public:
    ObjectsByLook(const Description& description, Undrawable undrawable);

    // Null when it looks like none.
    const ObjectDef* bestFor(const AcDbEntity& entity) const;

private:
    using Objects = std::vector<std::uint32_t>; // places in `ranked_`, ascending
    struct OfType {
        Objects onAnyLayer; // those whose layer is open or a range, too
        std::unordered_map<std::wstring, Objects> byLayer; // by lower-cased name
    };

    std::vector<const ObjectDef*> ranked_; // from the best down
    std::unordered_map<std::wstring, OfType> byType_;
};
