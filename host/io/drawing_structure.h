#pragma once

#include "host/db/drawing.h"
#include "host/io/record_notes.h"

#include <map>
#include <vector>

namespace host {

// Puts the records of a file, handed over in file order, into a drawing: its index, the places of
// sections and tables, what hangs on what. Then gives handles to the records that lack one, and
// finds the owners.
class DrawingStructure {
public:
    explicit DrawingStructure(Drawing& drawing);

    // The record ends at byte `end`. A text when the record may not stand there: what is wrong, for
    // the user; empty when all is well.
    std::wstring add(const RecordNote& note, std::uint64_t end);

    // Behind the last record.
    void finishSections();
    // Needs the drawing's version and seed.
    void giveHandles();
    // Turns the owners' handles into stub numbers.
    void findOwners();

private:
    // Sections whose records are database objects, and the others.
    enum class Section : std::uint8_t { none, plain, tables, blocks, entities, objects };
    enum class Kind : std::uint8_t {
        unknown,
        plain,
        section,
        sectionEnd,
        table,
        tableEnd,
        block,
        blockEnd,
        sequence, // POLYLINE, INSERT
        child,    // VERTEX, ATTRIB
        childEnd, // SEQEND
        classRecord,
        fileEnd
    };

    Kind kindOf(std::uint16_t type);
    void keepOwner(std::uint32_t number, std::uint64_t owner);
    std::wstring beginSection(std::uint32_t number, std::string_view name);
    std::wstring place(Kind kind, std::string_view type, Stub& stub, std::uint32_t number);

    Drawing& drawing_;
    std::vector<Kind> kinds_; // by type number
    Section section_ = Section::none;
    std::string openTable_;
    std::uint32_t openTableStub_ = 0;
    bool inTable_ = false;
    bool inBlock_ = false;
    std::uint32_t parent_ = 0; // of the sequence that may go on
    std::uint32_t sectionStub_ = 0;

    // Until all handles are known a stub's owner is a handle, of which a stub holds 32 bits.
    std::map<std::uint32_t, std::uint64_t> greatOwners_; // by stub
    std::vector<std::uint64_t> oddChildOwners_; // children that name another than their parent

    std::vector<std::uint32_t> withoutHandle_;
    std::size_t missing_ = 0;
    std::size_t empty_ = 0;
    std::size_t repeated_ = 0;
    std::size_t strayEnds_ = 0;
    std::size_t strayChildren_ = 0;
    std::size_t unfinished_ = 0; // sequences without SEQEND
};

} // namespace host
