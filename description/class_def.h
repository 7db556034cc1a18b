#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

// A class of objects, with the classes below it.
struct ClassDef {
    std::vector<ClassDef> children;
    std::vector<std::wstring> objects; // lower-cased names, in the order of the file
    bool drawable = false;             // shown in the palettes
    std::wstring icon;                 // as written; may be empty
    std::wstring name;                 // as written, trimmed; empty for the root
};

// The first class of that name, without regard to case, from `root` itself down; null if there is
// none.
const ClassDef* findClass(const ClassDef& root, std::wstring_view name);

// The objects of the class and of all classes below it, drawable or not.
std::size_t CountObjects(const ClassDef& classDef);
