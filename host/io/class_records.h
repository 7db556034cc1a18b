#pragma once

#include <string_view>

namespace host {

// What the CLASSES section says of a type of records that needs a CLASS there.
struct ClassRecord {
    std::string_view type; // "MATERIAL"
    std::string_view className;
    std::string_view application;
    int capabilities; // 90
    bool entity;      // 281
};

// Null for a type that needs none, or that nobody makes.
const ClassRecord* classRecordOf(std::string_view type);

} // namespace host
