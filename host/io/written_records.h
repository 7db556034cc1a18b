#pragma once

#include "host/db/drawing.h"

#include <set>
#include <vector>

namespace host {

// Which of the records that the file lacks are to be written: the living ones made since, and of
// those known in memory only the ones that something written refers to.
struct WrittenRecords {
    std::set<std::uint32_t> added;   // stubs, without those of the file
    std::set<std::uint32_t> changed; // of the file, living, with tags of their own
    std::set<std::uint32_t> erased;  // of the file
    bool objects = false;            // some dictionary holds something, so OBJECTS are needed
};

WrittenRecords findWrittenRecords(Drawing& drawing);

// The entities of a block that the file lacks, each followed by its sequence.
std::vector<std::uint32_t> withChildren(const Drawing& drawing, std::uint32_t entity);

// A record stands in OBJECTS: neither entity nor table, table record, block or header.
bool isObjectRecord(const Drawing& drawing, std::uint32_t stub);

} // namespace host
