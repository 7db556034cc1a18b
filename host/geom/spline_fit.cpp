#include <vector>

#include "host/geom/nurbs.h"

// The cubic through given points with a continuous second derivative. The derivative m at each
// point solves, with h the chord lengths before and after it and d the slopes of the chords,
//     m(i-1)/h(i-1) + 2 m(i) (1/h(i-1) + 1/h(i)) + m(i+1)/h(i) = 3 (d(i-1)/h(i-1) + d(i)/h(i)).
// A free end asks for 2 m + m' = 3 d. The pieces are then written as Bezier cubics, knots
// threefold.

namespace host {

namespace {

struct Row {
    double before = 0.0;
    double middle = 1.0;
    double after = 0.0;
    AcGeVector3d right;
};

// Rows without wrap-around; never divides by zero because the middle outweighs its neighbours.
std::vector<AcGeVector3d> solved(std::vector<Row> rows)
{
    for (std::size_t i = 1; i < rows.size(); ++i) {
        const double factor = rows[i].before / rows[i - 1].middle;
        rows[i].middle -= factor * rows[i - 1].after;
        rows[i].right -= rows[i - 1].right * factor;
    }
    std::vector<AcGeVector3d> answer(rows.size());
    for (std::size_t i = rows.size(); i-- > 0;) {
        AcGeVector3d right = rows[i].right;
        if (i + 1 < rows.size())
            right -= answer[i + 1] * rows[i].after;
        answer[i] = right / rows[i].middle;
    }
    return answer;
}

// Rows in a ring: the first one's `before` is the last, the last one's `after` the first. The two
// corners are taken out as a correction of rank one.
std::vector<AcGeVector3d> solvedRing(std::vector<Row> rows)
{
    if (rows.size() < 3)
        return std::vector<AcGeVector3d>(
            rows.size()); // there and back on one line, resting at both ends
    const double corner = rows.front().before;
    const double otherCorner = rows.back().after;
    const double gamma = -rows.front().middle;
    rows.front().middle -= gamma;
    rows.back().middle -= corner * otherCorner / gamma;

    std::vector<Row> correction = rows;
    for (Row& row : correction)
        row.right = {};
    correction.front().right.x = gamma;
    correction.back().right.x = otherCorner;

    std::vector<AcGeVector3d> answer = solved(std::move(rows));
    const std::vector<AcGeVector3d> z = solved(std::move(correction));
    const AcGeVector3d excess = (answer.front() + answer.back() * (corner / gamma)) /
                                (1.0 + z.front().x + z.back().x * corner / gamma);
    for (std::size_t i = 0; i < answer.size(); ++i)
        answer[i] -= excess * z[i].x;
    return answer;
}

} // namespace

std::optional<NurbsCurve> NurbsCurve::throughPoints(std::span<const AcGePoint3d> fitPoints,
                                                    bool closed,
                                                    std::optional<AcGeVector3d> startTangent,
                                                    std::optional<AcGeVector3d> endTangent)
{
    std::vector<AcGePoint3d> points;
    for (const AcGePoint3d& p : fitPoints)
        if (points.empty() || !p.isEqualTo(points.back()))
            points.push_back(p);
    if (closed && points.size() > 1 && !points.front().isEqualTo(points.back()))
        points.push_back(points.front());
    if (points.size() < 2)
        return {};

    const std::size_t pieces = points.size() - 1;
    std::vector<double> chord(pieces);
    std::vector<AcGeVector3d> slope(pieces);
    for (std::size_t i = 0; i < pieces; ++i) {
        chord[i] = points[i].distanceTo(points[i + 1]);
        slope[i] = (points[i + 1] - points[i]) / chord[i];
    }
    const auto inner = [&](std::size_t before, std::size_t after) {
        return Row{1.0 / chord[before], 2.0 / chord[before] + 2.0 / chord[after],
                   1.0 / chord[after],
                   (slope[before] / chord[before] + slope[after] / chord[after]) * 3.0};
    };
    const auto given = [](const std::optional<AcGeVector3d>& tangent) {
        return tangent && !tangent->isZeroLength();
    };

    std::vector<Row> rows;
    std::vector<AcGeVector3d> derivative;
    if (closed) {
        for (std::size_t i = 0; i < pieces; ++i)
            rows.push_back(inner(i == 0 ? pieces - 1 : i - 1, i));
        derivative = solvedRing(std::move(rows));
        derivative.push_back(derivative.front());
    } else {
        rows.push_back(given(startTangent) ? Row{0.0, 1.0, 0.0, startTangent->normal()}
                                           : Row{0.0, 2.0, 1.0, slope.front() * 3.0});
        for (std::size_t i = 1; i < pieces; ++i)
            rows.push_back(inner(i - 1, i));
        rows.push_back(given(endTangent) ? Row{0.0, 1.0, 0.0, endTangent->normal()}
                                         : Row{1.0, 2.0, 0.0, slope.back() * 3.0});
        derivative = solved(std::move(rows));
    }

    std::vector<AcGePoint3d> control{points.front()};
    std::vector<double> knots(4, 0.0);
    for (std::size_t i = 0; i < pieces; ++i) {
        control.push_back(points[i] + derivative[i] * (chord[i] / 3.0));
        control.push_back(points[i + 1] - derivative[i + 1] * (chord[i] / 3.0));
        control.push_back(points[i + 1]);
        knots.insert(knots.end(), 3, knots.back() + chord[i]);
    }
    knots.push_back(knots.back());
    return make(3, std::move(knots), std::move(control));
}

} // namespace host
