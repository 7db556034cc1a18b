#pragma once

#include "host/db/object_id.h"

#include <cstddef>
#include <cstdint>
#include <unordered_map>
#include <vector>

namespace host {

// Ids in the order of their coming, each once. Adding, removing and reading by number take no walk
// through the others, whatever their order.
class IdSequence {
public:
    IdSequence() = default;
    explicit IdSequence(std::vector<AcDbObjectId> ids) : slots_(std::move(ids)) {}

    std::size_t size() const { return slots_.size() - holes_; }
    AcDbObjectId operator[](std::size_t number) const; // below size()
    bool has(AcDbObjectId id);
    void add(AcDbObjectId id);
    bool remove(AcDbObjectId id); // false if it is no member
    // Holds until the next change.
    const std::vector<AcDbObjectId>& ids();

private:
    void index();
    void countSlots();
    std::size_t membersBefore(std::size_t slot) const;

    std::vector<AcDbObjectId> slots_; // null where one was removed
    std::size_t holes_ = 0;
    // While there are holes: entry i - 1 counts the members in the slots that end with slot i - 1,
    // as many as the lowest bit of i says.
    std::vector<std::uint32_t> counts_;
    // Made with the first question that it answers; most sequences are only filled and read.
    std::unordered_map<AcDbObjectId, std::size_t> places_;
    bool indexed_ = false;
};

} // namespace host
