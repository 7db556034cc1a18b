#include "host/db/hatch_loop.h"

#include "host/db/angle.h"
#include "host/db/entity_fields.h"
#include "host/db/transforming.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

enum EdgeType { kLineEdge = 1, kArcEdge, kEllipseEdge, kSplineEdge };

class LoopReader {
public:
    LoopReader(const TagList& tags, TagRange range)
        : tags_(tags), at_(range.first), last_(range.last)
    {
    }

    std::vector<HatchLoop> read()
    {
        std::vector<HatchLoop> loops;
        while (at_ < last_) {
            const int code = tags_[at_].code;
            if (code == 92) {
                loops.emplace_back();
                loops.back().type = static_cast<int>(tags_.integer(at_++));
            } else if (loops.empty()) {
                ++at_;
            } else if (loops.back().isPolyline()) {
                polylineTag(loops.back());
            } else {
                edgeTag(loops.back());
            }
        }
        return loops;
    }

private:
    AcGePoint2d point()
    {
        const AcGePoint3d p = pointAt(tags_, at_);
        at_ += at_ + 1 < last_ && tags_[at_ + 1].code == tags_[at_].code + 10 ? 2 : 1;
        return {p.x, p.y};
    }
    bool is(int code) const { return at_ < last_ && tags_[at_].code == code; }
    // The value of the next tag if it has this code.
    double realOr(int code, double fallback) { return is(code) ? tags_.real(at_++) : fallback; }
    int integerOr(int code, int fallback)
    {
        return is(code) ? static_cast<int>(tags_.integer(at_++)) : fallback;
    }
    AcGePoint2d pointOr(int code, AcGePoint2d fallback) { return is(code) ? point() : fallback; }

    void polylineTag(HatchLoop& loop)
    {
        switch (tags_[at_].code) {
        case 10: {
            BulgeVertex vertex;
            vertex.point = point();
            loop.polyline.push_back(vertex);
            return;
        }
        case 42:
            if (!loop.polyline.empty())
                loop.polyline.back().bulge = tags_.real(at_);
            break;
        case 73:
            loop.closed = tags_.integer(at_) != 0;
            break;
        case 330:
            loop.sources.push_back(tags_.handle(at_));
            break;
        }
        ++at_;
    }

    void edgeTag(HatchLoop& loop)
    {
        if (is(330))
            loop.sources.push_back(tags_.handle(at_));
        if (!is(72)) {
            ++at_;
            return;
        }
        switch (tags_.integer(at_++)) {
        case kLineEdge: {
            const AcGePoint2d from = pointOr(10, {});
            loop.edges.push_back(HatchLine{from, pointOr(11, from)});
            break;
        }
        case kArcEdge:
        case kEllipseEdge:
            loop.edges.push_back(arc(tags_.integer(at_ - 1) == kEllipseEdge));
            break;
        case kSplineEdge:
            loop.edges.push_back(spline());
            break;
        }
    }

    HatchArc arc(bool elliptical)
    {
        HatchArc edge;
        edge.elliptical = elliptical;
        edge.centre = pointOr(10, {});
        if (elliptical) {
            edge.majorAxis = pointOr(11, {1.0, 0.0}).asVector();
            edge.ratio = realOr(40, 1.0);
        } else {
            edge.majorAxis = {realOr(40, 0.0), 0.0};
        }
        edge.start = toRadians(realOr(50, 0.0));
        edge.end = toRadians(realOr(51, 360.0));
        edge.counterClockwise = integerOr(73, 1) != 0;
        return edge;
    }

    HatchSpline spline()
    {
        HatchSpline edge;
        edge.degree = integerOr(94, 3);
        edge.rational = integerOr(73, 0) != 0;
        edge.periodic = integerOr(74, 0) != 0;
        integerOr(95, 0);
        integerOr(96, 0);
        while (is(40))
            edge.knots.push_back(tags_.real(at_++));
        while (is(10) || is(42)) {
            if (is(42))
                edge.weights.push_back(tags_.real(at_++));
            else
                edge.points.push_back(point());
        }
        if (edge.weights.size() != edge.points.size())
            edge.weights.clear();
        // Fit data stand here from R2010 on, counted by a 97 that is followed by points and not by
        // the handles of source entities.
        if (is(97) && at_ + 1 < last_ && tags_[at_ + 1].code != 330)
            ++at_;
        while (is(11) || is(12) || is(13))
            point();
        return edge;
    }

    const TagList& tags_;
    std::size_t at_;
    std::size_t last_;
};

void addEdge(Outline& outline, const HatchLine& edge, const AcGeMatrix3d& plane, double elevation,
             double)
{
    outline.push_back(plane * AcGePoint3d(edge.from, elevation));
    outline.push_back(plane * AcGePoint3d(edge.to, elevation));
}

void addEdge(Outline& outline, const HatchArc& edge, const AcGeMatrix3d& plane, double elevation,
             double tolerance)
{
    // A clockwise edge counts its angles clockwise too.
    Arc3d arc;
    arc.centre = AcGePoint3d(edge.centre, elevation);
    arc.cosAxis = {edge.majorAxis.x, edge.majorAxis.y, 0.0};
    arc.sinAxis = AcGeVector3d(-edge.majorAxis.y, edge.majorAxis.x, 0.0) *
                  (edge.counterClockwise ? edge.ratio : -edge.ratio);
    arc.start = edge.start;
    arc.end = edge.end;
    if (!(arc.end > arc.start))
        arc.end += 2.0 * std::numbers::pi *
                   (1.0 + std::floor((arc.start - arc.end) / (2.0 * std::numbers::pi)));
    const std::vector<AcGePoint3d> points = arc.transformed(plane).sampled(tolerance);
    outline.insert(outline.end(), points.begin(), points.end());
}

void addEdge(Outline& outline, const HatchSpline& edge, const AcGeMatrix3d& plane, double elevation,
             double tolerance)
{
    std::vector<AcGePoint3d> places;
    for (const AcGePoint2d& p : edge.points)
        places.push_back(plane * AcGePoint3d(p, elevation));
    const std::optional<NurbsCurve> curve =
        NurbsCurve::make(edge.degree, edge.knots, places, edge.weights);
    const std::vector<AcGePoint3d> points = curve ? curve->sampled(tolerance) : places;
    outline.insert(outline.end(), points.begin(), points.end());
}

class LoopWriter {
public:
    LoopWriter(TagList& tags, std::size_t at) : tags_(tags), at_(at) {}

    void loop(const HatchLoop& loop)
    {
        integer(92, loop.type);
        if (loop.isPolyline()) {
            const bool bulges = std::any_of(loop.polyline.begin(), loop.polyline.end(),
                                            [](const BulgeVertex& v) { return v.bulge != 0.0; });
            integer(72, bulges);
            integer(73, loop.closed);
            integer(93, static_cast<std::int64_t>(loop.polyline.size()));
            for (const BulgeVertex& vertex : loop.polyline) {
                point(10, vertex.point);
                if (bulges)
                    real(42, vertex.bulge);
            }
        } else {
            integer(93, static_cast<std::int64_t>(loop.edges.size()));
            for (const HatchEdge& some : loop.edges)
                std::visit([this](const auto& one) { edge(one); }, some);
        }
        integer(97, static_cast<std::int64_t>(loop.sources.size()));
        for (const std::uint64_t source : loop.sources)
            tags_.insertHandle(at_++, 330, source);
    }
    std::size_t place() const { return at_; }

private:
    void integer(int code, std::int64_t value) { tags_.insertInteger(at_++, code, value); }
    void real(int code, double value) { tags_.insertReal(at_++, code, value); }
    void point(int code, AcGePoint2d p)
    {
        real(code, p.x);
        real(code + 10, p.y);
    }
    void edge(const HatchLine& line)
    {
        integer(72, kLineEdge);
        point(10, line.from);
        point(11, line.to);
    }
    void edge(const HatchArc& arc)
    {
        integer(72, arc.elliptical ? kEllipseEdge : kArcEdge);
        point(10, arc.centre);
        if (arc.elliptical) {
            point(11, AcGePoint2d() + arc.majorAxis);
            real(40, arc.ratio);
        } else {
            real(40, arc.majorAxis.length());
        }
        real(50, toDegrees(arc.start));
        real(51, toDegrees(arc.end));
        integer(73, arc.counterClockwise);
    }
    void edge(const HatchSpline& spline)
    {
        integer(72, kSplineEdge);
        integer(94, spline.degree);
        integer(73, spline.rational);
        integer(74, spline.periodic);
        integer(95, static_cast<std::int64_t>(spline.knots.size()));
        integer(96, static_cast<std::int64_t>(spline.points.size()));
        for (const double knot : spline.knots)
            real(40, knot);
        for (std::size_t i = 0; i < spline.points.size(); ++i) {
            point(10, spline.points[i]);
            if (i < spline.weights.size())
                real(42, spline.weights[i]);
        }
        if (tags_.form().version() >= DxfVersion::r2010)
            integer(97, 0); // no fit data
    }

    TagList& tags_;
    std::size_t at_;
};

// What the codes of a path mean: of one that is a polyline, and by the type of an edge.
constexpr MappedField kPolylineFields[] = {{10, FieldForm::flatPoint}, {42, FieldForm::bulge}};
constexpr MappedField kLineFields[] = {{10, FieldForm::flatPoint}, {11, FieldForm::flatPoint}};
constexpr MappedField kArcFields[] = {{10, FieldForm::flatPoint}, {40, FieldForm::length}};
constexpr MappedField kEllipseFields[] = {{10, FieldForm::flatPoint}, {11, FieldForm::flatVector}};
constexpr MappedField kSplineFields[] = {{10, FieldForm::flatPoint},
                                         {11, FieldForm::flatPoint},
                                         {12, FieldForm::flatVector},
                                         {13, FieldForm::flatVector}};
constexpr std::span<const MappedField> kEdgeFields[] = {
    {}, kLineFields, kArcFields, kEllipseFields, kSplineFields};

void setIfOther(TagWriter& object, std::size_t at, double value)
{
    if (object.tags().real(at) != value)
        object.tagsForWrite().setReal(at, value);
}

// Angles run in the edge's own direction, which a mirroring reverses; those of an ellipse count
// from its axis.
void mapDirections(TagWriter& object, TagRange edge, bool circular, const PlaneMap& map)
{
    const std::size_t first = object.tags().find(50, edge.first, edge.last);
    const std::size_t last = object.tags().find(51, edge.first, edge.last);
    const std::size_t sense = object.tags().find(73, edge.first, edge.last);
    const bool forward = sense == TagList::npos || object.tags().integer(sense) != 0;
    if (map.mirrors() && sense != TagList::npos)
        object.tagsForWrite().setInteger(sense, !forward);
    if (!circular || first == TagList::npos || last == TagList::npos)
        return;
    const double from = object.tags().real(first);
    const double to = object.tags().real(last);
    const double sweep = to - from;
    if (map.turn() == 0.0 || std::abs(sweep) >= 360.0)
        return;
    const double turn = forward != map.mirrors() ? map.turn() : -map.turn();
    const double begins = tidyDegrees(from + turn);
    const double ends = tidyDegrees(to + turn);
    setIfOther(object, first, begins);
    setIfOther(object, last, sweep > 0.0 && ends < begins ? ends + 360.0 : ends);
}

} // namespace

void mapHatchLoops(TagWriter& object, TagRange range, const PlaneMap& map)
{
    bool polyline = false;
    for (std::size_t i = range.first; i < range.last;) {
        const int code = object.tags()[i].code;
        const std::int64_t type = code == 92 || code == 72 ? object.tags().integer(i) : 0;
        if (code == 92)
            polyline = (type & 2) != 0;
        std::size_t end = i + 1;
        while (end < range.last && object.tags()[end].code != 92 &&
               (polyline || object.tags()[end].code != 72))
            ++end;
        const TagRange piece{i + 1, end};
        if (polyline) {
            mapFields(object, piece, kPolylineFields, map);
        } else if (code == 72 && type >= kLineEdge && type <= kSplineEdge) {
            mapFields(object, piece, kEdgeFields[type], map);
            if (type == kArcEdge || type == kEllipseEdge)
                mapDirections(object, piece, type == kArcEdge, map);
        }
        i = end;
    }
}

Outline HatchLoop::outline(const AcGeMatrix3d& plane, double elevation, double chordTolerance) const
{
    if (isPolyline())
        return outlineOfBulgePath(polyline, true, elevation, plane, chordTolerance);
    Outline all;
    for (const HatchEdge& some : edges)
        std::visit([&](const auto& one) { addEdge(all, one, plane, elevation, chordTolerance); },
                   some);
    return all;
}

std::vector<HatchLoop> readHatchLoops(const TagList& tags, TagRange range)
{
    return LoopReader(tags, range).read();
}

std::size_t writeHatchLoops(TagList& tags, std::size_t at, std::span<const HatchLoop> loops)
{
    LoopWriter writer(tags, at);
    for (const HatchLoop& loop : loops)
        writer.loop(loop);
    return writer.place();
}

} // namespace host
