#include "import/drawing_resources.h"

#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/id_mapping.h"
#include "host/db/layout_manager.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/text/case_mapping.h"
#include "import/block_nesting.h"

#include <optional>
#include <unordered_set>

namespace {

constexpr std::wstring_view kModelTab = L"model";

// What one kind has to bring.
struct Selection {
    std::vector<AcDbObjectId> ids;
    std::vector<std::wstring> names; // of the same records, lower-cased
};

class Wanted {
public:
    explicit Wanted(const std::vector<std::wstring>& names) : names_(names.begin(), names.end()) {}
    bool holds(std::wstring_view name) const { return names_.empty() || names_.contains(name); }

private:
    std::unordered_set<std::wstring_view> names_;
};

class Collector {
public:
    Collector(const AcDbDatabase& source, const AcDbDatabase& target)
        : source_(source), target_(target)
    {
    }

    // Nothing when the table cannot be opened. A dictionary that the file lacks is an empty one.
    std::optional<Selection> collect(ResourceKind kind, const std::vector<std::wstring>& wanted)
    {
        const AcDbObjectId owner = ownerOf(kind, source_);
        if (kind == ResourceKind::textStyle && !wanted.empty())
            return namedRecords(owner, wanted);
        if (isSymbolKind(kind))
            return records(kind, owner, Wanted(wanted));
        if (owner.isNull())
            return Selection();
        return entries(kind, owner, Wanted(wanted));
    }

private:
    std::optional<Selection> records(ResourceKind kind, AcDbObjectId owner, const Wanted& wanted)
    {
        const AcDbObjectPointer<AcDbSymbolTable> table(owner, AcDb::kForRead);
        if (!table)
            return std::nullopt;
        Selection taken;
        for (const auto entry = table->newIterator(); !entry->done(); entry->step()) {
            const AcDbObjectId id = entry->getRecordId();
            const AcDbObjectPointer<AcDbSymbolTableRecord> record(id, AcDb::kForRead);
            if (!record)
                continue;
            std::wstring name = host::lowerCased(record->name());
            if (!wanted.holds(name) || (kind == ResourceKind::block && !isUsableBlock(id)))
                continue;
            taken.ids.push_back(id);
            taken.names.push_back(std::move(name));
        }
        return taken;
    }

    static std::optional<Selection> namedRecords(AcDbObjectId owner,
                                                 const std::vector<std::wstring>& wanted)
    {
        const AcDbObjectPointer<AcDbSymbolTable> table(owner, AcDb::kForRead);
        if (!table)
            return std::nullopt;
        Selection taken;
        for (const std::wstring& name : wanted) {
            AcDbObjectId id;
            if (table->getAt(name, id) != Acad::eOk)
                continue;
            taken.ids.push_back(id);
            taken.names.push_back(name);
        }
        return taken;
    }

    std::optional<Selection> entries(ResourceKind kind, AcDbObjectId owner, const Wanted& wanted)
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(owner, AcDb::kForRead);
        if (!dictionary)
            return std::nullopt;
        const std::unordered_set<std::wstring> present =
            kind == ResourceKind::layout ? tabsOfTarget() : std::unordered_set<std::wstring>();
        Selection taken;
        for (const auto entry = dictionary->newIterator(); !entry->done(); entry->next()) {
            std::wstring name = host::lowerCased(entryName(kind, *entry));
            if (!wanted.holds(name) || present.contains(name))
                continue;
            taken.ids.push_back(entry->objectId());
            taken.names.push_back(std::move(name));
        }
        return taken;
    }

    // Multiline styles have a name of their own, which may differ from their key.
    static std::wstring entryName(ResourceKind kind, const AcDbDictionaryIterator& entry)
    {
        if (kind == ResourceKind::mlineStyle) {
            const AcDbObjectPointer<AcDbMlineStyle> style(entry.objectId(), AcDb::kForRead);
            if (style)
                return style->name();
        }
        return entry.name();
    }

    // Every drawing has the tab of its model space, also where the file does not say so.
    std::unordered_set<std::wstring> tabsOfTarget() const
    {
        std::unordered_set<std::wstring> tabs{std::wstring(kModelTab)};
        const AcDbObjectPointer<AcDbDictionary> layouts(ownerOf(ResourceKind::layout, target_),
                                                        AcDb::kForRead);
        if (!layouts)
            return tabs;
        for (const auto entry = layouts->newIterator(); !entry->done(); entry->next())
            tabs.insert(host::lowerCased(entry->name()));
        return tabs;
    }

    bool isUsableBlock(AcDbObjectId id)
    {
        const AcDbObjectPointer<AcDbBlockTableRecord> block(id, AcDb::kForRead);
        return block && !block->isAnonymous() && !block->isLayout() && !nesting_.isEndless(id);
    }

    const AcDbDatabase& source_;
    const AcDbDatabase& target_;
    BlockNesting nesting_;
};

bool cloneInto(AcDbDatabase& target, ResourceKind kind, const std::vector<AcDbObjectId>& ids)
{
    const AcDbObjectId owner = ensureOwner(kind, target);
    AcDbIdMapping mapping;
    return !owner.isNull() &&
           target.wblockCloneObjects(ids, owner, mapping, AcDb::kDrcIgnore) == Acad::eOk;
}

} // namespace

bool cloneResources(const std::filesystem::path& path, ResourceKinds kinds,
                    const ResourceNames& wanted, AcDbDatabase& target, ResourceNames& found)
{
    const auto source = std::make_unique<AcDbDatabase>(false, true);
    if (source->readDwgFile(path) != Acad::eOk)
        return false;
    Collector collector(*source, target);
    for (const ResourceKind kind : kResourceKinds) {
        if ((kinds & bitOf(kind)) == 0 || kind == ResourceKind::pattern)
            continue;
        std::optional<Selection> taken = collector.collect(kind, wanted[kind]);
        if (!taken)
            return false;
        if (!taken->ids.empty() && !cloneInto(target, kind, taken->ids))
            return false;
        if (kind == ResourceKind::layout)
            acdbHostApplicationServices()->layoutManager()->updateLayoutTabs(&target);
        found[kind] = std::move(taken->names);
    }
    return true;
}
