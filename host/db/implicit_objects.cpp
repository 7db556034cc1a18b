#include "host/db/implicit_objects.h"

#include "host/db/block_begin.h"
#include "host/db/database.h"
#include "host/db/lookups.h"
#include "host/db/tag_view.h"

#include <algorithm>

namespace host {

namespace {

constexpr std::string_view kBlockRecords = "BLOCK_RECORD";
constexpr std::string_view kTablePrefix = "TABLE ";
constexpr std::wstring_view kModelSpace = L"*Model_Space";
constexpr std::wstring_view kPaperSpaceName = L"*Paper_Space";

// Records that every drawing has.
struct StandardRecord {
    std::string_view table;
    std::wstring_view name;
};
constexpr StandardRecord kStandardRecords[] = {
    {"LTYPE", L"ByBlock"},  {"LTYPE", L"ByLayer"}, {"LTYPE", L"Continuous"},  {"LAYER", L"0"},
    {"STYLE", L"Standard"}, {"APPID", L"ACAD"},    {"DIMSTYLE", L"Standard"},
};

class Completion {
public:
    explicit Completion(Drawing& drawing)
        : drawing_(drawing), index_(drawing.index), names_(drawing.database.lookups().implicitNames)
    {
    }

    void run()
    {
        drawing_.nextHandle =
            std::max({drawing_.nextHandle, drawing_.fileSeed, index_.greatestHandle() + 1});
        if (drawing_.header == 0)
            drawing_.header = make("SECTION HEADER", 0, kStructure, false);
        completeTables();
        completeBlocks();
        placeEntities();
        findRootDictionary();
        ++drawing_.symbolGeneration;
    }

private:
    std::uint32_t make(std::string_view type, std::uint32_t owner, std::uint16_t flags,
                       bool handle = true)
    {
        Stub stub;
        stub.type = index_.types().number(type);
        stub.owner = owner;
        stub.flags = static_cast<std::uint16_t>(flags | kImplicit);
        if (handle)
            stub.handle = drawing_.takeHandle();
        const std::uint32_t number = index_.add(stub);
        if (handle)
            index_.enterHandle(number);
        return number;
    }

    std::uint32_t makeRecord(TablePlace& table, std::wstring_view name)
    {
        const std::uint32_t number = make(table.name, table.table, 0);
        names_.emplace(number, name);
        table.records.push_back(number);
        drawing_.database.lookups().symbols.added(drawing_, table.name, name, number);
        return number;
    }

    void completeTables()
    {
        for (const SymbolKind& kind : symbolKinds()) {
            TablePlace& place = drawing_.tables[std::string(kind.table)];
            place.name = kind.table;
            if (place.table == 0)
                place.table = make(std::string(kTablePrefix) + place.name, 0, kStructure);
            for (const std::uint32_t record : place.records)
                index_[record].owner = place.table;
        }
        ++drawing_.symbolGeneration;
        for (const StandardRecord& record : kStandardRecords)
            if (findSymbol(drawing_, record.table, record.name).isNull())
                makeRecord(drawing_.tables.find(record.table)->second, record.name);
        // entities name layers that have no record
        TablePlace& layers = drawing_.tables.find("LAYER")->second;
        for (std::uint32_t number = 1; number <= index_.layers().size(); ++number) {
            const std::wstring name = writtenLayerName(drawing_, number);
            if (!name.empty() && findSymbol(drawing_, "LAYER", name).isNull())
                makeRecord(layers, name);
        }
    }

    // ---- blocks ----

    bool isBlockRecord(std::uint32_t stub) const
    {
        return stub != 0 && (stub == last_ || drawing_.blocks.contains(stub));
    }

    // Entities come in long runs of one block.
    BlockPlace& blockPlace(std::uint32_t record)
    {
        if (record != last_) {
            lastPlace_ = &drawing_.blocks[record];
            last_ = record;
        }
        return *lastPlace_;
    }

    // The record for a BLOCK that none is known for: the one that owns it, the one of its name, or
    // one that is made.
    std::uint32_t recordOf(std::uint32_t begin)
    {
        const std::uint32_t owner = index_[begin].owner;
        if (isBlockRecord(owner) && drawing_.blocks[owner].begin == 0)
            return owner;
        const std::wstring name = beginName(drawing_, begin);
        const std::uint32_t named = findSymbol(drawing_, kBlockRecords, name).stubNumber();
        if (isBlockRecord(named) && drawing_.blocks[named].begin == 0)
            return named;
        const std::uint32_t made =
            makeRecord(drawing_.tables.find(kBlockRecords)->second, spaceNameOf(name));
        drawing_.blocks[made].record = made;
        return made;
    }

    // The record of that name. Where there is none, the one that owns the first entity that
    // ENTITIES has of the space: files are about that lost the name. Else one that is made.
    std::uint32_t spaceOf(std::wstring_view name, bool paper)
    {
        const AcDbObjectId found = findSymbol(drawing_, kBlockRecords, name);
        if (!found.isNull())
            return found.stubNumber();
        std::uint32_t owner = 0;
        eachRecord("ENTITIES", [&](std::uint32_t stub) {
            const Stub& entity = index_[stub];
            if (owner == 0 && (entity.flags & (kEntity | kChild)) == kEntity &&
                ((entity.flags & kPaperSpace) != 0) == paper && isBlockRecord(entity.owner))
                owner = entity.owner;
        });
        if (owner != 0 && owner != drawing_.modelSpace)
            return owner;
        const std::uint32_t made = makeRecord(drawing_.tables.find(kBlockRecords)->second, name);
        drawing_.blocks[made].record = made;
        return made;
    }

    template <class Visit> void eachRecord(std::string_view section, Visit visit)
    {
        for (const SectionPlace& place : drawing_.sections) {
            if (place.name != section)
                continue;
            const std::uint32_t end = std::min(place.end, drawing_.fileRecords);
            for (std::uint32_t stub = place.first; stub <= end; ++stub)
                visit(stub);
        }
    }

    void completeBlocks()
    {
        for (const std::uint32_t record : drawing_.tables.find(kBlockRecords)->second.records)
            drawing_.blocks[record].record = record;
        const std::uint16_t begin = index_.types().number("BLOCK");
        const std::uint16_t end = index_.types().number("ENDBLK");
        std::uint32_t current = 0;
        eachRecord("BLOCKS", [&](std::uint32_t stub) {
            if (index_[stub].type == begin) {
                current = recordOf(stub);
                drawing_.blocks[current].begin = stub;
            } else if (index_[stub].type == end && current != 0) {
                drawing_.blocks[current].end = stub;
                current = 0;
            }
        });
        for (const auto& [record, block] : drawing_.blocks) {
            if (block.begin != 0)
                index_[block.begin].owner = record;
            if (block.end != 0)
                index_[block.end].owner = record;
        }
        drawing_.modelSpace = spaceOf(kModelSpace, false);
        drawing_.paperSpace = spaceOf(kPaperSpaceName, true);
    }

    // ---- entities ----

    void placeEntities()
    {
        std::unordered_map<std::uint32_t, std::uint32_t> recordOfBegin;
        for (const auto& [record, block] : drawing_.blocks)
            if (block.begin != 0)
                recordOfBegin.emplace(block.begin, record);

        const std::uint16_t begin = index_.types().number("BLOCK");
        std::uint32_t block = 0;
        const auto place = [&](std::uint32_t stub, Stub& entity, std::uint32_t record) {
            if ((entity.flags & kChild) != 0) { // its parent is its owner already
                if (!entity.owner)
                    entity.owner = record;
                return;
            }
            entity.owner = record;
            blockPlace(record).entities.push_back(stub);
        };
        eachRecord("BLOCKS", [&](std::uint32_t stub) {
            Stub& record = index_[stub];
            if (record.type == begin) {
                block = recordOfBegin.find(stub)->second;
            } else if ((record.flags & kEntity) != 0 && block != 0) {
                place(stub, record, block);
            }
        });
        eachRecord("ENTITIES", [&](std::uint32_t stub) {
            Stub& entity = index_[stub];
            if ((entity.flags & kEntity) == 0)
                return;
            const bool paper = (entity.flags & kPaperSpace) != 0;
            place(stub, entity,
                  isBlockRecord(entity.owner) ? entity.owner
                  : paper                     ? drawing_.paperSpace
                                              : drawing_.modelSpace);
        });
    }

    // ---- objects ----

    // The first dictionary that nothing owns; some programs write none at all.
    void findRootDictionary()
    {
        if (drawing_.rootDictionary != 0)
            return;
        const std::uint16_t type = index_.types().number("DICTIONARY");
        std::uint32_t first = 0;
        eachRecord("OBJECTS", [&](std::uint32_t stub) {
            const Stub& record = index_[stub];
            if (record.type != type)
                return;
            if (first == 0)
                first = stub;
            if (drawing_.rootDictionary == 0 && record.owner == 0)
                drawing_.rootDictionary = stub;
        });
        if (drawing_.rootDictionary == 0 && first != 0 && index_[index_[first].owner].type != type)
            drawing_.rootDictionary = first; // owned by what is no dictionary
        if (drawing_.rootDictionary == 0)
            drawing_.rootDictionary = make("DICTIONARY", 0, 0);
    }

    static std::wstring beginName(Drawing& drawing, std::uint32_t begin)
    {
        return textField(*drawing.tagsOf(begin), kBlockBeginPart, 2, {});
    }

    Drawing& drawing_;
    RecordIndex& index_;
    ImplicitNames& names_;
    std::uint32_t last_ = 0;
    BlockPlace* lastPlace_ = nullptr;
};

std::wstring wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

void addMarkers(TagList& tags, bool wanted, std::initializer_list<std::string_view> markers)
{
    if (!wanted)
        return;
    for (const std::string_view marker : markers)
        tags.addText(100, wide(marker));
}

} // namespace

void completeDrawing(Drawing& drawing)
{
    Completion(drawing).run();
}

std::shared_ptr<TagList> implicitTags(Drawing& drawing, std::uint32_t stub)
{
    auto made = std::make_shared<TagList>(drawing.source);
    TagList& tags = *made;
    const Stub& record = drawing.index[stub];
    if ((record.flags & kImplicit) == 0)
        return made;
    const std::string_view type = drawing.index.types().name(record.type);
    const std::size_t blank = type.find(' ');
    tags.addText(0, wide(type.substr(0, blank)));
    if (blank != std::string_view::npos)
        tags.addText(2, wide(type.substr(blank + 1)));
    if (record.handle == 0)
        return made;

    const SymbolKind* const kind = symbolKind(type);
    tags.addHandle(type == "DIMSTYLE" ? 105 : 5, record.handle);
    // what R12 does not know at all is written as the later versions do
    const bool table = type.starts_with(kTablePrefix);
    const bool modern =
        drawing.version > DxfVersion::r12 || !(kind || table) || type == kBlockRecords;
    if (modern)
        tags.addHandle(330, record.owner ? drawing.index[record.owner].handle : 0);
    if (kind) {
        addMarkers(tags, modern, {"AcDbSymbolTableRecord", kind->part.marker});
        const ImplicitNames& names = drawing.database.lookups().implicitNames;
        const auto name = names.find(stub);
        tags.addText(2, name == names.end() ? std::wstring() : name->second);
        addDefaults(tags, *kind, drawing.version);
    } else if (table) {
        addMarkers(tags, modern, {"AcDbSymbolTable"});
        tags.addInteger(70, 0);
    } else {
        addMarkers(tags, modern, {"AcDbDictionary"});
        tags.addInteger(281, 1);
    }
    return made;
}

} // namespace host
