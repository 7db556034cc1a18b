#include "host/db/symbol_names.h"

#include "host/db/database.h"
#include "host/db/lookups.h"
#include "host/db/tag_view.h"

#include <algorithm>
#include <cstdlib>

namespace host {

namespace {

constexpr short kLayerOrder[] = {2, 70, 62, 420, 430, 6, 290, 370, 390, 347, 348};
constexpr short kLinetypeOrder[] = {2, 70, 3, 72, 73, 40};
constexpr short kStyleOrder[] = {2, 70, 40, 41, 50, 71, 42, 3, 4};
constexpr short kPlainOrder[] = {2, 70};
constexpr short kBlockOrder[] = {2, 340, 70, 280, 281};

constexpr FieldDefault kLayer[] = {
    {70, "0"},
    {62, "7"},
    {6, "Continuous"},
    {370, "-3", DxfVersion::r2000},
};
constexpr FieldDefault kLinetype[] = {
    {70, "0"}, {3, ""}, {72, "65"}, {73, "0"}, {40, "0.0"},
};
constexpr FieldDefault kStyle[] = {
    {70, "0"}, {40, "0.0"}, {41, "1.0"}, {50, "0.0"}, {71, "0"}, {42, "2.5"}, {3, "txt"}, {4, ""},
};
constexpr FieldDefault kPlain[] = {{70, "0"}};
constexpr FieldDefault kBlock[] = {
    {340, "0"},
    {70, "0", DxfVersion::r2007},
    {280, "1", DxfVersion::r2007},
    {281, "0", DxfVersion::r2007},
};

constexpr SymbolKind kKinds[] = {
    {"VPORT", {"AcDbViewportTableRecord", kPlainOrder}, kPlain},
    {"LTYPE", {"AcDbLinetypeTableRecord", kLinetypeOrder}, kLinetype},
    {"LAYER", {"AcDbLayerTableRecord", kLayerOrder}, kLayer},
    {"STYLE", {"AcDbTextStyleTableRecord", kStyleOrder}, kStyle},
    {"VIEW", {"AcDbViewTableRecord", kPlainOrder}, kPlain},
    {"UCS", {"AcDbUCSTableRecord", kPlainOrder}, kPlain},
    {"APPID", {"AcDbRegAppTableRecord", kPlainOrder}, kPlain},
    {"DIMSTYLE", {"AcDbDimStyleTableRecord", kPlainOrder}, kPlain},
    {"BLOCK_RECORD", {"AcDbBlockTableRecord", kBlockOrder}, kBlock},
};

constexpr int kNameCode = 2;

} // namespace

std::span<const SymbolKind> symbolKinds()
{
    return kKinds;
}

const SymbolKind* symbolKind(std::string_view table)
{
    const auto found = std::find_if(std::begin(kKinds), std::end(kKinds),
                                    [&](const SymbolKind& kind) { return kind.table == table; });
    return found == std::end(kKinds) ? nullptr : found;
}

void addDefaults(TagList& tags, const SymbolKind& kind, DxfVersion version)
{
    for (const FieldDefault& field : kind.defaults) {
        if (field.since > version || findField(tags, kind.part, field.code) != TagList::npos)
            continue;
        const std::size_t at = placeOfField(tags, kind.part, field.code);
        const int number = std::atoi(field.value.data());
        switch (tagKind(field.code)) {
        case TagKind::text:
            tags.insertText(at, field.code, std::wstring(field.value.begin(), field.value.end()));
            break;
        case TagKind::real:
            tags.insertReal(at, field.code, std::atof(field.value.data()));
            break;
        case TagKind::handle:
            tags.insertHandle(at, field.code, static_cast<std::uint64_t>(number));
            break;
        default:
            tags.insertInteger(at, field.code, number);
            break;
        }
    }
}

void dropMarkers(TagList& tags)
{
    for (std::size_t i = tags.size(); i-- > 1;)
        if (tags[i].code == 100)
            tags.erase(i, i + 1);
    const std::size_t owner = recordHead(tags).owner;
    if (owner != TagList::npos)
        tags.erase(owner, owner + 1);
}

std::wstring symbolName(Drawing& drawing, std::string_view table, std::uint32_t stub)
{
    const SymbolKind* const kind = symbolKind(table);
    if (!kind)
        return {};
    constexpr std::uint16_t kOwnTags = kImplicit | kChanged;
    if ((drawing.index[stub].flags & kOwnTags) == kImplicit) {
        const ImplicitNames& names = drawing.database.lookups().implicitNames;
        const auto name = names.find(stub);
        return name == names.end() ? std::wstring() : name->second;
    }
    const std::shared_ptr<const TagList> tags = drawing.tagsOf(stub);
    std::size_t at = findField(*tags, kind->part, kNameCode);
    if (at == TagList::npos) // written by programs that leave the class's marker out
        at = tags->find(kNameCode, 0, dataEnd(*tags));
    return at == TagList::npos ? std::wstring() : tags->text(at);
}

std::wstring spaceNameOf(std::wstring_view name)
{
    constexpr std::pair<std::wstring_view, std::wstring_view> spaces[] = {
        {L"$MODEL_SPACE", L"*Model_Space"},
        {L"$PAPER_SPACE", L"*Paper_Space"},
    };
    for (const auto& [old, now] : spaces)
        if (equalNoCase(name, old))
            return std::wstring(now);
    return std::wstring(name);
}

void SymbolNames::read(Drawing& drawing, std::string_view table, Names& names)
{
    names.stubs.clear();
    names.generation = drawing.symbolGeneration;
    const auto place = drawing.tables.find(table);
    if (place == drawing.tables.end())
        return;
    const bool blocks = table == "BLOCK_RECORD";
    for (const std::uint32_t stub : place->second.records) {
        if ((drawing.index[stub].flags & kErased) != 0)
            continue;
        const std::wstring name = symbolName(drawing, table, stub);
        if (!name.empty())
            names.stubs.try_emplace(blocks ? spaceNameOf(name) : name, stub);
    }
    if (blocks && drawing.modelSpace != 0) {
        // spaces that the file calls otherwise
        names.stubs.try_emplace(L"*Model_Space", drawing.modelSpace);
        names.stubs.try_emplace(L"*Paper_Space", drawing.paperSpace);
    }
}

AcDbObjectId SymbolNames::find(Drawing& drawing, std::string_view table, std::wstring_view name)
{
    auto known = tables_.find(table);
    if (known == tables_.end())
        known = tables_.emplace(table, Names{}).first;
    if (known->second.generation != drawing.symbolGeneration)
        read(drawing, table, known->second);
    const auto& stubs = known->second.stubs;
    auto found = stubs.find(name);
    if (found == stubs.end() && table == "BLOCK_RECORD" && name.starts_with(L'$'))
        found = stubs.find(spaceNameOf(name));
    return found == stubs.end() ? AcDbObjectId() : drawing.id(found->second);
}

void SymbolNames::added(Drawing& drawing, std::string_view table, std::wstring_view name,
                        std::uint32_t stub)
{
    const auto known = tables_.find(table);
    const bool current =
        known != tables_.end() && known->second.generation == drawing.symbolGeneration;
    ++drawing.symbolGeneration;
    if (!current)
        return;
    if (!name.empty())
        known->second.stubs.try_emplace(std::wstring(name), stub);
    known->second.generation = drawing.symbolGeneration;
}

bool isSymbolRecord(const Drawing& drawing, std::uint32_t stub)
{
    const std::string_view type = drawing.index.types().name(drawing.index[stub].type);
    return type == "BLOCK" || symbolKind(type) != nullptr;
}

AcDbObjectId findSymbol(Drawing& drawing, std::string_view table, std::wstring_view name)
{
    return drawing.database.lookups().symbols.find(drawing, table, name);
}

} // namespace host
