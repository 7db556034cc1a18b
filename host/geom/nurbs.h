#pragma once

#include <optional>
#include <span>
#include <vector>

#include "host/geom/extents.h"

namespace host {

// A non-uniform rational B-spline. Made only whole: degree 1 to 25, at least degree + 1 control
// points, knots that never fall and number points + degree + 1, weights above zero (or none: all
// 1), everything finite. Knots may repeat; the parameter runs from knot `degree` to knot `points`.
class NurbsCurve {
public:
    static std::optional<NurbsCurve> make(int degree, std::vector<double> knots,
                                          std::vector<AcGePoint3d> controlPoints,
                                          std::vector<double> weights = {});

    // The smooth cubic through the points, its parameter by chord length. End tangents may be
    // given; only their directions count. A closed one runs smoothly through its first point,
    // tangents left aside. Points that repeat their predecessor are left out; none with fewer than
    // two different points.
    static std::optional<NurbsCurve> throughPoints(std::span<const AcGePoint3d> fitPoints,
                                                   bool closed = false,
                                                   std::optional<AcGeVector3d> startTangent = {},
                                                   std::optional<AcGeVector3d> endTangent = {});

    // The curve of control points with knots one apart, from the first to the last; a closed one
    // runs smoothly through its beginning. Too few points lower the degree; none with fewer than
    // two, or three for a closed one.
    static std::optional<NurbsCurve> ofControlPoints(int degree, std::vector<AcGePoint3d> points,
                                                     bool closed = false);

    int degree() const { return degree_; }
    const std::vector<double>& knots() const { return knots_; }
    const std::vector<AcGePoint3d>& controlPoints() const { return points_; }
    const std::vector<double>& weights() const { return weights_; } // empty when all are 1
    double startParameter() const { return knots_[degree_]; }
    double endParameter() const { return knots_[points_.size()]; }
    bool isClosed(const AcGeTol& tol = AcGeContext::gTol) const; // ends where it begins

    AcGePoint3d pointAt(double u) const;    // u outside the range counts as its nearer end
    AcGeVector3d tangentAt(double u) const; // the derivative
    double length() const;
    double closestParameter(const AcGePoint3d& to) const;
    AcGePoint3d closestPoint(const AcGePoint3d& to) const { return pointAt(closestParameter(to)); }
    AcDbExtents extents() const; // of the curve, not of its control points

    // As Arc3d::sampled.
    std::vector<AcGePoint3d> sampled(double chordTolerance = 0.0) const;
    std::vector<double> sampledParameters(double chordTolerance = 0.0) const;

    NurbsCurve transformed(const AcGeMatrix3d& matrix) const;

private:
    NurbsCurve() = default;
    int spanAt(
        double u) const; // the index of the last knot not above u that begins a span of some length

    int degree_ = 0;
    std::vector<double> knots_;
    std::vector<AcGePoint3d> points_;
    std::vector<double> weights_;
};

} // namespace host
