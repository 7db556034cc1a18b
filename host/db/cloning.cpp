#include "host/db/block_begin.h"
#include "host/db/block_table.h"
#include "host/db/clone_contents.h"
#include "host/db/clone_plan.h"
#include "host/db/dictionary.h"
#include "host/db/hatch.h"
#include "host/db/id_mapping.h"
#include "host/db/layout.h"
#include "host/db/references.h"
#include "host/db/sequence.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/xrecord.h"

#include <algorithm>

// Copies go into the drawing with the handles and names of where they come from, stay open, and are
// mapped when all of them are there: they point at each other both ways.

using host::CloneItem;
using host::CloneRole;
using host::Drawing;
using host::Reference;
using host::ReferenceKind;
using host::TagList;

namespace {

constexpr std::string_view kBlocks = "BLOCK_RECORD";

class Cloner {
public:
    Cloner(Drawing& from, Drawing& to, host::ClonePlan& plan) : from_(from), to_(to), plan_(plan) {}
    Cloner(const Cloner&) = delete;
    Cloner& operator=(const Cloner&) = delete;
    ~Cloner()
    {
        while (!order_.empty()) {
            order_.back()->close();
            order_.pop_back();
        }
    }

    // The first failure; what could not be made is null to all others.
    Acad::ErrorStatus run()
    {
        Acad::ErrorStatus result = Acad::eOk;
        for (CloneItem& item : plan_.items()) {
            const Acad::ErrorStatus status = item.isCopy()   ? make(item)
                                             : item.replaces ? replace(item)
                                                             : Acad::eOk;
            if (result == Acad::eOk)
                result = status;
        }
        for (const CloneItem& item : plan_.items())
            finish(item);
        return result;
    }

private:
    template <class T> T* opened(AcDbObjectId id)
    {
        auto place = objects_.find(id);
        if (place == objects_.end()) {
            AcDbObject* object = nullptr;
            status_ = acdbOpenAcDbObject(object, id, AcDb::kForWrite);
            if (!object)
                return nullptr;
            place = keep(*object);
        }
        return T::cast(place->second);
    }
    std::unordered_map<AcDbObjectId, AcDbObject*>::iterator keep(AcDbObject& object)
    {
        order_.push_back(&object);
        return objects_.emplace(object.objectId(), &object).first;
    }
    AcDbObjectId parentOf(const CloneItem& item) { return plan_.resultOf(item.under); }
    std::unique_ptr<AcDbObject> copyOf(std::uint32_t original)
    {
        borrowClass(original);
        return host::copyForVersion(from_, original, to_.version);
    }

    void borrowClass(std::uint32_t original);
    bool keepsShapeElsewhere(std::uint32_t original) const;
    Acad::ErrorStatus make(CloneItem& item);
    Acad::ErrorStatus put(const CloneItem& item, AcDbObject& copy);
    Acad::ErrorStatus putSymbol(const CloneItem& item, AcDbObject& copy);
    Acad::ErrorStatus replace(const CloneItem& item);
    void copyBlockBegin(const CloneItem& item, AcDbObjectId block, const std::wstring& name);
    std::wstring nameOfBlock(const CloneItem& item);
    void finish(const CloneItem& item);
    void mapReferences(AcDbObject& object, bool ownersToo);
    void mapName(AcDbObject& object, const Reference& reference);
    bool losesSource(const AcDbObject& object, const Reference& reference,
                     std::uint32_t original) const;
    void takeGroups(const CloneItem& item, AcDbObject& object);
    void takeReactors(const CloneItem& item, AcDbObject& object);

    Drawing& from_;
    Drawing& to_;
    host::ClonePlan& plan_;
    Acad::ErrorStatus status_ = Acad::eOk;                  // of the latest opening
    std::unordered_map<AcDbObjectId, AcDbObject*> objects_; // open for write
    std::vector<AcDbObject*> order_;
};

// A type of records that this program makes no CLASS for brings its own along.
void Cloner::borrowClass(std::uint32_t original)
{
    const std::string_view type = from_.index.types().name(from_.index[original].type);
    if (plan_.isWithin() || to_.borrowedClasses.contains(type))
        return;
    for (const host::SectionPlace& section : from_.sections)
        for (std::uint32_t i = section.first + 1; section.name == "CLASSES" && i < section.end;
             ++i) {
            const std::shared_ptr<const TagList> tags = from_.tagsOf(i);
            const std::size_t name = tags->find(1);
            if (name != TagList::npos && (*tags)[name].bytes() == type) {
                to_.borrowedClasses.emplace(type, tags->inSource(to_.source));
                return;
            }
        }
    if (const auto borrowed = from_.borrowedClasses.find(type);
        borrowed != from_.borrowedClasses.end())
        to_.borrowedClasses.emplace(type, borrowed->second.inSource(to_.source));
}

// From R2013 on the shape of a modeller's body stands in a section of its own, in a schema that
// other drawings number otherwise. A body without its shape would be a broken one.
bool Cloner::keepsShapeElsewhere(std::uint32_t original) const
{
    constexpr host::Subclass kBody{"AcDbModelerGeometry"};
    constexpr int kShapeText = 1;
    const std::shared_ptr<const TagList> tags = from_.tagsOf(original);
    const auto isShapes = [](const host::SectionPlace& place) { return place.name == "ACDSDATA"; };
    return tags->find(100, kBody.marker) != TagList::npos &&
           host::findField(*tags, kBody, kShapeText) == TagList::npos &&
           std::any_of(from_.sections.begin(), from_.sections.end(), isShapes);
}

// ---- making ----

Acad::ErrorStatus Cloner::make(CloneItem& item)
{
    if (keepsShapeElsewhere(item.original))
        return Acad::eNotApplicable;
    std::unique_ptr<AcDbObject> copy = copyOf(item.original);
    if (!copy)
        return Acad::eNotThatKindOfClass;
    status_ = Acad::eOk;
    const Acad::ErrorStatus status = put(item, *copy);
    if (!copy->drawing())
        return status == Acad::eOk ? Acad::eInvalidInput : status;
    AcDbObject& made = *copy.release(); // the drawing's
    keep(made);
    item.result = made.objectId();
    if (AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(&made))
        copyBlockBegin(item, item.result, block->name());
    return status;
}

Acad::ErrorStatus Cloner::put(const CloneItem& item, AcDbObject& copy)
{
    AcDbObjectId id;
    const auto orStatus = [&](Acad::ErrorStatus other) {
        return status_ != Acad::eOk ? status_ : other;
    };
    switch (item.role) {
    case CloneRole::symbol:
    case CloneRole::block:
        return putSymbol(item, copy);
    case CloneRole::dictionary:
        for (std::size_t i = copy.tags().size(); i-- > 1;)
            if (const int code = copy.tags()[i].code; code == 3 || code == 350 || code == 360)
                copy.tagsForWrite().erase(i, i + 1);
        [[fallthrough]];
    case CloneRole::entry: {
        AcDbDictionary* const dictionary = opened<AcDbDictionary>(parentOf(item));
        return dictionary ? dictionary->setAt(item.key, &copy, id)
                          : orStatus(Acad::eNullObjectPointer);
    }
    case CloneRole::entity: {
        AcDbBlockTableRecord* const block = opened<AcDbBlockTableRecord>(parentOf(item));
        AcDbEntity* const entity = AcDbEntity::cast(&copy);
        return block && entity ? block->appendAcDbEntity(id, entity)
                               : orStatus(Acad::eIllegalEntityType);
    }
    case CloneRole::child: {
        AcDbEntity* const parent = opened<AcDbEntity>(parentOf(item));
        AcDbEntity* const child = AcDbEntity::cast(&copy);
        return parent && child ? host::appendChild(*parent, *child)
                               : orStatus(Acad::eIllegalEntityType);
    }
    case CloneRole::owned: {
        const AcDbObjectId owner = parentOf(item);
        if (owner.isNull())
            return Acad::eNullObjectId;
        const Acad::ErrorStatus status = copy.addToDatabase(to_, owner, 0);
        if (AcDbXrecord* const record = AcDbXrecord::cast(&copy); record && status == Acad::eOk)
            record->joinedDatabase();
        return status;
    }
    case CloneRole::known:
        break;
    }
    return Acad::eInvalidInput;
}

Acad::ErrorStatus Cloner::putSymbol(const CloneItem& item, AcDbObject& copy)
{
    AcDbSymbolTableRecord* const record = AcDbSymbolTableRecord::cast(&copy);
    const auto place = record ? to_.tables.find(record->recordName()) : to_.tables.end();
    if (place == to_.tables.end())
        return Acad::eWrongObjectType;
    AcDbSymbolTable* const table = opened<AcDbSymbolTable>(to_.id(place->second.table));
    if (!table)
        return status_;
    if (item.role == CloneRole::block)
        record->setName(nameOfBlock(item));
    AcDbObjectId id;
    return table->add(id, record);
}

// An anonymous block and a further paper space get the next free number; the table itself numbers
// "*" and a letter.
std::wstring Cloner::nameOfBlock(const CloneItem& item)
{
    std::wstring name = host::spaceNameOf(host::symbolName(from_, kBlocks, item.original));
    if (!name.starts_with(L'*') || name.size() < 2)
        return name;
    constexpr std::wstring_view paper = ACDB_PAPER_SPACE;
    if (!host::equalNoCase(name.substr(0, paper.size()), paper))
        return name.substr(0, 2);
    for (int number = 0;; ++number) {
        std::wstring free = std::wstring(paper) + std::to_wstring(number);
        if (host::findSymbol(to_, kBlocks, free).isNull())
            return free;
    }
}

void Cloner::copyBlockBegin(const CloneItem& item, AcDbObjectId block, const std::wstring& name)
{
    const auto from = from_.blocks.find(item.original);
    const auto to = to_.blocks.find(block.stubNumber());
    if (from == from_.blocks.end() || to == to_.blocks.end() || !from->second.begin)
        return;
    AcDbBlockBegin* const begin = opened<AcDbBlockBegin>(to_.id(to->second.begin));
    const std::unique_ptr<AcDbObject> copy = copyOf(from->second.begin);
    if (!begin || !copy)
        return;
    if (to_.version <= host::DxfVersion::r12)
        host::dropMarkers(copy->tagsForWrite());
    begin->replaceContents(copy->tags());
    begin->setName(name);
    mapReferences(*begin, true);
}

Acad::ErrorStatus Cloner::replace(const CloneItem& item)
{
    AcDbObject* const known = opened<AcDbObject>(item.result);
    const std::unique_ptr<AcDbObject> copy = copyOf(item.original);
    if (!known || !copy)
        return known ? Acad::eNotThatKindOfClass : status_;
    AcDbBlockTableRecord* const block = AcDbBlockTableRecord::cast(known);
    if (to_.version <= host::DxfVersion::r12 && AcDbSymbolTableRecord::cast(known))
        host::dropMarkers(copy->tagsForWrite());
    std::wstring name; // stays as the drawing writes it
    if (const auto* const symbol = AcDbSymbolTableRecord::cast(known))
        name = symbol->name();
    known->replaceContents(copy->tags());
    if (AcDbSymbolTableRecord* const symbol = AcDbSymbolTableRecord::cast(known);
        symbol && !name.empty())
        symbol->setName(name);
    if (!block)
        return Acad::eOk;
    const std::vector<std::uint32_t> entities = to_.blocks[block->stubNumber()].entities;
    for (const std::uint32_t stub : entities) {
        AcDbObjectPointer<AcDbEntity> entity(to_.id(stub), AcDb::kForWrite);
        if (entity.openStatus() == Acad::eOk)
            entity->erase();
    }
    copyBlockBegin(item, item.result, name);
    return Acad::eOk;
}

// ---- mapping ----

void Cloner::finish(const CloneItem& item)
{
    const auto place = objects_.find(item.result);
    if (item.isCopy() || item.replaces) {
        if (place == objects_.end())
            return;
        AcDbObject& object = *place->second;
        // entries of such a dictionary were put in one by one
        mapReferences(object, item.role != CloneRole::dictionary);
        if (object.tags()[0].bytes() == "DIMSTYLE")
            host::spellArrows(object);
        if (!item.replaces)
            takeGroups(item, object);
    } else if (from_.index[item.original].flags & host::kHasReactors) {
        if (AcDbObject* const known = opened<AcDbObject>(item.result))
            takeReactors(item, *known);
    }
}

void Cloner::mapReferences(AcDbObject& object, bool ownersToo)
{
    const std::vector<Reference> references = host::referencesOf(object.tags());
    const std::size_t first = host::recordHead(object.tags()).end;
    for (auto reference = references.rbegin(); reference != references.rend(); ++reference) {
        if (reference->at < first)
            continue;
        if (reference->kind == ReferenceKind::name) {
            mapName(object, *reference);
            continue;
        }
        const bool owner = reference->kind == ReferenceKind::softOwner ||
                           reference->kind == ReferenceKind::hardOwner;
        const std::uint64_t handle = object.tags().handle(reference->at);
        if (handle == 0 || (owner && !ownersToo))
            continue;
        const std::uint32_t original = from_.index.findHandle(handle);
        const AcDbObjectId result = plan_.resultOf(original);
        if (result.isNull() || losesSource(object, *reference, original))
            object.loseReference(reference->at);
        else
            object.tagsForWrite().setHandle(reference->at, result.handle().value());
    }
}

// A hatch is no longer bound to a boundary that it was copied without.
bool Cloner::losesSource(const AcDbObject& object, const Reference& reference,
                         std::uint32_t original) const
{
    return plan_.isWithin() && AcDbHatch::cast(&object) &&
           object.tags()[reference.at].code == 330 && !plan_.isCopied(original);
}

void Cloner::mapName(AcDbObject& object, const Reference& reference)
{
    const std::wstring name = object.tags().text(reference.at);
    const std::uint32_t original =
        name.empty() ? 0 : host::findSymbol(from_, reference.table, name).stubNumber();
    const AcDbObjectId result = plan_.resultOf(original);
    if (result.isNull())
        return;
    const std::wstring own = host::symbolName(to_, reference.table, result.stubNumber());
    if (!own.empty() && !host::equalNoCase(own, name))
        object.tagsForWrite().setText(reference.at, own);
}

void Cloner::takeGroups(const CloneItem& item, AcDbObject& object)
{
    const std::uint16_t flags = from_.index[item.original].flags;
    if ((flags & host::kHasDictionary) != 0) {
        const std::shared_ptr<const TagList> tags = from_.tagsOf(item.original);
        const host::TagRange group = host::recordHead(*tags).dictionary;
        for (std::size_t i = group.first; i < group.last; ++i)
            if ((*tags)[i].code == 360 || (*tags)[i].code == 350) {
                const AcDbObjectId dictionary =
                    plan_.resultOf(from_.index.findHandle(tags->handle(i)));
                if (!dictionary.isNull())
                    object.adoptExtensionDictionary(dictionary);
            }
    }
    if ((flags & host::kHasReactors) != 0)
        takeReactors(item, object);
}

// Those that were copied too.
void Cloner::takeReactors(const CloneItem& item, AcDbObject& object)
{
    const std::shared_ptr<const TagList> tags = from_.tagsOf(item.original);
    const host::TagRange group = host::recordHead(*tags).reactors;
    for (std::size_t i = group.first; i < group.last; ++i) {
        if ((*tags)[i].code != 330)
            continue;
        const AcDbObjectId reactor = plan_.resultOf(from_.index.findHandle(tags->handle(i)));
        const auto made = objects_.find(reactor);
        if (made != objects_.end() && made->second->isNewObject())
            object.addPersistentReactor(reactor);
    }
}

// Copied layouts stand behind the drawing's own, in their order.
void orderTabs(const std::vector<CloneItem>& items, Drawing& drawing)
{
    std::vector<AcDbObjectId> copied;
    for (const CloneItem& item : items)
        if (item.isCopy() && item.result.objectClass() == AcDbLayout::desc())
            copied.push_back(item.result);
    if (copied.empty())
        return;
    int last = 0;
    AcDbObjectPointer<AcDbDictionary> dictionary(drawing.database.layoutDictionaryId(),
                                                 AcDb::kForRead);
    if (dictionary.openStatus() != Acad::eOk)
        return;
    for (auto entries = dictionary->newIterator(); !entries->done(); entries->next())
        if (std::find(copied.begin(), copied.end(), entries->objectId()) == copied.end()) {
            AcDbObjectPointer<AcDbLayout> layout(entries->objectId(), AcDb::kForRead);
            if (layout.openStatus() == Acad::eOk)
                last = std::max(last, layout->getTabOrder());
        }
    for (const AcDbObjectId id : copied) {
        AcDbObjectPointer<AcDbLayout> layout(id, AcDb::kForWrite);
        if (layout.openStatus() == Acad::eOk)
            layout->setTabOrder(++last);
    }
}

Acad::ErrorStatus cloneObjects(Drawing& from, Drawing& to, const std::vector<AcDbObjectId>& ids,
                               AcDbObjectId owner, AcDbIdMapping& mapping,
                               AcDb::DuplicateRecordCloning duplicates)
{
    {
        AcDbObjectPointer<AcDbObject> free(owner, AcDb::kForWrite);
        if (free.openStatus() != Acad::eOk)
            return free.openStatus();
    }
    host::ClonePlan plan(from, to, duplicates);
    for (const AcDbObjectId id : ids)
        if (!plan.addPrimary(id.stubNumber(), owner))
            return Acad::eInvalidInput;
    plan.followAll();
    const Acad::ErrorStatus status = Cloner(from, to, plan).run();
    orderTabs(plan.items(), to);
    for (const CloneItem& item : plan.items())
        mapping.assign({from.id(item.original), item.result, item.isCopy(), item.primary});
    return status;
}

} // namespace

Acad::ErrorStatus AcDbDatabase::wblockCloneObjects(const std::vector<AcDbObjectId>& ids,
                                                   AcDbObjectId owner, AcDbIdMapping& mapping,
                                                   AcDb::DuplicateRecordCloning duplicates)
{
    if (duplicates != AcDb::kDrcIgnore && duplicates != AcDb::kDrcReplace)
        return Acad::eInvalidInput;
    if (owner.database() != this || owner.isErased())
        return Acad::eInvalidInput;
    if (ids.empty())
        return Acad::eOk;
    AcDbDatabase* const other = ids.front().database();
    if (!other || other == this || std::any_of(ids.begin(), ids.end(), [&](AcDbObjectId id) {
            return id.database() != other || id.isErased();
        }))
        return Acad::eInvalidInput;
    return cloneObjects(other->drawing(), *drawing_, ids, owner, mapping, duplicates);
}

Acad::ErrorStatus AcDbDatabase::deepCloneObjects(const std::vector<AcDbObjectId>& ids,
                                                 AcDbObjectId owner, AcDbIdMapping& mapping)
{
    if (owner.database() != this || owner.isErased() ||
        !owner.objectClass()->isDerivedFrom(AcDbBlockTableRecord::desc()))
        return Acad::eInvalidInput;
    if (std::any_of(ids.begin(), ids.end(),
                    [&](AcDbObjectId id) { return id.database() != this || id.isErased(); }))
        return Acad::eInvalidInput;
    return cloneObjects(*drawing_, *drawing_, ids, owner, mapping, AcDb::kDrcIgnore);
}
