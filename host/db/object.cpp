#include "host/db/object.h"

#include "host/db/class_table.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/erasing.h"
#include "host/db/layer_visibility.h"
#include "host/db/references.h"
#include "host/db/symbol_names.h"

#include <algorithm>
#include <cassert>

using host::Drawing;
using host::RecordHead;
using host::Stub;
using host::TagList;

ACRX_NO_CONS_DEFINE_MEMBERS(AcDbObject, AcRxObject)

namespace {

constexpr std::size_t npos = TagList::npos;

int handleCode(const TagList& tags)
{
    return tags[0].bytes() == "DIMSTYLE" ? 105 : 5;
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
    if (record && drawing.version <= host::DxfVersion::r12 &&
        host::drawingFormat().isEntityOfR12(own[0].bytes())) {
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
    if (erasing) {
        const Acad::ErrorStatus status = host::refusalToErase(*drawing_, stub_);
        if (status != Acad::eOk)
            return status;
    }
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
    for (const std::uint32_t stub : host::hardOwnedBy(*drawing_, stub_))
        owned.push_back(drawing_->id(stub));
    return owned;
}
