#include "host/geom/stroke_sink.h"

#include <array>

namespace host {

namespace {

Outline mapped(std::span<const AcGePoint3d> points, const AcGeMatrix3d& matrix)
{
    Outline result(points.begin(), points.end());
    for (AcGePoint3d& p : result)
        p = matrix * p;
    return result;
}

} // namespace

void StrokeSink::arc(const Arc3d& arc)
{
    polyline(arc.sampled(chordTolerance()), false);
}

void StrokeSink::spline(const NurbsCurve& curve)
{
    polyline(curve.sampled(chordTolerance()), false);
}

void StrokeSink::filledArea(std::span<const Outline> outlines)
{
    for (const Outline& outline : outlines)
        polyline(outline, true);
}

void StrokeSink::textBox(const TextBox& box)
{
    polyline(box.outline(), true);
}

void StrokeSink::point(const AcGePoint3d& position)
{
    polyline({&position, 1}, false);
}

void StrokeSink::segment(const AcGePoint3d& from, const AcGePoint3d& to)
{
    polyline(std::array{from, to}, false);
}

void StrokeSink::filled(std::span<const AcGePoint3d> outline)
{
    const Outline whole(outline.begin(), outline.end());
    filledArea({&whole, 1});
}

void TransformingSink::polyline(std::span<const AcGePoint3d> points, bool closed)
{
    target_.polyline(mapped(points, matrix_), closed);
}

void TransformingSink::filledArea(std::span<const Outline> outlines)
{
    std::vector<Outline> placed;
    for (const Outline& outline : outlines)
        placed.push_back(mapped(outline, matrix_));
    target_.filledArea(placed);
}

void TransformingSink::textBox(const TextBox& box)
{
    TextBox placed = box;
    placed.corner = matrix_ * box.corner;
    placed.along = matrix_ * box.along;
    placed.up = matrix_ * box.up;
    target_.textBox(placed);
}

void ExtentsSink::polyline(std::span<const AcGePoint3d> points, bool)
{
    for (const AcGePoint3d& p : points)
        extents_.addPoint(p);
}

} // namespace host
