#pragma once

#include "store/od_value.h"

#include <string>
#include <vector>

enum class FieldKind : std::int32_t {
    noDefault = 0,
    key = 1,
    list = 2,
    range = 3,
    defaultOnly = 4,
};

enum FieldFlag : std::uint32_t {
    kConstField = 1,    // the user may not change it
    kNotEmptyField = 2, // an empty text is not legal
    kRequiredField = 4,
};

// One field of a table as a description gives it.
struct FieldDef {
    std::wstring description; // for people; empty for a key
    FieldKind kind = FieldKind::noDefault;
    std::wstring name; // as written
    std::uint32_t flags = 0;
    OdType type = OdType::none;       // integer, real or character
    std::wstring defaultValue;        // may hold macros that are expanded at each use
    std::vector<std::wstring> values; // the list; for a range the lower, then the upper bound

    bool hasFlag(FieldFlag flag) const { return (flags & flag) != 0; }
};

// One attribute table of an object.
struct TableDef {
    std::wstring name; // as written
    std::vector<FieldDef> fields;
};
