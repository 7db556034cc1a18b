#pragma once

#include "host/db/record_index.h"

#include <cassert>
#include <new>
#include <sys/mman.h>
#include <utility>
#include <vector>

namespace host {

// Beside the flags of a stub.
enum RecordMark : std::uint8_t {
    kHandleGiven = 1, // the record has a handle tag, be it empty
    kHandleWrong = 2, // and it is not hexadecimal
    kOwnerGiven = 4,
};

struct RecordNote {
    std::uint64_t offset = 0;
    std::uint64_t handle = 0;
    std::uint64_t owner = 0; // handle
    std::uint32_t layer = 0;
    std::uint16_t type = 0;
    std::uint16_t flags : 12 = 0; // kHasDictionary, kHasReactors, kPaperSpace
    std::uint16_t marks : 4 = 0;
};
static_assert(sizeof(RecordNote) == 32);

// The notes of many records, in file order. They are as large as the index made from them, so what
// has been read of them goes back to the system at once.
class RecordNoteList {
public:
    RecordNoteList() = default;
    RecordNoteList(RecordNoteList&& other) noexcept
        : chunks_(std::move(other.chunks_)), count_(std::exchange(other.count_, 0))
    {
    }
    RecordNoteList& operator=(RecordNoteList&& other) noexcept
    {
        std::swap(chunks_, other.chunks_);
        std::swap(count_, other.count_);
        return *this;
    }
    ~RecordNoteList()
    {
        for (RecordNote*& chunk : chunks_)
            free(chunk);
    }

    std::size_t size() const { return count_; }
    RecordNote& operator[](std::size_t i) { return chunks_[i / kChunk][i % kChunk]; }
    RecordNote& back() { return (*this)[count_ - 1]; }

    RecordNote& add()
    {
        if (count_ % kChunk == 0)
            addChunk();
        return *new (&chunks_.back()[count_++ % kChunk]) RecordNote;
    }

    // Notes before this one are not asked for again.
    void releaseBefore(std::size_t i)
    {
        if (i % kChunk == 0 && i > 0)
            free(chunks_[i / kChunk - 1]);
    }

private:
    static constexpr std::size_t kChunk = 16 * 1024; // notes
    static constexpr std::size_t kBytes = kChunk * sizeof(RecordNote);

    void addChunk()
    {
        void* const pages =
            ::mmap(nullptr, kBytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
        if (pages == MAP_FAILED)
            throw std::bad_alloc();
        chunks_.push_back(static_cast<RecordNote*>(pages));
    }
    static void free(RecordNote*& chunk)
    {
        if (chunk)
            ::munmap(std::exchange(chunk, nullptr), kBytes);
    }

    std::vector<RecordNote*> chunks_;
    std::size_t count_ = 0;
};

} // namespace host
