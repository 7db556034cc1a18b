#pragma once

#include "host/db/object_id.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

class AcDbDatabase;

// What objects name and a resource file supplies, in the order in which it is imported.
enum class ResourceKind : std::uint8_t {
    block,
    dimensionStyle,
    layer,
    layout,
    linetype,
    mleaderStyle,
    mlineStyle,
    pattern,
    textStyle,
};
inline constexpr ResourceKind kResourceKinds[] = {
    ResourceKind::block,      ResourceKind::dimensionStyle, ResourceKind::layer,
    ResourceKind::layout,     ResourceKind::linetype,       ResourceKind::mleaderStyle,
    ResourceKind::mlineStyle, ResourceKind::pattern,        ResourceKind::textStyle,
};

// A set of kinds, one bit each: block 1, dimension style 2, ... text style 256.
using ResourceKinds = std::uint32_t;
constexpr ResourceKinds bitOf(ResourceKind kind)
{
    return ResourceKinds{1} << static_cast<unsigned>(kind);
}

// One list of lower-cased names for each kind.
class ResourceNames {
public:
    std::vector<std::wstring>& operator[](ResourceKind kind)
    {
        return lists_[static_cast<std::size_t>(kind)];
    }
    const std::vector<std::wstring>& operator[](ResourceKind kind) const
    {
        return lists_[static_cast<std::size_t>(kind)];
    }

    // Takes out, kind by kind, the names that the other has.
    void remove(const ResourceNames& others);

private:
    std::array<std::vector<std::wstring>, std::size(kResourceKinds)> lists_;
};

// The symbol table or dictionary that holds a kind; null id where the drawing has none, and for
// patterns, which no drawing holds.
AcDbObjectId ownerOf(ResourceKind kind, const AcDbDatabase& database);

// The same, but a dictionary that is missing is made. Null id when it cannot be.
AcDbObjectId ensureOwner(ResourceKind kind, AcDbDatabase& database);

// Whether the kind's owner is a symbol table, not a dictionary.
bool isSymbolKind(ResourceKind kind);
