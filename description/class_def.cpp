#include "description/class_def.h"

#include "text/text_comparison.h"

const ClassDef* findClass(const ClassDef& root, std::wstring_view name)
{
    if (textEqualNoCase(root.name, name))
        return &root;
    for (const ClassDef& child : root.children) {
        if (const ClassDef* found = findClass(child, name))
            return found;
    }
    return nullptr;
}

std::size_t CountObjects(const ClassDef& classDef)
{
    std::size_t count = classDef.objects.size();
    for (const ClassDef& child : classDef.children)
        count += CountObjects(child);
    return count;
}
