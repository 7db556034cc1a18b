#pragma once

#include <map>
#include <string>
#include <string_view>

// The macros that a description defines, by name without regard to case. In a text a macro stands
// as
// $(name).
class MacroDefines {
public:
    enum class Outcome {
        defined,
        replaced,  // a macro of that name is given a new value
        recursive, // the value names the macro itself; nothing is defined
    };
    Outcome define(std::wstring_view name, std::wstring_view value);

    // Every known macro replaced by its value, and those in the values again; unknown ones stay.
    std::wstring expand(std::wstring text) const;

private:
    std::map<std::wstring, std::wstring> values_; // by "$(name)" in lower case
};

// Whether a name holds a character that names of macros, tables and fields may not.
bool hasForbiddenCharacter(std::wstring_view name);
