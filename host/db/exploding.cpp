#include "host/db/exploding.h"

#include "host/db/arc.h"
#include "host/db/circle.h"
#include "host/db/ellipse.h"
#include "host/db/face.h"
#include "host/db/line.h"
#include "host/db/point_entity.h"
#include "host/db/solid_trace.h"
#include "host/db/spline.h"
#include "host/db/text.h"
#include "host/geom/text_strokes.h"
#include "host/text/case_mapping.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

constexpr short kHandedOn[] = {8, 6, 347, 348, 62, 420, 430, 440, 48, 60, 370, 390, 284};

// The field's value as the whole writes it; without one the part loses its own.
void handOn(const TagList& whole, AcDbEntity& part, int code)
{
    const std::size_t from = findField(whole, kEntityPart, code);
    const std::size_t to = findField(part.tags(), kEntityPart, code);
    if (from == TagList::npos && to == TagList::npos)
        return;
    TagList& tags = part.tagsForWrite();
    if (to != TagList::npos)
        tags.erase(to, to + 1);
    if (from == TagList::npos)
        return;
    TagList value(whole.source());
    value.addTag(whole[from]);
    tags.insertBytes(placeOfField(tags, kEntityPart, code), code,
                     value.inSource(tags.source())[0].bytes());
}

double angleIn(const AcGeMatrix3d& toPlane, const AcGeVector3d& direction)
{
    const AcGeVector3d flat = toPlane * direction;
    return std::atan2(flat.y, flat.x);
}

std::unique_ptr<AcDbEntity> circleOrArc(const Arc3d& arc, const AcGeVector3d& normal)
{
    const bool turned = arc.normal().dotProduct(normal) < 0.0;
    const AcGeVector3d up = arc.normal().isParallelTo(normal) ? normal : arc.normal();
    if (arc.isClosed())
        return std::make_unique<AcDbCircle>(arc.centre, up, arc.radius());
    const AcGeMatrix3d toPlane = AcGeMatrix3d::arbitraryAxes(up).inverse();
    const double first = angleIn(toPlane, arc.startPoint() - arc.centre);
    const double last = angleIn(toPlane, arc.endPoint() - arc.centre);
    const auto positive = [](double angle) {
        return angle < 0.0 ? angle + 2.0 * std::numbers::pi : angle;
    };
    auto made = std::make_unique<AcDbArc>(arc.centre, arc.radius(), 0.0, 0.0);
    made->setNormal(up);
    made->setStartAngle(positive(turned && up == normal ? last : first));
    made->setEndAngle(positive(turned && up == normal ? first : last));
    return made;
}

} // namespace

void handOnProperties(const AcDbEntity& whole, AcDbEntity& part)
{
    for (const short code : kHandedOn)
        handOn(whole.tags(), part, code);
}

void resolveByBlock(const AcDbEntity& whole, AcDbEntity& part)
{
    const TagList& tags = whole.tags();
    if (part.layer() == L"0")
        handOn(tags, part, 8);
    if (part.color().isByBlock())
        for (const int code : {62, 420, 430})
            handOn(tags, part, code);
    if (equalNoCase(part.linetype(), L"ByBlock"))
        handOn(tags, part, 6);
    if (part.lineWeight() == AcDb::kLnWtByBlock)
        handOn(tags, part, 370);
}

std::unique_ptr<AcDbEntity> entityOfArc(const Arc3d& arc, const AcGeVector3d& normal)
{
    if (arc.isCircular())
        return circleOrArc(arc, normal);
    // a circle's image: the ellipse finds its own axes
    const bool whole = arc.isClosed();
    auto ellipse = std::make_unique<AcDbEllipse>(AcGePoint3d(), AcGeVector3d::kZAxis,
                                                 AcGeVector3d::kXAxis, 1.0, whole ? 0.0 : arc.start,
                                                 whole ? 2.0 * std::numbers::pi : arc.end);
    const AcGeVector3d up = arc.normal();
    const AcGeMatrix3d image = AcGeMatrix3d::coordSystem(arc.centre, arc.cosAxis, arc.sinAxis, up);
    if (!up.isZeroLength() && ellipse->transformBy(image) == Acad::eOk)
        return ellipse;
    AcGePoint3d from = arc.startPoint();
    AcGePoint3d to = from;
    for (const AcGePoint3d& p : arc.sampled())
        if (p.distanceTo(from) > to.distanceTo(from))
            to = p;
    for (const AcGePoint3d& p : arc.sampled())
        if (p.distanceTo(to) > from.distanceTo(to))
            from = p;
    return std::make_unique<AcDbLine>(from, to);
}

void PartSink::add(std::unique_ptr<AcDbEntity> part)
{
    handOnProperties(whole_, *part);
    parts_.push_back(std::move(part));
    made_ = true;
}

void PartSink::line(const AcGePoint3d& from, const AcGePoint3d& to)
{
    if (from == to)
        return;
    auto made = std::make_unique<AcDbLine>(from, to);
    if (thickness_ != 0.0) {
        made->setThickness(thickness_);
        made->setNormal(normal_);
    }
    add(std::move(made));
}

void PartSink::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    for (std::size_t i = 0; i + 1 < points.size(); ++i)
        line(points[i], points[i + 1]);
    if (closed && points.size() > 2)
        line(points.back(), points.front());
}

void PartSink::arc(const Arc3d& arc)
{
    std::unique_ptr<AcDbEntity> made = entityOfArc(arc, normal_);
    if (thickness_ != 0.0) {
        if (AcDbArc* const part = AcDbArc::cast(made.get()))
            part->setThickness(thickness_);
        else if (AcDbCircle* const circle = AcDbCircle::cast(made.get()))
            circle->setThickness(thickness_);
    }
    add(std::move(made));
}

void PartSink::spline(const NurbsCurve& curve)
{
    AcDbSpline::NurbsData data;
    data.degree = curve.degree();
    data.knots = curve.knots();
    data.controlPoints = curve.controlPoints();
    data.weights = curve.weights();
    data.rational = !data.weights.empty();
    data.closed = curve.isClosed();
    auto made = std::make_unique<AcDbSpline>();
    if (made->setNurbsData(data) == Acad::eOk)
        add(std::move(made));
}

void PartSink::filledArea(std::span<const Outline> outlines)
{
    for (const Outline& outline : outlines) {
        if (outline.size() < 3 || outline.size() > 4) {
            polyline(outline, true);
            continue;
        }
        auto made = std::make_unique<AcDbSolid>();
        const AcGeVector3d up = (outline[1] - outline[0]).crossProduct(outline[2] - outline[0]);
        if (!up.isParallelTo(AcGeVector3d::kZAxis))
            made->setNormal(up);
        // the record has the third and the fourth corner crossed
        const AcGePoint3d corners[] = {outline[0], outline[1], outline[outline.size() == 4 ? 3 : 2],
                                       outline[2]};
        for (int i = 0; i < 4; ++i)
            made->setPointAt(i, corners[i]);
        add(std::move(made));
    }
}

void PartSink::textBox(const TextBox& box)
{
    const double height = box.up.length();
    const double width = textWidth(box.text, height, 1.0);
    if (!(height > 0.0) || !(width > 0.0))
        return;
    const AcGeVector3d normal = box.along.crossProduct(box.up).normal();
    auto made = std::make_unique<AcDbText>();
    made->setNormal(normal);
    made->setHeight(height);
    made->setTextString(box.text);
    made->setPosition(box.corner);
    const double angle = angleIn(AcGeMatrix3d::arbitraryAxes(normal).inverse(), box.along);
    if (angle != 0.0)
        made->setRotation(angle);
    if (const double factor = box.along.length() / width; std::abs(factor - 1.0) > 1e-9)
        made->setWidthFactor(factor);
    if (!textStyle_.isNull())
        made->setTextStyle(textStyle_);
    add(std::move(made));
}

void PartSink::point(const AcGePoint3d& position)
{
    add(std::make_unique<AcDbPoint>(position));
}

Acad::ErrorStatus explodeBulgePath(const AcDbEntity& whole, std::span<const BulgeVertex> vertices,
                                   bool closed, const FlatPlace& place, EntityParts& parts)
{
    if (vertices.size() < 2)
        return Acad::eNotApplicable;
    PartSink sink(whole, parts);
    sink.setPlane(place.normal, place.thickness);
    strokeBulgePath(sink, vertices, closed, place.elevation,
                    AcGeMatrix3d::arbitraryAxes(place.normal));
    return sink.outcome();
}

void addFaces(PartSink& parts, std::span<const AcGePoint3d> corners,
              const std::vector<bool>& visible)
{
    const std::size_t count = corners.size();
    const auto isVisible = [&](std::size_t edge) { return visible.empty() || visible[edge]; };
    // a fan of faces, each of the first corner and two or three that follow each other
    for (std::size_t first = 1; first + 1 < count;) {
        const std::size_t last = std::min(first + 2, count - 1);
        auto face = std::make_unique<AcDbFace>();
        face->setVertexAt(0, corners[0]);
        for (std::size_t i = 0; i < 3; ++i)
            face->setVertexAt(static_cast<int>(i) + 1, corners[std::min(first + i, last)]);
        if (first != 1 || !isVisible(0))
            face->makeEdgeInvisibleAt(0);
        for (std::size_t edge = first; edge < last; ++edge)
            if (!isVisible(edge))
                face->makeEdgeInvisibleAt(static_cast<int>(edge - first) + 1);
        // of three corners the edge that closes is the fourth's, and the third's has no length
        if (last + 1 < count || !isVisible(count - 1))
            face->makeEdgeInvisibleAt(3);
        parts.add(std::move(face));
        first = last;
    }
}

} // namespace host
