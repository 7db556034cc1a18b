#pragma once

#include "host/geom/point.h"
#include "host/geom/stroke_sink.h"

#include <optional>
#include <span>
#include <vector>

namespace host {

// A straight or circular piece of a curve in the xy plane, run through from t = 0 to t = 1.
struct PlanarCurve {
    AcGePoint2d from;
    AcGePoint2d to;
    AcGePoint2d centre;     // of an arc
    double radius = 0.0;    // 0: straight
    double start = 0.0;     // angle of `from` seen from the centre
    double sweep = 0.0;     // signed, counter-clockwise positive
    std::size_t source = 0; // what it was taken from, as its maker counts

    static PlanarCurve segment(AcGePoint2d from, AcGePoint2d to);
    static PlanarCurve arc(AcGePoint2d centre, double radius, double start, double sweep);

    bool isArc() const { return radius > 0.0; }
    AcGePoint2d at(double t) const;
    double direction(double t) const; // angle of the tangent
    double curvature() const;         // signed, positive to the left
    double length() const;
    PlanarCurve reversed() const { return part(1.0, 0.0); }
    PlanarCurve part(double t0, double t1) const; // backwards where t0 > t1
    // Where on the curve the point lies, if it does.
    std::optional<double> parameterOf(AcGePoint2d p, double tolerance) const;
    // What the curve adds to twice the area that a closed chain of curves encloses; `origin` near
    // the chain keeps far coordinates from eating the digits.
    double doubleArea(AcGePoint2d origin) const;
    // How often, with its sense, the curve crosses the ray from the point along the x axis.
    int crossings(AcGePoint2d p) const;
    struct Box {
        AcGePoint2d least;
        AcGePoint2d most;
    };
    Box box() const;
};

// Where two curves meet, as parameters of the first: crossings, touches, and the ends of each that
// lie on the other.
void meetings(const PlanarCurve& curve, const PlanarCurve& other, double tolerance,
              std::vector<double>& parameters);

// Takes what entities draw as curves in the xy plane; a tilted arc and a spline become segments.
// The text's outlines are collected apart.
class PlanarSink : public StrokeSink {
public:
    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override;
    void textBox(const TextBox& box) override;
    void point(const AcGePoint3d&) override {}

    void setSource(std::size_t source) { source_ = source; }
    const std::vector<PlanarCurve>& curves() const { return curves_; }

    struct TextOutline {
        std::vector<AcGePoint2d> corners;
        std::size_t source;
    };
    const std::vector<TextOutline>& texts() const { return texts_; }
    std::optional<double> elevation() const { return elevation_; } // of what came first

private:
    void add(PlanarCurve curve, double elevation);

    std::size_t source_ = 0;
    std::vector<PlanarCurve> curves_;
    std::vector<TextOutline> texts_;
    std::optional<double> elevation_;
};

} // namespace host
