#pragma once

#include <optional>
#include <vector>

#include "host/geom/stroke_sink.h"

namespace host {

// What the user draws to select by: an area with its edge, or an open line, in the xy plane of the
// world. Strokes are seen from above, their z has no say. Touching counts as crossing, lying on the
// edge as being inside.
class SelectionShape {
public:
    static SelectionShape rectangle(AcGePoint2d oneCorner, AcGePoint2d otherCorner);
    static SelectionShape pickBox(AcGePoint2d centre, double halfSize);
    static SelectionShape
    polygon(std::vector<AcGePoint2d> corners); // closes itself; even-odd where it crosses itself
    static SelectionShape fence(std::vector<AcGePoint2d> points);

    bool isArea() const { return area_; }
    const std::vector<AcGePoint2d>& points() const { return points_; }
    const AcDbExtents& extents() const { return extents_; } // grown by the tolerance
    bool contains(AcGePoint2d point) const;                 // never true of a fence

    // Whole pieces of a stroke against the shape. An arc is solved for where it meets each edge,
    // not sampled.
    bool touchesSegment(AcGePoint2d from, AcGePoint2d to) const;
    bool touchesArc(const Arc3d& arc) const;
    bool containsSegment(AcGePoint2d from, AcGePoint2d to) const;
    bool containsArc(const Arc3d& arc) const;

    double tolerance() const { return tolerance_; }
    double splineTolerance() const; // chord tolerance at which a spline is tested

private:
    SelectionShape(std::vector<AcGePoint2d> points, bool area);
    template <class Visit> bool anyEdge(Visit visit) const; // stops at the first that answers true
    bool onEdge(AcGePoint2d point) const;

    std::vector<AcGePoint2d> points_;
    AcDbExtents extents_;
    double tolerance_ = 0.0; // what rounding may move a point of this shape
    bool area_ = true;
    bool rectangular_ = false; // its box is the shape itself
};

// Is everything drawn inside the area? Done with the first stroke that is not.
class WindowTest : public StrokeSink {
public:
    explicit WindowTest(const SelectionShape& shape) : shape_(shape) {}

    bool isInside() const { return drawn_ && !outside_; } // of nothing at all: no
    bool done() const override { return outside_; }

    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override;
    double chordTolerance() const override { return shape_.splineTolerance(); }

private:
    void note(bool inside);

    const SelectionShape& shape_;
    bool drawn_ = false;
    bool outside_ = false;
};

// Does anything drawn lie inside or touch? Filled areas and text boxes are touched from within,
// too. With a fence as the shape only its line can touch. Done with the first touch.
class CrossingTest : public StrokeSink {
public:
    explicit CrossingTest(const SelectionShape& shape) : shape_(shape) {}

    bool crosses() const { return touched_; }
    bool done() const override { return touched_; }

    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override;
    void spline(const NurbsCurve& curve) override;
    void filledArea(std::span<const Outline> outlines) override;
    void textBox(const TextBox& box) override { filled(box.outline()); }
    double chordTolerance() const override { return shape_.splineTolerance(); }

private:
    const SelectionShape& shape_;
    bool touched_ = false;
};

using FenceTest = CrossingTest;
using PickTest = CrossingTest;

} // namespace host
