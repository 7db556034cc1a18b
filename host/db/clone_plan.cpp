#include "host/db/clone_plan.h"

#include "host/db/block_table.h"
#include "host/db/class_table.h"
#include "host/db/dictionary.h"
#include "host/db/layout.h"
#include "host/db/references.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::string_view kBlocks = "BLOCK_RECORD";
constexpr int kPlotStyle = 390;
constexpr int kMaterial = 347;
constexpr int kVisualStyle = 348;
constexpr int kDeepest = 64; // dictionaries in one another

constexpr Subclass kLayoutPart{"AcDbLayout"};
constexpr Subclass kStylePart{"AcDbTextStyleTableRecord"};

bool isLiving(const Stub& stub)
{
    return (stub.flags & (kErased | kNeverWas)) == 0;
}

bool isSpaceName(std::wstring_view name)
{
    const std::wstring lower = lowerCased(spaceNameOf(name));
    return lower == L"*model_space" || lower.starts_with(L"*paper_space");
}

// The anonymous blocks of dimensions and tables: what they show goes with one entity.
bool showsOneEntity(std::wstring_view name)
{
    const std::wstring lower = lowerCased(name.substr(0, 2));
    return lower == L"*d" || lower == L"*t";
}

// The file of a shape file's record, which has no name.
std::wstring shapeFileOf(Drawing& drawing, std::uint32_t stub)
{
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    return (integerField(*tags, kStylePart, 70, 0) & 1) ? textField(*tags, kStylePart, 3, {})
                                                        : std::wstring();
}

// 0 where the file names no block of its own.
std::uint32_t blockOfLayout(Drawing& drawing, std::uint32_t layout)
{
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(layout);
    const std::uint32_t block = drawing.index.findHandle(handleField(*tags, kLayoutPart, 330));
    return block && drawing.blocks.contains(block) ? block : 0;
}

// Records that every drawing has with the same contents.
bool isTheSameEverywhere(std::string_view table, std::wstring_view name)
{
    if (table == "APPID")
        return true;
    if (table != "LTYPE")
        return false;
    return equalNoCase(name, L"ByLayer") || equalNoCase(name, L"ByBlock") ||
           equalNoCase(name, L"Continuous");
}

} // namespace

CloneItem* ClonePlan::find(std::uint32_t original)
{
    const auto place = places_.find(original);
    return place == places_.end() ? nullptr : &items_[place->second];
}

CloneItem& ClonePlan::add(CloneItem item)
{
    places_.emplace(item.original, items_.size());
    items_.push_back(std::move(item));
    return items_.back();
}

void ClonePlan::addKnown(std::uint32_t original, AcDbObjectId result)
{
    if (original && !find(original))
        add({.original = original, .result = result});
}

// ---- what is asked for ----

bool ClonePlan::addPrimary(std::uint32_t original, AcDbObjectId owner)
{
    if (!isLiving(from_.index[original]))
        return false;
    owners_.push_back(owner);
    AcRxClass* const kind = owner.objectClass();
    const std::uint16_t flags = from_.index[original].flags;
    const std::string_view type = from_.index.types().name(from_.index[original].type);
    if (kind->isDerivedFrom(AcDbBlockTableRecord::desc())) {
        if ((flags & kEntity) == 0 || (flags & kChild) != 0)
            return false;
        addKnown(from_.blockOf(original), owner);
        visitEntity(original);
    } else if (kind->isDerivedFrom(AcDbSymbolTable::desc())) {
        const auto table = to_.tables.find(type);
        if (table == to_.tables.end() || to_.id(table->second.table) != owner)
            return false;
        visitSymbol(original);
    } else if (kind->isDerivedFrom(AcDbDictionary::desc())) {
        const std::uint32_t dictionary = holderOf(original);
        if (!dictionary || isDictionary(original))
            return false;
        addKnown(dictionary, owner);
        if (type == "LAYOUT" && !blockOfLayout(from_, original))
            addKnown(original, {}); // a tab of nothing
        visitObject(original);
    }
    CloneItem* const item = find(original);
    if (item)
        item->primary = true;
    return item != nullptr;
}

void ClonePlan::followAll()
{
    for (std::size_t place = 0; place < items_.size(); ++place)
        follow(place);
    if (!isWithin())
        return;
    const std::size_t planned = items_.size();
    for (std::size_t place = 0; place < planned; ++place)
        if (items_[place].isCopy())
            followReactors(items_[place].original);
}

// Pictures, for one, name those who show them.
void ClonePlan::followReactors(std::uint32_t original)
{
    const std::shared_ptr<const TagList> tags = from_.tagsOf(original);
    for (const Reference& reference : referencesOf(*tags)) {
        if (reference.kind != ReferenceKind::hardPointer)
            continue;
        const std::uint32_t target = from_.index.findHandle(tags->handle(reference.at));
        if (!target || find(target) || (from_.index[target].flags & kHasReactors) == 0 ||
            !isLiving(from_.index[target]))
            continue;
        const std::shared_ptr<const TagList> others = from_.tagsOf(target);
        const TagRange group = recordHead(*others).reactors;
        for (std::size_t i = group.first; i < group.last; ++i)
            if ((*others)[i].code == 330 && isCopied(from_.index.findHandle(others->handle(i))))
                addKnown(target, to_.id(target));
    }
}

// ---- what that needs ----

void ClonePlan::follow(std::size_t place)
{
    const CloneItem item = items_[place]; // a copy: the list grows
    if (!item.isCopy() && !item.replaces)
        return;
    const bool head = !item.replaces; // a known record keeps the groups of its head
    followTags(item.original, head, item.role != CloneRole::dictionary);
    if ((from_.index[item.original].flags & kEntity) != 0)
        for (const std::uint32_t child : from_.children(item.original))
            if (!find(child))
                add({.original = child, .role = CloneRole::child, .under = item.original});
    const std::string_view type = from_.index.types().name(from_.index[item.original].type);
    if (type == kBlocks)
        followBlock(item.original);
    else if (type == "LAYOUT")
        visitLayoutBlock(item.original);
}

void ClonePlan::followTags(std::uint32_t original, bool head, bool owned)
{
    const std::shared_ptr<const TagList> tags = from_.tagsOf(original);
    const std::size_t first = head ? 0 : recordHead(*tags).end;
    for (const Reference& reference : referencesOf(*tags)) {
        if (reference.at < first || reference.kind == ReferenceKind::softPointer)
            continue;
        if (reference.kind == ReferenceKind::name) {
            visitName(reference.table, tags->text(reference.at));
            continue;
        }
        const int code = (*tags)[reference.at].code;
        if (to_.version < DxfVersion::r2000 &&
            (code == kPlotStyle || code == kMaterial || code == kVisualStyle))
            continue;
        const std::uint32_t target = from_.index.findHandle(tags->handle(reference.at));
        if (!target)
            continue;
        if (reference.kind == ReferenceKind::hardPointer)
            visit(target);
        else if (owned)
            visitOwned(target, original);
    }
}

void ClonePlan::followBlock(std::uint32_t original)
{
    const auto block = from_.blocks.find(original);
    if (block == from_.blocks.end())
        return;
    for (const std::uint32_t mark : {block->second.begin, block->second.end})
        if (mark)
            followTags(mark, true, false);
    for (const std::uint32_t entity : block->second.entities)
        if (isLiving(from_.index[entity]) && !find(entity))
            add({.original = entity, .role = CloneRole::entity, .under = original});
}

void ClonePlan::visitName(std::string_view table, std::wstring_view name)
{
    if (name.empty())
        return;
    const std::uint32_t target = findSymbol(from_, table, name).stubNumber();
    if (!isWithin())
        visit(target);
    else if (target && table == kBlocks && showsOneEntity(name) && !find(target))
        add({.original = target, .role = CloneRole::block});
}

void ClonePlan::visit(std::uint32_t target)
{
    if (!target || find(target) || isWithin())
        return;
    const Stub& stub = from_.index[target];
    const std::string_view type = from_.index.types().name(stub.type);
    if (!isLiving(stub) || (stub.flags & kStructure) != 0 || type == "BLOCK" || type == "ENDBLK")
        return;
    if (symbolKind(type))
        visitSymbol(target);
    else if ((stub.flags & (kEntity | kChild)) != 0)
        visitEntity(target);
    else
        visitObject(target);
}

void ClonePlan::visitSymbol(std::uint32_t target)
{
    if (find(target))
        return;
    const std::string_view table = from_.index.types().name(from_.index[target].type);
    const std::wstring name = symbolName(from_, table, target);
    const bool block = table == kBlocks;
    if (block && (target == from_.modelSpace || target == from_.paperSpace)) {
        addKnown(target, to_.id(target == from_.modelSpace ? to_.modelSpace : to_.paperSpace));
        return;
    }
    if (block ? name.empty() || isSpaceName(name)
              : name.empty() && shapeFileOf(from_, target).empty())
        return;
    const AcDbObjectId own = ownSymbol(table, target);
    if (own.isNull()) {
        add({.original = target, .role = block ? CloneRole::block : CloneRole::symbol});
        return;
    }
    const bool owner = std::find(owners_.begin(), owners_.end(), own) != owners_.end();
    add({.original = target,
         .result = own,
         .replaces =
             duplicates_ == AcDb::kDrcReplace && !owner && !isTheSameEverywhere(table, name)});
}

// An entity comes with its block, or alone beside those that were asked for.
void ClonePlan::visitEntity(std::uint32_t target)
{
    if ((from_.index[target].flags & kChild) != 0 || find(target))
        return;
    const std::uint32_t block = from_.blockOf(target);
    const CloneItem* const place = find(block);
    if (place && !place->isCopy() && !place->replaces &&
        std::find(owners_.begin(), owners_.end(), place->result) != owners_.end())
        add({.original = target, .role = CloneRole::entity, .under = block});
}

void ClonePlan::visitObject(std::uint32_t target)
{
    if (find(target))
        return;
    const std::uint32_t holder = holderOf(target);
    if (target == from_.rootDictionary || (holder && isDictionary(target))) {
        visitDictionary(target);
    } else if (holder) {
        visitDictionary(holder);
        const CloneItem* const dictionary = find(holder);
        std::wstring key = dictionaryKey(from_, holder, target);
        if (!dictionary || key.empty())
            return;
        AcDbObjectId own;
        if (!dictionary->isCopy())
            own = dictionaryEntry(to_, dictionary->result.stubNumber(), key);
        // a tab's space and what stands in it stay
        const bool isLayout = classOfRecord(from_, target) == AcDbLayout::desc();
        if (own.isNull())
            add({.original = target,
                 .role = CloneRole::entry,
                 .under = holder,
                 .key = std::move(key)});
        else
            add({.original = target,
                 .result = own,
                 .replaces = duplicates_ == AcDb::kDrcReplace && !isLayout &&
                             own.objectClass() == classOfRecord(from_, target)});
    } else if (const CloneItem* const parent = find(from_.index[target].owner);
               parent && parent->isCopy()) {
        visitOwned(target, parent->original);
    }
}

void ClonePlan::visitOwned(std::uint32_t target, std::uint32_t owner)
{
    const Stub& stub = from_.index[target];
    if (find(target) || !isLiving(stub))
        return;
    if ((stub.owner && stub.owner != owner) || (stub.flags & (kEntity | kChild | kStructure)) != 0)
        visit(target);
    else
        add({.original = target, .role = CloneRole::owned, .under = owner});
}

void ClonePlan::visitLayoutBlock(std::uint32_t layout)
{
    const std::uint32_t block = blockOfLayout(from_, layout);
    if (block && block != from_.modelSpace && !find(block))
        add({.original = block, .role = CloneRole::block});
}

void ClonePlan::visitDictionary(std::uint32_t dictionary)
{
    if (find(dictionary))
        return;
    if (dictionary == from_.rootDictionary) {
        addKnown(dictionary, to_.id(to_.rootDictionary));
        return;
    }
    const std::uint32_t holder = holderOf(dictionary);
    if (!holder)
        return;
    visitDictionary(holder);
    const CloneItem* const parent = find(holder);
    std::wstring key = dictionaryKey(from_, holder, dictionary);
    if (!parent || key.empty())
        return;
    AcDbObjectId own;
    if (!parent->isCopy())
        own = dictionaryEntry(to_, parent->result.stubNumber(), key);
    if (own.isNull())
        add({.original = dictionary,
             .role = CloneRole::dictionary,
             .under = holder,
             .key = std::move(key)});
    else
        addKnown(dictionary, own);
}

bool ClonePlan::isDictionary(std::uint32_t stub) const
{
    const std::string_view type =
        stub ? from_.index.types().name(from_.index[stub].type) : std::string_view();
    return type == "DICTIONARY" || type == "ACDBDICTIONARYWDFLT";
}

std::uint32_t ClonePlan::holderOf(std::uint32_t object)
{
    const auto holder = holders_.find(object);
    return holder == holders_.end() ? 0 : holder->second;
}

void ClonePlan::findHolders(std::uint32_t dictionary, int depth)
{
    const std::shared_ptr<const TagList> tags = from_.tagsOf(dictionary);
    const std::size_t first = recordHead(*tags).end;
    for (const Reference& reference : referencesOf(*tags)) {
        if (reference.at < first || (reference.kind != ReferenceKind::softOwner &&
                                     reference.kind != ReferenceKind::hardOwner))
            continue;
        const std::uint32_t entry = from_.index.findHandle(tags->handle(reference.at));
        if (!entry || entry == from_.rootDictionary || !isLiving(from_.index[entry]) ||
            !holders_.emplace(entry, dictionary).second)
            continue;
        if (isDictionary(entry) && depth < kDeepest)
            findHolders(entry, depth + 1);
    }
}

// ---- what the drawing has ----

AcDbObjectId ClonePlan::ownSymbol(std::string_view table, std::uint32_t original)
{
    const std::wstring name = symbolName(from_, table, original);
    if (!name.empty()) // an anonymous block is never another's
        return table == kBlocks && name.starts_with(L'*') ? AcDbObjectId()
                                                          : findSymbol(to_, table, name);
    const std::wstring file = shapeFileOf(from_, original);
    if (table == "STYLE" && !file.empty())
        for (const std::uint32_t stub : to_.tables["STYLE"].records)
            if (isLiving(to_.index[stub]) && equalNoCase(shapeFileOf(to_, stub), file))
                return to_.id(stub);
    return {};
}

AcDbObjectId ClonePlan::ownEntry(std::uint32_t original)
{
    if (original == from_.rootDictionary)
        return to_.id(to_.rootDictionary);
    const std::uint32_t holder = holderOf(original);
    if (!holder)
        return {};
    const CloneItem* const planned = find(holder);
    const AcDbObjectId dictionary = planned ? planned->result : ownEntry(holder);
    const std::wstring key = dictionaryKey(from_, holder, original);
    return key.empty() ? AcDbObjectId() : dictionaryEntry(to_, dictionary.stubNumber(), key);
}

bool ClonePlan::isCopied(std::uint32_t original) const
{
    const auto place = places_.find(original);
    return place != places_.end() && items_[place->second].isCopy();
}

AcDbObjectId ClonePlan::resultOf(std::uint32_t original)
{
    if (!original)
        return {};
    if (const CloneItem* const item = find(original))
        return item->result;
    if (isWithin())
        return isLiving(from_.index[original]) ? to_.id(original) : AcDbObjectId();
    const std::string_view type = from_.index.types().name(from_.index[original].type);
    if (symbolKind(type))
        return ownSymbol(type, original);
    const bool object = (from_.index[original].flags & (kEntity | kChild | kStructure)) == 0 &&
                        type != "BLOCK" && type != "ENDBLK";
    return object ? ownEntry(original) : AcDbObjectId();
}

} // namespace host
