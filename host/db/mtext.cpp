#include "host/db/mtext.h"

#include "host/db/exploding.h"
#include "host/db/mtext_contents.h"
#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"
#include "host/geom/text_strokes.h"

#include <algorithm>
#include <cmath>

using host::kMTextPart;
using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbMText, AcDbEntity, "MTEXT")

namespace {

constexpr std::size_t kChunk = 250; // characters

host::TagRange rangeOf(const TagList& tags)
{
    return host::subclassRange(tags, kMTextPart.marker).value_or(host::TagRange());
}

// The later one of 11 and 50; npos without either.
std::size_t directionTag(const TagList& tags)
{
    const host::TagRange range = rangeOf(tags);
    for (std::size_t i = range.last; i-- > range.first;)
        if (tags[i].code == 11 || tags[i].code == 50)
            return i;
    return TagList::npos;
}

// Lines as they are written, broken at blanks where they get wider than `width`.
std::vector<std::wstring> linesOf(std::wstring_view plain, double width, double height)
{
    std::vector<std::wstring> lines;
    for (std::size_t from = 0; from <= plain.size();) {
        const std::size_t end = std::min(plain.find(L'\n', from), plain.size());
        std::wstring_view line = plain.substr(from, end - from);
        while (width > 0.0 && host::textWidth(line, height, 1.0) > width) {
            std::size_t fit = line.size();
            while (fit != std::wstring_view::npos && fit > 0 &&
                   host::textWidth(line.substr(0, fit), height, 1.0) > width)
                fit = line.rfind(L' ', fit - 1);
            if (fit == std::wstring_view::npos || fit == 0)
                break; // one long word
            lines.emplace_back(line.substr(0, fit));
            line.remove_prefix(fit + 1);
        }
        lines.emplace_back(line);
        from = end + 1;
    }
    return lines;
}

} // namespace

AcGeVector3d AcDbMText::direction() const
{
    const std::size_t at = directionTag(tags());
    if (at != TagList::npos && tags()[at].code == 11) {
        const AcGeVector3d along = host::pointAt(tags(), at).asVector();
        if (!along.isZeroLength())
            return along.normal();
    }
    const double angle =
        at != TagList::npos && tags()[at].code == 50 ? host::toRadians(tags().real(at)) : 0.0;
    return AcGeMatrix3d::arbitraryAxes(normal()) *
           AcGeVector3d(std::cos(angle), std::sin(angle), 0.0);
}

double AcDbMText::rotation() const
{
    const std::size_t at = directionTag(tags());
    if (at != TagList::npos && tags()[at].code == 50)
        return host::toRadians(tags().real(at));
    const AcGeVector3d along = AcGeMatrix3d::arbitraryAxes(normal()).inverse() * direction();
    return std::atan2(along.y, along.x);
}

Acad::ErrorStatus AcDbMText::setRotation(double angle)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const double now = rotation();
    if (now == angle)
        return Acad::eOk;
    const std::size_t at = directionTag(tags());
    if (at != TagList::npos && tags()[at].code == 50) {
        tagsForWrite().setReal(at, host::toDegrees(angle));
    } else {
        const AcGeVector3d along(std::cos(angle), std::sin(angle), 0.0);
        setPoint(kMTextPart, 11, AcGePoint3d() + AcGeMatrix3d::arbitraryAxes(normal()) * along);
    }
    alignColumns();
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& place)
{
    const Acad::ErrorStatus status = setPoint(kMTextPart, 10, place);
    if (status == Acad::eOk)
        alignColumns();
    return status;
}

AcDbMText::AttachmentPoint AcDbMText::attachment() const
{
    return static_cast<AttachmentPoint>(std::clamp(integer(kMTextPart, 71, kTopLeft), 1, 9));
}

AcDbObjectId AcDbMText::textStyle() const
{
    return drawing() ? host::findSymbol(*drawing(), "STYLE", textStyleName()) : AcDbObjectId();
}

std::wstring AcDbMText::contents() const
{
    std::wstring all;
    const TagList& own = tags();
    const host::TagRange range = rangeOf(own);
    for (std::size_t i = range.first; i < range.last; ++i) {
        if (own[i].code == 3)
            all += own.text(i);
        else if (own[i].code == 1)
            return all + own.text(i);
    }
    return all;
}

std::wstring AcDbMText::text() const
{
    return host::plainText(contents());
}

Acad::ErrorStatus AcDbMText::setTextHeight(double height)
{
    return height > 0.0 ? setReal(kMTextPart, 40, height, host::kRequired) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbMText::setWidth(double width)
{
    if (width < 0.0)
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setReal(kMTextPart, 41, width, 0.0);
    if (status == Acad::eOk)
        alignColumns();
    return status;
}

Acad::ErrorStatus AcDbMText::setAttachment(AttachmentPoint attachment)
{
    if (attachment < kTopLeft || attachment > kBottomRight)
        return Acad::eInvalidInput;
    return setInteger(kMTextPart, 71, attachment, 0);
}

Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style)
{
    if (isWriteEnabled() && !style.isNull() && style == textStyle())
        return Acad::eOk;
    const host::Reading<AcDbTextStyleTableRecord> record(style);
    if (!record)
        return Acad::eInvalidInput;
    return setText(kMTextPart, 7, record->name(), L"STANDARD");
}

Acad::ErrorStatus AcDbMText::setContents(std::wstring_view value)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (host::findField(tags(), kMTextPart, 1) != TagList::npos && contents() == value)
        return Acad::eOk;
    TagList& own = tagsForWrite();
    host::TagRange range = rangeOf(own);
    for (std::size_t i = range.last; i-- > range.first;)
        if (own[i].code == 3 || own[i].code == 1)
            own.erase(i, i + 1);
    std::size_t at = host::placeOfField(own, kMTextPart, 3);
    while (value.size() > kChunk) {
        own.insertText(at++, 3, value.substr(0, kChunk));
        value.remove_prefix(kChunk);
    }
    own.insertText(at, 1, value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& map)
{
    using host::FieldForm;
    static constexpr host::MappedField kFields[] = {
        {10, FieldForm::point},  {11, FieldForm::direction}, {40, FieldForm::length},
        {41, FieldForm::length}, {42, FieldForm::length},    {43, FieldForm::length},
        {46, FieldForm::length}};
    static constexpr host::MappedField kColumns[] = {
        {10, FieldForm::direction}, {11, FieldForm::point},  {40, FieldForm::length},
        {41, FieldForm::length},    {42, FieldForm::length}, {43, FieldForm::length},
        {44, FieldForm::length},    {45, FieldForm::length}, {46, FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const AcGeVector3d before = direction();
    const AcGeVector3d along = mapped.direction(before);
    // mirrored letters are seen from behind
    const AcGeVector3d up = mapped.mirrors() ? -mapped.normal() : mapped.normal();
    host::mapFields(*this, kMTextPart, kFields, mapped);
    if (up != mapped.oldNormal())
        setPoint(kMTextPart, 210, AcGePoint3d() + up);
    const std::size_t at = directionTag(tags());
    if (at != TagList::npos && tags()[at].code == 50) {
        const AcGeVector3d flat = AcGeMatrix3d::arbitraryAxes(up).inverse() * along;
        const double now = tags().real(at);
        const double angle = mapped.mirrors()
                                 ? host::tidyDegrees(host::toDegrees(std::atan2(flat.y, flat.x)))
                                 : mapped.degrees(now);
        if (angle != now)
            tagsForWrite().setReal(at, angle);
    } else if (at == TagList::npos && (up != mapped.oldNormal() || !along.isEqualTo(before))) {
        setPoint(kMTextPart, 11, AcGePoint3d() + along);
    }
    if (const std::size_t embedded = tags().find(101); embedded != TagList::npos)
        host::mapFields(*this, {embedded + 1, host::dataEnd(tags())}, kColumns, mapped);
    return Acad::eOk;
}

bool AcDbMText::strokes(host::StrokeSink& sink) const
{
    const double letters = textHeight();
    if (!(letters > 0.0))
        return false;
    const AcGeVector3d along = direction();
    const AcGeVector3d upward = normal().crossProduct(along).normal();
    const host::Reading<AcDbTextStyleTableRecord> style(textStyle());
    const std::wstring font = style ? style->fileName() : std::wstring();
    const std::vector<std::wstring> lines = linesOf(text(), width(), letters);

    const double advance = letters * host::kTextLineAdvance * lineSpacingFactor();
    const double tall = letters + advance * static_cast<double>(lines.size() - 1);
    const int column = (attachment() - 1) % 3; // left, center, right
    const int row = (attachment() - 1) / 3;    // top, middle, bottom
    const AcGePoint3d top = location() + upward * (tall * 0.5 * row);
    for (std::size_t i = 0; i < lines.size() && !sink.done(); ++i) {
        const double wide = host::textWidth(lines[i], letters, 1.0);
        if (wide <= 0.0)
            continue;
        host::TextBox box;
        box.corner = top - upward * (letters + advance * static_cast<double>(i)) -
                     along * (wide * 0.5 * column);
        box.along = along * wide;
        box.up = upward * letters;
        box.text = lines[i];
        box.font = font;
        sink.textBox(box);
    }
    return true;
}

Acad::ErrorStatus AcDbMText::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    host::PartSink sink(*this, parts);
    sink.setTextStyle(textStyle());
    strokes(sink);
    return sink.outcome();
}

std::span<const std::string_view> AcDbMText::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMText"};
    return kMarkers;
}
