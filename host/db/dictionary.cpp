#include "host/db/dictionary.h"

#include "host/db/drawing.h"
#include "host/db/object_pointer.h"
#include "host/db/xrecord.h"

#include <algorithm>
#include <optional>

ACRX_DXF_DEFINE_MEMBERS(AcDbDictionary, AcDbObject, "DICTIONARY")
ACRX_DXF_DEFINE_MEMBERS(AcDbDictionaryWithDefault, AcDbDictionary, "ACDBDICTIONARYWDFLT")

using host::TagList;
using host::TagRange;

namespace {

constexpr std::size_t npos = TagList::npos;

constexpr int kKey = 3;
constexpr int kSoftOwner = 350;
constexpr int kHardOwner = 360;
constexpr int kHard = 280;
constexpr int kCloning = 281;
constexpr int kKeepExisting = 1;

constexpr short kOrder[] = {280, 281};
constexpr host::Subclass kPart{"AcDbDictionary", kOrder};
constexpr host::Subclass kDefaultPart{"AcDbDictionaryWithDefault"};

bool isPointer(const host::Tag& tag)
{
    return tag.code == kSoftOwner || tag.code == kHardOwner;
}

// One entry in the tags: its key, its pointer (npos for a key alone), and where it ends.
struct EntryPlace {
    std::size_t key = npos;
    std::size_t pointer = npos;
    std::size_t end = npos;
};

// Calls `visit` for each entry in order until it answers false.
template <class Visit> void eachEntry(const TagList& tags, Visit visit)
{
    const std::optional<TagRange> range = host::subclassRange(tags, kPart.marker);
    if (!range)
        return;
    for (std::size_t i = range->first; i < range->last;) {
        if (tags[i].code != kKey) {
            ++i;
            continue;
        }
        EntryPlace place{i, npos, i + 1};
        while (place.end < range->last && tags[place.end].code != kKey) {
            if (isPointer(tags[place.end]) && place.pointer == npos)
                place.pointer = place.end;
            ++place.end;
        }
        i = place.end;
        if (!visit(place))
            return;
    }
}

bool livesIn(const host::Drawing& drawing, std::uint64_t handle)
{
    const std::uint32_t stub = drawing.index.findHandle(handle);
    return stub && (drawing.index[stub].flags & host::kErased) == 0;
}

// The code of a new entry: what the flag demands, else what the last entry has.
int codeOfNewEntry(const TagList& tags)
{
    if (host::integerField(tags, kPart, kHard, 0) == 1)
        return kHardOwner;
    int code = kSoftOwner;
    eachEntry(tags, [&](const EntryPlace& place) {
        if (place.pointer != npos)
            code = tags[place.pointer].code;
        return true;
    });
    return code;
}

} // namespace

struct AcDbDictionary::EntryTags : EntryPlace {};

// ---- reading ----

std::span<const std::string_view> AcDbDictionary::markers() const
{
    static constexpr std::string_view own[] = {kPart.marker};
    return own;
}

const std::vector<AcDbDictionary::Entry>& AcDbDictionary::entries() const
{
    if (read_)
        return entries_;
    entries_.clear();
    positions_.clear();
    const TagList& own = tags();
    eachEntry(own, [&](const EntryPlace& place) {
        const std::uint64_t handle = place.pointer == npos ? 0 : own.handle(place.pointer);
        entries_.push_back({own.text(place.key), idOfHandle(handle)});
        positions_.try_emplace(entries_.back().name, entries_.size() - 1);
        return true;
    });
    read_ = true;
    return entries_;
}

const AcDbDictionary::Entry* AcDbDictionary::find(std::wstring_view name) const
{
    entries();
    const auto found = positions_.find(name);
    return found == positions_.end() ? nullptr : &entries_[found->second];
}

AcDbDictionary::EntryTags AcDbDictionary::tagsOfEntry(std::size_t number) const
{
    EntryTags found;
    eachEntry(tags(), [&](const EntryPlace& place) {
        if (number-- > 0)
            return true;
        static_cast<EntryPlace&>(found) = place;
        return false;
    });
    return found;
}

Acad::ErrorStatus AcDbDictionary::getAt(std::wstring_view name, AcDbObjectId& id) const
{
    id.setNull();
    const Entry* const entry = find(name);
    if (!entry || entry->id.isErased())
        return Acad::eKeyNotFound;
    id = entry->id;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::getAt(std::wstring_view name, AcDbObject*& entry,
                                        AcDb::OpenMode mode) const
{
    entry = nullptr;
    AcDbObjectId id;
    const Acad::ErrorStatus status = getAt(name, id);
    return status == Acad::eOk ? acdbOpenAcDbObject(entry, id, mode) : status;
}

bool AcDbDictionary::has(std::wstring_view name) const
{
    AcDbObjectId id;
    return getAt(name, id) == Acad::eOk;
}

bool AcDbDictionary::has(AcDbObjectId id) const
{
    std::wstring name;
    return nameAt(id, name) == Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::nameAt(AcDbObjectId id, std::wstring& name) const
{
    name.clear();
    if (id.isErased())
        return Acad::eKeyNotFound;
    for (const Entry& entry : entries()) {
        if (entry.id != id)
            continue;
        name = entry.name;
        return Acad::eOk;
    }
    return Acad::eKeyNotFound;
}

std::uint32_t AcDbDictionary::numEntries() const
{
    return static_cast<std::uint32_t>(
        std::count_if(entries().begin(), entries().end(),
                      [](const Entry& entry) { return !entry.id.isErased(); }));
}

bool AcDbDictionary::isTreatElementsAsHard() const
{
    return integer(kPart, kHard, 0) != 0;
}

std::unique_ptr<AcDbDictionaryIterator> AcDbDictionary::newIterator() const
{
    std::vector<Entry> living;
    for (const Entry& entry : entries())
        if (!entry.id.isErased())
            living.push_back(entry);
    return std::make_unique<AcDbDictionaryIterator>(std::move(living));
}

// ---- changing ----

Acad::ErrorStatus AcDbDictionary::setAt(std::wstring_view name, AcDbObject* value, AcDbObjectId& id)
{
    id.setNull();
    if (!drawing())
        return Acad::eNotInDatabase;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (name.empty())
        return Acad::eInvalidKey;
    if (!value)
        return Acad::eNullObjectPointer;
    if (value->database())
        return Acad::eAlreadyInDb;

    entries();
    const auto known = positions_.find(name);
    const bool replaces = known != positions_.end();
    if (replaces && !entries_[known->second].id.isErased()) {
        AcDbObjectPointer<AcDbObject> before(entries_[known->second].id, AcDb::kForWrite);
        if (before.openStatus() != Acad::eOk)
            return before.openStatus();
        before->erase();
    }

    if (AcDbDictionary* const dictionary = AcDbDictionary::cast(value))
        dictionary->complete();
    const Acad::ErrorStatus status = value->addToDatabase(*drawing(), objectId(), 0);
    if (status != Acad::eOk)
        return status;
    if (AcDbXrecord* const record = AcDbXrecord::cast(value))
        record->joinedDatabase();
    value->addPersistentReactor(objectId());
    id = value->objectId();
    const std::uint64_t handle = id.handle().value();

    if (replaces) {
        const EntryTags place = tagsOfEntry(known->second);
        TagList& own = tagsForWrite();
        if (place.pointer != npos)
            own.setHandle(place.pointer, handle);
        else
            own.insertHandle(place.key + 1, codeOfNewEntry(own), handle);
        entries_[known->second].id = id;
        return Acad::eOk;
    }
    TagList& own = tagsForWrite();
    const std::optional<TagRange> range = host::subclassRange(own, kPart.marker);
    const std::size_t end = range ? range->last : host::dataEnd(own);
    const int code = codeOfNewEntry(own);
    own.insertText(end, kKey, name);
    own.insertHandle(end + 1, code, handle);
    entries_.push_back({std::wstring(name), id});
    positions_.try_emplace(entries_.back().name, entries_.size() - 1);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::setName(std::wstring_view oldName, std::wstring_view newName)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (newName.empty())
        return Acad::eInvalidKey;
    const Entry* const entry = find(oldName);
    if (!entry || entry->id.isErased())
        return Acad::eKeyNotFound;
    const Entry* const other = find(newName);
    if (other && other != entry && !other->id.isErased())
        return Acad::eDuplicateKey;
    std::size_t number = static_cast<std::size_t>(entry - entries_.data());
    if (other && other != entry) {
        // a key that names nothing any more makes room
        const auto dead = static_cast<std::size_t>(other - entries_.data());
        const Acad::ErrorStatus status = removeEntry(dead);
        if (status != Acad::eOk)
            return status;
        number -= dead < number ? 1 : 0;
    }
    const std::size_t key = tagsOfEntry(number).key;
    if (tags().text(key) != newName)
        tagsForWrite().setText(key, newName);
    forgetEntries();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::removeEntry(std::size_t number)
{
    const EntryTags place = tagsOfEntry(number);
    if (place.key == npos)
        return Acad::eKeyNotFound;
    tagsForWrite().erase(place.key, place.end);
    forgetEntries();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbDictionary::remove(std::wstring_view name)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const Entry* const entry = find(name);
    if (!entry)
        return Acad::eKeyNotFound;
    return removeEntry(static_cast<std::size_t>(entry - entries_.data()));
}

Acad::ErrorStatus AcDbDictionary::remove(AcDbObjectId id)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::vector<Entry>& all = entries();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (!id.isNull() && all[i].id == id)
            return removeEntry(i);
    return Acad::eKeyNotFound;
}

Acad::ErrorStatus AcDbDictionary::setTreatElementsAsHard(bool on)
{
    const Acad::ErrorStatus status = setInteger(kPart, kHard, on ? 1 : 0, 0);
    if (status == Acad::eOk && isNewObject())
        complete();
    return status;
}

void AcDbDictionary::complete()
{
    if (host::findField(tags(), kPart, kCloning) == npos)
        tagsForWrite().insertInteger(host::placeOfField(tags(), kPart, kCloning), kCloning,
                                     kKeepExisting);
}

void AcDbDictionary::subErase(bool erasing)
{
    const std::vector<Entry> all = entries(); // a copy: objects report their erasing
    for (const Entry& entry : all) {
        AcDbObjectPointer<AcDbObject> object(entry.id, AcDb::kForWrite, !erasing);
        if (object.openStatus() == Acad::eOk && object->ownerId() == objectId())
            object->erase(erasing);
    }
}

void AcDbDictionary::loseReference(std::size_t at)
{
    EntryPlace entry;
    eachEntry(tags(), [&](const EntryPlace& place) {
        if (at < place.key || at >= place.end)
            return true;
        entry = place;
        return false;
    });
    if (entry.key == npos)
        return AcDbObject::loseReference(at);
    tagsForWrite().erase(entry.key, entry.end);
    forgetEntries();
}

void AcDbDictionary::memberErased(AcDbObjectId member)
{
    remove(member);
}

AcDbObjectId AcDbDictionaryWithDefault::defaultId() const
{
    return id(kDefaultPart, 340);
}

std::span<const std::string_view> AcDbDictionaryWithDefault::markers() const
{
    static constexpr std::string_view own[] = {kPart.marker, kDefaultPart.marker};
    return own;
}

// ---- without opening ----

namespace host {

AcDbObjectId dictionaryEntry(Drawing& drawing, std::uint32_t dictionary, std::wstring_view key)
{
    AcDbObjectId id;
    if (dictionary == 0 || (drawing.index[dictionary].flags & kErased) != 0)
        return id;
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(dictionary);
    eachEntry(*tags, [&](const EntryPlace& place) {
        if (!equalNoCase(tags->text(place.key), key))
            return true;
        const std::uint64_t handle = place.pointer == npos ? 0 : tags->handle(place.pointer);
        if (livesIn(drawing, handle))
            id = drawing.idOfHandle(handle);
        return false;
    });
    return id;
}

std::wstring dictionaryKey(Drawing& drawing, std::uint32_t dictionary, std::uint32_t object)
{
    std::wstring key;
    if (dictionary == 0 || object == 0)
        return key;
    const std::uint64_t handle = drawing.index[object].handle;
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(dictionary);
    eachEntry(*tags, [&](const EntryPlace& place) {
        if (place.pointer == npos || tags->handle(place.pointer) != handle)
            return true;
        key = tags->text(place.key);
        return false;
    });
    return key;
}

AcDbObjectId standardDictionary(Drawing& drawing, std::wstring_view key)
{
    AcDbObjectId id = dictionaryEntry(drawing, drawing.rootDictionary, key);
    if (!id.isNull())
        return id;
    AcDbObjectPointer<AcDbDictionary> root(drawing.id(drawing.rootDictionary), AcDb::kForWrite);
    AcDbObjectPointer<AcDbDictionary> made;
    made.create();
    if (root.openStatus() != Acad::eOk || root->setAt(key, made.object(), id) != Acad::eOk)
        return {};
    return id;
}

} // namespace host
