#include "host/edit/id_sequence.h"

#include <algorithm>
#include <bit>
#include <cassert>
#include <utility>

namespace host {

namespace {

std::size_t lowestBit(std::size_t number)
{
    return number & (~number + 1);
}

} // namespace

AcDbObjectId IdSequence::operator[](std::size_t number) const
{
    assert(number < size());
    if (holes_ == 0)
        return slots_[number];
    std::size_t slot = 0;
    for (std::size_t step = std::bit_floor(counts_.size()); step > 0; step /= 2) {
        if (slot + step > counts_.size() || counts_[slot + step - 1] > number)
            continue;
        slot += step;
        number -= counts_[slot - 1];
    }
    return slots_[slot];
}

bool IdSequence::has(AcDbObjectId id)
{
    index();
    return places_.contains(id);
}

void IdSequence::add(AcDbObjectId id)
{
    index();
    if (!places_.emplace(id, slots_.size()).second)
        return;
    slots_.push_back(id);
    if (holes_ == 0)
        return;
    const std::size_t end = slots_.size();
    const std::size_t others = membersBefore(end - 1) - membersBefore(end - lowestBit(end));
    counts_.push_back(static_cast<std::uint32_t>(others + 1));
}

bool IdSequence::remove(AcDbObjectId id)
{
    index();
    const auto place = places_.find(id);
    if (place == places_.end())
        return false;
    if (holes_++ == 0)
        countSlots();
    slots_[place->second].setNull();
    for (std::size_t end = place->second + 1; end <= counts_.size(); end += lowestBit(end))
        --counts_[end - 1];
    places_.erase(place);
    return true;
}

const std::vector<AcDbObjectId>& IdSequence::ids()
{
    if (std::exchange(holes_, 0) > 0) {
        std::erase_if(slots_, [](AcDbObjectId id) { return id.isNull(); });
        counts_.clear();
        places_.clear();
        indexed_ = false;
    }
    return slots_;
}

void IdSequence::index()
{
    if (std::exchange(indexed_, true))
        return;
    places_.reserve(slots_.size());
    std::erase_if(slots_,
                  [&](AcDbObjectId id) { return !places_.emplace(id, places_.size()).second; });
}

void IdSequence::countSlots()
{
    counts_.resize(slots_.size());
    for (std::size_t end = 1; end <= counts_.size(); ++end)
        counts_[end - 1] = static_cast<std::uint32_t>(lowestBit(end));
}

// Members in the slots before this one.
std::size_t IdSequence::membersBefore(std::size_t slot) const
{
    std::size_t members = 0;
    for (; slot > 0; slot -= lowestBit(slot))
        members += counts_[slot - 1];
    return members;
}

} // namespace host
