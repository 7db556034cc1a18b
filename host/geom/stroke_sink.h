#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "host/geom/arc.h"
#include "host/geom/nurbs.h"

namespace host {

// One line of text as a parallelogram: from its lower left corner (on the baseline) along the
// writing and up the letters.
struct TextBox {
    AcGePoint3d corner;
    AcGeVector3d along; // its length is the text's width
    AcGeVector3d up;    // its length is the height of capitals; leans with the obliquing angle
    std::wstring_view text;
    std::wstring_view font; // file of the text style

    // Counter-clockwise from the corner, seen as the text is read.
    std::vector<AcGePoint3d> outline() const
    {
        return {corner, corner + along, corner + along + up, corner + up};
    }
};

using Outline = std::vector<AcGePoint3d>;

// What an entity draws itself to, stroke by stroke, in world coordinates. What a sink does not know
// better is broken down: texts to their outline, splines and arcs to polylines by `chordTolerance`,
// areas to their closed outlines, a point to a polyline of one point.
class StrokeSink {
public:
    virtual ~StrokeSink() = default;

    virtual void polyline(std::span<const AcGePoint3d> points, bool closed) = 0;
    virtual void arc(const Arc3d& arc);
    virtual void spline(const NurbsCurve& curve);
    virtual void filledArea(
        std::span<const Outline> outlines); // by the even-odd rule: an outline in another is a hole
    virtual void textBox(const TextBox& box);
    virtual void point(const AcGePoint3d& position);

    // An entity of many strokes asks between them and stops when nothing more can change the
    // outcome.
    virtual bool done() const { return false; }
    virtual double chordTolerance() const { return 0.0; } // zero: fine for the size of each curve

    void segment(const AcGePoint3d& from, const AcGePoint3d& to);
    void filled(std::span<const AcGePoint3d> outline);

protected:
    StrokeSink() = default;
    StrokeSink(const StrokeSink&) = default;
    StrokeSink& operator=(const StrokeSink&) = default;
};

// Hands every stroke on, mapped: the insides of a block to where its reference puts them.
class TransformingSink : public StrokeSink {
public:
    TransformingSink(StrokeSink& target, const AcGeMatrix3d& matrix)
        : target_(target), matrix_(matrix)
    {
    }

    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override { target_.arc(arc.transformed(matrix_)); }
    void spline(const NurbsCurve& curve) override { target_.spline(curve.transformed(matrix_)); }
    void filledArea(std::span<const Outline> outlines) override;
    void textBox(const TextBox& box) override;
    void point(const AcGePoint3d& position) override { target_.point(matrix_ * position); }
    bool done() const override { return target_.done(); }

private:
    StrokeSink& target_;
    AcGeMatrix3d matrix_;
};

// The box around everything drawn, exact for arcs and to the last few bits for splines.
class ExtentsSink : public StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override { extents_.addExt(arc.extents()); }
    void spline(const NurbsCurve& curve) override { extents_.addExt(curve.extents()); }

    const AcDbExtents& extents() const { return extents_; }

private:
    AcDbExtents extents_;
};

} // namespace host
