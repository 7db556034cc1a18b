#pragma once

#include "host/db/object_id.h"
#include "host/db/record_index.h"
#include "host/db/tag_list.h"
#include "host/db/undo_log.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace host {

struct ClassRow;

// The records of one section, SECTION and ENDSEC included; numbers of stubs.
struct SectionPlace {
    std::string name; // "ENTITIES"
    std::uint32_t first = 0;
    std::uint32_t end = 0;
};

// One symbol table: the TABLE record, the ENDTAB, the entries in file order, then those added
// since.
struct TablePlace {
    std::string name; // "LAYER"
    std::uint32_t table = 0;
    std::uint32_t end = 0; // 0 for a table that the file lacks
    std::vector<std::uint32_t> records;
};

// One block: its BLOCK_RECORD (implicit in R12), BLOCK and ENDBLK, and its entities in file order
// without VERTEX, ATTRIB and SEQEND, then those added since. Erased ones stay in the list.
struct BlockPlace {
    std::uint32_t record = 0;
    std::uint32_t begin = 0; // 0: the drawing has no BLOCK record for it
    std::uint32_t end = 0;
    std::vector<std::uint32_t> entities;
};

// What an open drawing is made of: the bytes of its file, the index of its records, the places of
// its parts, and the journal of its changes. The reader of files fills it, the objects change it
// through AcDbObject, the writer walks it.
class Drawing {
public:
    Drawing(AcDbDatabase& database, std::uint32_t number);
    ~Drawing();
    Drawing(const Drawing&) = delete;
    Drawing& operator=(const Drawing&) = delete;

    AcDbDatabase& database;
    const std::uint32_t number; // the database's number, in every id

    // Set by the reader of files.
    std::shared_ptr<TagSource> source;
    RecordIndex index;
    std::uint32_t fileRecords = 0; // stubs 1 to this one are the file's records, in file order
    DxfVersion version = DxfVersion::r2018;
    bool binary = false;
    std::vector<SectionPlace> sections; // in file order
    std::map<std::string, TablePlace, std::less<>> tables;
    std::map<std::uint32_t, BlockPlace> blocks; // by block record
    std::uint32_t modelSpace = 0;               // block records
    std::uint32_t paperSpace = 0;               // of the active layout
    std::uint32_t rootDictionary = 0;
    std::uint32_t header = 0;     // the SECTION HEADER record, with all variables
    std::uint64_t fileSeed = 0;   // $HANDSEED as the file has it
    std::uint64_t nextHandle = 1; // never given twice
    // CLASS records of types that came from other drawings and that nobody here makes.
    std::map<std::string, TagList, std::less<>> borrowedClasses;
    std::vector<std::wstring> warnings; // what was kept though wrong; AUDIT tells them

    // Children of a POLYLINE or INSERT that were made since opening; those of the file follow their
    // parent there.
    std::map<std::uint32_t, std::vector<std::uint32_t>> addedChildren;

    UndoLog undo;

    AcDbObjectId id(std::uint32_t stub) const
    {
        return stub ? AcDbObjectId(number, stub) : AcDbObjectId();
    }
    // The stub with this handle, or null id.
    AcDbObjectId idOfHandle(std::uint64_t handle) const { return id(index.findHandle(handle)); }
    std::uint64_t takeHandle() { return nextHandle++; }
    // The first handle for what only the written file needs: above the seed and every object that
    // is or was there. What was undone does not count, so that a drawing saves the same after U and
    // REDO.
    std::uint64_t spareHandle() const;

    // The tags of an object as they are now, from the object or from the image.
    std::shared_ptr<const TagList> tagsOf(std::uint32_t stub);
    // The state for the journal, and back.
    ObjectState state(std::uint32_t stub);
    void restore(std::uint32_t stub, const ObjectState& state);

    // A stub for a new object: handle taken, flagged changed, told to the journal. Length stays 0.
    std::uint32_t addStub(std::uint16_t type, std::uint32_t owner, std::uint16_t flags);

    // Stubs that may differ from the image, or that the image lacks; a superset.
    const std::set<std::uint32_t>& changed() const { return changed_; }
    void noteChanged(std::uint32_t stub);
    // Counts every change of a symbol table's entries, so that name lookups know when to look
    // again.
    std::uint64_t symbolGeneration = 0;
    // Of the types by their numbers, filled when asked for; null for a name without a row.
    std::vector<const ClassRow*> classRows;

    // Reads the stub's layer, and what its flags tell of groups, anew from changed tags.
    void refreshStub(std::uint32_t stub, const TagList& tags);

    // Decoded objects that nobody has open stay for a while; the oldest clean ones go when they
    // hold more than 32 MiB; from then on the limit is low.
    void closed(AcDbObject& object);
    void forget(std::uint32_t stub); // deletes the decoded object if nobody has it open
    // Names every object that is still open and closes it; the count of them.
    int closeAllOpen();
    std::vector<std::uint32_t> openObjects; // stubs opened and not yet closed, the latest last

    // Children of a sequence in order, SEQEND included when `withEnd`; erased ones left out.
    std::vector<std::uint32_t> children(std::uint32_t parent, bool withEnd = false) const;
    // Flags them erased, or back, with their parent: VERTEX, ATTRIB, SEQEND and their extension
    // dictionaries.
    void eraseChildren(std::uint32_t parent, bool erasing);
    // The block record whose entity list holds this entity; for a child, that of its parent.
    std::uint32_t blockOf(std::uint32_t entity) const;

private:
    void trimDecoded();
    void tellRestored(std::uint32_t stub, std::uint16_t before); // `before`: its flags
    template <class Visit> void eachChild(std::uint32_t parent, Visit visit) const;

    std::set<std::uint32_t> changed_;
    std::deque<std::uint32_t> decoded_; // stubs of closed objects, the longest closed first
    std::size_t decodedLimit_ = std::size_t{32} << 20; // of these bytes, see trimDecoded
    std::size_t decodedBytes_ = 0;                     // what they count for
};

} // namespace host
