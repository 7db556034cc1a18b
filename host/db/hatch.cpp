#include "host/db/hatch.h"

#include "host/db/angle.h"
#include "host/db/exploding.h"
#include "host/db/reading.h"
#include "host/db/symbol_tables.h"
#include "host/geom/stroke_sink.h"

#include <algorithm>
#include <cmath>

using host::HatchParts;
using host::PatternLine;
using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbHatch, AcDbEntity, "HATCH")

namespace {

constexpr short kHeadOrder[] = {10, 210, 2, 70, 71, 91};
constexpr host::Subclass kHatchPart{"AcDbHatch", kHeadOrder};
constexpr short kPatternOrder[] = {75, 76, 52, 41, 73, 77, 78, 53, 43, 44, 45, 46, 79, 49, 47, 98};

constexpr std::wstring_view kBackgroundApplication = L"HATCHBACKGROUNDCOLOR";

// A colour in one number: the method in the highest byte, then red, green, blue or the index.
AcCmColor unpackedColor(std::uint32_t packed)
{
    AcCmColor color;
    switch (packed >> 24) {
    case AcCmColor::kByColor:
        color.setRGB(static_cast<std::uint8_t>(packed >> 16),
                     static_cast<std::uint8_t>(packed >> 8), static_cast<std::uint8_t>(packed));
        break;
    case AcCmColor::kByACI:
        color.setColorIndex(static_cast<std::uint16_t>(packed & 0xFFFF));
        break;
    case AcCmColor::kByBlock:
        color.setColorIndex(0);
        break;
    case AcCmColor::kByLayer:
        color.setColorIndex(256);
        break;
    default:
        color.setNone();
    }
    return color;
}

std::uint32_t packedColor(const AcCmColor& color)
{
    const std::uint32_t method = static_cast<std::uint32_t>(color.colorMethod()) << 24;
    if (color.isByColor())
        return method | static_cast<std::uint32_t>(color.red()) << 16 |
               static_cast<std::uint32_t>(color.green()) << 8 | color.blue();
    return color.isByACI() ? method | color.colorIndex() : method;
}

AcGeVector2d turned(AcGeVector2d v, double angle)
{
    return v.rotateBy(angle);
}

} // namespace

HatchParts host::hatchParts(const TagList& tags, const Subclass& part)
{
    const TagRange all = subclassRange(tags, part.marker).value_or(TagRange());
    // Neither 75 nor 76 is a code of a path, and one of them comes right behind the last.
    const std::size_t stated = tags.find(91, all.first, all.last);
    std::size_t behind = stated == TagList::npos ? all.first : stated;
    while (behind < all.last && tags[behind].code != 75 && tags[behind].code != 76)
        ++behind;
    if (stated == TagList::npos)
        return {{all.first, behind}, {behind, behind}, {behind, all.last}};
    return {{all.first, stated}, {stated + 1, behind}, {behind, all.last}};
}

const host::Subclass& AcDbHatch::part() const
{
    return kHatchPart;
}

// ---- fields by their place ----

std::size_t AcDbHatch::findInPattern(int code) const
{
    const host::TagRange range = host::hatchParts(tags(), part()).pattern;
    return tags().find(code, range.first, range.last);
}

std::size_t AcDbHatch::findInHead(int code) const
{
    const host::TagRange range = host::hatchParts(tags(), part()).head;
    return tags().find(code, range.first, range.last);
}

double AcDbHatch::patternReal(int code, double fallback) const
{
    const std::size_t at = findInPattern(code);
    return at == TagList::npos ? fallback : tags().real(at);
}

int AcDbHatch::patternInteger(int code, int fallback) const
{
    const std::size_t at = findInPattern(code);
    return at == TagList::npos ? fallback : static_cast<int>(tags().integer(at));
}

int AcDbHatch::headInteger(int code, int fallback) const
{
    const std::size_t at = findInHead(code);
    return at == TagList::npos ? fallback : static_cast<int>(tags().integer(at));
}

std::size_t AcDbHatch::placeInPattern(int code) const
{
    const host::TagRange range = host::hatchParts(tags(), part()).pattern;
    const auto own = std::find(std::begin(kPatternOrder), std::end(kPatternOrder), code);
    for (auto before = own; before != std::begin(kPatternOrder);) {
        --before;
        for (std::size_t i = range.last; i > range.first; --i)
            if (tags()[i - 1].code == *before)
                return i;
    }
    return range.first;
}

std::size_t AcDbHatch::placeInHead(int code) const
{
    const host::TagRange range = host::hatchParts(tags(), part()).head;
    const std::span<const short> order = part().order;
    const auto own = std::find(order.begin(), order.end(), code);
    for (auto before = own; before != order.begin();) {
        --before;
        for (std::size_t i = range.last; i > range.first; --i)
            if (tags()[i - 1].code == *before) {
                std::size_t behind = i;
                while (behind < range.last &&
                       (tags()[behind].code == *before + 10 || tags()[behind].code == *before + 20))
                    ++behind;
                return behind;
            }
    }
    return range.first;
}

// The fields that tell head, paths and pattern apart.
void AcDbHatch::completeParts()
{
    const HatchParts now = host::hatchParts(tags(), part());
    if (now.pattern.empty()) {
        TagList& own = tagsForWrite();
        own.insertInteger(now.pattern.first, 75, kNormal);
        own.insertInteger(now.pattern.first + 1, 76, kPreDefined);
        own.insertInteger(now.pattern.first + 2, 98, 0);
    }
    const std::size_t place = host::hatchParts(tags(), part()).head.last;
    if (tags()[place].code != 91)
        tagsForWrite().insertInteger(place, 91, 0);
}

Acad::ErrorStatus AcDbHatch::setPatternReal(int code, double value, double fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (patternReal(code, fallback) == value)
        return Acad::eOk;
    completeParts();
    const std::size_t at = findInPattern(code);
    const std::size_t place = placeInPattern(code);
    if (at != TagList::npos)
        tagsForWrite().setReal(at, value);
    else
        tagsForWrite().insertReal(place, code, value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternInteger(int code, int value, int fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (patternInteger(code, fallback) == value)
        return Acad::eOk;
    completeParts();
    const std::size_t at = findInPattern(code);
    const std::size_t place = placeInPattern(code);
    if (at != TagList::npos)
        tagsForWrite().setInteger(at, value);
    else
        tagsForWrite().insertInteger(place, code, value);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setHeadInteger(int code, int value, int fallback)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (headInteger(code, fallback) == value)
        return Acad::eOk;
    const std::size_t at = findInHead(code);
    const std::size_t place = placeInHead(code);
    if (at != TagList::npos)
        tagsForWrite().setInteger(at, value);
    else
        tagsForWrite().insertInteger(place, code, value);
    return Acad::eOk;
}

// ---- properties ----

std::wstring AcDbHatch::patternName() const
{
    const std::size_t at = findInHead(2);
    return at == TagList::npos ? std::wstring() : tags().text(at);
}

AcDbHatch::HatchPatternType AcDbHatch::patternType() const
{
    return static_cast<HatchPatternType>(std::clamp(patternInteger(76, kPreDefined), 0, 2));
}

double AcDbHatch::patternAngle() const
{
    return host::toRadians(patternReal(52, 0.0));
}

double AcDbHatch::patternScale() const
{
    return patternReal(41, 1.0);
}

bool AcDbHatch::patternDouble() const
{
    return patternInteger(77, 0) != 0;
}

bool AcDbHatch::isSolidFill() const
{
    return headInteger(solidCode(), 0) != 0;
}

bool AcDbHatch::isGradient() const
{
    return patternInteger(450, 0) != 0;
}

bool AcDbHatch::associative() const
{
    return solidCode() != 71 && headInteger(71, 0) != 0;
}

AcDbHatch::HatchStyle AcDbHatch::hatchStyle() const
{
    return static_cast<HatchStyle>(std::clamp(patternInteger(75, kNormal), 0, 2));
}

double AcDbHatch::elevation() const
{
    return point(part(), 10).z;
}

AcCmColor AcDbHatch::backgroundColor() const
{
    AcCmColor color;
    color.setNone();
    for (const resbuf& item : xData(kBackgroundApplication))
        if (item.restype == 1071)
            color = unpackedColor(static_cast<std::uint32_t>(item.resval.rlong));
    return color;
}

std::vector<host::HatchLoop> AcDbHatch::loops() const
{
    return host::readHatchLoops(tags(), host::hatchParts(tags(), part()).loops);
}

std::vector<PatternLine> AcDbHatch::patternLines() const
{
    std::vector<PatternLine> lines;
    const TagList& own = tags();
    const host::TagRange range = host::hatchParts(own, part()).pattern;
    std::size_t i = std::min(own.find(78, range.first, range.last), range.last);
    for (; i < range.last && own[i].code != 98; ++i) {
        const int code = own[i].code;
        if (code == 53)
            lines.push_back({host::toRadians(own.real(i)), {}, {}, {}});
        else if (lines.empty())
            continue;
        else if (code == 43 || code == 44)
            (code == 43 ? lines.back().base.x : lines.back().base.y) = own.real(i);
        else if (code == 45 || code == 46)
            (code == 45 ? lines.back().offset.x : lines.back().offset.y) = own.real(i);
        else if (code == 49)
            lines.back().dashes.push_back(own.real(i));
    }
    return lines;
}

std::vector<AcDbObjectId> AcDbHatch::getAssocObjIds() const
{
    std::vector<AcDbObjectId> ids;
    for (const host::HatchLoop& loop : loops())
        for (const std::uint64_t source : loop.sources)
            if (const AcDbObjectId id = idOfHandle(source); !id.isNull() && !id.isErased())
                ids.push_back(id);
    return ids;
}

Acad::ErrorStatus AcDbHatch::setPatternAngle(double angle)
{
    return setPatternReal(52, host::toDegrees(angle), 0.0);
}

Acad::ErrorStatus AcDbHatch::setPatternScale(double scale)
{
    return scale > 0.0 ? setPatternReal(41, scale, 1.0) : Acad::eInvalidInput;
}

Acad::ErrorStatus AcDbHatch::setPatternDouble(bool on)
{
    return setPatternInteger(77, on, 0);
}

Acad::ErrorStatus AcDbHatch::setBackgroundColor(const AcCmColor& color)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (color == backgroundColor())
        return Acad::eOk;
    if (drawing()) {
        AcDbObjectPointer<AcDbRegAppTable> table(database()->regAppTableId(), AcDb::kForWrite);
        if (table && !table->has(kBackgroundApplication)) {
            AcDbObjectPointer<AcDbRegAppTableRecord> application;
            application.create();
            application->setName(kBackgroundApplication);
            AcDbObjectId added;
            table->add(added, application.object());
        }
    }
    ResbufChain data(1);
    data[0].restype = 1001;
    data[0].resval.rstring = kBackgroundApplication;
    if (!color.isNone()) {
        data.emplace_back();
        data[1].restype = 1071;
        data[1].resval.rlong = static_cast<std::int32_t>(packedColor(color));
    }
    return setXData(data);
}

Acad::ErrorStatus AcDbHatch::setAssociative(bool on)
{
    return solidCode() == 71 ? Acad::eNotApplicable : setHeadInteger(71, on, 0);
}

Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style)
{
    return setPatternInteger(75, style, -1);
}

Acad::ErrorStatus AcDbHatch::setElevation(double elevation)
{
    return setPoint(part(), 10, {0.0, 0.0, elevation});
}

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (findInHead(210) != TagList::npos)
        return setPoint(part(), 210, AcGePoint3d() + unit);
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    const std::size_t at = placeInHead(210);
    for (const unsigned axis : {0u, 1u, 2u})
        tagsForWrite().insertReal(at + axis, 210 + 10 * static_cast<int>(axis), unit[axis]);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setLoops(std::span<const host::HatchLoop> loops)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (host::findField(tags(), part(), 10) == TagList::npos)
        setElevation(0.0);
    setHeadInteger(solidCode(), headInteger(solidCode(), 0), -1);
    completeParts();
    tagsForWrite().setInteger(host::hatchParts(tags(), part()).head.last,
                              static_cast<std::int64_t>(loops.size()));
    const host::TagRange range = host::hatchParts(tags(), part()).loops;
    TagList& own = tagsForWrite();
    own.erase(range.first, range.last);
    host::writeHatchLoops(own, range.first, loops);
    return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::setPatternLines(HatchPatternType type, std::wstring_view name,
                                             std::span<const PatternLine> lines)
{
    return writePattern(type, name, false, lines);
}

Acad::ErrorStatus AcDbHatch::setSolidFill()
{
    return writePattern(kPreDefined, L"SOLID", true, {});
}

Acad::ErrorStatus AcDbHatch::writePattern(HatchPatternType type, std::wstring_view name, bool solid,
                                          std::span<const PatternLine> lines)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    completeParts();
    const double angle = patternAngle();
    const double scale = patternScale();
    if (const std::size_t at = findInHead(2); at == TagList::npos)
        tagsForWrite().insertText(placeInHead(2), 2, name);
    else if (patternName() != name)
        tagsForWrite().setText(at, name);
    setHeadInteger(solidCode(), solid, -1);
    setPatternInteger(76, type, -1);
    {
        // definition lines and, of a filled hatch, all that only a pattern has
        const host::TagRange range = host::hatchParts(tags(), part()).pattern;
        static constexpr short kLineCodes[] = {78, 53, 43, 44, 45, 46, 79, 49};
        static constexpr short kPatternOnly[] = {52, 41, 77};
        TagList& own = tagsForWrite();
        const std::size_t end = std::min(own.find(98, range.first, range.last), range.last);
        for (std::size_t i = end; i-- > range.first;) {
            const auto among = [&](std::span<const short> codes) {
                return std::find(codes.begin(), codes.end(), own[i].code) != codes.end();
            };
            if (among(kLineCodes) || (solid && among(kPatternOnly)))
                own.erase(i, i + 1);
        }
    }
    if (solid)
        return Acad::eOk;
    setPatternReal(52, host::toDegrees(angle), host::kRequired);
    setPatternReal(41, scale, host::kRequired);
    setPatternInteger(77, patternInteger(77, 0), -1);
    std::size_t at = placeInPattern(78);
    TagList& own = tagsForWrite();
    own.insertInteger(at++, 78, static_cast<std::int64_t>(lines.size()));
    for (const PatternLine& line : lines) {
        // the file keeps base and offset along the world's axes, the definition along the line's
        const AcGeVector2d base = turned(line.base.asVector() * scale, angle);
        const AcGeVector2d offset = turned(line.offset * scale, angle + line.angle);
        own.insertReal(at++, 53, host::toDegrees(line.angle + angle));
        own.insertReal(at++, 43, base.x);
        own.insertReal(at++, 44, base.y);
        own.insertReal(at++, 45, offset.x);
        own.insertReal(at++, 46, offset.y);
        own.insertInteger(at++, 79, static_cast<std::int64_t>(line.dashes.size()));
        for (const double dash : line.dashes)
            own.insertReal(at++, 49, dash * scale);
    }
    return Acad::eOk;
}

void AcDbHatch::memberErased(AcDbObjectId member)
{
    const std::uint64_t handle = member.handle().value();
    const host::TagRange range = host::hatchParts(tags(), part()).loops;
    for (std::size_t i = range.first; i < range.last; ++i)
        if (tags()[i].code == 330 && tags().handle(i) == handle)
            return loseReference(i);
}

void AcDbHatch::loseReference(std::size_t at)
{
    const host::TagRange range = host::hatchParts(tags(), part()).loops;
    if (at < range.first || at >= range.last)
        return AcDbEntity::loseReference(at);
    std::size_t count = at; // the number of the path's sources
    while (count > range.first && tags()[count].code != 97)
        --count;
    TagList& own = tagsForWrite();
    if (own[count].code == 97)
        own.setInteger(count, std::max<std::int64_t>(own.integer(count) - 1, 0));
    own.erase(at, at + 1);
    setAssociative(false);
}

bool AcDbHatch::strokes(host::StrokeSink& sink) const
{
    const AcGeMatrix3d plane = AcGeMatrix3d::arbitraryAxes(normal());
    const double height = elevation();
    std::vector<host::Outline> outlines;
    for (const host::HatchLoop& loop : loops())
        outlines.push_back(loop.outline(plane, height, sink.chordTolerance()));
    if (outlines.empty())
        return false;
    if (isSolidFill() || isGradient()) {
        sink.filledArea(outlines);
        return true;
    }
    host::strokePattern(sink, patternLines(), outlines, plane);
    return true;
}

namespace {

// A pattern that is too dense comes as its closed outlines.
class PatternParts : public host::PartSink {
public:
    using PartSink::PartSink;
    void polyline(std::span<const AcGePoint3d> points, bool closed) override
    {
        if (!closed)
            PartSink::polyline(points, closed);
    }
};

} // namespace

Acad::ErrorStatus AcDbHatch::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    if (isSolidFill() || isGradient())
        return Acad::eNotApplicable;
    PatternParts sink(*this, parts);
    strokes(sink);
    return sink.outcome();
}

std::span<const std::string_view> AcDbHatch::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbHatch"};
    return kMarkers;
}
