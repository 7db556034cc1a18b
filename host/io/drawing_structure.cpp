#include "host/io/drawing_structure.h"

#include "host/text/code_page.h"
#include "host/text/wide_format.h"

namespace host {

namespace {

// Handles this great leave no room for those to come; a record with one counts as having none.
constexpr std::uint64_t kGreatestHandle = 0xFFFFFFFFFFFF0000u;

constexpr std::string_view kSectionMark = "SECTION ";
constexpr std::string_view kTableMark = "TABLE ";

std::wstring shown(std::string_view name)
{
    constexpr std::size_t kLongest = 40;
    return CodePage::utf8().decode(name.substr(0, kLongest));
}

} // namespace

DrawingStructure::DrawingStructure(Drawing& drawing) : drawing_(drawing)
{
}

DrawingStructure::Kind DrawingStructure::kindOf(std::uint16_t type)
{
    if (type >= kinds_.size())
        kinds_.resize(type + std::size_t{1}, Kind::unknown);
    Kind& kind = kinds_[type];
    if (kind != Kind::unknown)
        return kind;
    struct Row {
        std::string_view name;
        Kind kind;
    };
    constexpr Row kRows[] = {
        {"SECTION", Kind::section},   {"ENDSEC", Kind::sectionEnd}, {"TABLE", Kind::table},
        {"ENDTAB", Kind::tableEnd},   {"BLOCK", Kind::block},       {"ENDBLK", Kind::blockEnd},
        {"POLYLINE", Kind::sequence}, {"INSERT", Kind::sequence},   {"VERTEX", Kind::child},
        {"ATTRIB", Kind::child},      {"SEQEND", Kind::childEnd},   {"EOF", Kind::fileEnd},
        {"CLASS", Kind::classRecord},
    };
    const std::string_view name = drawing_.index.types().name(type);
    kind = Kind::plain;
    for (const Row& row : kRows)
        if (name == row.name)
            kind = row.kind;
    if (name.starts_with(kSectionMark))
        kind = Kind::section;
    else if (name.starts_with(kTableMark))
        kind = Kind::table;
    return kind;
}

std::wstring DrawingStructure::add(const RecordNote& note, std::uint64_t end)
{
    Stub made;
    made.offset = note.offset;
    made.length = static_cast<std::uint32_t>(end - note.offset);
    made.handle = note.handle < kGreatestHandle ? note.handle : 0;
    made.layer = note.layer;
    made.type = note.type;
    made.flags = note.flags;
    const std::uint32_t number = drawing_.index.add(made);
    Stub& stub = drawing_.index[number];
    const Kind kind = kindOf(note.type);
    const std::string_view type = drawing_.index.types().name(note.type);

    if (std::wstring wrong = place(kind, type, stub, number); !wrong.empty())
        return wrong;
    const bool object = (stub.flags & kStructure) == 0 || kind == Kind::table;
    if (!object) {
        stub.handle = 0;
        return {};
    }
    if (note.marks & kHandleWrong)
        return L"the handle of this " + shown(type) + L" is no hexadecimal number";
    if (kind != Kind::table)
        keepOwner(number, note.owner);
    if (drawing_.index.enterHandle(number))
        return {};
    withoutHandle_.push_back(number);
    if (note.handle)
        ++repeated_;
    else if (note.marks & kHandleGiven)
        ++empty_;
    else
        ++missing_;
    return {};
}

std::wstring DrawingStructure::beginSection(std::uint32_t number, std::string_view name)
{
    struct Row {
        std::string_view name;
        Section section;
    };
    constexpr Row kRows[] = {
        {"TABLES", Section::tables},
        {"BLOCKS", Section::blocks},
        {"ENTITIES", Section::entities},
        {"OBJECTS", Section::objects},
    };
    if (section_ != Section::none)
        return L"a section begins inside " +
               shown(drawing_.index.types().name(drawing_.index[sectionStub_].type));
    section_ = Section::plain;
    for (const Row& row : kRows)
        if (name == row.name)
            section_ = row.section;
    if (name == "HEADER" && !drawing_.header)
        drawing_.header = number;
    sectionStub_ = number;
    drawing_.sections.push_back({std::string(name), number, 0});
    return {};
}

// The flags of a record, and whether it may stand where it does.
std::wstring DrawingStructure::place(Kind kind, std::string_view type, Stub& stub,
                                     std::uint32_t number)
{
    const auto inSection = [&] {
        return L" inside " + shown(drawing_.index.types().name(drawing_.index[sectionStub_].type));
    };
    if (parent_ && kind != Kind::child && kind != Kind::childEnd) {
        if ((drawing_.index[number - 1].flags & kChild) != 0)
            ++unfinished_;
        parent_ = 0;
    }
    switch (kind) {
    case Kind::section:
        stub.flags |= kStructure;
        return beginSection(number, type.size() > kSectionMark.size()
                                        ? type.substr(kSectionMark.size())
                                        : std::string_view());
    case Kind::sectionEnd:
        stub.flags |= kStructure;
        if (section_ == Section::none) {
            ++strayEnds_;
            return {};
        }
        if (inTable_)
            return L"a section ends inside a table";
        if (inBlock_)
            return L"a section ends inside a block";
        drawing_.sections.back().end = number;
        section_ = Section::none;
        return {};
    case Kind::fileEnd:
        stub.flags |= kStructure;
        return section_ == Section::none ? std::wstring() : L"EOF" + inSection();
    default:
        break;
    }

    const bool inObjects = section_ != Section::none && section_ != Section::plain;
    if (inObjects &&
        (kind == Kind::classRecord || (kind == Kind::tableEnd && section_ != Section::tables))) {
        stub.flags |= kStructure; // they have no handle
        if (kind == Kind::tableEnd)
            ++strayEnds_;
        return {};
    }
    switch (section_) {
    case Section::none:
        return shown(type) + L" stands outside of any section";
    case Section::plain:
        stub.flags |= kStructure;
        return {};
    case Section::tables:
        if (kind == Kind::table) {
            stub.flags |= kStructure;
            if (inTable_)
                return L"a table begins inside a table";
            inTable_ = true;
            openTableStub_ = number;
            openTable_ = type.size() > kTableMark.size() ? type.substr(kTableMark.size()) : "";
            // a second table of one name goes on with the first
            TablePlace& table = drawing_.tables[openTable_];
            if (!table.table) {
                table.name = openTable_;
                table.table = number;
            }
            return {};
        }
        if (kind == Kind::tableEnd) {
            stub.flags |= kStructure;
            if (!inTable_) {
                ++strayEnds_;
                return {};
            }
            inTable_ = false;
            drawing_.tables[openTable_].end = number;
            return {};
        }
        if (!inTable_)
            return shown(type) + L" stands outside of any table";
        drawing_.tables[openTable_].records.push_back(number);
        return {};
    case Section::blocks:
        if (kind == Kind::block) {
            if (inBlock_)
                return L"a block begins inside a block";
            inBlock_ = true;
            return {};
        }
        if (kind == Kind::blockEnd) {
            if (!inBlock_)
                return L"ENDBLK stands outside of any block";
            inBlock_ = false;
            return {};
        }
        if (!inBlock_)
            return shown(type) + L" stands outside of any block";
        break;
    case Section::entities:
        break;
    case Section::objects:
        return {};
    }

    stub.flags |= kEntity;
    if (kind == Kind::sequence) {
        parent_ = number;
    } else if (kind == Kind::child || kind == Kind::childEnd) {
        stub.flags |= kChild;
        stub.owner = parent_;
        if (!parent_)
            ++strayChildren_;
        if (kind == Kind::childEnd)
            parent_ = 0;
    }
    return {};
}

void DrawingStructure::finishSections()
{
    drawing_.fileRecords = drawing_.index.count();
    const auto warn = [&](std::size_t count, const wchar_t* one, const wchar_t* many) {
        if (count)
            drawing_.warnings.push_back(count == 1 ? one : format(many, count));
    };
    warn(strayEnds_, L"1 end of a section or table that never began",
         L"%zu ends of sections or tables that never began");
    warn(strayChildren_, L"1 VERTEX, ATTRIB or SEQEND that follows no POLYLINE or INSERT",
         L"%zu VERTEX, ATTRIB or SEQEND that follow no POLYLINE or INSERT");
    warn(unfinished_, L"1 POLYLINE or INSERT without SEQEND",
         L"%zu POLYLINE or INSERT without SEQEND");
}

void DrawingStructure::giveHandles()
{
    RecordIndex& index = drawing_.index;
    const std::uint64_t seed = drawing_.fileSeed < kGreatestHandle ? drawing_.fileSeed : 0;
    drawing_.nextHandle = std::max({seed, index.greatestHandle() + 1, std::uint64_t{1}});
    for (const std::uint32_t number : withoutHandle_) {
        index[number].handle = drawing_.takeHandle();
        index[number].flags |= kMadeHandle;
        index.enterHandle(number);
    }
    // up to R12 a drawing may do without handles, and its tables have none
    if (drawing_.version <= DxfVersion::r12)
        missing_ = 0;
    const auto warn = [&](std::size_t count, const wchar_t* one, const wchar_t* many) {
        if (count)
            drawing_.warnings.push_back(count == 1 ? one : format(many, count));
    };
    warn(missing_, L"1 record without a handle; it was given one",
         L"%zu records without a handle; they were given one");
    warn(empty_, L"1 record with an empty handle; it was given one",
         L"%zu records with an empty handle; they were given one");
    warn(repeated_, L"1 record with the handle of another; it was given a new one",
         L"%zu records with the handle of another; they were given new ones");
}

void DrawingStructure::keepOwner(std::uint32_t number, std::uint64_t owner)
{
    Stub& stub = drawing_.index[number];
    if ((stub.flags & kChild) != 0) { // the order of the file tells a child's parent
        if (owner && owner != drawing_.index[stub.owner].handle)
            oddChildOwners_.push_back(owner);
        return;
    }
    stub.owner = static_cast<std::uint32_t>(owner);
    if (stub.owner != owner)
        greatOwners_[number] = owner;
}

void DrawingStructure::findOwners()
{
    RecordIndex& index = drawing_.index;
    std::size_t dangling = 0;
    for (std::uint32_t number = 1; number <= index.count(); ++number) {
        Stub& stub = index[number];
        if ((stub.flags & (kStructure | kChild)) != 0 || !stub.owner)
            continue;
        stub.owner = index.findHandle(stub.owner);
        if (!stub.owner)
            ++dangling;
    }
    for (const auto& [number, owner] : greatOwners_) {
        index[number].owner = index.findHandle(owner);
        if (!index[number].owner)
            ++dangling;
    }
    for (const std::uint64_t owner : oddChildOwners_)
        if (!index.findHandle(owner))
            ++dangling;
    if (dangling)
        drawing_.warnings.push_back(
            dangling == 1 ? L"1 record whose owner is not in the drawing"
                          : format(L"%zu records whose owner is not in the drawing", dangling));
}

} // namespace host
