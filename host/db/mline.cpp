#include "host/db/mline.h"

#include "host/db/angle.h"
#include "host/db/database.h"
#include "host/db/exploding.h"
#include "host/db/reading.h"
#include "host/db/style_objects.h"
#include "host/db/transforming.h"
#include "host/geom/stroke_sink.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <cmath>

using host::kMlinePart;
using host::TagList;

ACRX_DXF_DEFINE_MEMBERS(AcDbMline, AcDbEntity, "MLINE")

namespace {

enum MlineFlag { kHasVertex = 1, kClosed = 2 };

constexpr host::Subclass kStylePart{"AcDbMlineStyle"};

host::TagRange rangeOf(const TagList& tags)
{
    return host::subclassRange(tags, kMlinePart.marker).value_or(host::TagRange());
}

// What a multiline takes from its style: the offsets of its lines, and the angles of its ends.
struct StyleShape {
    std::vector<double> offsets{0.5, -0.5};
    double startAngle = host::toRadians(90.0);
    double endAngle = host::toRadians(90.0);
};

StyleShape shapeOf(AcDbObjectId style)
{
    StyleShape shape;
    const AcDbDatabase* const database = style.database();
    if (!database)
        return shape;
    const std::shared_ptr<const TagList> tags = database->drawing().tagsOf(style.stubNumber());
    const host::TagRange range =
        host::subclassRange(*tags, kStylePart.marker).value_or(host::TagRange());
    std::vector<double> offsets;
    for (std::size_t i = range.first; i < range.last; ++i)
        if ((*tags)[i].code == 49)
            offsets.push_back(tags->real(i));
    if (!offsets.empty())
        shape.offsets = std::move(offsets);
    shape.startAngle = host::toRadians(host::realField(*tags, kStylePart, 51, 90.0));
    shape.endAngle = host::toRadians(host::realField(*tags, kStylePart, 52, 90.0));
    return shape;
}

// The offsets as the justification puts them: that of the top, none, or the bottom line is 0.
void justify(std::vector<double>& offsets, int justification, double scale)
{
    const auto [low, high] = std::minmax_element(offsets.begin(), offsets.end());
    const double shift = justification == Mline::kTop      ? *high
                         : justification == Mline::kBottom ? *low
                                                           : 0.0;
    for (double& offset : offsets)
        offset = (offset - shift) * scale;
}

struct Corner {
    AcGeVector3d direction;
    AcGeVector3d mitre;
    double stretch = 1.0; // along the mitre for a unit across the segment
};

std::vector<Corner> cornersOf(const std::vector<AcGePoint3d>& path, bool closed,
                              const AcGeVector3d& normal, const StyleShape& shape)
{
    std::vector<Corner> corners(path.size());
    const std::size_t count = path.size();
    for (std::size_t i = 0; i < count; ++i) {
        const bool last = i + 1 == count;
        const AcGePoint3d next = last && !closed ? path[i] : path[(i + 1) % count];
        AcGeVector3d direction = (next - path[i]).normal();
        if (direction.isZeroLength())
            direction = i > 0 ? corners[i - 1].direction : AcGeVector3d::kXAxis;
        corners[i].direction = direction;
    }
    for (std::size_t i = 0; i < count; ++i) {
        Corner& corner = corners[i];
        const AcGeVector3d across = normal.crossProduct(corner.direction).normal();
        if (!closed && i == 0) {
            corner.mitre = corner.direction;
            corner.mitre.rotateBy(shape.startAngle, normal);
        } else if (!closed && i + 1 == count) {
            corner.mitre = corner.direction;
            corner.mitre.rotateBy(shape.endAngle, normal);
        } else {
            const Corner& before = corners[i > 0 ? i - 1 : count - 1];
            const AcGeVector3d beforeAcross = normal.crossProduct(before.direction).normal();
            corner.mitre = (across + beforeAcross).normal();
            if (corner.mitre.isZeroLength())
                corner.mitre = across; // the path turns back on itself
        }
        const double part = corner.mitre.dotProduct(across);
        corner.stretch = std::abs(part) > 1e-6 ? 1.0 / part : 1.0;
    }
    return corners;
}

} // namespace

AcDbObjectId AcDbMline::style() const
{
    return id(kMlinePart, 340);
}

std::vector<AcGePoint3d> AcDbMline::vertices() const
{
    std::vector<AcGePoint3d> all;
    const TagList& own = tags();
    const host::TagRange range = rangeOf(own);
    for (std::size_t i = range.first; i < range.last; ++i)
        if (own[i].code == 11)
            all.push_back(host::pointAt(own, i));
    return all;
}

AcGePoint3d AcDbMline::vertexAt(int index) const
{
    const std::vector<AcGePoint3d> all = vertices();
    return index >= 0 && index < static_cast<int>(all.size()) ? all[static_cast<std::size_t>(index)]
                                                              : AcGePoint3d();
}

Acad::ErrorStatus AcDbMline::setStyle(AcDbObjectId style)
{
    const AcDbDatabase* const database = style.database();
    if (!database || style.isErased())
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (style == this->style())
        return Acad::eOk;
    const std::shared_ptr<const TagList> record = database->drawing().tagsOf(style.stubNumber());
    setText(kMlinePart, 2, host::textField(*record, kStylePart, 2, L"STANDARD"));
    host::setHandleField(*this, kMlinePart, 340, style.handle().value());
    writePath(vertices());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::setScale(double scale)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (scale == this->scale())
        return Acad::eOk;
    setReal(kMlinePart, 40, scale, host::kRequired);
    writePath(vertices());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::setJustification(int justification)
{
    if (justification < Mline::kTop || justification > Mline::kBottom)
        return Acad::eInvalidInput;
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (justification == this->justification())
        return Acad::eOk;
    setInteger(kMlinePart, 70, justification, -1);
    writePath(vertices());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::setClosedMline(bool closed)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    if (closed == closedMline())
        return Acad::eOk;
    setFlag(kMlinePart, 71, kClosed, closed);
    writePath(vertices());
    return Acad::eOk;
}

Acad::ErrorStatus AcDbMline::setNormal(const AcGeVector3d& normal)
{
    if (normal.isZeroLength())
        return Acad::eInvalidInput;
    const AcGeVector3d unit = normal.normal();
    if (isWriteEnabled() && unit == this->normal())
        return Acad::eOk;
    const Acad::ErrorStatus status = setPoint(kMlinePart, 210, AcGePoint3d() + unit);
    if (status == Acad::eOk)
        writePath(vertices());
    return status;
}

Acad::ErrorStatus AcDbMline::appendSeg(const AcGePoint3d& vertex)
{
    if (!isWriteEnabled())
        return Acad::eNotOpenForWrite;
    std::vector<AcGePoint3d> path = vertices();
    path.push_back(vertex);
    writePath(path);
    return Acad::eOk;
}

void AcDbMline::writePath(const std::vector<AcGePoint3d>& path)
{
    if (path.empty())
        return;
    StyleShape shape = shapeOf(style());
    justify(shape.offsets, justification(), scale());
    const std::vector<Corner> corners = cornersOf(path, closedMline(), normal(), shape);

    setReal(kMlinePart, 40, scale(), host::kRequired);
    setInteger(kMlinePart, 70, justification(), -1);
    setInteger(kMlinePart, 71, integer(kMlinePart, 71, 0) | kHasVertex, -1);
    setInteger(kMlinePart, 72, static_cast<int>(path.size()), -1);
    setInteger(kMlinePart, 73, static_cast<int>(shape.offsets.size()), -1);
    setPoint(kMlinePart, 10, path.front());
    TagList& own = tagsForWrite();
    const host::TagRange range = rangeOf(own);
    std::size_t at = std::min(own.find(11, range.first, range.last), range.last);
    own.erase(at, range.last);
    const auto write = [&](int code, const AcGePoint3d& p) {
        for (const unsigned axis : {0u, 1u, 2u})
            own.insertReal(at++, code + 10 * static_cast<int>(axis), p[axis]);
    };
    for (std::size_t i = 0; i < path.size(); ++i) {
        write(11, path[i]);
        write(12, AcGePoint3d() + corners[i].direction);
        write(13, AcGePoint3d() + corners[i].mitre);
        for (const double offset : shape.offsets) {
            own.insertInteger(at++, 74, 2);
            own.insertReal(at++, 41, offset * corners[i].stretch);
            own.insertReal(at++, 41, 0.0); // the line begins there and is not broken
            own.insertInteger(at++, 75, 0);
        }
    }
}

Acad::ErrorStatus AcDbMline::transformBy(const AcGeMatrix3d& map)
{
    static constexpr host::MappedField kFields[] = {
        {10, host::FieldForm::point},     {11, host::FieldForm::point},
        {12, host::FieldForm::direction}, {13, host::FieldForm::direction},
        {40, host::FieldForm::length},    {41, host::FieldForm::length},
        {42, host::FieldForm::length}};
    const host::PlaneMap mapped(map, normal());
    const Acad::ErrorStatus status = mapped.check(*this);
    if (status != Acad::eOk)
        return status;
    host::mapExtendedData(*this, mapped);
    host::mapFields(*this, kMlinePart, kFields, mapped);
    // the lines keep their order from one side to the other
    const AcGeVector3d up = mapped.mirrors() ? -mapped.normal() : mapped.normal();
    return up == mapped.oldNormal() ? Acad::eOk : setPoint(kMlinePart, 210, AcGePoint3d() + up);
}

bool AcDbMline::strokes(host::StrokeSink& sink) const
{
    struct Vertex {
        AcGePoint3d place;
        AcGeVector3d mitre;
        std::vector<double> passes; // along the mitre, one for each line
    };
    std::vector<Vertex> path;
    const TagList& own = tags();
    const host::TagRange range = rangeOf(own);
    bool first = false;
    for (std::size_t i = range.first; i < range.last; ++i) {
        const int code = own[i].code;
        if (code == 11)
            path.push_back({host::pointAt(own, i), {}, {}});
        else if (path.empty())
            continue;
        else if (code == 13)
            path.back().mitre = host::pointAt(own, i).asVector();
        else if (code == 74)
            first = true;
        else if (code == 41 && first) {
            path.back().passes.push_back(own.real(i));
            first = false;
        }
    }
    if (path.empty())
        return false;
    std::size_t lines = path.front().passes.size();
    for (const Vertex& vertex : path)
        lines = std::min(lines, vertex.passes.size());
    for (std::size_t line = 0; line < std::max<std::size_t>(lines, 1) && !sink.done(); ++line) {
        std::vector<AcGePoint3d> points;
        points.reserve(path.size());
        for (const Vertex& vertex : path)
            points.push_back(lines ? vertex.place + vertex.mitre * vertex.passes[line]
                                   : vertex.place);
        sink.polyline(points, closedMline());
    }
    return true;
}

namespace {

class Paths : public host::StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool) override
    {
        paths.emplace_back(points.begin(), points.end());
    }
    std::vector<host::Outline> paths;
};

constexpr std::uint16_t kByLayer = 256;

// How a style draws one of its lines; what it leaves to the layer or the block is the multiline's.
struct StyleElement {
    std::uint16_t color = kByLayer;
    std::wstring linetype;

    void apply(AcDbEntity& line) const
    {
        if (color != 0 && color != kByLayer)
            line.setColorIndex(color);
        if (!linetype.empty() && !host::equalNoCase(linetype, L"ByLayer") &&
            !host::equalNoCase(linetype, L"ByBlock"))
            line.setLinetype(linetype);
    }
};

std::vector<StyleElement> elementsOf(AcDbObjectId style)
{
    std::vector<StyleElement> elements;
    const host::Reading<AcDbMlineStyle> open(style);
    if (!open)
        return elements;
    const TagList& tags = open->tags();
    for (std::size_t i = 0; i < tags.size(); ++i) {
        if (tags[i].code == 49)
            elements.emplace_back();
        else if (!elements.empty() && tags[i].code == 62)
            elements.back().color = static_cast<std::uint16_t>(tags.integer(i));
        else if (!elements.empty() && tags[i].code == 6)
            elements.back().linetype = tags.text(i);
    }
    return elements;
}

} // namespace

Acad::ErrorStatus AcDbMline::explode(std::vector<std::unique_ptr<AcDbEntity>>& parts) const
{
    Paths drawn;
    if (!strokes(drawn))
        return Acad::eNotApplicable;
    const std::vector<StyleElement> elements = elementsOf(style());
    host::PartSink sink(*this, parts);
    for (std::size_t i = 0; i < drawn.paths.size(); ++i) {
        const std::size_t first = parts.size();
        sink.polyline(drawn.paths[i], closedMline());
        for (std::size_t at = first; at < parts.size() && i < elements.size(); ++at)
            elements[i].apply(*parts[at]);
    }
    return sink.outcome();
}

std::span<const std::string_view> AcDbMline::markers() const
{
    static constexpr std::string_view kMarkers[] = {"AcDbEntity", "AcDbMline"};
    return kMarkers;
}
