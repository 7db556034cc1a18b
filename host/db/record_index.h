#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

class AcDbObject;

namespace host {

// What a stub tells without decoding its record.
enum StubFlag : std::uint16_t {
    kHasDictionary = 1, // an extension dictionary group
    kHasReactors = 2,   // a reactors group
    kPaperSpace = 4,    // 67 = 1
    kErased = 8,        // not there now
    kNeverWas = 16,     // erased by undoing its creation
    kImplicit = 32,     // known in memory only, until something written refers to it
    kStructure = 64,    // SECTION, ENDSEC, TABLE, ENDTAB, EOF, CLASS: no database object but TABLE
    kChild = 128,       // VERTEX, ATTRIB or SEQEND: hangs on the entity before it
    kEntity = 256,     // stands in ENTITIES or BLOCKS and is neither structure nor BLOCK nor ENDBLK
    kMadeHandle = 512, // its handle was given at opening; the file has none, or one that was taken
    kChanged = 1024,   // its tags are not those of the image
};

// One record of the drawing. Stubs never move; their numbers begin with 1, in file order for those
// of the file.
struct Stub {
    std::uint64_t handle = 0;
    std::uint64_t offset = 0; // of the record in the image; meaningless when length is 0
    AcDbObject* object = nullptr;
    std::uint32_t length = 0; // bytes in the image; 0 for an object made since
    std::uint32_t owner = 0;  // stub number, 0 unknown
    std::uint32_t layer = 0;  // layer number; 0 for none
    std::uint16_t type = 0;   // type number
    std::uint16_t flags = 0;
};
static_assert(sizeof(Stub) == 40);

// Texts numbered from 1 in the order of their coming.
template <class Number> class NameTable {
public:
    Number number(std::string_view name)
    {
        if (const auto found = numbers_.find(name); found != numbers_.end())
            return found->second;
        names_.push_back(std::make_unique<std::string>(name));
        const Number number = static_cast<Number>(names_.size());
        numbers_.emplace(*names_.back(), number);
        return number;
    }
    std::string_view name(Number number) const
    {
        return number ? std::string_view(*names_[number - 1]) : std::string_view();
    }
    std::size_t size() const { return names_.size(); }

private:
    std::vector<std::unique_ptr<std::string>> names_;
    std::unordered_map<std::string_view, Number> numbers_;
};

// All records of a drawing: stubs in chunks that never move, the handles that name them, and the
// names of types and layers. Type names are the DXF names; of a TABLE "TABLE LAYER" and so on, of a
// SECTION "SECTION HEADER".
class RecordIndex {
public:
    std::uint32_t add(const Stub& stub); // answers its number
    void reserve(std::size_t count);
    std::uint32_t count() const { return count_; } // the greatest number

    Stub& operator[](std::uint32_t number)
    {
        return chunks_[number >> kChunkBits][number & kChunkMask];
    }
    const Stub& operator[](std::uint32_t number) const
    {
        return chunks_[number >> kChunkBits][number & kChunkMask];
    }

    // The first holder of a handle keeps it: answers false, and changes nothing, when it is taken
    // or zero.
    bool enterHandle(std::uint32_t number);
    std::uint32_t findHandle(std::uint64_t handle) const; // 0 when no record has it
    std::uint64_t greatestHandle() const { return greatest_; }

    NameTable<std::uint16_t>& types() { return types_; }
    const NameTable<std::uint16_t>& types() const { return types_; }
    NameTable<std::uint32_t>& layers() { return layers_; } // as the bytes of the file
    const NameTable<std::uint32_t>& layers() const { return layers_; }

private:
    static constexpr unsigned kChunkBits = 14;
    static constexpr std::uint32_t kChunkMask = (1u << kChunkBits) - 1;

    void growHandles(std::size_t wanted);

    std::vector<std::unique_ptr<Stub[]>> chunks_;
    std::uint32_t count_ = 0;
    std::vector<std::uint32_t> slots_; // open addressing over stub numbers; 0 is free
    std::size_t handles_ = 0;
    std::uint64_t greatest_ = 0;
    NameTable<std::uint16_t> types_;
    NameTable<std::uint32_t> layers_;
};

} // namespace host
