#pragma once

#include "description/graphic_props.h"

#include <cstddef>
#include <unordered_map>
#include <vector>

// Equal, value by value and without any tolerance, in every property, the name, the types and the
// tables.
bool SameObject(const GraphicProps& a, const GraphicProps& b);

// Equal for the same objects.
std::size_t hashOfObject(const GraphicProps& props);

// The distinct objects among those that were added, in the order of the first of each.
class UniqueObjects {
public:
    void add(GraphicProps props);

    const std::vector<GraphicProps>& objects() const { return objects_; }

private:
    std::vector<GraphicProps> objects_;
    std::unordered_multimap<std::size_t, std::size_t> positions_; // by hash
};
