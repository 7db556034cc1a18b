#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

namespace host {

// Objects that every drawing has, as tag scripts. Handles are texts.
struct ScriptHead {
    std::string handle;
    std::string owner; // "0" for the root dictionary
};

struct ScriptEntry {
    std::string_view name;
    std::string handle;
};

struct LayoutScript {
    std::string_view name;
    std::string block; // its block record
    bool model;
};

std::string dictionaryScript(const ScriptHead& head, std::initializer_list<ScriptEntry> entries);
// The plot style dictionary with its one style "Normal", and that style behind it.
std::string plotStyleScript(const ScriptHead& head, const std::string& style);
std::string multilineStyleScript(const ScriptHead& head); // "Standard"
std::string layoutScript(const ScriptHead& head, const LayoutScript& layout);

} // namespace host
