#include "host/db/record_index.h"

#include <algorithm>
#include <cassert>

namespace host {

namespace {

// Handles are nearly consecutive; a multiplication spreads them over the slots.
std::size_t slotOf(std::uint64_t handle, std::size_t mask)
{
    return static_cast<std::size_t>((handle * 0x9E3779B97F4A7C15u) >> 32) & mask;
}

} // namespace

std::uint32_t RecordIndex::add(const Stub& stub)
{
    const std::uint32_t number = ++count_;
    const std::size_t chunk = number >> kChunkBits;
    if (chunk == chunks_.size())
        chunks_.push_back(std::make_unique<Stub[]>(std::size_t{1} << kChunkBits));
    (*this)[number] = stub;
    return number;
}

void RecordIndex::reserve(std::size_t count)
{
    chunks_.reserve((count >> kChunkBits) + 1);
    growHandles(count);
}

bool RecordIndex::enterHandle(std::uint32_t number)
{
    const std::uint64_t handle = (*this)[number].handle;
    if (handle == 0)
        return false;
    if ((handles_ + 1) * 4 > slots_.size() * 3)
        growHandles(handles_ + 1);
    const std::size_t mask = slots_.size() - 1;
    std::size_t slot = slotOf(handle, mask);
    while (slots_[slot]) {
        if ((*this)[slots_[slot]].handle == handle)
            return slots_[slot] == number;
        slot = (slot + 1) & mask;
    }
    slots_[slot] = number;
    ++handles_;
    greatest_ = std::max(greatest_, handle);
    return true;
}

std::uint32_t RecordIndex::findHandle(std::uint64_t handle) const
{
    if (handle == 0 || slots_.empty())
        return 0;
    const std::size_t mask = slots_.size() - 1;
    for (std::size_t slot = slotOf(handle, mask); slots_[slot]; slot = (slot + 1) & mask)
        if ((*this)[slots_[slot]].handle == handle)
            return slots_[slot];
    return 0;
}

void RecordIndex::growHandles(std::size_t wanted)
{
    std::size_t size = std::max<std::size_t>(64, slots_.size());
    while (wanted * 4 > size * 3)
        size *= 2;
    if (size == slots_.size())
        return;
    std::vector<std::uint32_t> old(size, 0);
    old.swap(slots_);
    const std::size_t mask = size - 1;
    for (const std::uint32_t number : old) {
        if (!number)
            continue;
        std::size_t slot = slotOf((*this)[number].handle, mask);
        while (slots_[slot])
            slot = (slot + 1) & mask;
        slots_[slot] = number;
    }
}

} // namespace host
