#pragma once

#include "host/db/object.h"
#include "host/text/case_mapping.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

class AcDbDictionaryIterator;

// Named objects, in the order of the file; keys compare without case. An entry is a key (3) and a
// pointer (350 soft owner, 360 hard owner); an entry keeps its code, a new one takes 360 if 280 is
// 1 or its neighbours have 360.
class AcDbDictionary : public AcDbObject {
    ACRX_DECLARE_MEMBERS(AcDbDictionary)
public:
    AcDbDictionary() = default;

    // eKeyNotFound when there is no such key, or what it names is not in the drawing or is erased.
    Acad::ErrorStatus getAt(std::wstring_view name, AcDbObjectId& id) const;
    Acad::ErrorStatus getAt(std::wstring_view name, AcDbObject*& entry, AcDb::OpenMode mode) const;
    template <class T>
    Acad::ErrorStatus getAt(std::wstring_view name, T*& entry, AcDb::OpenMode mode) const
    {
        AcDbObjectId found;
        entry = nullptr;
        const Acad::ErrorStatus status = getAt(name, found);
        return status == Acad::eOk ? acdbOpenObject(entry, found, mode) : status;
    }
    bool has(std::wstring_view name) const;
    bool has(AcDbObjectId id) const;
    Acad::ErrorStatus nameAt(AcDbObjectId id, std::wstring& name) const; // eKeyNotFound
    std::uint32_t numEntries() const;                                    // living ones

    // Puts an object that is in no database under a name; it is then open for write and this
    // dictionary's own. An entry of that name is replaced, its object erased; key and place stay.
    // eInvalidKey for an empty name.
    Acad::ErrorStatus setAt(std::wstring_view name, AcDbObject* value, AcDbObjectId& id);
    Acad::ErrorStatus setName(std::wstring_view oldName, std::wstring_view newName);
    // Takes the entry out; the object itself is left as it is.
    Acad::ErrorStatus remove(std::wstring_view name);
    Acad::ErrorStatus remove(AcDbObjectId id);

    bool isTreatElementsAsHard() const; // 280
    Acad::ErrorStatus setTreatElementsAsHard(bool on);

    // Living entries in order. The iterator holds a copy of the entries: it outlives changes and
    // closing.
    std::unique_ptr<AcDbDictionaryIterator> newIterator() const;

    struct Entry {
        std::wstring name;
        AcDbObjectId id;
    };
    // Erased ones and those that name nothing included; computed when first asked for.
    const std::vector<Entry>& entries() const;

    void loseReference(std::size_t at) override; // an entry goes with its key

    std::string recordName() const override { return "DICTIONARY"; }
    std::span<const std::string_view> markers() const override;

protected:
    void tagsReplaced() override { forgetEntries(); }
    void subErase(bool erasing) override; // takes the entries along, and brings them back
    void memberErased(AcDbObjectId member) override;

private:
    struct EntryTags;
    using Positions =
        std::unordered_map<std::wstring, std::size_t, host::NoCaseHash, host::NoCaseEqual>;

    const Entry* find(std::wstring_view name) const; // null for none
    void complete();                                 // what a new record says besides its entries
    EntryTags tagsOfEntry(std::size_t number) const;
    Acad::ErrorStatus removeEntry(std::size_t number);
    void forgetEntries() { entries_.clear(), read_ = false; }

    mutable bool read_ = false;
    mutable std::vector<Entry> entries_;
    mutable Positions positions_; // of the first entry of each key
};

class AcDbDictionaryIterator {
public:
    explicit AcDbDictionaryIterator(std::vector<AcDbDictionary::Entry> entries)
        : entries_(std::move(entries))
    {
    }
    bool done() const { return at_ >= entries_.size(); }
    bool next() { return ++at_ < entries_.size(); }
    const std::wstring& name() const { return entries_[at_].name; }
    AcDbObjectId objectId() const { return entries_[at_].id; }
    Acad::ErrorStatus getObject(AcDbObject*& object, AcDb::OpenMode mode = AcDb::kForRead) const
    {
        return acdbOpenAcDbObject(object, objectId(), mode);
    }

private:
    std::vector<AcDbDictionary::Entry> entries_;
    std::size_t at_ = 0;
};

// A dictionary with a default entry (340), as ACAD_PLOTSTYLENAME is.
class AcDbDictionaryWithDefault : public AcDbDictionary {
    ACRX_DECLARE_MEMBERS(AcDbDictionaryWithDefault)
public:
    AcDbObjectId defaultId() const;
    std::string recordName() const override { return "ACDBDICTIONARYWDFLT"; }
    std::span<const std::string_view> markers() const override;
};

namespace host {

// The living entry of a dictionary under a key, found without opening it; null id for none.
AcDbObjectId dictionaryEntry(Drawing& drawing, std::uint32_t dictionary, std::wstring_view key);

// The key under which a dictionary holds the object; empty for none.
std::wstring dictionaryKey(Drawing& drawing, std::uint32_t dictionary, std::uint32_t object);

// The root dictionary's dictionary of that key ("ACAD_GROUP"), made if the drawing has none; null
// id when the root cannot be opened for write.
AcDbObjectId standardDictionary(Drawing& drawing, std::wstring_view key);

} // namespace host
