#pragma once

#include <cstdint>
#include <map>
#include <string>

// A name that a resource file supplies.
struct ResourceDef {
    std::wstring name;          // lower-case
    std::int32_t fileIndex = 0; // of Description::resourceFiles
};

using ResourceIndex = std::map<std::wstring, ResourceDef>;

// A drawing that is inserted whole as a block.
struct BlockFileDef {
    std::wstring path;      // lower-case
    std::wstring blockName; // the file's title as on disk
};
