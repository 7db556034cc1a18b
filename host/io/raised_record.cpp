#include "host/io/raised_record.h"

#include "host/db/symbol_names.h"
#include "host/db/tag_view.h"
#include "host/io/subclass_parts.h"

#include <algorithm>

namespace host {

namespace {

constexpr int kHandle = 5;
constexpr int kDimStyleHandle = 105;
constexpr short kCommonCodes[] = {67, 410, 8, 6, 62, 420, 430, 440, 48, 60, 370};

template <std::size_t Count> bool isOneOf(const short (&codes)[Count], int code)
{
    return std::find(std::begin(codes), std::end(codes), code) != std::end(codes);
}

std::wstring wide(std::string_view ascii)
{
    return {ascii.begin(), ascii.end()};
}

// Arrow blocks of a dimension style: by name up to R12, by handle later.
struct ArrowCodes {
    short name;
    short handle;
};
constexpr ArrowCodes kArrows[] = {{5, 342}, {6, 343}, {7, 344}};

} // namespace

TagList RaisedRecord::tagsOf(std::uint32_t stub) const
{
    const std::shared_ptr<const TagList> tags = drawing_.tagsOf(stub);
    if (drawing_.binary)
        return tags->inSource(source_);
    TagList same(source_);
    for (const Tag& tag : *tags)
        same.addTag(tag);
    return same;
}

TagList RaisedRecord::complete(std::uint32_t stub) const
{
    return tagsOf(stub);
}

TagList RaisedRecord::head(TagList& rest, int handleCode, std::uint64_t handle,
                           std::uint64_t owner) const
{
    TagList made(source_);
    std::size_t type = rest.find(0);
    if (type == TagList::npos)
        type = 0;
    made.addTag(rest[type]);
    rest.erase(0, type + 1);
    const std::size_t own = rest.find(handleCode, 0, dataEnd(rest));
    if (own != TagList::npos) {
        made.addTag(rest[own]);
        if (made.handle(1) != handle)
            made.setHandle(1, handle);
        rest.erase(own, own + 1);
    } else {
        made.addHandle(handleCode, handle);
    }
    // what brackets enclose stands in front of everything else
    int depth = 0;
    for (std::size_t i = 0; i < rest.size();) {
        const bool bracket = rest[i].code == 102;
        const bool opens = bracket && rest[i].bytes().starts_with('{');
        if (!opens && depth == 0) {
            if (rest[i].code != 330)
                break;
            rest.erase(i, i + 1); // an owner, given anew below
            continue;
        }
        depth += opens ? 1 : bracket ? -1 : 0;
        made.addTag(rest[i]);
        rest.erase(i, i + 1);
    }
    made.addHandle(330, owner);
    return made;
}

TagList RaisedRecord::entity(std::uint32_t stub, std::uint64_t owner) const
{
    TagList rest = tagsOf(stub);
    const std::vector<SubclassPart> parts = [&] {
        const std::uint32_t parent = drawing_.index[stub].owner;
        std::int64_t flags = 0;
        if (rest[0].bytes() == "VERTEX" && parent) {
            const std::shared_ptr<const TagList> tags = drawing_.tagsOf(parent);
            const std::size_t at = tags->find(70);
            flags = at == TagList::npos ? 0 : tags->integer(at);
        }
        return partsOfEntity(rest, flags);
    }();
    const bool marked = hasMarkers(rest);
    TagList made = head(rest, kHandle, drawing_.index[stub].handle, owner);
    if (made[0].bytes() == "3DLINE")
        made.setBytes(0, "LINE");
    const std::size_t end = dataEnd(rest);
    if (marked) {
        for (const Tag& tag : rest)
            made.addTag(tag);
        return made;
    }
    made.addText(100, L"AcDbEntity");
    for (std::size_t i = 0; i < end; ++i)
        if (isOneOf(kCommonCodes, rest[i].code))
            made.addTag(rest[i]);
    const auto named = [&](int code) {
        return std::any_of(parts.begin(), parts.end(), [&](const SubclassPart& part) {
            return std::find(part.codes.begin(), part.codes.end(), code) != part.codes.end();
        });
    };
    bool restPlaced = false;
    for (const SubclassPart& part : parts) {
        made.addText(100, wide(part.marker));
        for (std::size_t i = 0; i < end; ++i) {
            const int code = rest[i].code;
            if (isOneOf(kCommonCodes, code))
                continue;
            const bool here = part.codes.empty() ? !named(code)
                                                 : std::find(part.codes.begin(), part.codes.end(),
                                                             code) != part.codes.end();
            if (here)
                made.addTag(rest[i]);
        }
        restPlaced = restPlaced || part.codes.empty();
    }
    if (!restPlaced) // a type without parts keeps what it has
        for (std::size_t i = 0; i < end; ++i)
            if (!isOneOf(kCommonCodes, rest[i].code) && !named(rest[i].code))
                made.addTag(rest[i]);
    for (std::size_t i = end; i < rest.size(); ++i)
        made.addTag(rest[i]);
    return made;
}

TagList RaisedRecord::tableEntry(std::uint32_t stub, std::string_view table) const
{
    TagList rest = tagsOf(stub);
    const bool marked = hasMarkers(rest);
    const bool dimStyle = table == "DIMSTYLE";
    const TablePlace& place = drawing_.tables.find(table)->second;
    TagList made = head(rest, dimStyle ? kDimStyleHandle : kHandle, drawing_.index[stub].handle,
                        drawing_.index[place.table].handle);
    if (!marked) {
        made.addText(100, L"AcDbSymbolTableRecord");
        made.addText(100, wide(symbolKind(table)->part.marker));
    }
    const std::size_t end = marked ? 0 : dataEnd(rest);
    for (std::size_t i = 0; i < end; ++i) {
        const Tag& tag = rest[i];
        const ArrowCodes* const arrow =
            dimStyle ? std::find_if(std::begin(kArrows), std::end(kArrows),
                                    [&](const ArrowCodes& codes) { return codes.name == tag.code; })
                     : std::end(kArrows);
        if (arrow != std::end(kArrows)) {
            const AcDbObjectId block = findSymbol(drawing_, "BLOCK_RECORD", rest.text(i));
            if (!block.isNull() && tag.length)
                made.addHandle(arrow->handle, drawing_.index[block.stubNumber()].handle);
            continue;
        }
        made.addTag(tag);
        if (table == "LTYPE" && tag.code == 49) // neither shape nor text in this dash
            made.addInteger(74, 0);
    }
    for (std::size_t i = end; i < rest.size(); ++i)
        made.addTag(rest[i]);
    return made;
}

TagList RaisedRecord::table(std::uint32_t stub, std::string_view name, std::size_t count) const
{
    TagList made(source_);
    made.addText(0, L"TABLE");
    made.addText(2, wide(name));
    made.addHandle(kHandle, drawing_.index[stub].handle);
    made.addHandle(330, 0);
    made.addText(100, L"AcDbSymbolTable");
    made.addInteger(70, static_cast<std::int64_t>(count));
    if (name == "DIMSTYLE") {
        made.addText(100, L"AcDbDimStyleTable");
        made.addInteger(71, static_cast<std::int64_t>(count));
    }
    return made;
}

TagList RaisedRecord::blockMark(std::uint32_t stub, std::uint64_t record, bool paper) const
{
    TagList rest = tagsOf(stub);
    const bool begin = rest[0].bytes() == "BLOCK";
    const bool marked = hasMarkers(rest);
    TagList made = head(rest, kHandle, drawing_.index[stub].handle, record);
    const std::size_t end = dataEnd(rest);
    for (std::size_t i = 0; i < end; ++i)
        if (rest[i].code == 2 || rest[i].code == 3) {
            const std::wstring name = rest.text(i);
            if (spaceNameOf(name) != name)
                rest.setText(i, spaceNameOf(name));
        }
    if (!marked) {
        made.addText(100, L"AcDbEntity");
        if (paper && rest.find(67) == TagList::npos)
            made.addInteger(67, 1);
        bool layer = false;
        for (std::size_t i = 0; i < end; ++i)
            if (isOneOf(kCommonCodes, rest[i].code)) {
                layer = layer || rest[i].code == 8;
                made.addTag(rest[i]);
            }
        if (!layer)
            made.addText(8, L"0");
        made.addText(100, begin ? L"AcDbBlockBegin" : L"AcDbBlockEnd");
    }
    for (std::size_t i = 0; i < rest.size(); ++i)
        if (marked || i >= end || !isOneOf(kCommonCodes, rest[i].code))
            made.addTag(rest[i]);
    return made;
}

} // namespace host
