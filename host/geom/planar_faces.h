#pragma once

#include "host/geom/planar_curve.h"

namespace host {

// A closed chain of curves, counter-clockwise.
struct PlanarLoop {
    std::vector<PlanarCurve> curves;
    double area = 0.0;
    int depth = 0; // in how many other loops of one answer it lies

    bool contains(AcGePoint2d p) const;
    AcGePoint2d somePoint() const { return curves.front().at(0.5); }
};

// The plane as curves divide it: they are cut where they meet, what encloses nothing falls away,
// and each connected rest is walked around face by face. Ends closer than about a hundred-millionth
// of the whole's size, or a ten-thousandth of the typical curve, touch.
class PlanarFaces {
public:
    explicit PlanarFaces(std::span<const PlanarCurve> curves);
    ~PlanarFaces();

    // The face in which the point lies: its outline (depth 0), and what lies inside of that by the
    // outlines of its connected parts (from depth 1 on), outer ones first. Empty for a point in
    // the open or on a curve.
    std::vector<PlanarLoop> around(AcGePoint2d point) const;

    // The outlines of all connected parts, outer ones first.
    std::vector<PlanarLoop> outlines() const;

private:
    class Builder;
    double tolerance_ = 0.0;
    std::vector<PlanarCurve> pieces_; // of the loops
    std::vector<PlanarLoop> faces_;
    std::vector<PlanarLoop> parts_;
};

} // namespace host
