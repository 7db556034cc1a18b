#pragma once

#include "host/io/record_note_list.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// What one pass over a file's tags keeps of each record, whatever the form of the file. A scanner
// cuts the bytes into tags, checks them, and hands those whose code has a role to RecordNotes.
namespace host {

// Codes that tell something about their record.
enum class TagRole : std::uint8_t {
    none,
    type,      // 0
    name,      // 2, of a section or table
    handle,    // 5
    layer,     // 8
    space,     // 67
    marker,    // 100
    embedded,  // 101
    bracket,   // 102
    dimHandle, // 105, of a dimension style, whose 5 is an arrow block up to R14
    owner,     // 330
    data       // 1001
};

inline constexpr std::size_t kRoleTableSize = 1072;

constexpr std::array<TagRole, kRoleTableSize> makeTagRoles()
{
    std::array<TagRole, kRoleTableSize> roles{};
    roles[0] = TagRole::type;
    roles[2] = TagRole::name;
    roles[5] = TagRole::handle;
    roles[8] = TagRole::layer;
    roles[67] = TagRole::space;
    roles[100] = TagRole::marker;
    roles[101] = TagRole::embedded;
    roles[102] = TagRole::bracket;
    roles[105] = TagRole::dimHandle;
    roles[330] = TagRole::owner;
    roles[1001] = TagRole::data;
    return roles;
}
inline constexpr std::array<TagRole, kRoleTableSize> kTagRoles = makeTagRoles();

// What was wrong with the bytes, and where.
enum class ScanFault : std::uint8_t {
    none,
    noDrawing,
    badCode,     // text: a line that should be a group code
    unknownCode, // binary
    badReal,
    badInteger,
    cutTag,
    noEnd, // no EOF
};

struct ScanTrouble {
    ScanFault fault = ScanFault::none;
    std::size_t offset = 0; // of the code or value in question
    int code = 0;
};

// A NameTable with the names met last at hand.
template <class Number> class NameCache {
public:
    explicit NameCache(NameTable<Number>& table) : table_(table) {}

    Number number(std::string_view name)
    {
        Slot& slot = slots_[hash(name)];
        if (slot.number && slot.name == name)
            return slot.number;
        slot.number = table_.number(name);
        slot.name = table_.name(slot.number);
        return slot.number;
    }

private:
    struct Slot {
        std::string_view name;
        Number number = 0;
    };

    static std::size_t hash(std::string_view name)
    {
        std::uint64_t head = 0;
        std::uint64_t tail = 0;
        if (name.size() >= 8) {
            std::memcpy(&head, name.data(), 8);
            std::memcpy(&tail, name.data() + name.size() - 8, 8);
        } else {
            std::memcpy(&head, name.data(), name.size());
        }
        return static_cast<std::size_t>(
            ((head ^ tail * 31 ^ name.size()) * 0x9E3779B97F4A7C15ull) >> 56);
    }

    NameTable<Number>& table_;
    std::array<Slot, 256> slots_{};
};

// Collects the notes of the records of one range of bytes.
class RecordNotes {
public:
    RecordNotes(NameTable<std::uint16_t>& types, NameTable<std::uint32_t>& layers)
        : typeTable_(types), types_(types), layers_(layers)
    {
    }

    RecordNoteList records;

    std::uint16_t typeNumber(std::string_view name) { return types_.number(name); }
    std::uint32_t layerNumber(std::string_view name) { return layers_.number(name); }

    // True for EOF: the scanner stops.
    bool begin(std::size_t offset, std::string_view type)
    {
        RecordNote& note = records.add();
        note.offset = offset;
        note.type = types_.number(type);
        depth_ = 0;
        part_ = Part::head;
        wantsName_ = false;
        dimStyle_ = false;
        if (note.type < kinds_.size() && kinds_[note.type] == Kind::plain)
            return false;
        return beginOdd(note.type, type);
    }

    void tag(TagRole role, std::string_view value, bool one)
    {
        if (part_ == Part::closed && !wantsName_)
            return;
        note(role, value, one);
    }

private:
    // Where in its record the scan is. Owner and brackets count in the head; layer and space there
    // too, since records up to R12 have no other part.
    enum class Part : std::uint8_t { head, entity, other, closed };
    enum class Kind : std::uint8_t { unknown, plain, named, structure, dimStyle, end };

    bool beginOdd(std::uint16_t number, std::string_view type);
    void note(TagRole role, std::string_view value, bool one);

    NameTable<std::uint16_t>& typeTable_;
    NameCache<std::uint16_t> types_;
    NameCache<std::uint32_t> layers_;
    std::vector<Kind> kinds_; // by type number
    int depth_ = 0;           // of brackets
    Part part_ = Part::head;
    bool wantsName_ = false;
    bool dimStyle_ = false;
};

} // namespace host
