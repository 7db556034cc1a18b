#include "host/db/sort_ents_table.h"

#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/drawing.h"
#include "host/db/object_pointer.h"

#include <algorithm>
#include <unordered_set>

ACRX_DXF_DEFINE_MEMBERS(AcDbSortentsTable, AcDbObject, "SORTENTSTABLE")

namespace {

constexpr const wchar_t* kKey = L"ACAD_SORTENTS";
constexpr int kBlock = 330;
constexpr int kEntity = 331;
constexpr int kSortHandle = 5;
constexpr short kOrder[] = {kBlock, kEntity, kSortHandle};
constexpr host::Subclass kSortents{"AcDbSortentsTable", kOrder};

} // namespace

std::span<const std::string_view> AcDbSortentsTable::markers() const
{
    static constexpr std::string_view own[] = {kSortents.marker};
    return own;
}

AcDbObjectId AcDbSortentsTable::blockId() const
{
    return id(kSortents, kBlock);
}

Acad::ErrorStatus AcDbSortentsTable::setBlockId(AcDbObjectId block)
{
    return setId(kSortents, kBlock, block);
}

std::unordered_map<std::uint64_t, std::size_t> AcDbSortentsTable::pairs() const
{
    std::unordered_map<std::uint64_t, std::size_t> positions;
    const std::optional<host::TagRange> range = host::subclassRange(tags(), kSortents.marker);
    for (std::size_t at = range ? range->first : 0; range && at + 1 < range->last; ++at)
        if (tags()[at].code == kEntity && tags()[at + 1].code == kSortHandle)
            positions.emplace(tags().handle(at), at + 1);
    return positions;
}

AcDbHandle AcDbSortentsTable::getSortHandle(AcDbObjectId entity) const
{
    const auto known = pairs();
    const auto pair = known.find(entity.handle().value());
    return pair == known.end() ? entity.handle() : AcDbHandle(tags().handle(pair->second));
}

bool AcDbSortentsTable::isOfBlock(AcDbObjectId entity) const
{
    return entity.databaseNumber() == drawing()->number && !entity.isErased() &&
           (drawing()->index[entity.stubNumber()].flags & host::kEntity) != 0 &&
           drawing()->blockOf(entity.stubNumber()) == blockId().stubNumber();
}

std::vector<AcDbObjectId> AcDbSortentsTable::getFullDrawOrder() const
{
    std::vector<AcDbObjectId> ids;
    if (!drawing() || !drawing()->blocks.contains(blockId().stubNumber()))
        return ids;
    const auto known = pairs();
    std::vector<std::pair<std::uint64_t, AcDbObjectId>> sorted;
    for (const std::uint32_t stub : drawing()->blocks.at(blockId().stubNumber()).entities) {
        const AcDbObjectId entity = drawing()->id(stub);
        if (entity.isErased())
            continue;
        const auto pair = known.find(entity.handle().value());
        sorted.emplace_back(
            pair == known.end() ? entity.handle().value() : tags().handle(pair->second), entity);
    }
    std::stable_sort(sorted.begin(), sorted.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    for (const auto& [handle, entity] : sorted)
        ids.push_back(entity);
    return ids;
}

Acad::ErrorStatus AcDbSortentsTable::setRelativeDrawOrder(std::span<const AcDbObjectId> entities)
{
    if (!isWriteEnabled() || !drawing())
        return Acad::eNotOpenForWrite;
    const auto known = pairs();
    std::vector<AcDbObjectId> ordered;
    std::vector<std::uint64_t> handles;
    std::unordered_set<AcDbObjectId> seen;
    for (const AcDbObjectId entity : entities) {
        if (!isOfBlock(entity) || !seen.insert(entity).second)
            continue;
        const auto pair = known.find(entity.handle().value());
        ordered.push_back(entity);
        handles.push_back(pair == known.end() ? entity.handle().value()
                                              : tags().handle(pair->second));
    }
    std::sort(handles.begin(), handles.end());

    if (ordered.empty())
        return Acad::eOk;
    std::size_t end = host::subclassRange(tags(), kSortents.marker)->last; // the block is in it
    for (std::size_t at = 0; at < ordered.size(); ++at) {
        const std::uint64_t own = ordered[at].handle().value();
        const auto pair = known.find(own);
        if (pair == known.end()) {
            if (handles[at] == own)
                continue;
            host::TagList& list = tagsForWrite();
            list.insertHandle(end++, kEntity, own);
            list.insertHandle(end++, kSortHandle, handles[at]);
        } else if (tags().handle(pair->second) != handles[at]) {
            tagsForWrite().setHandle(pair->second, handles[at]);
        }
    }
    return Acad::eOk;
}

Acad::ErrorStatus AcDbBlockTableRecord::getSortentsTable(AcDbSortentsTable*& table,
                                                         AcDb::OpenMode mode,
                                                         bool createIfNecessary)
{
    table = nullptr;
    if (!drawing())
        return Acad::eNotInDatabase;
    if (AcDbObjectId held = extensionDictionary(); !held.isNull()) {
        const AcDbObjectPointer<AcDbDictionary> dictionary(held, AcDb::kForRead);
        if (!dictionary)
            return dictionary.openStatus();
        const Acad::ErrorStatus status = dictionary->getAt(kKey, table, mode);
        if (status != Acad::eKeyNotFound || !createIfNecessary)
            return status;
    } else if (!createIfNecessary) {
        return Acad::eKeyNotFound;
    } else if (const Acad::ErrorStatus status = createExtensionDictionary(); status != Acad::eOk) {
        return status;
    }

    AcDbObjectPointer<AcDbDictionary> dictionary(extensionDictionary(), AcDb::kForWrite);
    if (!dictionary)
        return dictionary.openStatus();
    AcDbObjectPointer<AcDbSortentsTable> made;
    made.create();
    AcDbObjectId id;
    Acad::ErrorStatus status = dictionary->setAt(kKey, made.object(), id);
    if (status == Acad::eOk)
        status = made->setBlockId(objectId());
    if (status != Acad::eOk)
        return status;
    made.close();
    return acdbOpenObject(table, id, mode);
}
