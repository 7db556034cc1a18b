#pragma once

#include <cstddef>
#include <optional>

namespace host {

// Address ranges of mapped files. Where another program cuts a mapped file, reading behind its new
// end raises SIGBUS; in these ranges the fault is answered with a page of zeros, anywhere else the
// handler that was there before decides. The table has room for 256 ranges at a time.
class MappedRanges {
public:
    // The first call sets up the handler. Nothing when the table is full.
    static std::optional<std::size_t> add(const void* begin, std::size_t size);
    static void remove(std::size_t slot); // before the range is unmapped

    // Whether zeros were laid over some of it.
    static bool isDamaged(std::size_t slot);
};

} // namespace host
