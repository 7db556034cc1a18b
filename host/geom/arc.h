#pragma once

#include <optional>
#include <vector>

#include "host/geom/extents.h"

namespace host {

// A circle, an ellipse or a part of one, anywhere in space: centre + cos t * cosAxis + sin t *
// sinAxis for t from `start` to `end`. Every affine map takes an arc to an arc by mapping its three
// members. The axes of a circle have one length and a right angle; those of an ellipse under a skew
// map need not have the right angle. `end` lies after `start`, at most a full turn. An axis may be
// zero: the arc is then a segment or a point.
struct Arc3d {
    AcGePoint3d centre;
    AcGeVector3d cosAxis;
    AcGeVector3d sinAxis;
    double start = 0.0;
    double end = 0.0;

    // In the xy plane of `plane`, angles from its x axis; the centre is in the plane's coordinates.
    // Angles more than a turn apart are reduced, equal ones make a full circle.
    static Arc3d circular(const AcGePoint3d& centre, double radius, double startAngle,
                          double endAngle, const AcGeMatrix3d& plane = AcGeMatrix3d::kIdentity);
    static Arc3d circle(const AcGePoint3d& centre, double radius,
                        const AcGeMatrix3d& plane = AcGeMatrix3d::kIdentity);
    // World coordinates; `ratio` is the minor axis to the major one.
    static Arc3d elliptical(const AcGePoint3d& centre, const AcGeVector3d& majorAxis,
                            const AcGeVector3d& normal, double ratio, double startParameter,
                            double endParameter);
    // The arc of a polyline between two vertices, in the direction from the first to the second.
    // The bulge is the tangent of a quarter of the turn, positive to the left seen against
    // `normal`. None for a straight segment.
    static std::optional<Arc3d> fromBulge(const AcGePoint3d& from, const AcGePoint3d& to,
                                          double bulge,
                                          const AcGeVector3d& normal = AcGeVector3d::kZAxis);

    double sweep() const { return end - start; }
    bool isClosed() const;
    bool isCircular(double relativeTolerance = 1e-9) const;
    double radius() const { return cosAxis.length(); } // of a circular arc
    AcGeVector3d normal() const { return cosAxis.crossProduct(sinAxis).normal(); }

    AcGePoint3d pointAt(double t) const;
    AcGeVector3d tangentAt(double t) const; // the derivative
    AcGePoint3d startPoint() const { return pointAt(start); }
    AcGePoint3d endPoint() const { return pointAt(end); }
    // `t` plus whole turns so that it falls between start and end; none when no turn does so.
    std::optional<double> onArc(double t) const;

    double length() const;
    double closestParameter(const AcGePoint3d& to) const;
    AcGePoint3d closestPoint(const AcGePoint3d& to) const { return pointAt(closestParameter(to)); }
    AcDbExtents extents() const; // exact

    // Points from start to end, both included, so that no chord is farther from the arc than the
    // tolerance; zero takes a ten-thousandth of the size.
    std::vector<AcGePoint3d> sampled(double chordTolerance = 0.0) const;

    Arc3d transformed(const AcGeMatrix3d& matrix) const;
};

} // namespace host
