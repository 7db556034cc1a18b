#pragma once

#include "classify/look_index.h"
#include "description/description.h"
#include "host/db/entity.h"

#include <map>
#include <string>
#include <vector>

enum class Undrawable { leftOut, takesPart };

// Finds the object of highest priority that an entity looks like; of equal priorities the first by
// lower-cased name. What is learned from one entity serves the next, so that a description of a
// thousand objects costs an entity little more than reading its properties. Must not outlive the
// command or the description.
class ObjectsByLook {
public:
    ObjectsByLook(const Description& description, Undrawable undrawable);

    // Null when it looks like none.
    const ObjectDef* bestFor(const AcDbEntity& entity);

private:
    // A word alone does not tell the class: what a proxy stands for may have any name.
    using Kind = std::pair<std::wstring, const EntityProperty*>;

    std::vector<const ObjectDef*> ofType(const std::wstring& word) const;

    std::vector<const ObjectDef*> ranked_; // from the best down
    std::map<Kind, LookIndex> byKind_;     // of the entities so far
};
