#include "host/db/object.h"

#include "host/db/class_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/layer_visibility.h"
#include "host/db/symbol_names.h"
#include "host/db/xrecord.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <cassert>

using host::Drawing;
using host::RecordHead;
using host::Stub;
using host::TagList;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

namespace {

constexpr std::size_t npos = TagList::npos;
constexpr int kHardOwner = 360;

// Where bracketed groups begin: right behind the handle, if that stands in the head.
std::size_t behindHandle(const RecordHead& head)
{
    return head.handle < head.end ? head.handle + 1 : 1;
}

int handleCode(const TagList& tags)
{
    return tags[0].bytes() == "DIMSTYLE" ? 105 : 5;
}

void writeGroup(TagList& tags, std::size_t at, std::wstring_view name, int code,
                std::uint64_t handle)
{
    tags.insertText(at, 102, name);
    tags.insertHandle(at + 1, code, handle);
    tags.insertText(at + 2, 102, L"}");
}

} // namespace

AcDbObject::AcDbObject() = default;

template <class Call> void AcDbObject::tellReactors(Call call) const
{
    const std::vector<AcDbObjectReactor*> now = reactors_;
    for (AcDbObjectReactor* reactor : now)
        if (std::find(reactors_.begin(), reactors_.end(), reactor) != reactors_.end())
            call(*reactor);
}

AcDbObject::~AcDbObject()
{
    tellReactors([&](AcDbObjectReactor& reactor) { reactor.goodbye(this); });
}

AcDbObjectId AcDbObject::objectId() const
{
    return drawing_ ? drawing_->id(stub_) : AcDbObjectId();
}

AcDbDatabase* AcDbObject::database() const
{
    return drawing_ ? &drawing_->database : nullptr;
}

AcDbObjectId AcDbObject::ownerId() const
{
    return drawing_ ? drawing_->id(drawing_->index[stub_].owner) : AcDbObjectId();
}

bool AcDbObject::isErased() const
{
    return drawing_ && (drawing_->index[stub_].flags & host::kErased) != 0;
}

bool AcDbObject::isModified() const
{
    return drawing_ && (drawing_->index[stub_].flags & host::kChanged) != 0;
}

bool AcDbObject::isNewObject() const
{
    return !drawing_ || drawing_->index[stub_].length == 0;
}

AcDbObjectId AcDbObject::idOfHandle(std::uint64_t handle) const
{
    return drawing_ && handle ? drawing_->idOfHandle(handle) : AcDbObjectId();
}

// ---- tags ----

const TagList& AcDbObject::tags() const
{
    if (!tags_) {
        if (drawing_) {
            tags_ = drawing_->tagsOf(stub_);
        } else {
            auto fresh = std::make_shared<TagList>(host::drawingFormat().scratchSource());
            const std::string name = recordName();
            fresh->addText(0, std::wstring(name.begin(), name.end()));
            for (const std::string_view marker : markers()) {
                fresh->addText(100, std::wstring(marker.begin(), marker.end()));
                if (marker == host::kEntityPart.marker)
                    fresh->addText(8, L"0");
            }
            tags_ = std::move(fresh);
        }
    }
    return *tags_;
}

TagList& AcDbObject::tagsForWrite()
{
    assert(isWriteEnabled());
    tags();
    if (drawing_ && !changing_) {
        Stub& stub = drawing_->index[stub_];
        if (!fresh_) {
            drawing_->undo.willChange(*drawing_, stub_);
            AcDbDatabase& database = drawing_->database;
            database.tellReactors([&](AcDbDatabaseReactor& reactor) {
                reactor.objectOpenedForModify(&database, this);
            });
            tellReactors([&](AcDbObjectReactor& reactor) { reactor.openedForModify(this); });
        }
        changing_ = true;
        drawing_->noteChanged(stub_);
        stub.flags |= host::kChanged;
        tags_ = std::make_shared<TagList>(*tags_);
    } else if (tags_.use_count() > 1) {
        tags_ = std::make_shared<TagList>(*tags_);
    }
    return const_cast<TagList&>(*tags_); // made by make_shared<TagList> above or in tags()
}

// A record that is written anew takes the handle that it was given at opening. Done when the
// changes are complete: positions in the tags hold while they are made.
void AcDbObject::takeGivenHandle()
{
    Stub& stub = drawing_->index[stub_];
    if (!changing_ || (stub.flags & host::kMadeHandle) == 0)
        return;
    TagList& own = tagsForWrite();
    const RecordHead head = host::recordHead(own);
    if (head.handle != npos)
        own.setHandle(head.handle, stub.handle);
    else
        own.insertHandle(1, handleCode(own), stub.handle);
    stub.flags &= static_cast<std::uint16_t>(~host::kMadeHandle);
}

std::string AcDbObject::recordName() const
{
    const wchar_t* const name = isA()->dxfName();
    const std::wstring_view wide = name ? name : L"";
    return std::string(wide.begin(), wide.end());
}

Acad::ErrorStatus AcDbObject::setReal(const host::Subclass& part, int code, double value,
                                      double fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setRealField(*this, part, code, value, fallback);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::setInteger(const host::Subclass& part, int code, int value,
                                         int fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setIntegerField(*this, part, code, value, fallback);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::setFlag(const host::Subclass& part, int code, int bit, bool on)
{
    const int now = integer(part, code, 0);
    return setInteger(part, code, on ? now | bit : now & ~bit, 0);
}

Acad::ErrorStatus AcDbObject::setText(const host::Subclass& part, int code, std::wstring_view value,
                                      std::wstring_view fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setTextField(*this, part, code, value, fallback);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::setPoint(const host::Subclass& part, int code,
                                       const AcGePoint3d& value)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setPointField(*this, part, code, value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::setId(const host::Subclass& part, int code, AcDbObjectId value)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    setHandleField(*this, part, code, value.handle().value());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removeFieldOf(const host::Subclass& part, int code)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    removeField(*this, part, code);
    return Acad::eOk;
}

// ---- opening and closing ----

Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased)
{
    object = nullptr;
    if (id.isNull())
        return Acad::eNullObjectId;
    AcDbDatabase* const database = id.database();
    if (!database)
        return Acad::eNoDatabase;
    Drawing& drawing = database->drawing();
    const std::uint32_t number = id.stubNumber();
    if (number == 0 || number > drawing.index.count())
        return Acad::eUnknownHandle;
    Stub& stub = drawing.index[number];
    if ((stub.flags & host::kErased) != 0) {
        if ((stub.flags & host::kNeverWas) != 0)
            return Acad::ePermanentlyErased;
        if (!openErased)
            return Acad::eWasErased;
    }
    if ((stub.flags & host::kStructure) != 0 &&
        !drawing.index.types().name(stub.type).starts_with("TABLE "))
        return Acad::eWrongObjectType;
    if (mode == AcDb::kForWrite) {
        if (stub.object && stub.object->writer_)
            return Acad::eWasOpenForWrite;
        if (stub.object && stub.object->readers_ > 0)
            return Acad::eWasOpenForRead;
        if ((stub.flags & (host::kEntity | host::kChild)) != 0 &&
            host::layerIsLocked(drawing, stub.layer))
            return Acad::eOnLockedLayer;
    } else if (stub.object && stub.object->writer_) {
        return Acad::eWasOpenForWrite;
    }
    if (!stub.object) {
        stub.object = host::newObjectOf(drawing, number).release();
        stub.object->drawing_ = &drawing;
        stub.object->stub_ = number;
    }
    object = stub.object;
    if (mode == AcDb::kForWrite)
        object->writer_ = true;
    else
        ++object->readers_;
    drawing.openObjects.push_back(number);
    return Acad::eOk;
}

void AcDbObject::tellModified()
{
    AcDbDatabase& database = drawing_->database;
    if (!fresh_)
        database.tellReactors(
            [&](AcDbDatabaseReactor& reactor) { reactor.objectModified(&database, this); });
    tellReactors([&](AcDbObjectReactor& reactor) { reactor.modified(this); });
}

void AcDbObject::endWriting()
{
    if (changing_ || fresh_) {
        takeGivenHandle();
        drawing_->refreshStub(stub_, tags());
        tellModified();
    }
    writer_ = changing_ = fresh_ = false;
}

Acad::ErrorStatus AcDbObject::close()
{
    if (!drawing_)
        return Acad::eNotInDatabase;
    if (!writer_ && readers_ == 0)
        return Acad::eInvalidOpenState;
    if (writer_)
        endWriting();
    else
        --readers_;
    std::vector<std::uint32_t>& open = drawing_->openObjects;
    const auto entry = std::find(open.rbegin(), open.rend(), stub_);
    if (entry != open.rend())
        open.erase(std::next(entry).base());
    tellReactors([&](AcDbObjectReactor& reactor) { reactor.objectClosed(this); });
    if (!writer_ && readers_ == 0)
        drawing_->closed(*this);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::upgradeOpen()
{
    if (!drawing_ || writer_)
        return Acad::eOk;
    if (readers_ != 1)
        return readers_ > 1 ? Acad::eWasOpenForRead : Acad::eNotOpenForRead;
    const Stub& stub = drawing_->index[stub_];
    if ((stub.flags & (host::kEntity | host::kChild)) != 0 &&
        host::layerIsLocked(*drawing_, stub.layer))
        return Acad::eOnLockedLayer;
    readers_ = 0;
    writer_ = true;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::downgradeOpen()
{
    if (!drawing_)
        return Acad::eNotInDatabase;
    if (!writer_)
        return Acad::eNotOpenForWrite;
    endWriting();
    readers_ = 1;
    return Acad::eOk;
}

// ---- joining a database, erasing ----

Acad::ErrorStatus AcDbObject::addToDatabase(Drawing& drawing, AcDbObjectId owner,
                                            std::uint16_t stubFlags)
{
    if (drawing_)
        return Acad::eAlreadyInDb;
    TagList own = tags().inSource(drawing.source);
    const std::uint32_t number = drawing.addStub(drawing.index.types().number(own[0].bytes()),
                                                 owner.stubNumber(), stubFlags);
    Stub& stub = drawing.index[number];
    own.insertHandle(1, handleCode(own), stub.handle);
    const bool record = (stubFlags & (host::kEntity | host::kChild)) != 0;
    if (record && drawing.version <= host::DxfVersion::r12) {
        for (std::size_t i = own.size(); i-- > 0;)
            if (own[i].code == 100)
                own.erase(i, i + 1);
    } else if (!owner.isNull()) {
        own.insertHandle(host::recordHead(own).end, 330, owner.handle().value());
    }
    tags_ = std::make_shared<const TagList>(std::move(own));
    drawing_ = &drawing;
    stub_ = number;
    stub.object = this;
    writer_ = fresh_ = true;
    drawing.refreshStub(number, *tags_);
    drawing.undo.created(drawing, number);
    drawing.openObjects.push_back(number);
    AcDbDatabase& database = drawing.database;
    database.tellReactors(
        [&](AcDbDatabaseReactor& reactor) { reactor.objectAppended(&database, this); });
    return Acad::eOk;
}

void AcDbObject::setOwnerId(AcDbObjectId owner)
{
    assert(drawing_ && isWriteEnabled());
    TagList& own = tagsForWrite();
    drawing_->index[stub_].owner = owner.stubNumber();
    const RecordHead head = host::recordHead(own);
    if (head.owner != npos)
        own.setHandle(head.owner, owner.handle().value());
    else if (host::hasMarkers(own))
        own.insertHandle(head.end, 330, owner.handle().value());
}

Acad::ErrorStatus AcDbObject::erase(bool erasing)
{
    if (!drawing_)
        return Acad::eNotInDatabase;
    if (!writer_)
        return Acad::eNotOpenForWrite;
    Stub& stub = drawing_->index[stub_];
    if (erasing == ((stub.flags & host::kErased) != 0))
        return Acad::eOk;
    drawing_->undo.willChange(*drawing_, stub_);
    drawing_->noteChanged(stub_);
    if (erasing)
        stub.flags |= host::kErased;
    else
        stub.flags &= static_cast<std::uint16_t>(~host::kErased);
    if (host::isSymbolRecord(*drawing_, stub_))
        ++drawing_->symbolGeneration;
    for (const AcDbObjectId id : hardOwned()) {
        AcDbObjectPointer<AcDbObject> owned(id, AcDb::kForWrite, true);
        if (owned.openStatus() == Acad::eOk)
            owned->erase(erasing);
    }
    subErase(erasing);
    if (erasing) {
        // what lists this object among its members loses it: a dictionary, a group, a hatch with
        // its boundary
        std::vector<AcDbObjectId> holders = persistentReactors();
        if (ownerId().objectClass() &&
            ownerId().objectClass()->isDerivedFrom(AcDbDictionary::desc()))
            holders.push_back(ownerId());
        for (const AcDbObjectId holder : holders) {
            AcDbObjectPointer<AcDbObject> object(holder, AcDb::kForWrite);
            if (object.openStatus() == Acad::eOk)
                object->memberErased(objectId());
        }
    }
    AcDbDatabase& database = drawing_->database;
    database.tellReactors(
        [&](AcDbDatabaseReactor& reactor) { reactor.objectErased(&database, this, erasing); });
    tellReactors([&](AcDbObjectReactor& reactor) { reactor.erased(this, erasing); });
    return Acad::eOk;
}

std::vector<AcDbObjectId> AcDbObject::hardOwned() const
{
    std::vector<AcDbObjectId> owned;
    for (std::size_t i = 0; i < tags().size(); ++i) {
        if (tags()[i].code != kHardOwner)
            continue;
        const AcDbObjectId id = idOfHandle(tags().handle(i));
        if (!id.isNull() && drawing_->index[id.stubNumber()].owner == stub_)
            owned.push_back(id);
    }
    return owned;
}

// ---- extension dictionary ----

AcDbObjectId AcDbObject::ownExtensionDictionary() const
{
    if (drawing_ && !changing_ && !fresh_ &&
        (drawing_->index[stub_].flags & host::kHasDictionary) == 0)
        return {};
    const host::TagRange group = host::recordHead(tags()).dictionary;
    for (std::size_t i = group.first; i < group.last; ++i)
        if (tags()[i].code == 360 || tags()[i].code == 350)
            return idOfHandle(tags().handle(i));
    return {};
}

AcDbObjectId AcDbObject::extensionDictionary() const
{
    const AcDbObjectId id = ownExtensionDictionary();
    return id.isErased() ? AcDbObjectId() : id;
}

Acad::ErrorStatus AcDbObject::createExtensionDictionary()
{
    if (!drawing_)
        return Acad::eNotInDatabase;
    if (!writer_)
        return Acad::eNotOpenForWrite;
    if (!extensionDictionary().isNull())
        return Acad::eAlreadyInDb;
    AcDbObjectPointer<AcDbDictionary> dictionary;
    dictionary.create();
    dictionary->setTreatElementsAsHard(true);
    const Acad::ErrorStatus status = dictionary->addToDatabase(*drawing_, objectId(), 0);
    if (status != Acad::eOk)
        return status;
    TagList& own = tagsForWrite();
    const RecordHead head = host::recordHead(own);
    if (!head.dictionary.empty())
        own.erase(head.dictionary.first, head.dictionary.last); // named one that is gone
    const std::size_t at = head.dictionary.empty() ? behindHandle(head) : head.dictionary.first;
    writeGroup(own, at, L"{ACAD_XDICTIONARY", 360, dictionary->handle().value());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::releaseExtensionDictionary()
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const AcDbObjectId id = extensionDictionary();
    if (id.isNull())
        return Acad::eKeyNotFound;
    AcDbObjectPointer<AcDbDictionary> dictionary(id, AcDb::kForWrite);
    if (dictionary.openStatus() != Acad::eOk)
        return dictionary.openStatus();
    if (dictionary->numEntries() > 0)
        return Acad::eContainerNotEmpty;
    dictionary->erase();
    dictionary.close();
    TagList& own = tagsForWrite();
    const host::TagRange group = host::recordHead(own).dictionary;
    own.erase(group.first, group.last);
    return Acad::eOk;
}

// ---- reactors ----

void AcDbObject::addReactor(AcDbObjectReactor* reactor)
{
    if (std::find(reactors_.begin(), reactors_.end(), reactor) == reactors_.end())
        reactors_.push_back(reactor);
}

void AcDbObject::removeReactor(AcDbObjectReactor* reactor)
{
    std::erase(reactors_, reactor);
}

std::vector<AcDbObjectId> AcDbObject::persistentReactors() const
{
    std::vector<AcDbObjectId> ids;
    if (drawing_ && !changing_ && !fresh_ &&
        (drawing_->index[stub_].flags & host::kHasReactors) == 0)
        return ids;
    const host::TagRange group = host::recordHead(tags()).reactors;
    for (std::size_t i = group.first; i < group.last; ++i)
        if (tags()[i].code == 330)
            ids.push_back(idOfHandle(tags().handle(i)));
    return ids;
}

Acad::ErrorStatus AcDbObject::addPersistentReactor(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::vector<AcDbObjectId> now = persistentReactors();
    if (std::find(now.begin(), now.end(), id) != now.end())
        return Acad::eOk;
    TagList& own = tagsForWrite();
    const RecordHead head = host::recordHead(own);
    if (!head.reactors.empty())
        own.insertHandle(head.reactors.last - 1, 330, id.handle().value());
    else
        writeGroup(own, head.dictionary.empty() ? behindHandle(head) : head.dictionary.last,
                   L"{ACAD_REACTORS", 330, id.handle().value());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbObject::removePersistentReactor(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const host::TagRange group = host::recordHead(tags()).reactors;
    for (std::size_t i = group.first; i < group.last; ++i) {
        if (tags()[i].code != 330 || tags().handle(i) != id.handle().value())
            continue;
        TagList& own = tagsForWrite();
        if (group.last - group.first <= 3)
            own.erase(group.first, group.last);
        else
            own.erase(i, i + 1);
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

// ---- extended data, filing out, copying ----

namespace {

// The extended data of one application, its 1001 included; empty at the end where there is none.
host::TagRange dataRange(const TagList& tags, std::wstring_view application)
{
    for (std::size_t first = host::dataEnd(tags); first < tags.size();) {
        std::size_t last = first + 1;
        while (last < tags.size() && tags[last].code != 1001)
            ++last;
        if (host::equalNoCase(tags.text(first), application))
            return {first, last};
        first = last;
    }
    return {tags.size(), tags.size()};
}

// Equal codes and values, however the file writes them.
bool sameValues(const TagList& tags, host::TagRange range, const TagList& others)
{
    if (range.last - range.first != others.size())
        return false;
    for (std::size_t i = 0; i < others.size(); ++i) {
        const std::size_t own = range.first + i;
        if (tags[own].code != others[i].code)
            return false;
        if (tags[own].bytes() == others[i].bytes())
            continue;
        const host::TagKind kind = host::tagKind(others[i].code);
        const bool same =
            kind == host::TagKind::real   ? tags.real(own) == others.real(i)
            : kind == host::TagKind::text ? tags.text(own) == others.text(i)
            : kind == host::TagKind::handle
                ? tags.handle(own) == others.handle(i)
                : kind != host::TagKind::binary && tags.integer(own) == others.integer(i);
        if (!same)
            return false;
    }
    return true;
}

} // namespace

ResbufChain AcDbObject::xData(std::wstring_view application) const
{
    const TagList& own = tags();
    const host::TagRange range = application.empty()
                                     ? host::TagRange{host::dataEnd(own), own.size()}
                                     : dataRange(own, application);
    return host::itemsOf(own, range.first, range.last);
}

Acad::ErrorStatus AcDbObject::setXData(const ResbufChain& data)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (data.empty() || data.front().restype != 1001)
        return Acad::eInvalidInput;
    TagList items(tags().source());
    if (data.size() > 1)
        for (const resbuf& item : data)
            host::appendItem(items, item);
    const host::TagRange now = dataRange(tags(), data.front().resval.rstring);
    if (sameValues(tags(), now, items))
        return Acad::eOk;
    TagList& own = tagsForWrite();
    TagList written(own.source());
    for (std::size_t i = 0; i < now.first; ++i)
        written.addTag(own[i]);
    for (const host::Tag& tag : items)
        written.addTag(tag);
    for (std::size_t i = now.last; i < own.size(); ++i)
        written.addTag(own[i]);
    own = std::move(written);
    return Acad::eOk;
}

namespace {

void fileOut(AcDbDxfFiler& filer, const TagList& tags, std::size_t& i)
{
    const int code = tags[i].code;
    switch (host::tagKind(code)) {
    case host::TagKind::real:
        if (i + 1 < tags.size() && tags[i + 1].code == code + 10 && code != 38 &&
            (code < 40 || code >= 110)) {
            AcGePoint3d point{tags.real(i), tags.real(i + 1), 0.0};
            ++i;
            if (i + 1 < tags.size() && tags[i + 1].code == code + 20)
                point.z = tags.real(++i);
            filer.writePoint3d(code, point);
        } else {
            filer.writeDouble(code, tags.real(i));
        }
        break;
    case host::TagKind::int16:
        filer.writeInt16(code, static_cast<std::int16_t>(tags.integer(i)));
        break;
    case host::TagKind::int32:
        filer.writeInt32(code, static_cast<std::int32_t>(tags.integer(i)));
        break;
    case host::TagKind::int64:
        filer.writeInt64(code, tags.integer(i));
        break;
    case host::TagKind::boolean:
        filer.writeBoolean(code, tags.integer(i) != 0);
        break;
    case host::TagKind::handle:
        filer.writeHandle(code, AcDbHandle(tags.handle(i)));
        break;
    case host::TagKind::binary:
        filer.writeBChunk(code, tags.form().binary(tags[i]));
        break;
    case host::TagKind::text:
        filer.writeString(code, tags.text(i));
        break;
    case host::TagKind::comment:
        break;
    }
}

// A record of R12 has no markers. With them the handle comes first, then the common codes, then
// what is the class's own.
TagList withMarkers(const TagList& tags, std::span<const std::string_view> markers)
{
    if (markers.empty() || host::hasMarkers(tags))
        return tags;
    const std::span<const short> common = host::kEntityPart.order;
    const bool entity = markers.front() == host::kEntityPart.marker;
    const std::size_t dataEnd = host::dataEnd(tags);
    const RecordHead head = host::recordHead(tags);
    const bool late = head.handle != npos && head.handle >= head.end;
    const auto isCommon = [&](std::size_t i) {
        return entity && i < dataEnd &&
               std::find(common.begin(), common.end(), tags[i].code) != common.end();
    };
    TagList marked(tags.source());
    const auto addMarker = [&](std::string_view marker) {
        marked.insertBytes(marked.size(), 100, marker);
    };
    marked.addTag(tags[0]);
    if (late)
        marked.addTag(tags[head.handle]);
    for (std::size_t i = 1; i < head.end; ++i)
        marked.addTag(tags[i]);
    addMarker(markers.front());
    for (std::size_t i = head.end; i < tags.size(); ++i)
        if (isCommon(i))
            marked.addTag(tags[i]);
    for (const std::string_view marker : markers.subspan(1))
        addMarker(marker);
    for (std::size_t i = head.end; i < tags.size(); ++i)
        if (!isCommon(i) && !(late && i == head.handle))
            marked.addTag(tags[i]);
    return marked;
}

} // namespace

Acad::ErrorStatus AcDbObject::dxfOutFields(AcDbDxfFiler* filer) const
{
    if (!filer)
        return Acad::eNullObjectPointer;
    const TagList own = withMarkers(tags(), markers());
    for (std::size_t i = 0; i < own.size(); ++i)
        fileOut(*filer, own, i);
    return Acad::eOk;
}

std::unique_ptr<AcDbObject> AcDbObject::clone() const
{
    std::unique_ptr<AcRxObject> made(isA()->create());
    auto* const copy = AcDbObject::cast(made.get());
    if (!copy)
        return nullptr;
    made.release();
    std::unique_ptr<AcDbObject> result(copy);
    TagList own = withMarkers(tags().inSource(host::drawingFormat().scratchSource()), markers());
    own.erase(1, host::recordHead(own).end); // handle, groups and owner are the original's
    result->tags_ = std::make_shared<const TagList>(std::move(own));
    return result;
}
