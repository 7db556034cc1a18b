#include "classify/priority_order.h"

#include <algorithm>
#include <map>

// Exchange passes are an insertion into a row of cells, one entry after the other: the entry goes
// past the cells that are not greater, takes the first greater one's place, and what stood there
// goes on in the same way. So it ends behind its equals, and of each greater priority the first
// entry goes behind its own equals. A ring for each priority that turns by one for every smaller
// entry says the same; how far it has to turn is counted when the ring is next used.

namespace {

// Counts in a row of numbered places, and the sums of the places before one.
class PrefixCounts {
public:
    explicit PrefixCounts(std::size_t places) : sums_(places + 1) {}

    void add(std::size_t place)
    {
        for (std::size_t at = place + 1; at < sums_.size(); at += at & (~at + 1))
            ++sums_[at];
    }
    std::size_t before(std::size_t place) const
    {
        std::size_t sum = 0;
        for (std::size_t at = place; at > 0; at -= at & (~at + 1))
            sum += sums_[at];
        return sum;
    }

private:
    std::vector<std::size_t> sums_;
};

// The rings of all priorities, linked through the entries' places.
class Rings {
public:
    Rings(std::size_t entries, std::size_t priorities)
        : next_(entries), previous_(entries), rings_(priorities), entered_(priorities)
    {
    }

    void append(std::size_t priority, std::size_t entry)
    {
        turn(priority);
        Ring& ring = rings_[priority];
        if (ring.size == 0) {
            ring.first = next_[entry] = previous_[entry] = entry;
        } else {
            const std::size_t last = previous_[ring.first];
            next_[last] = previous_[ring.first] = entry;
            next_[entry] = ring.first;
            previous_[entry] = last;
        }
        ++ring.size;
        entered_.add(priority);
    }

    std::vector<std::size_t> inOrder()
    {
        std::vector<std::size_t> order;
        order.reserve(next_.size());
        for (std::size_t priority = 0; priority < rings_.size(); ++priority) {
            turn(priority);
            std::size_t entry = rings_[priority].first;
            for (std::size_t left = rings_[priority].size; left > 0; --left) {
                order.push_back(entry);
                entry = next_[entry];
            }
        }
        return order;
    }

private:
    struct Ring {
        std::size_t first = 0;
        std::size_t size = 0;
        std::size_t smallerSeen = 0; // entries of smaller priority when it was last turned
    };

    // By the shorter way round.
    void turn(std::size_t priority)
    {
        Ring& ring = rings_[priority];
        const std::size_t smaller = entered_.before(priority);
        const std::size_t steps = ring.size ? (smaller - ring.smallerSeen) % ring.size : 0;
        ring.smallerSeen = smaller;
        const bool forward = steps <= ring.size / 2;
        for (std::size_t left = forward ? steps : ring.size - steps; left > 0; --left)
            ring.first = forward ? next_[ring.first] : previous_[ring.first];
    }

    std::vector<std::size_t> next_;
    std::vector<std::size_t> previous_;
    std::vector<Ring> rings_;
    PrefixCounts entered_;
};

} // namespace

std::vector<std::size_t> priorityOrder(std::span<const std::int32_t> priorities)
{
    std::map<std::int32_t, std::size_t> ranks;
    for (const std::int32_t priority : priorities)
        ranks.emplace(priority, 0);
    std::size_t rank = 0;
    for (auto& [priority, own] : ranks)
        own = rank++;

    Rings rings(priorities.size(), ranks.size());
    for (std::size_t at = 0; at < priorities.size(); ++at)
        rings.append(ranks.at(priorities[at]), at);
    return rings.inOrder();
}
