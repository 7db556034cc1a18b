#pragma once

#include "host/db/object_id.h"

#include <cstddef>
#include <utility>
#include <vector>

// The entities that a command works on, in order; an entity may stand in it twice. Removal puts the
// last one into the gap, so a filtered list is in another order, and the next to look at has the
// same position.
class EntityList {
public:
    EntityList() = default;
    explicit EntityList(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}

    std::size_t size() const { return ids_.size(); }
    bool empty() const { return ids_.empty(); }
    AcDbObjectId operator[](std::size_t at) const { return ids_[at]; }
    auto begin() const { return ids_.begin(); }
    auto end() const { return ids_.end(); }

    void reserve(std::size_t count) { ids_.reserve(count); }
    void append(AcDbObjectId id) { ids_.push_back(id); }
    void clear() { ids_.clear(); }
    void remove(std::size_t at)
    {
        ids_[at] = ids_.back();
        ids_.pop_back();
    }

    const std::vector<AcDbObjectId>& ids() const { return ids_; }

private:
    std::vector<AcDbObjectId> ids_;
};

// Removes, from the first on, every entity that the test refuses.
template <class Test> void keepIf(EntityList& entities, Test test)
{
    for (std::size_t at = 0; at < entities.size();) {
        if (test(entities[at]))
            ++at;
        else
            entities.remove(at);
    }
}
