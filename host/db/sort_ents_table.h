#pragma once

#include "host/db/object.h"

#include <span>
#include <unordered_map>
#include <vector>

// The display order of a block's entities, in the block record's extension dictionary under
// ACAD_SORTENTS. Entities are drawn from the lowest sort handle to the highest. An entity's sort
// handle is its own handle unless a pair gives it another: the entity (331), then the sort
// handle (5).
class AcDbSortentsTable : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbSortentsTable)
public:
    AcDbSortentsTable() = default;

    AcDbObjectId blockId() const; // the block record (330)
    AcDbHandle getSortHandle(AcDbObjectId entity) const;

    // All living entities of the block, from bottom to top.
    std::vector<AcDbObjectId> getFullDrawOrder() const;

    // Puts these entities in this order, from bottom to top, in the places that they have among the
    // others: their sort handles are dealt out anew. An entity of another block, an erased one and
    // one that stood there before are passed over. eNotOpenForWrite.
    Acad::ErrorStatus setRelativeDrawOrder(std::span<const AcDbObjectId> entities);

    // What a table begins with that was just made.
    Acad::ErrorStatus setBlockId(AcDbObjectId block);

    std::string recordName() const override { return "SORTENTSTABLE"; }
    std::span<const std::string_view> markers() const override;

private:
    // Positions of the sort handles among the tags, by the entity's handle.
    std::unordered_map<std::uint64_t, std::size_t> pairs() const;
    bool isOfBlock(AcDbObjectId entity) const;
};
