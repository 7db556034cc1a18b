#pragma once

#include <span>
#include <string_view>

namespace host {

// The usual order of sections and tables in a file; what a file lacks is made at its place in it.
inline constexpr std::string_view kSectionOrder[] = {"HEADER", "CLASSES",  "TABLES",
                                                     "BLOCKS", "ENTITIES", "OBJECTS"};
inline constexpr std::string_view kTableOrder[] = {
    "VPORT", "LTYPE", "LAYER", "STYLE", "VIEW", "UCS", "APPID", "DIMSTYLE", "BLOCK_RECORD"};

// Place in the order; behind all for a name that it lacks.
inline std::size_t placeInOrder(std::span<const std::string_view> order, std::string_view name)
{
    std::size_t place = 0;
    while (place < order.size() && order[place] != name)
        ++place;
    return place;
}

} // namespace host
