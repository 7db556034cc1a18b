#include "import/resource_kind.h"

#include "host/db/database.h"
#include "host/db/dictionary.h"

#include <algorithm>
#include <unordered_set>

namespace {

// Either a symbol table of the drawing or an entry of its root dictionary.
struct Owner {
    AcDbObjectId (AcDbDatabase::*table)() const = nullptr;
    const wchar_t* dictionary = nullptr;
};

// In the order of the kinds.
constexpr Owner kOwners[] = {
    {.table = &AcDbDatabase::blockTableId},     {.table = &AcDbDatabase::dimStyleTableId},
    {.table = &AcDbDatabase::layerTableId},     {.dictionary = L"ACAD_LAYOUT"},
    {.table = &AcDbDatabase::linetypeTableId},  {.dictionary = L"ACAD_MLEADERSTYLE"},
    {.dictionary = L"ACAD_MLINESTYLE"},         {}, // patterns stand in files of the host
    {.table = &AcDbDatabase::textStyleTableId},
};
static_assert(std::size(kOwners) == std::size(kResourceKinds));

const Owner& ownerRow(ResourceKind kind)
{
    return kOwners[static_cast<std::size_t>(kind)];
}

} // namespace

void ResourceNames::remove(const ResourceNames& others)
{
    for (const ResourceKind kind : kResourceKinds) {
        const std::unordered_set<std::wstring_view> gone(others[kind].begin(), others[kind].end());
        std::erase_if((*this)[kind], [&](const std::wstring& name) { return gone.contains(name); });
    }
}

AcDbObjectId ownerOf(ResourceKind kind, const AcDbDatabase& database)
{
    const Owner& owner = ownerRow(kind);
    if (owner.table)
        return (database.*owner.table)();
    if (!owner.dictionary)
        return {};
    host::Drawing& drawing = database.drawing();
    return host::dictionaryEntry(drawing, drawing.rootDictionary, owner.dictionary);
}

AcDbObjectId ensureOwner(ResourceKind kind, AcDbDatabase& database)
{
    const Owner& owner = ownerRow(kind);
    return owner.dictionary ? host::standardDictionary(database.drawing(), owner.dictionary)
                            : ownerOf(kind, database);
}

bool isSymbolKind(ResourceKind kind)
{
    return ownerRow(kind).table != nullptr;
}
