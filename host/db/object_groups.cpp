#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/object.h"

#include <algorithm>

// The bracketed groups of a record's head: the extension dictionary and the objects that are told
// of changes.

using host::RecordHead;
using host::TagList;

namespace {

constexpr std::size_t npos = TagList::npos;

// Where bracketed groups begin: right behind the handle, if that stands in the head.
std::size_t behindHandle(const RecordHead& head)
{
    return head.handle < head.end ? head.handle + 1 : 1;
}

void writeGroup(TagList& tags, std::size_t at, std::wstring_view name, int code,
                std::uint64_t handle)
{
    tags.insertText(at, 102, name);
    tags.insertHandle(at + 1, code, handle);
    tags.insertText(at + 2, 102, L"}");
}

} // namespace

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
    adoptExtensionDictionary(dictionary->objectId());
    return Acad::eOk;
}

void AcDbObject::adoptExtensionDictionary(AcDbObjectId dictionary)
{
    TagList& own = tagsForWrite();
    const RecordHead head = host::recordHead(own);
    if (!head.dictionary.empty())
        own.erase(head.dictionary.first, head.dictionary.last); // named one that is gone
    const std::size_t at = head.dictionary.empty() ? behindHandle(head) : head.dictionary.first;
    writeGroup(own, at, L"{ACAD_XDICTIONARY", 360, dictionary.handle().value());
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
