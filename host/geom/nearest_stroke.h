#pragma once

#include "host/geom/stroke_sink.h"

#include <limits>
#include <optional>
#include <variant>

namespace host {

struct Segment3d {
    AcGePoint3d from;
    AcGePoint3d to;
};

// Of everything drawn the straight or circular stroke that passes nearest to a place. Splines,
// texts and points don't count.
class NearestStrokeSink : public StrokeSink {
public:
    explicit NearestStrokeSink(const AcGePoint3d& place) : place_(place) {}

    using Stroke = std::variant<Segment3d, Arc3d>;
    const std::optional<Stroke>& nearest() const { return nearest_; }

    void polyline(std::span<const AcGePoint3d> points, bool closed) override;
    void arc(const Arc3d& arc) override;
    void spline(const NurbsCurve&) override {}
    void textBox(const TextBox&) override {}
    void point(const AcGePoint3d&) override {}

private:
    bool isNearer(const AcGePoint3d& at);

    AcGePoint3d place_;
    double distance_ = std::numeric_limits<double>::infinity();
    std::optional<Stroke> nearest_;
};

} // namespace host
