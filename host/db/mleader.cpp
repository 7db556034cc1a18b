#include "host/db/mleader.h"

#include "host/db/angle.h"
#include "host/db/block_reference.h"
#include "host/db/exploding.h"
#include "host/db/mtext.h"
#include "host/db/mtext_contents.h"
#include "host/db/readable_text.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"
#include "host/geom/text_strokes.h"

#include <cmath>

using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbMLeader, AcDbEntity, "MULTILEADER")

namespace {

constexpr host::Subclass kMLeaderPart{"AcDbMLeader"};

// Brackets of the record: the code and the text that begin and end each.
constexpr int kBlockAttribute = 330; // of a block content, by its definition
constexpr int kContextBegin = 300;
constexpr int kContextEnd = 301;
constexpr int kLeaderBegin = 302;
constexpr int kLeaderEnd = 303;
constexpr int kLineBegin = 304;
constexpr int kLineEnd = 305;
constexpr std::string_view kLineName = "LEADER_LINE{";

using host::FieldForm;

// What the codes mean outside of the lines, in a leader, in one of its lines, and behind all of it.
constexpr host::MappedField kContentFields[] = {
    {10, FieldForm::point},      {14, FieldForm::direction}, {15, FieldForm::point},
    {16, FieldForm::length},     {26, FieldForm::length},    {36, FieldForm::length},
    {40, FieldForm::length},     {41, FieldForm::length},    {43, FieldForm::length},
    {44, FieldForm::length},     {110, FieldForm::point},    {111, FieldForm::direction},
    {112, FieldForm::direction}, {140, FieldForm::length},   {142, FieldForm::length},
    {143, FieldForm::length},    {144, FieldForm::length},   {145, FieldForm::length}};
constexpr host::MappedField kLeaderFields[] = {{10, FieldForm::point},
                                               {11, FieldForm::direction},
                                               {12, FieldForm::point},
                                               {13, FieldForm::point},
                                               {40, FieldForm::length}};
constexpr host::MappedField kLineFields[] = {{10, FieldForm::point},
                                             {11, FieldForm::point},
                                             {12, FieldForm::point},
                                             {40, FieldForm::length}};
constexpr host::MappedField kOverallFields[] = {{45, FieldForm::length}};

host::TagRange rangeOf(const TagList& tags)
{
    return host::subclassRange(tags, kMLeaderPart.marker).value_or(host::TagRange());
}

// From the upper left of a text to its width and height.
AcGeVector2d sizeOf(std::wstring_view plain, double height)
{
    AcGeVector2d size(0.0, height);
    for (std::size_t from = 0; from <= plain.size();) {
        const std::size_t end = std::min(plain.find(L'\n', from), plain.size());
        size.x = std::max(size.x, host::textWidth(plain.substr(from, end - from), height, 1.0));
        size.y += from > 0 ? height * host::kTextLineAdvance : 0.0;
        from = end + 1;
    }
    return size;
}

// Where a block stands, as 16 numbers row by row (47).
void mapBlockMatrix(host::TagWriter& leader, host::TagRange inside, const AcGeMatrix3d& map)
{
    constexpr int kEntry = 47;
    const std::size_t first = leader.tags().find(kEntry, inside.first, inside.last);
    if (first == TagList::npos || first + 16 > inside.last ||
        leader.tags()[first + 15].code != kEntry)
        return;
    AcGeMatrix3d block;
    for (std::size_t i = 0; i < 16; ++i)
        block.entry[i / 4][i % 4] = leader.tags().real(first + i);
    block.preMultBy(map);
    for (std::size_t i = 0; i < 16; ++i)
        if (leader.tags().real(first + i) != block.entry[i / 4][i % 4])
            leader.tagsForWrite().setReal(first + i, block.entry[i / 4][i % 4]);
}

} // namespace

host::TagRange AcDbMLeader::context() const
{
    const TagList& own = tags();
    const host::TagRange all = rangeOf(own);
    const std::size_t first = own.find(kContextBegin, "CONTEXT_DATA{", all.first, all.last);
    if (first == TagList::npos)
        return {all.first, all.first};
    const std::size_t last = own.find(kContextEnd, "}", first, all.last);
    return {first, last == TagList::npos ? all.last : last + 1};
}

std::size_t AcDbMLeader::styleTag() const
{
    return tags().find(340, context().last, rangeOf(tags()).last);
}

AcDbObjectId AcDbMLeader::MLeaderStyle() const
{
    const std::size_t at = styleTag();
    return at == TagList::npos ? AcDbObjectId() : idOfHandle(tags().handle(at));
}

Acad::ErrorStatus AcDbMLeader::setMLeaderStyle(AcDbObjectId style)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (style.isNull())
        return Acad::eInvalidInput;
    if (style == MLeaderStyle())
        return Acad::eOk;
    const std::size_t at = styleTag();
    const std::size_t behind = context().last;
    if (at != TagList::npos)
        tagsForWrite().setHandle(at, style.handle().value());
    else
        tagsForWrite().insertHandle(behind, 340, style.handle().value());
    return Acad::eOk;
}

std::wstring AcDbMLeader::contents() const
{
    const TagList& own = tags();
    const host::TagRange inside = context();
    const std::size_t end =
        std::min(own.find(kLeaderBegin, inside.first, inside.last), inside.last);
    const std::size_t at = own.find(kLineBegin, inside.first, end);
    return at == TagList::npos ? std::wstring() : own.text(at);
}

Acad::ErrorStatus AcDbMLeader::transformBy(const AcGeMatrix3d& map)
{
    const host::PlaneMap mapped(map);
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    mapText(mapped);
    const host::TagRange inside = context();
    std::span<const host::MappedField> fields = kContentFields;
    std::size_t from = inside.first;
    for (std::size_t i = inside.first; i < inside.last; ++i) {
        const int code = tags()[i].code;
        const bool line = code == kLineBegin && tags()[i].bytes() == kLineName;
        if (code != kLeaderBegin && code != kLeaderEnd && code != kLineEnd && !line &&
            i + 1 < inside.last)
            continue;
        host::mapFields(*this, {from, i}, fields, mapped);
        from = i;
        if (line)
            fields = kLineFields;
        else if (code == kLeaderBegin || code == kLineEnd)
            fields = kLeaderFields;
        else
            fields = kContentFields;
    }
    mapBlockMatrix(*this, inside, map);
    host::mapFields(*this, {inside.last, rangeOf(tags()).last}, kOverallFields, mapped);
    return Acad::eOk;
}

// Place (12), direction (13) and angle (42, radians) of the text, which can be read after a
// mirroring too.
void AcDbMLeader::mapText(const host::PlaneMap& map)
{
    const host::TagRange inside = context();
    const std::size_t end =
        std::min(tags().find(kLeaderBegin, inside.first, inside.last), inside.last);
    const std::size_t place = tags().find(12, inside.first, end);
    const std::size_t writing = tags().find(13, inside.first, end);
    if (place == TagList::npos || writing == TagList::npos)
        return;
    const std::size_t height = tags().find(41, inside.first, end);
    const std::size_t normal = tags().find(11, inside.first, end);
    const AcGeVector3d up =
        normal == TagList::npos ? AcGeVector3d::kZAxis : host::pointAt(tags(), normal).asVector();
    host::TextFrame frame;
    frame.corner = host::pointAt(tags(), place);
    frame.along = host::pointAt(tags(), writing).asVector().normal();
    frame.up = -up.crossProduct(frame.along); // the place is the upper left
    if (height != TagList::npos) {
        const AcGeVector2d size = sizeOf(host::plainText(contents()), tags().real(height));
        frame.along *= size.x;
        frame.up *= size.y;
    }
    const host::TextFrame now = host::readableFrame(frame, map);
    const AcGeVector3d direction = now.along.normal();
    const auto write = [&](std::size_t at, const AcGePoint3d& p) {
        for (std::size_t axis = 0; axis < 3; ++axis)
            if (at + axis < tags().size() && tags().real(at + axis) != p[unsigned(axis)])
                tagsForWrite().setReal(at + axis, p[unsigned(axis)]);
    };
    write(place, now.corner);
    write(writing, AcGePoint3d() + direction);
    if (normal != TagList::npos)
        write(normal, AcGePoint3d() + now.up.crossProduct(now.along).normal());
    const std::size_t angle = tags().find(42, inside.first, end);
    const double turn = frame.along.angleTo(now.along, up);
    if (angle != TagList::npos && !direction.isEqualTo(frame.along.normal()))
        tagsForWrite().setReal(
            angle, host::toRadians(host::tidyDegrees(host::toDegrees(tags().real(angle) + turn))));
}

bool AcDbMLeader::strokes(host::StrokeSink& sink) const
{
    const TagList& own = tags();
    const host::TagRange inside = context();
    AcGePoint3d textPlace;
    AcGeVector3d textDirection = AcGeVector3d::kXAxis;
    AcGeVector3d textNormal = AcGeVector3d::kZAxis;
    double textHeight = 0.0;

    AcGePoint3d landing; // where the lines of one leader end
    AcGeVector3d dogleg;
    std::vector<AcGePoint3d> line;
    bool inLeader = false;
    bool inLine = false;
    bool drawn = false;
    for (std::size_t i = inside.first; i < inside.last; ++i) {
        const int code = own[i].code;
        if (code == kLeaderBegin) {
            inLeader = true;
        } else if (code == kLeaderEnd) {
            inLeader = false;
        } else if (inLeader && code == kLineBegin && own[i].bytes() == kLineName) {
            inLine = true;
            line.clear();
        } else if (inLine && code == kLineEnd) {
            inLine = false;
            line.push_back(landing);
            sink.polyline(line, false);
            drawn = true;
        } else if (inLine && code == 10) {
            line.push_back(host::pointAt(own, i));
        } else if (inLeader && !inLine && code == 10) {
            landing = host::pointAt(own, i);
        } else if (inLeader && !inLine && code == 11) {
            dogleg = host::pointAt(own, i).asVector();
        } else if (inLeader && !inLine && code == 40) {
            sink.segment(landing, landing + dogleg * own.real(i));
        } else if (!inLeader && code == 11) {
            textNormal = host::pointAt(own, i).asVector();
        } else if (!inLeader && code == 12) {
            textPlace = host::pointAt(own, i);
        } else if (!inLeader && code == 13) {
            textDirection = host::pointAt(own, i).asVector();
        } else if (!inLeader && code == 41) {
            textHeight = own.real(i);
        }
    }
    const std::wstring plain = host::plainText(contents());
    if (plain.empty() || !(textHeight > 0.0))
        return drawn;
    const AcGeVector3d along = textDirection.normal();
    const AcGeVector3d up = textNormal.crossProduct(along).normal();
    AcGePoint3d corner = textPlace - up * textHeight;
    for (std::size_t from = 0; from <= plain.size();) {
        const std::size_t end = std::min(plain.find(L'\n', from), plain.size());
        const std::wstring_view row = std::wstring_view(plain).substr(from, end - from);
        const double width = host::textWidth(row, textHeight, 1.0);
        if (width > 0.0)
            sink.textBox({corner, along * width, up * textHeight, row, {}});
        corner -= up * (textHeight * host::kTextLineAdvance);
        from = end + 1;
    }
    return true;
}

namespace {

// The text comes as one of several lines.
class LeaderParts : public host::PartSink {
public:
    using PartSink::PartSink;
    void textBox(const host::TextBox& box) override
    {
        if (first.text.empty())
            first = box;
    }
    host::TextBox first;
};

} // namespace

std::unique_ptr<AcDbBlockReference> AcDbMLeader::blockContent() const
{
    constexpr int kHasBlock = 296;
    const TagList& own = tags();
    const host::TagRange inside = context();
    const auto find = [&](int code) { return own.find(code, inside.first, inside.last); };
    const auto real = [&](int code) {
        return find(code) == TagList::npos ? 0.0 : own.real(find(code));
    };
    const auto place = [&](int code) {
        return find(code) == TagList::npos ? AcGePoint3d() : host::pointAt(own, find(code));
    };
    const std::size_t name = find(341);
    if (find(kHasBlock) == TagList::npos || own.integer(find(kHasBlock)) == 0 ||
        name == TagList::npos)
        return nullptr;
    auto made = std::make_unique<AcDbBlockReference>();
    if (made->setBlockTableRecord(idOfHandle(own.handle(name))) != Acad::eOk)
        return nullptr;
    made->setNormal(place(14).asVector());
    made->setPosition(place(15));
    const AcGePoint3d scale = place(16);
    made->setScaleFactors({scale.x, scale.y, scale.z});
    made->setRotation(real(46));
    return made;
}

Acad::ErrorStatus AcDbMLeader::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    std::unique_ptr<AcDbBlockReference> block = blockContent();
    if (block &&
        tags().find(kBlockAttribute, context().last, rangeOf(tags()).last) != TagList::npos)
        return Acad::eNotApplicable; // a reference has no place for their texts
    LeaderParts sink(*this, parts);
    strokes(sink);
    if (block) {
        sink.add(std::move(block));
        return Acad::eOk;
    }
    const double height = sink.first.up.length();
    if (!(height > 0.0))
        return sink.outcome();
    const TagList& own = tags();
    const host::TagRange inside = context();
    const std::size_t width = own.find(43, inside.first, inside.last);
    const std::size_t style = own.find(340, inside.first, inside.last);
    auto text = std::make_unique<AcDbMText>();
    text->setLocation(sink.first.corner + sink.first.up);
    text->setTextHeight(height);
    text->setRotation(std::atan2(sink.first.along.y, sink.first.along.x));
    text->setAttachment(AcDbMText::kTopLeft);
    if (width != TagList::npos && own.real(width) > 0.0)
        text->setWidth(own.real(width));
    if (style != TagList::npos)
        text->setTextStyle(idOfHandle(own.handle(style)));
    text->setContents(contents());
    sink.add(std::move(text));
    return sink.outcome();
}

std::span<const std::string_view> AcDbMLeader::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMLeader"};
    return kMarkers;
}
