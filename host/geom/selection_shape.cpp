#include "host/geom/selection_shape.h"

#include <algorithm>
#include <array>
#include <cmath>

// A stroke is cut where it may meet an edge. If a cut lies on an edge the stroke touches; if the
// middle of every piece between cuts lies inside, the whole stroke does. Cuts too many do no harm,
// so doubtful ones are kept.

namespace host {

namespace {

constexpr double kRounding = 1e-13; // of the greatest coordinate

struct Edge {
    AcGePoint2d from;
    AcGeVector2d along; // of length 1, even where the edge has no length
    double length = 0.0;

    Edge(AcGePoint2d a, AcGePoint2d b)
        : from(a), along(a == b ? AcGeVector2d::kXAxis : (b - a).normal()), length(a.distanceTo(b))
    {
    }

    AcGePoint2d to() const { return from + along * length; }
    bool spans(AcGePoint2d p, double tolerance) const
    {
        const double place = along.dotProduct(p - from);
        return place >= -tolerance && place <= length + tolerance;
    }
    double distanceTo(AcGePoint2d p) const
    {
        const double place = std::clamp(along.dotProduct(p - from), 0.0, length);
        return p.distanceTo(from + along * place);
    }
};

bool meet(const Edge& a, const Edge& b, double tolerance)
{
    const auto sides = [](const Edge& edge, const Edge& other) {
        return edge.along.crossProduct(other.from - edge.from) *
               edge.along.crossProduct(other.to() - edge.from);
    };
    if (sides(a, b) < 0.0 && sides(b, a) < 0.0)
        return true;
    return a.distanceTo(b.from) <= tolerance || a.distanceTo(b.to()) <= tolerance ||
           b.distanceTo(a.from) <= tolerance || b.distanceTo(a.to()) <= tolerance;
}

// By the even-odd rule: does a ray to the right leave the ring an odd number of times?
template <class Points> bool oddlyInside(AcGePoint2d p, const Points& ring)
{
    bool inside = false;
    for (std::size_t i = 0, j = ring.size() - 1; i < ring.size(); j = i++) {
        const auto& a = ring[i];
        const auto& b = ring[j];
        if ((a.y > p.y) != (b.y > p.y) && p.x < a.x + (b.x - a.x) * ((p.y - a.y) / (b.y - a.y)))
            inside = !inside;
    }
    return inside;
}

// An arc's shadow on the xy plane.
struct FlatArc {
    const Arc3d& arc;

    AcGePoint2d at(double t) const { return arc.pointAt(t).convert2d(); }

    // The parameters at which the coordinate along `axis`, measured from `origin`, is zero; they
    // need not be on the arc. Within the tolerance a near miss counts.
    std::array<std::optional<double>, 2> zeros(AcGeVector2d axis, AcGePoint2d origin,
                                               double tolerance) const
    {
        const double c = axis.dotProduct(arc.cosAxis.convert2d());
        const double s = axis.dotProduct(arc.sinAxis.convert2d());
        const double away = axis.dotProduct(origin - arc.centre.convert2d());
        const double reach = std::hypot(c, s);
        if (reach <= tolerance || std::abs(away) > reach + tolerance)
            return {};
        const double top = std::atan2(s, c);
        const double off = std::acos(std::clamp(away / reach, -1.0, 1.0));
        return {top - off, top + off};
    }

    // Every parameter on the arc where it may meet the edge. An arc seen from its side along the
    // edge is cut at the edge's ends.
    template <class Visit> bool anyCut(const Edge& edge, double tolerance, Visit visit) const
    {
        const std::array cuts = {zeros(edge.along.perpVector(), edge.from, tolerance),
                                 zeros(edge.along, edge.from, tolerance),
                                 zeros(edge.along, edge.to(), tolerance)};
        for (std::size_t i = 0; i < cuts.size(); ++i)
            for (const std::optional<double>& cut : cuts[i])
                if (const auto t = cut ? arc.onArc(*cut) : std::nullopt) {
                    // A cut by the edge's line is on that line; only its place along the edge is
                    // left to see.
                    const bool touches = i == 0 ? edge.spans(at(*t), tolerance)
                                                : edge.distanceTo(at(*t)) <= tolerance;
                    if (visit(*t, touches))
                        return true;
                }
        return false;
    }
};

// `inside` of the middle of each piece between the cuts, and of the ends.
template <class Inside> bool allPieces(std::vector<double> cuts, Inside inside)
{
    std::ranges::sort(cuts);
    if (!inside(cuts.front()) || !inside(cuts.back()))
        return false;
    for (std::size_t i = 1; i < cuts.size(); ++i)
        if (!inside(0.5 * (cuts[i - 1] + cuts[i])))
            return false;
    return true;
}

} // namespace

SelectionShape::SelectionShape(std::vector<AcGePoint2d> points, bool area)
    : points_(std::move(points)), area_(area)
{
    double greatest = 0.0;
    for (const AcGePoint2d p : points_) {
        extents_.addPoint({p, 0.0});
        greatest = std::max({greatest, std::abs(p.x), std::abs(p.y)});
    }
    tolerance_ = kRounding * greatest;
    extents_.expandBy({tolerance_, tolerance_, 0.0});
    extents_.expandBy({-tolerance_, -tolerance_, 0.0});
}

SelectionShape SelectionShape::rectangle(AcGePoint2d oneCorner, AcGePoint2d otherCorner)
{
    SelectionShape shape(
        {oneCorner, {otherCorner.x, oneCorner.y}, otherCorner, {oneCorner.x, otherCorner.y}}, true);
    shape.rectangular_ = true;
    return shape;
}

SelectionShape SelectionShape::pickBox(AcGePoint2d centre, double halfSize)
{
    const AcGeVector2d half(halfSize, halfSize);
    return rectangle(centre - half, centre + half);
}

SelectionShape SelectionShape::polygon(std::vector<AcGePoint2d> corners)
{
    return SelectionShape(std::move(corners), true);
}

SelectionShape SelectionShape::fence(std::vector<AcGePoint2d> points)
{
    return SelectionShape(std::move(points), false);
}

template <class Visit> bool SelectionShape::anyEdge(Visit visit) const
{
    for (std::size_t i = 1; i < points_.size(); ++i)
        if (visit(Edge(points_[i - 1], points_[i])))
            return true;
    const bool closes = area_ || points_.size() == 1;
    return closes && !points_.empty() && visit(Edge(points_.back(), points_.front()));
}

bool SelectionShape::onEdge(AcGePoint2d point) const
{
    return anyEdge([&](const Edge& edge) { return edge.distanceTo(point) <= tolerance_; });
}

bool SelectionShape::contains(AcGePoint2d point) const
{
    if (!area_ || !extents_.contains2d({{point, 0.0}, {point, 0.0}}))
        return false;
    return rectangular_ || oddlyInside(point, points_) || onEdge(point);
}

bool SelectionShape::touchesSegment(AcGePoint2d from, AcGePoint2d to) const
{
    if (!extents_.overlaps2d({{from, 0.0}, {to, 0.0}}))
        return false;
    if (contains(from) || contains(to))
        return true;
    const Edge stroke(from, to);
    return anyEdge([&](const Edge& edge) { return meet(stroke, edge, tolerance_); });
}

bool SelectionShape::touchesArc(const Arc3d& arc) const
{
    if (!extents_.overlaps2d(arc.extents()))
        return false;
    const FlatArc flat{arc};
    const AcGePoint2d first = flat.at(arc.start);
    const AcGePoint2d last = flat.at(arc.end);
    if (contains(first) || contains(last) || onEdge(first) || onEdge(last))
        return true;
    return anyEdge([&](const Edge& edge) {
        return flat.anyCut(edge, tolerance_, [](double, bool touches) { return touches; });
    });
}

bool SelectionShape::containsSegment(AcGePoint2d from, AcGePoint2d to) const
{
    if (!contains(from) || !contains(to))
        return false;
    if (rectangular_)
        return true;
    const Edge stroke(from, to);
    std::vector<double> cuts{0.0, stroke.length};
    anyEdge([&](const Edge& edge) {
        const auto cut = [&](double place) {
            if (place > 0.0 && place < stroke.length)
                cuts.push_back(place);
        };
        cut(stroke.along.dotProduct(edge.from - from));
        const double slant = stroke.along.crossProduct(edge.along);
        if (slant != 0.0)
            cut((edge.from - from).crossProduct(edge.along) / slant);
        return false;
    });
    return allPieces(cuts, [&](double place) { return contains(from + stroke.along * place); });
}

bool SelectionShape::containsArc(const Arc3d& arc) const
{
    if (!area_ || !extents_.contains2d(arc.extents()))
        return false;
    if (rectangular_)
        return true;
    const FlatArc flat{arc};
    std::vector<double> cuts{arc.start, arc.end};
    anyEdge([&](const Edge& edge) {
        return flat.anyCut(edge, tolerance_, [&](double t, bool) {
            cuts.push_back(t);
            return false;
        });
    });
    return allPieces(cuts, [&](double t) { return contains(flat.at(t)); });
}

double SelectionShape::splineTolerance() const
{
    // Above zero even for a shape without size, which would stand for the coarser default.
    return std::max({1e-5 * extents_.size(), tolerance_, 1e-300});
}

void WindowTest::note(bool inside)
{
    drawn_ = true;
    outside_ = outside_ || !inside;
}

void WindowTest::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    if (points.size() == 1)
        note(shape_.contains(points[0].convert2d()));
    for (std::size_t i = 1; i < points.size() && !outside_; ++i)
        note(shape_.containsSegment(points[i - 1].convert2d(), points[i].convert2d()));
    if (closed && points.size() > 2 && !outside_)
        note(shape_.containsSegment(points.back().convert2d(), points.front().convert2d()));
}

void WindowTest::arc(const Arc3d& arc)
{
    if (!outside_)
        note(shape_.containsArc(arc));
}

void CrossingTest::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    const auto touches = [&](const AcGePoint3d& from, const AcGePoint3d& to) {
        touched_ = touched_ || shape_.touchesSegment(from.convert2d(), to.convert2d());
    };
    if (points.size() == 1)
        touches(points[0], points[0]);
    for (std::size_t i = 1; i < points.size() && !touched_; ++i)
        touches(points[i - 1], points[i]);
    if (closed && points.size() > 2)
        touches(points.back(), points.front());
}

void CrossingTest::arc(const Arc3d& arc)
{
    touched_ = touched_ || shape_.touchesArc(arc);
}

void CrossingTest::spline(const NurbsCurve& curve)
{
    // Weights are above zero, so the curve stays within the box of its control points.
    AcDbExtents box;
    for (const AcGePoint3d& p : curve.controlPoints())
        box.addPoint(p);
    if (!touched_ && shape_.extents().overlaps2d(box))
        StrokeSink::spline(curve);
}

void CrossingTest::filledArea(std::span<const Outline> outlines)
{
    StrokeSink::filledArea(outlines);
    if (touched_ || shape_.points().empty())
        return;
    // No outline is touched: the shape lies wholly within the area or wholly outside.
    bool within = false;
    for (const Outline& outline : outlines)
        within = within != oddlyInside(shape_.points().front(), outline);
    touched_ = within;
}

} // namespace host
