#pragma once

#include "host/db/entity.h"

#include <memory>
#include <vector>

// Ids of what hangs on an entity: the vertices of a polyline, the attributes of a block reference.
// A copy; erased ones are left out.
class AcDbObjectIterator {
public:
    explicit AcDbObjectIterator(std::vector<AcDbObjectId> ids) : ids_(std::move(ids)) {}
    void start() { at_ = 0; }
    bool done() const { return at_ >= ids_.size(); }
    void step() { ++at_; }
    AcDbObjectId objectId() const { return ids_[at_]; }

private:
    std::vector<AcDbObjectId> ids_;
    std::size_t at_ = 0;
};

namespace host {

// The living children of an entity in order, without the end of the sequence. None for an entity
// outside of a database.
std::vector<AcDbObjectId> childrenOf(const AcDbEntity& parent);

// Their tags, in the same order; opens none of them. Of an entity outside of a database: those of
// its new children.
std::vector<std::shared_ptr<const TagList>> childTags(const AcDbEntity& parent);

// Hangs a new entity on its parent, which has to be open for write in a database, and makes the end
// of the sequence with the first. The child is then open for write. The parent's mark that children
// follow (66) is the caller's.
Acad::ErrorStatus appendChild(AcDbEntity& parent, AcDbEntity& child);

// Hangs on an entity that has just joined a database what it brought along.
Acad::ErrorStatus hangNewChildren(AcDbEntity& parent);

// A copy outside of any database with copies of the children. Null for a class that has no objects
// of its own making.
std::unique_ptr<AcDbEntity> copyWithChildren(const AcDbEntity& entity);

} // namespace host

// The end of a sequence of vertices or attributes.
class AcDbSequenceEnd : public AcDbEntity {
    ACRX_DECLARE_MEMBERS(AcDbSequenceEnd)
public:
    AcDbSequenceEnd() = default;
    std::string recordName() const override { return "SEQEND"; }
};
