#include "host/commands/attribute_sync.h"

#include "host/commands/reference_attributes.h"
#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/database.h"
#include "host/db/dynamic_block.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_names.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <functional>

namespace host {

namespace {

// What has tags, in order. Tags are compared without case; the first of two equal ones is met
// first.
class Tagged {
public:
    void add(std::wstring_view tag, AcDbObjectId id) { items_.push_back({lowerCased(tag), id}); }

    // Leaves the collection; null id for a tag that is not there.
    AcDbObjectId take(std::wstring_view tag)
    {
        const auto found = std::find_if(items_.begin(), items_.end(), [&](const Item& item) {
            return !item.taken && item.tag == lowerCased(tag);
        });
        if (found == items_.end())
            return {};
        found->taken = true;
        return found->id;
    }
    std::vector<AcDbObjectId> rest() const
    {
        std::vector<AcDbObjectId> ids;
        for (const Item& item : items_)
            if (!item.taken)
                ids.push_back(item.id);
        return ids;
    }
    // The place of an id in the order of coming.
    std::size_t place(AcDbObjectId id) const
    {
        return static_cast<std::size_t>(
            std::find_if(items_.begin(), items_.end(),
                         [&](const Item& item) { return item.id == id; }) -
            items_.begin());
    }

private:
    struct Item {
        std::wstring tag;
        AcDbObjectId id;
        bool taken = false;
    };
    std::vector<Item> items_;
};

bool sameContents(const TagList& held, const TagList& wanted)
{
    const std::size_t from = recordHead(held).end;
    return held.size() - from == wanted.size() - 1 &&
           std::equal(held.begin() + static_cast<std::ptrdiff_t>(from), held.end(),
                      wanted.begin() + 1, [](const Tag& a, const Tag& b) {
                          return a.code == b.code && a.bytes() == b.bytes();
                      });
}

void takeContents(AcDbObject& object, const TagList& wanted)
{
    TagList own = wanted.inSource(object.tags().source());
    if (!hasMarkers(object.tags())) // R12
        dropMarkers(own);
    if (!sameContents(object.tags(), own))
        object.replaceContents(own);
}

bool eraseObject(AcDbObjectId id)
{
    const AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite);
    return object && object->erase() == Acad::eOk;
}

template <class T> std::vector<AcDbObjectId> entitiesOf(AcDbObjectId blockId)
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTableRecord> block(blockId, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    if (!block || block->newIterator(walk) != Acad::eOk)
        return ids;
    for (; !walk->done(); walk->step())
        if (const AcRxClass* const kind = walk->entityId().objectClass();
            kind && kind->isDerivedFrom(T::desc()))
            ids.push_back(walk->entityId());
    return ids;
}

std::vector<AcDbObjectId> blocksOf(AcDbDatabase& database)
{
    std::vector<AcDbObjectId> ids;
    const AcDbObjectPointer<AcDbBlockTable> table(database.blockTableId(), AcDb::kForRead);
    if (table)
        for (const auto each = table->newIterator(); !each->done(); each->step())
            ids.push_back(each->getRecordId());
    return ids;
}

bool standsFor(AcDbObjectId anonymous, AcDbObjectId dynamic)
{
    const AcDbObjectPointer<AcDbBlockTableRecord> record(anonymous, AcDb::kForRead);
    return record && record->isAnonymous() && record->dynamicDefinition() == dynamic;
}

// The anonymous block's definitions become those of the dynamic one.
void syncDefinitions(AcDbObjectId dynamic, AcDbObjectId anonymous)
{
    Tagged held;
    for (const AcDbObjectId id : entitiesOf<AcDbAttributeDefinition>(anonymous))
        if (const AcDbObjectPointer<AcDbAttributeDefinition> one(id, AcDb::kForRead); one)
            held.add(one->tag(), id);
    for (const AcDbObjectId id : entitiesOf<AcDbAttributeDefinition>(dynamic)) {
        const AcDbObjectPointer<AcDbAttributeDefinition> model(id, AcDb::kForRead);
        if (!model)
            continue;
        std::unique_ptr<AcDbObject> copy = model->clone();
        const AcDbObjectPointer<AcDbAttributeDefinition> known(held.take(model->tag()),
                                                               AcDb::kForWrite);
        if (known) {
            takeContents(*known, copy->tags());
            continue;
        }
        AcDbObjectPointer<AcDbEntity> added;
        added.acquire(AcDbEntity::cast(copy.release()));
        const AcDbObjectPointer<AcDbBlockTableRecord> block(anonymous, AcDb::kForWrite);
        if (block)
            block->appendAcDbEntity(added.object());
    }
    for (const AcDbObjectId gone : held.rest())
        eraseObject(gone);
}

// Tells in the reference that attributes follow, or takes the end of a sequence that has become
// empty along with the mark.
void closeSequence(AcDbBlockReference& reference)
{
    if (!reference.attributes().empty())
        return;
    Drawing& drawing = *reference.drawing();
    for (const std::uint32_t end : drawing.children(reference.stubNumber(), true))
        eraseObject(drawing.id(end));
    const std::size_t mark = reference.tags().find(66);
    if (mark != TagList::npos)
        reference.tagsForWrite().erase(mark, mark + 1);
}

// Where a paper space holds the reference, its attributes say so too.
void keepSpace(const TagList& from, AcDbAttribute& to)
{
    const std::size_t at = findField(from, kEntityPart, 67);
    if (at == TagList::npos)
        return;
    TagList& tags = to.tagsForWrite();
    tags.insertInteger(placeOfField(tags, kEntityPart, 67), 67, from.integer(at));
}

// False when a locked layer keeps something as it was.
bool syncReference(AcDbBlockReference& reference)
{
    Tagged held;
    for (const AcDbObjectId id : reference.attributes())
        if (const AcDbObjectPointer<AcDbAttribute> one(id, AcDb::kForRead); one)
            held.add(one->tag(), id);

    bool whole = true;
    bool appending = false; // what follows a new attribute is made anew to stand behind it
    std::size_t behind = 0; // the place that the last kept one has in the reference
    for (const AcDbObjectId id : variableDefinitions(reference.blockTableRecord())) {
        const AcDbObjectPointer<AcDbAttributeDefinition> definition(id, AcDb::kForRead);
        if (!definition)
            continue;
        std::wstring value = definition->textString();
        const AcDbObjectId known = held.take(definition->tag());
        if (!known.isNull()) {
            const AcDbObjectPointer<AcDbAttribute> attribute(known, AcDb::kForWrite);
            if (!attribute) {
                whole = false;
                continue;
            }
            value = attribute->textString();
            const std::size_t place = held.place(known);
            appending |= place < behind;
            if (!appending) {
                behind = place;
                const std::unique_ptr<AcDbAttribute> wanted =
                    attributeOf(*definition, reference, value);
                keepSpace(attribute->tags(), *wanted);
                setLines(wanted->tagsForWrite(), linesOf(attribute->tags()));
                takeContents(*attribute, wanted->tags());
                continue;
            }
            attribute->erase();
        }
        appending = true;
        AcDbObjectPointer<AcDbAttribute> attribute;
        attribute.acquire(attributeOf(*definition, reference, value).release());
        AcDbObjectId added;
        reference.appendAttribute(added, attribute.object());
    }
    for (const AcDbObjectId gone : held.rest())
        whole &= eraseObject(gone);
    closeSequence(reference);
    return whole;
}

} // namespace

std::vector<AcDbObjectId> referencesOfBlock(AcDbObjectId block)
{
    std::vector<AcDbObjectId> found;
    AcDbDatabase* const database = block.database();
    if (!database)
        return found;
    for (const AcDbObjectId holder : blocksOf(*database))
        for (const AcDbObjectId id : entitiesOf<AcDbBlockReference>(holder)) {
            const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForRead);
            if (reference &&
                (reference->blockTableRecord() == block ||
                 AcDbDynBlockReference(reference.object()).dynamicBlockTableRecord() == block))
                found.push_back(id);
        }
    return found;
}

SyncOutcome syncAttributes(AcDbObjectId block)
{
    SyncOutcome outcome;
    AcDbDatabase* const database = block.database();
    if (!database)
        return outcome;
    for (const AcDbObjectId id : blocksOf(*database))
        if (standsFor(id, block))
            syncDefinitions(block, id);
    for (const AcDbObjectId id : referencesOfBlock(block)) {
        const AcDbObjectPointer<AcDbBlockReference> reference(id, AcDb::kForWrite);
        ++outcome.references;
        if (!reference || !syncReference(*reference))
            ++outcome.locked;
    }
    return outcome;
}

} // namespace host
