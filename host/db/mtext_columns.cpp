#include "host/db/mtext.h"

#include <algorithm>

// Columns stand in an embedded object behind the text's own fields from R2018 on, which repeats its
// place and its direction; before that in the extended data of ACAD, as codes and values between
// two marks.

namespace {

using host::TagList;

constexpr int kDynamic = 2; // the type of columns
constexpr std::wstring_view kApplication = L"ACAD";
constexpr std::wstring_view kBegin = L"ACAD_MTEXT_COLUMN_INFO_BEGIN";
constexpr std::wstring_view kEnd = L"ACAD_MTEXT_COLUMN_INFO_END";
constexpr int kGutter = 49; // in the extended data
constexpr int kEmbeddedGutter = 45;

resbuf textItem(int code, std::wstring_view text)
{
    resbuf item;
    item.restype = static_cast<short>(code);
    item.resval.rstring = text;
    return item;
}

resbuf shortItem(int value)
{
    resbuf item;
    item.restype = 1070;
    item.resval.rint = static_cast<std::int16_t>(value);
    return item;
}

resbuf realItem(double value)
{
    resbuf item;
    item.restype = 1040;
    item.resval.rreal = value;
    return item;
}

bool isMark(const resbuf& item, std::wstring_view text)
{
    return item.restype == 1000 && item.resval.rstring == text;
}

// The marks and all between them; empty at the end without them.
std::pair<std::size_t, std::size_t> columnItems(const ResbufChain& data)
{
    const auto begin = std::find_if(data.begin(), data.end(),
                                    [](const resbuf& item) { return isMark(item, kBegin); });
    auto end =
        std::find_if(begin, data.end(), [](const resbuf& item) { return isMark(item, kEnd); });
    if (end != data.end())
        ++end;
    return {static_cast<std::size_t>(begin - data.begin()),
            static_cast<std::size_t>(end - data.begin())};
}

std::size_t embeddedObject(const TagList& tags)
{
    return tags.find(101, "Embedded Object", 0, host::dataEnd(tags));
}

} // namespace

Acad::ErrorStatus AcDbMText::getColumnGutterWidth(double& width) const
{
    const TagList& own = tags();
    if (const std::size_t embedded = embeddedObject(own); embedded != TagList::npos) {
        const std::size_t at = own.find(kEmbeddedGutter, embedded, host::dataEnd(own));
        width = at == TagList::npos ? 0.0 : own.real(at);
        return Acad::eOk;
    }
    width = 0.0;
    const ResbufChain data = xData(kApplication);
    const auto [first, last] = columnItems(data);
    for (std::size_t at = first; at + 1 < last; ++at)
        if (data[at].restype == 1070 && data[at].resval.rint == kGutter &&
            data[at + 1].restype == 1040)
            width = data[at + 1].resval.rreal;
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setDynamicColumns(double width, double gutter, bool autoHeight)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (width < 0.0 || gutter < 0.0)
        return Acad::eInvalidInput;
    if (tags().form().version() >= host::DxfVersion::r2018)
        embedColumns(width, gutter, autoHeight);
    else
        return setXData(columnData(width, gutter, autoHeight));
    return Acad::eOk;
}

void AcDbMText::embedColumns(double width, double gutter, bool autoHeight)
{
    TagList& own = tagsForWrite();
    if (const std::size_t old = embeddedObject(own); old != TagList::npos)
        own.erase(old, host::dataEnd(own));
    const AcGePoint3d along = AcGePoint3d() + direction();
    const AcGePoint3d place = location();
    std::size_t at = host::dataEnd(own);
    const auto addPoint = [&](int code, const AcGePoint3d& p) {
        own.insertReal(at++, code, p.x);
        own.insertReal(at++, code + 10, p.y);
        own.insertReal(at++, code + 20, p.z);
    };
    own.insertText(at++, 101, L"Embedded Object");
    own.insertInteger(at++, 70, 1);
    addPoint(10, along);
    addPoint(11, place);
    own.insertReal(at++, 40, this->width());
    own.insertReal(at++, 41, 0.0);   // height, where it is not by itself
    own.insertReal(at++, 42, width); // of all columns
    own.insertReal(at++, 43, textHeight());
    own.insertInteger(at++, 71, kDynamic);
    own.insertInteger(at++, 72, autoHeight ? 0 : 1); // columns whose heights are told
    own.insertReal(at++, 44, width);
    own.insertReal(at++, kEmbeddedGutter, gutter);
    own.insertInteger(at++, 73, autoHeight);
    own.insertInteger(at++, 74, 0); // from left to right
    if (!autoHeight)
        own.insertReal(at++, 46, 0.0); // the last one takes what is left
}

ResbufChain AcDbMText::columnData(double width, double gutter, bool autoHeight) const
{
    ResbufChain data = xData(kApplication);
    if (data.empty())
        data.push_back(textItem(1001, kApplication));
    const auto [first, last] = columnItems(data);
    const auto begin = data.begin();
    data.erase(begin + static_cast<std::ptrdiff_t>(first),
               begin + static_cast<std::ptrdiff_t>(last));
    ResbufChain items{textItem(1000, kBegin), shortItem(75),         shortItem(kDynamic),
                      shortItem(79),          shortItem(autoHeight), shortItem(76),
                      shortItem(1),           shortItem(78),         shortItem(0),
                      shortItem(48),          realItem(width),       shortItem(kGutter),
                      realItem(gutter)};
    if (!autoHeight)
        items.insert(items.end(), {shortItem(50), shortItem(1), realItem(0.0)});
    items.push_back(textItem(1000, kEnd));
    data.insert(data.end(), items.begin(), items.end());
    return data;
}

// The embedded object follows the text.
void AcDbMText::alignColumns()
{
    const std::size_t embedded = embeddedObject(tags());
    if (embedded == TagList::npos)
        return;
    const auto follow = [&](int code, double value) {
        const std::size_t at = tags().find(code, embedded, host::dataEnd(tags()));
        if (at != TagList::npos && tags().real(at) != value)
            tagsForWrite().setReal(at, value);
    };
    const AcGeVector3d along = direction();
    const AcGePoint3d place = location();
    for (const unsigned axis : {0u, 1u, 2u}) {
        follow(10 + 10 * static_cast<int>(axis), along[axis]);
        follow(11 + 10 * static_cast<int>(axis), place[axis]);
    }
    follow(40, width());
}
