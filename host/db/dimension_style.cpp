#include "host/db/dimension_style.h"

#include "host/db/dimension.h"
#include "host/db/dimension_arrows.h"
#include "host/db/header_variables.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/text/case_mapping.h"
#include "host/text/encoding.h"
#include "host/text/number_format.h"

#include <cmath>

namespace host {

namespace {

constexpr Subclass kStylePart{"AcDbDimStyleTableRecord"};
constexpr const wchar_t* kApplication = L"ACAD";
constexpr const wchar_t* kOverrides = L"DSTYLE";
enum DataCode {
    kDataText = 1000,
    kDataBracket = 1002,
    kDataHandle = 1005,
    kDataReal = 1040,
    kDataShort = 1070
};

struct NumberRow {
    const char* name; // of the header's variable
    short code;       // in a style's record
    double DimensionStyle::*member;
};

constexpr NumberRow kNumbers[] = {
    {"DIMSCALE", 40, &DimensionStyle::scale},  {"DIMASZ", 41, &DimensionStyle::asz},
    {"DIMEXO", 42, &DimensionStyle::exo},      {"DIMEXE", 44, &DimensionStyle::exe},
    {"DIMRND", 45, &DimensionStyle::rnd},      {"DIMDLE", 46, &DimensionStyle::dle},
    {"DIMFXL", 49, &DimensionStyle::fxl},      {"DIMJOGANG", 50, &DimensionStyle::jogang},
    {"DIMTIH", 73, &DimensionStyle::tih},      {"DIMTOH", 74, &DimensionStyle::toh},
    {"DIMSE1", 75, &DimensionStyle::se1},      {"DIMSE2", 76, &DimensionStyle::se2},
    {"DIMTAD", 77, &DimensionStyle::tad},      {"DIMZIN", 78, &DimensionStyle::zin},
    {"DIMAZIN", 79, &DimensionStyle::azin},    {"DIMARCSYM", 90, &DimensionStyle::arcsym},
    {"DIMTXT", 140, &DimensionStyle::txt},     {"DIMCEN", 141, &DimensionStyle::cen},
    {"DIMTSZ", 142, &DimensionStyle::tsz},     {"DIMLFAC", 144, &DimensionStyle::lfac},
    {"DIMGAP", 147, &DimensionStyle::gap},     {"DIMTOFL", 172, &DimensionStyle::tofl},
    {"DIMSAH", 173, &DimensionStyle::sah},     {"DIMTIX", 174, &DimensionStyle::tix},
    {"DIMCLRD", 176, &DimensionStyle::clrd},   {"DIMCLRE", 177, &DimensionStyle::clre},
    {"DIMCLRT", 178, &DimensionStyle::clrt},   {"DIMADEC", 179, &DimensionStyle::adec},
    {"DIMDEC", 271, &DimensionStyle::dec},     {"DIMAUNIT", 275, &DimensionStyle::aunit},
    {"DIMFRAC", 276, &DimensionStyle::frac},   {"DIMLUNIT", 277, &DimensionStyle::lunit},
    {"DIMDSEP", 278, &DimensionStyle::dsep},   {"DIMJUST", 280, &DimensionStyle::just},
    {"DIMSD1", 281, &DimensionStyle::sd1},     {"DIMSD2", 282, &DimensionStyle::sd2},
    {"DIMATFIT", 289, &DimensionStyle::atfit}, {"DIMFXLON", 290, &DimensionStyle::fxlon},
    {"DIMLWD", 371, &DimensionStyle::lwd},     {"DIMLWE", 372, &DimensionStyle::lwe},
};

struct TextRow {
    const char* name;
    short code;        // in a style's record
    const char* table; // of the record that the code refers to; null for plain text
    short oldCode;     // a name in the oldest files, 0 for none
    std::wstring DimensionStyle::*member;
};

constexpr TextRow kTexts[] = {
    {"DIMPOST", 3, nullptr, 0, &DimensionStyle::post},
    {"DIMBLK", 342, "BLOCK_RECORD", 5, &DimensionStyle::blk},
    {"DIMBLK1", 343, "BLOCK_RECORD", 6, &DimensionStyle::blk1},
    {"DIMBLK2", 344, "BLOCK_RECORD", 7, &DimensionStyle::blk2},
    {"DIMTXSTY", 340, "STYLE", 0, &DimensionStyle::txsty},
};

// Some programs write the angle of a jog in degrees; it lies between 5 and 90 of them.
double checked(short code, double value)
{
    constexpr double kQuarterTurn = 1.5707963267948966;
    return code == 50 && value > kQuarterTurn + 1e-9 ? value * (kQuarterTurn / 90.0) : value;
}

std::wstring nameOf(AcDbObjectId id)
{
    const Reading<AcDbSymbolTableRecord> record(id);
    return record ? record->name() : std::wstring();
}

AcDbObjectId idOfHandle(const AcDbDatabase& database, std::uint64_t handle)
{
    AcDbObjectId id;
    database.getAcDbObjectId(id, AcDbHandle(handle));
    return id;
}

void readTexts(const TagList& tags, const AcDbDatabase& database, DimensionStyle& style)
{
    for (const TextRow& row : kTexts) {
        if (!row.table)
            style.*row.member = textField(tags, kStylePart, row.code, style.*row.member);
        else if (const std::uint64_t handle = handleField(tags, kStylePart, row.code))
            style.*row.member = nameOf(idOfHandle(database, handle));
        else if (row.oldCode && !hasMarkers(tags))
            style.*row.member = textField(tags, kStylePart, row.oldCode, style.*row.member);
    }
}

// The items between the brackets of the overrides; both ends 0 where there are none.
TagRange overridesIn(const ResbufChain& data)
{
    TagRange range;
    for (std::size_t i = 0; i + 1 < data.size(); ++i) {
        if (data[i].restype != kDataText || data[i].resval.rstring != kOverrides ||
            data[i + 1].restype != kDataBracket)
            continue;
        range.first = range.last = i + 2;
        while (range.last < data.size() && data[range.last].restype != kDataBracket)
            ++range.last;
        break;
    }
    return range;
}

void readOverride(short code, const resbuf& value, const AcDbDatabase& database,
                  DimensionStyle& style)
{
    for (const NumberRow& row : kNumbers)
        if (row.code == code)
            style.*row.member =
                value.restype == kDataReal ? checked(code, value.resval.rreal) : value.resval.rint;
    for (const TextRow& row : kTexts)
        if (row.code == code)
            style.*row.member =
                row.table ? nameOf(idOfHandle(
                                database, parseHandle(toUtf8(value.resval.rstring)).value_or(0)))
                          : value.resval.rstring;
}

bool isReal(short code)
{
    return tagKind(code) == TagKind::real;
}

resbuf item(int code)
{
    resbuf made;
    made.restype = static_cast<short>(code);
    return made;
}

void addNumber(ResbufChain& data, short code, double value)
{
    data.push_back(item(kDataShort));
    data.back().resval.rint = code;
    data.push_back(item(isReal(code) ? kDataReal : kDataShort));
    if (isReal(code))
        data.back().resval.rreal = value;
    else
        data.back().resval.rint = static_cast<std::int16_t>(value);
}

// A record that the drawing lacks can't be stated.
bool differs(const TextRow& row, const std::wstring& own, const std::wstring& wanted,
             Drawing& drawing)
{
    if (!row.table)
        return own != wanted;
    return !equalNoCase(own, wanted) &&
           (wanted.empty() || !findSymbol(drawing, row.table, wanted).isNull());
}

void addText(ResbufChain& data, const TextRow& row, const std::wstring& value, Drawing& drawing)
{
    data.push_back(item(kDataShort));
    data.back().resval.rint = row.code;
    data.push_back(item(row.table ? kDataHandle : kDataText));
    data.back().resval.rstring = value;
    if (row.table)
        data.back().resval.rstring =
            fromUtf8(handleText(findSymbol(drawing, row.table, value).handle().value()));
}

} // namespace

DimensionStyle dimensionStyleOf(AcDbObjectId id)
{
    DimensionStyle style;
    const Reading<AcDbDimStyleTableRecord> record(id);
    if (!record)
        return style;
    const TagList& tags = record->tags();
    for (const NumberRow& row : kNumbers) {
        if (const std::size_t at = findField(tags, kStylePart, row.code); at != TagList::npos)
            style.*row.member = isReal(row.code) ? checked(row.code, tags.real(at))
                                                 : static_cast<double>(tags.integer(at));
    }
    readTexts(tags, *id.database(), style);
    return style;
}

DimensionStyle dimensionStyleOf(const AcDbDimension& dimension)
{
    DimensionStyle style = dimensionStyleOf(dimension.dimensionStyle());
    const ResbufChain data = dimension.xData(kApplication);
    const TagRange range = overridesIn(data);
    for (std::size_t i = range.first; i + 1 < range.last; i += 2)
        readOverride(data[i].resval.rint, data[i + 1], *dimension.database(), style);
    return style;
}

DimensionStyle currentDimensionStyle(AcDbDatabase& database, std::wstring_view name)
{
    DimensionStyle style = dimensionStyleOf(findSymbol(database.drawing(), "DIMSTYLE", name));
    for (const NumberRow& row : kNumbers)
        if (const std::optional<resbuf> value = headerVariable(database.drawing(), row.name))
            style.*row.member = value->restype == RTREAL   ? checked(row.code, value->resval.rreal)
                                : value->restype == RTLONG ? value->resval.rlong
                                                           : value->resval.rint;
    for (const TextRow& row : kTexts)
        if (const std::optional<resbuf> value = headerVariable(database.drawing(), row.name))
            style.*row.member = value->resval.rstring == L"." ? L"" : value->resval.rstring;
    return style;
}

void ensureArrowBlocks(AcDbDatabase& database, DimensionStyle& style)
{
    for (std::wstring* const arrow : {&style.blk, &style.blk1, &style.blk2})
        *arrow = nameOf(arrowBlock(database, *arrow));
}

void writeOverrides(AcDbDimension& dimension, const DimensionStyle& wanted)
{
    const DimensionStyle own = dimensionStyleOf(dimension.dimensionStyle());
    ResbufChain overrides;
    for (const NumberRow& row : kNumbers)
        if (std::abs(own.*row.member - wanted.*row.member) > 1e-12)
            addNumber(overrides, row.code, wanted.*row.member);
    for (const TextRow& row : kTexts)
        if (differs(row, own.*row.member, wanted.*row.member, *dimension.drawing()))
            addText(overrides, row, wanted.*row.member, *dimension.drawing());

    ResbufChain data = dimension.xData(kApplication);
    if (const TagRange old = overridesIn(data); old.last != 0)
        data.erase(data.begin() + static_cast<std::ptrdiff_t>(old.first - 2),
                   data.begin() + static_cast<std::ptrdiff_t>(std::min(old.last + 1, data.size())));
    else if (overrides.empty())
        return;
    if (data.empty()) {
        data.push_back(item(1001));
        data.back().resval.rstring = kApplication;
    }
    if (!overrides.empty()) {
        data.push_back(item(kDataText));
        data.back().resval.rstring = kOverrides;
        data.push_back(item(kDataBracket));
        data.back().resval.rstring = L"{";
        data.insert(data.end(), overrides.begin(), overrides.end());
        data.push_back(item(kDataBracket));
        data.back().resval.rstring = L"}";
    }
    dimension.setXData(data);
}

void restoreDimensionStyle(AcDbDatabase& database, std::wstring_view name)
{
    Drawing& drawing = database.drawing();
    const DimensionStyle style = dimensionStyleOf(findSymbol(drawing, "DIMSTYLE", name));
    for (const NumberRow& row : kNumbers) {
        resbuf value = item(RTREAL);
        value.resval.rreal = style.*row.member;
        if (const int code = headerVariableCode(drawing, row.name))
            setHeaderVariable(drawing, row.name, code, value);
    }
    for (const TextRow& row : kTexts) {
        resbuf value = item(RTSTR);
        value.resval.rstring = style.*row.member;
        if (const int code = headerVariableCode(drawing, row.name))
            setHeaderVariable(drawing, row.name, code, value);
    }
}

} // namespace host
