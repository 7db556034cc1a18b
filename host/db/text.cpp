#include "host/db/text.h"

#include "host/db/reading.h"
#include "host/db/symbol_names.h"
#include "host/db/symbol_tables.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"
#include "host/geom/text_strokes.h"

#include <algorithm>
#include <cmath>

using host::kTextPart;

ACRX_DXF_DEFINE_MEMBERS(AcDbText, AcDbEntity, "TEXT")

namespace {

constexpr int kJustifications = 15;

enum GenerationFlag { kBackward = 2, kUpsideDown = 4 };

} // namespace

AcDbObjectId AcDbText::textStyle() const
{
    return drawing() ? host::findSymbol(*drawing(), "STYLE", textStyleName()) : AcDbObjectId();
}

AcDb::TextHorzMode AcDbText::horizontalMode() const
{
    return static_cast<AcDb::TextHorzMode>(std::clamp(integer(kTextPart, 72, 0), 0, 5));
}

AcDb::TextVertMode AcDbText::verticalMode() const
{
    // Searched in all of the record: the part that it stands in differs by class and version.
    const int mode = host::integerInRecord(tags(), verticalModeCode(), 0);
    return static_cast<AcDb::TextVertMode>(std::clamp(mode, 0, 3));
}

int AcDbText::justification() const
{
    const int across = horizontalMode();
    const int up = verticalMode();
    if (up == AcDb::kTextBase || across > AcDb::kTextRight)
        return across;
    return 6 + 3 * (AcDb::kTextTop - up) + across;
}

Acad::ErrorStatus AcDbText::setJustification(int code)
{
    if (code < 0 || code >= kJustifications)
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (code == justification())
        return Acad::eOk;
    const bool row = code >= 6;
    const int across = row ? (code - 6) % 3 : code;
    const int up = row ? AcDb::kTextTop - (code - 6) / 3 : AcDb::kTextBase;
    if (host::findField(tags(), kTextPart, 11) == host::TagList::npos && code != 0)
        setPoint(kTextPart, 11, host::planePoint(tags(), kTextPart, 10));
    setInteger(kTextPart, 72, across, 0);
    setVerticalMode(up);
    return placeByAlignment();
}

Acad::ErrorStatus AcDbText::setVerticalMode(int mode)
{
    if (mode == verticalMode())
        return Acad::eOk;
    const std::size_t found = host::findInRecord(tags(), 73);
    host::TagList& own = tagsForWrite();
    if (found != host::TagList::npos) {
        own.setInteger(found, mode);
        return Acad::eOk;
    }
    const std::size_t first = own.find(100, "AcDbText");
    const std::size_t second =
        first == host::TagList::npos ? first : own.find(100, "AcDbText", first + 1);
    if (second != host::TagList::npos)
        own.insertInteger(second + 1, 73, mode);
    else
        own.insertInteger(host::subclassRange(own, "AcDbText")->last, 73, mode);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& place)
{
    return setPoint(kTextPart, 10, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * place);
}

Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& place)
{
    const Acad::ErrorStatus status =
        setPoint(kTextPart, 11, AcGeMatrix3d::arbitraryAxes(normal()).inverse() * place);
    return status == Acad::eOk ? placeByAlignment() : status;
}

Acad::ErrorStatus AcDbText::placeByAlignment()
{
    const int code = justification();
    if (code == 0 || code == AcDb::kTextAlign || code == AcDb::kTextFit)
        return Acad::eOk;
    return setPosition(box().corner);
}

Acad::ErrorStatus AcDbText::setHeight(double height)
{
    if (!(height > 0.0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setReal(kTextPart, 40, height, host::kRequired);
    return status == Acad::eOk ? placeByAlignment() : status;
}

Acad::ErrorStatus AcDbText::setRotation(double angle)
{
    const Acad::ErrorStatus status = setReal(kTextPart, 50, host::toDegrees(angle), 0.0);
    return status == Acad::eOk ? placeByAlignment() : status;
}

Acad::ErrorStatus AcDbText::setWidthFactor(double factor)
{
    if (!(factor > 0.0))
        return Acad::eInvalidInput;
    const Acad::ErrorStatus status = setReal(kTextPart, 41, factor, 1.0);
    return status == Acad::eOk ? placeByAlignment() : status;
}

Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style)
{
    if (isWriteEnabled() && !style.isNull() && style == textStyle())
        return Acad::eOk;
    const host::Reading<AcDbTextStyleTableRecord> record(style);
    if (!record)
        return Acad::eInvalidInput;
    return setText(kTextPart, 7, record->name(), L"STANDARD");
}

Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    return setPoint(kTextPart, 210, AcGePoint3d() + unit);
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& map)
{
    using host::FieldForm;
    static constexpr host::MappedField kFields[] = {
        {10, FieldForm::planePoint}, {39, FieldForm::length}, {40, FieldForm::length}};
    static constexpr host::MappedField kAlignment[] = {{11, FieldForm::planePoint}};
    // the lines of an attribute that has several
    static constexpr host::MappedField kEmbedded[] = {
        {10, FieldForm::point},  {11, FieldForm::direction}, {40, FieldForm::length},
        {41, FieldForm::length}, {42, FieldForm::length},    {43, FieldForm::length},
        {46, FieldForm::length}, {50, FieldForm::angle}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    const bool between = horizontalMode() == AcDb::kTextAlign || horizontalMode() == AcDb::kTextFit;
    host::mapFields(*this, kTextPart, kFields, mapped);
    if (justification() != 0)
        host::mapFields(*this, kTextPart, kAlignment, mapped);
    host::mapNormal(*this, kTextPart, mapped);
    // Mirrored letters are written backward, or upside down where two points tell the direction.
    host::mapAngle(*this, kTextPart, 50, mapped, mapped.mirrors() && !between ? 180.0 : 0.0);
    if (mapped.mirrors())
        setInteger(kTextPart, 71, integer(kTextPart, 71, 0) ^ (between ? kUpsideDown : kBackward),
                   0);
    if (const std::size_t embedded = tags().find(101); embedded != host::TagList::npos)
        host::mapFields(*this, {embedded + 1, host::dataEnd(tags())}, kEmbedded, mapped);
    return Acad::eOk;
}

host::TextBox AcDbText::box() const
{
    const double letters = height();
    const double angle = rotation();
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(normal());
    AcGePoint3d corner = host::planePoint(tags(), kTextPart, 10);
    const AcGePoint3d anchor = host::planePoint(tags(), kTextPart, 11);
    const AcDb::TextHorzMode across = horizontalMode();
    const AcDb::TextVertMode up = verticalMode();

    double width = host::textWidth(drawnText(), letters, widthFactor());
    AcGeVector3d direction(std::cos(angle), std::sin(angle), 0.0);
    if (across == AcDb::kTextAlign || across == AcDb::kTextFit) {
        // written from one point to the other
        const AcGeVector3d span = anchor - corner;
        if (span.length() > 0.0) {
            width = span.length();
            direction = span.normal();
        }
    }
    const int generation = integer(kTextPart, 71, 0);
    const AcGeVector3d along = generation & kBackward ? -direction : direction;
    AcGeVector3d upward(-direction.y, direction.x, 0.0);
    if (generation & kUpsideDown)
        upward = -upward;
    if (across == AcDb::kTextAlign || across == AcDb::kTextFit) {
        if (generation & kBackward)
            corner = anchor;
    } else if (justification() != 0) {
        static constexpr double kBack[] = {0.0, 0.5, 1.0, 0.0, 0.5, 0.0};
        static constexpr double kDown[] = {0.0, 0.0, 0.5, 1.0};
        const double down = across == AcDb::kTextMid ? 0.5 : kDown[up];
        corner = anchor - along * (width * kBack[across]) - upward * (letters * down);
    }
    const double lean = std::tan(std::clamp(oblique(), -1.48, 1.48)); // up to 85 degrees
    return {plane * corner,
            plane * (along * width),
            plane * ((upward + along * lean) * letters),
            {},
            {}};
}

bool AcDbText::strokes(host::StrokeSink& sink) const
{
    const std::wstring value = drawnText();
    const host::Reading<AcDbTextStyleTableRecord> style(textStyle());
    const std::wstring font = style ? style->fileName() : std::wstring();
    host::TextBox shape = box();
    shape.text = value;
    shape.font = font;
    sink.textBox(shape);
    return true;
}

std::span<const std::string_view> AcDbText::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbText", "AcDbText"};
    return kMarkers;
}
