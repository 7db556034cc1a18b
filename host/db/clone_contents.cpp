#include "host/db/clone_contents.h"

#include "host/db/class_table.h"
#include "host/db/database.h"
#include "host/db/symbol_names.h"
#include "host/db/xrecord.h"

#include <algorithm>
#include <span>

namespace host {

namespace {

struct ArrowCodes {
    short name;
    short handle;
};
constexpr ArrowCodes kArrows[] = {{5, 342}, {6, 343}, {7, 344}};

// What records of tables hold in R12.
struct CodeRange {
    short first;
    short last;
};
constexpr CodeRange kLayerOfR12[] = {{2, 2}, {6, 6}, {62, 62}, {70, 70}, {420, 420}};
constexpr CodeRange kLinetypeOfR12[] = {{2, 3}, {40, 40}, {49, 49}, {70, 73}};
constexpr CodeRange kStyleOfR12[] = {{2, 4}, {40, 42}, {50, 50}, {70, 71}};
constexpr CodeRange kDimStyleOfR12[] = {{2, 7},     {40, 48},   {70, 78},
                                        {140, 147}, {170, 178}, {342, 344}};
struct TableOfR12 {
    std::string_view table;
    std::span<const CodeRange> codes;
};
constexpr TableOfR12 kTablesOfR12[] = {{"LAYER", kLayerOfR12},
                                       {"LTYPE", kLinetypeOfR12},
                                       {"STYLE", kStyleOfR12},
                                       {"DIMSTYLE", kDimStyleOfR12}};

// Material, visual style, plot style and plotting come with R2000 and later.
constexpr short kCodesOfR2000[] = {347, 348, 390};
constexpr short kLayerCodesOfR2000[] = {290, 347, 348, 390};
constexpr int kLineWeight = 370;
constexpr std::int64_t kUsualForLayers = -3;

bool isOneOf(std::span<const short> codes, int code)
{
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

// Removes from the data in front of the extended data.
template <class Unwanted> void eraseWhere(TagList& tags, Unwanted unwanted)
{
    for (std::size_t i = dataEnd(tags); i-- > 1;)
        if (unwanted(i))
            tags.erase(i, i + 1);
}

void leaveOut(TagList& tags, DxfVersion version)
{
    if (version < DxfVersion::r2018 && tags[0].bytes() != "XRECORD") {
        const std::size_t embedded = tags.find(101, "Embedded Object");
        if (embedded != TagList::npos)
            tags.erase(embedded, dataEnd(tags));
    }
    const bool layer = tags[0].bytes() == "LAYER";
    if (version < DxfVersion::r2000 && (layer || tags.find(100, "AcDbEntity") != TagList::npos)) {
        const std::span<const short> codes =
            layer ? std::span<const short>(kLayerCodesOfR2000) : kCodesOfR2000;
        eraseWhere(tags, [&](std::size_t i) { return isOneOf(codes, tags[i].code); });
    }
    if (version > DxfVersion::r12)
        return;
    for (const TableOfR12& row : kTablesOfR12)
        if (row.table == tags[0].bytes())
            eraseWhere(tags, [&](std::size_t i) {
                const int code = tags[i].code;
                if (code == kLineWeight)
                    return !layer || tags.integer(i) == kUsualForLayers;
                return code != 100 &&
                       std::none_of(row.codes.begin(), row.codes.end(), [&](const CodeRange& r) {
                           return code >= r.first && code <= r.last;
                       });
            });
}

void arrowsByHandle(TagList& tags, Drawing& from)
{
    for (const ArrowCodes& arrow : kArrows) {
        const std::size_t at = tags.find(arrow.name, 0, dataEnd(tags));
        if (at == TagList::npos)
            continue;
        const AcDbObjectId block = findSymbol(from, "BLOCK_RECORD", tags.text(at));
        tags.erase(at, at + 1);
        if (!block.isNull())
            tags.insertHandle(at, arrow.handle, block.handle().value());
    }
}

} // namespace

std::unique_ptr<AcDbObject> copyForVersion(Drawing& from, std::uint32_t stub, DxfVersion version)
{
    TagList tags = (from.version <= DxfVersion::r12 ? drawingFormat().raisedRecord(from, stub)
                                                    : *from.tagsOf(stub))
                       .inSource(drawingFormat().scratchSource());
    tags.erase(1, recordHead(tags).end);
    if (tags[0].bytes() == "DIMSTYLE")
        arrowsByHandle(tags, from);
    leaveOut(tags, version);
    std::unique_ptr<AcDbObject> copy =
        AcDbObject::withTags(*classOfRecord(from, stub), std::move(tags));
    if (AcDbXrecord* const record = AcDbXrecord::cast(copy.get()))
        record->joinedDatabase(from.version);
    return copy;
}

void spellArrows(AcDbObject& dimensionStyle)
{
    Drawing& drawing = *dimensionStyle.drawing();
    if (drawing.version >= DxfVersion::r2000)
        return;
    for (const ArrowCodes& arrow : kArrows) {
        const std::size_t at = dimensionStyle.tags().find(arrow.handle);
        if (at == TagList::npos)
            continue;
        const std::uint32_t block = drawing.index.findHandle(dimensionStyle.tags().handle(at));
        TagList& own = dimensionStyle.tagsForWrite();
        own.erase(at, at + 1);
        if (block)
            own.insertText(at, arrow.name, symbolName(drawing, "BLOCK_RECORD", block));
    }
}

} // namespace host
