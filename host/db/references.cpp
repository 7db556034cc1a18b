#include "host/db/references.h"

#include <algorithm>
#include <optional>

namespace host {

namespace {

struct HandleCodes {
    int first;
    int last;
    ReferenceKind kind;
};
// 320 to 329 are handles that nobody follows or maps.
constexpr HandleCodes kHandleCodes[] = {
    {330, 339, ReferenceKind::softPointer},   {340, 349, ReferenceKind::hardPointer},
    {350, 359, ReferenceKind::softOwner},     {360, 369, ReferenceKind::hardOwner},
    {390, 399, ReferenceKind::hardPointer},   {480, 481, ReferenceKind::hardPointer},
    {1005, 1005, ReferenceKind::softPointer},
};

// Names, and handles under codes that are none elsewhere. No type: any record; no marker: anywhere
// before the extended data. A record without markers is searched for every marker. The first row
// that fits counts.
struct FieldRow {
    std::string_view type;
    std::string_view marker;
    int code;
    ReferenceKind kind;
    std::string_view table = {};
};
constexpr FieldRow kFields[] = {
    {"DIMSTYLE", "", 5, ReferenceKind::name, "BLOCK_RECORD"}, // arrows, up to R14
    {"DIMSTYLE", "", 6, ReferenceKind::name, "BLOCK_RECORD"},
    {"DIMSTYLE", "", 7, ReferenceKind::name, "BLOCK_RECORD"},
    {"INSERT", "", 2, ReferenceKind::name, "BLOCK_RECORD"},
    {"ACAD_TABLE", "AcDbBlockReference", 2, ReferenceKind::name, "BLOCK_RECORD"},
    {"DIMENSION", "AcDbDimension", 2, ReferenceKind::name, "BLOCK_RECORD"},
    {"DIMENSION", "AcDbDimension", 3, ReferenceKind::name, "DIMSTYLE"},
    {"ARC_DIMENSION", "AcDbDimension", 2, ReferenceKind::name, "BLOCK_RECORD"},
    {"ARC_DIMENSION", "AcDbDimension", 3, ReferenceKind::name, "DIMSTYLE"},
    {"LARGE_RADIAL_DIMENSION", "AcDbDimension", 2, ReferenceKind::name, "BLOCK_RECORD"},
    {"LARGE_RADIAL_DIMENSION", "AcDbDimension", 3, ReferenceKind::name, "DIMSTYLE"},
    {"LEADER", "", 3, ReferenceKind::name, "DIMSTYLE"},
    {"TOLERANCE", "", 3, ReferenceKind::name, "DIMSTYLE"},
    {"TEXT", "", 7, ReferenceKind::name, "STYLE"},
    {"MTEXT", "", 7, ReferenceKind::name, "STYLE"},
    {"ATTRIB", "", 7, ReferenceKind::name, "STYLE"},
    {"ATTDEF", "", 7, ReferenceKind::name, "STYLE"},
    {"ACAD_TABLE", "", 7, ReferenceKind::name, "STYLE"},
    {"TABLESTYLE", "", 7, ReferenceKind::name, "STYLE"},
    {"LAYER", "", 6, ReferenceKind::name, "LTYPE"},
    {"MLINESTYLE", "", 6, ReferenceKind::name, "LTYPE"},
    {"SORTENTSTABLE", "AcDbSortentsTable", 5, ReferenceKind::softPointer},
    {"", "AcDbEntity", 8, ReferenceKind::name, "LAYER"},
    {"", "AcDbEntity", 6, ReferenceKind::name, "LTYPE"},
};

struct DataRow {
    int code;
    std::string_view table;
};
constexpr DataRow kExtendedData[] = {{1001, "APPID"}, {1003, "LAYER"}};

// Their payload is the applications': no code means a name in it.
constexpr std::string_view kNameless = "XRECORD";

std::optional<ReferenceKind> kindOfHandle(int code)
{
    for (const HandleCodes& codes : kHandleCodes)
        if (code >= codes.first && code <= codes.last)
            return codes.kind;
    return std::nullopt;
}

} // namespace

std::vector<Reference> referencesOf(const TagList& tags)
{
    std::vector<Reference> found;
    if (tags.empty())
        return found;
    const std::string_view type = tags[0].bytes();
    const RecordHead head = recordHead(tags);
    const bool payload = type == kNameless;
    const bool marked = payload || hasMarkers(tags);
    const std::size_t end = payload ? tags.size() : dataEnd(tags);
    std::string_view marker;
    const auto fieldRow = [&](int code) {
        return std::find_if(std::begin(kFields), std::end(kFields), [&](const FieldRow& row) {
            return row.code == code && (row.type.empty() || row.type == type) &&
                   (row.marker.empty() || !marked || row.marker == marker);
        });
    };
    for (std::size_t i = 1; i < tags.size(); ++i) {
        const int code = tags[i].code;
        if (i == head.handle || i == head.owner)
            continue;
        if (i >= head.end && !payload) {
            if (code == 100 || code == 101)
                marker = code == 100 ? tags[i].bytes() : std::string_view();
            if (i < end) {
                if (const auto row = fieldRow(code); row != std::end(kFields)) {
                    found.push_back({i, row->kind, row->table});
                    continue;
                }
            } else {
                for (const DataRow& row : kExtendedData)
                    if (row.code == code)
                        found.push_back({i, ReferenceKind::name, row.table});
            }
        }
        if (const std::optional<ReferenceKind> kind = kindOfHandle(code))
            found.push_back({i, *kind});
    }
    return found;
}

} // namespace host
