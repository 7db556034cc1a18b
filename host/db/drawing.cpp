#include "host/db/drawing.h"

#include "host/db/class_table.h"
#include "host/db/database.h"
#include "host/db/entity.h"
#include "host/db/implicit_objects.h"
#include "host/db/symbol_names.h"

#include <algorithm>
#include <cassert>
#include <utility>

namespace host {

namespace {

constexpr std::size_t kDecodedLimit = std::size_t{2} << 20; // bytes, once the first was exceeded
constexpr std::size_t kObjectBytes = 256;                   // of an object beside its tags, about
constexpr std::uint16_t kStateFlags = kHasDictionary | kHasReactors | kPaperSpace | kErased |
                                      kNeverWas | kImplicit | kMadeHandle | kChanged;

} // namespace

Drawing::Drawing(AcDbDatabase& owner, std::uint32_t databaseNumber)
    : database(owner), number(databaseNumber)
{
}

Drawing::~Drawing()
{
    for (std::uint32_t stub = 1; stub <= index.count(); ++stub)
        delete index[stub].object;
}

std::shared_ptr<const TagList> Drawing::tagsOf(std::uint32_t stub)
{
    const Stub& record = index[stub];
    if (record.object && record.object->tags_)
        return record.object->tags_;
    if ((record.flags & kImplicit) != 0)
        return implicitTags(*this, stub);
    auto tags = std::make_shared<TagList>(source);
    if (record.length > 0)
        tags->splitRecord(source->image()->data() + record.offset, record.length);
    return tags;
}

ObjectState Drawing::state(std::uint32_t stub)
{
    const Stub& record = index[stub];
    ObjectState state;
    if ((record.flags & kChanged) != 0 && record.object)
        state.tags = record.object->tags_;
    state.owner = record.owner;
    state.layer = record.layer;
    state.flags = record.flags;
    return state;
}

void Drawing::restore(std::uint32_t stub, const ObjectState& state)
{
    Stub& record = index[stub];
    const std::uint16_t before = record.flags;
    record.owner = state.owner;
    record.layer = state.layer;
    record.flags =
        static_cast<std::uint16_t>((record.flags & ~kStateFlags) | (state.flags & kStateFlags));
    if (state.tags && !record.object) {
        record.object = newObjectOf(*this, stub).release();
        record.object->drawing_ = this;
        record.object->stub_ = stub;
    }
    if (record.object) {
        record.object->tags_ = state.tags;
        // who still has it open for write begins anew, so that the journal hears of it
        record.object->changing_ = record.object->fresh_ = false;
        record.object->tagsReplaced();
    }
    noteChanged(stub);
    if (isSymbolRecord(*this, stub))
        ++symbolGeneration;
    if ((record.flags & kStructure) == 0)
        tellRestored(stub, before);
}

void Drawing::tellRestored(std::uint32_t stub, std::uint16_t before)
{
    Stub& record = index[stub];
    if (!record.object) {
        record.object = newObjectOf(*this, stub).release();
        record.object->drawing_ = this;
        record.object->stub_ = stub;
    }
    AcDbObject* const object = record.object;
    const bool gone = (record.flags & kErased) != 0;
    if (((before ^ record.flags) & kNeverWas) != 0) {
        database.tellReactors([&](AcDbDatabaseReactor& reactor) {
            gone ? reactor.objectUnAppended(&database, object)
                 : reactor.objectReAppended(&database, object);
        });
    } else if (((before ^ record.flags) & kErased) != 0) {
        database.tellReactors(
            [&](AcDbDatabaseReactor& reactor) { reactor.objectErased(&database, object, gone); });
    } else {
        database.tellReactors(
            [&](AcDbDatabaseReactor& reactor) { reactor.objectModified(&database, object); });
    }
    if (object->readers_ == 0 && !object->writer_)
        closed(*object);
}

std::uint64_t Drawing::spareHandle() const
{
    std::uint64_t greatest = std::max<std::uint64_t>(fileSeed, 1) - 1;
    for (std::uint32_t stub = 1; stub <= index.count(); ++stub)
        if ((index[stub].flags & kNeverWas) == 0)
            greatest = std::max(greatest, index[stub].handle);
    return greatest + 1;
}

std::uint32_t Drawing::addStub(std::uint16_t type, std::uint32_t owner, std::uint16_t flags)
{
    Stub stub;
    stub.type = type;
    stub.owner = owner;
    stub.flags = static_cast<std::uint16_t>(flags | kChanged);
    stub.handle = takeHandle();
    const std::uint32_t made = index.add(stub);
    index.enterHandle(made);
    noteChanged(made);
    return made;
}

void Drawing::noteChanged(std::uint32_t stub)
{
    changed_.insert(stub);
}

void Drawing::refreshStub(std::uint32_t stub, const TagList& tags)
{
    Stub& record = index[stub];
    const RecordHead head = recordHead(tags);
    std::uint16_t flags =
        record.flags & static_cast<std::uint16_t>(~(kHasDictionary | kHasReactors));
    if (!head.dictionary.empty())
        flags |= kHasDictionary;
    if (!head.reactors.empty())
        flags |= kHasReactors;
    if (flags & (kEntity | kChild)) {
        const std::size_t layer = findField(tags, kEntityPart, 8);
        record.layer = layer == TagList::npos ? 0 : index.layers().number(tags[layer].bytes());
    } else if (isSymbolRecord(*this, stub)) {
        ++symbolGeneration;
    }
    record.flags = flags;
}

void Drawing::closed(AcDbObject& object)
{
    Stub& record = index[object.stub_];
    if ((record.flags & kChanged) != 0 || !object.reactors_.empty())
        return;
    const std::size_t bytes =
        kObjectBytes + (object.tags_ ? object.tags_->size() * sizeof(Tag) : 0);
    if (object.queuedBytes_ == 0)
        decoded_.push_back(object.stub_);
    decodedBytes_ += bytes - object.queuedBytes_; // its tags may have been split since
    object.queuedBytes_ = bytes;
    if (decodedBytes_ > decodedLimit_)
        trimDecoded();
}

void Drawing::trimDecoded()
{
    // Who walks through more than fits finds nothing again; memory that stays in the processor's
    // cache serves him better.
    decodedLimit_ = kDecodedLimit;
    while (decodedBytes_ > kDecodedLimit / 2 && !decoded_.empty()) {
        const std::uint32_t oldest = decoded_.front();
        decoded_.pop_front();
        AcDbObject* const object = index[oldest].object;
        if (!object)
            continue;
        decodedBytes_ -= std::exchange(object->queuedBytes_, 0);
        if ((index[oldest].flags & kChanged) == 0 && object->reactors_.empty())
            forget(oldest);
    }
}

void Drawing::forget(std::uint32_t stub)
{
    AcDbObject*& object = index[stub].object;
    if (!object || object->readers_ > 0 || object->writer_)
        return;
    decodedBytes_ -= object->queuedBytes_;
    delete object;
    object = nullptr;
}

int Drawing::closeAllOpen()
{
    int count = 0;
    while (!openObjects.empty()) {
        ++count;
        AcDbObject* const object = index[openObjects.back()].object;
        if (!object || object->close() != Acad::eOk)
            openObjects.pop_back();
    }
    return count;
}

template <class Visit> void Drawing::eachChild(std::uint32_t parent, Visit visit) const
{
    for (std::uint32_t i = parent + 1; parent <= fileRecords && i <= fileRecords; ++i) {
        if ((index[i].flags & kChild) == 0 || index[i].owner != parent)
            break;
        visit(i);
        if (index.types().name(index[i].type) == "SEQEND")
            break;
    }
    if (const auto added = addedChildren.find(parent); added != addedChildren.end())
        for (const std::uint32_t child : added->second)
            visit(child);
}

std::vector<std::uint32_t> Drawing::children(std::uint32_t parent, bool withEnd) const
{
    std::vector<std::uint32_t> found;
    std::uint32_t end = 0;
    eachChild(parent, [&](std::uint32_t child) {
        if ((index[child].flags & kErased) != 0)
            return;
        if (index.types().name(index[child].type) == "SEQEND")
            end = child;
        else
            found.push_back(child);
    });
    if (withEnd && end)
        found.push_back(end);
    return found;
}

void Drawing::eraseChildren(std::uint32_t parent, bool erasing)
{
    eachChild(parent, [&](std::uint32_t child) {
        Stub& record = index[child];
        if (((record.flags & kErased) != 0) == erasing || (record.flags & kNeverWas) != 0)
            return;
        undo.willChange(*this, child);
        noteChanged(child);
        record.flags ^= kErased;
        if ((record.flags & kHasDictionary) == 0)
            return;
        const std::shared_ptr<const TagList> tags = tagsOf(child);
        const TagRange group = recordHead(*tags).dictionary;
        const std::size_t at = tags->find(360, group.first, group.last);
        AcDbObjectPointer<AcDbObject> dictionary(at == TagList::npos ? AcDbObjectId()
                                                                     : idOfHandle(tags->handle(at)),
                                                 AcDb::kForWrite, true);
        if (dictionary.openStatus() == Acad::eOk)
            dictionary->erase(erasing);
    });
}

std::uint32_t Drawing::blockOf(std::uint32_t entity) const
{
    std::uint32_t owner = index[entity].owner;
    if ((index[entity].flags & kChild) != 0 && (index[owner].flags & kEntity) != 0)
        owner = index[owner].owner;
    return owner;
}

} // namespace host
