#include "host/db/hatch_lines.h"

#include <algorithm>
#include <cmath>

namespace host {

namespace {

// More strokes than that are not drawn one by one.
constexpr double kMostStrokes = 50000.0;

// The boundaries in the coordinates of one family: x along its lines, y across them.
struct Edge {
    AcGePoint2d from;
    AcGePoint2d to;
};

class Family {
public:
    Family(const PatternLine& line, const AcGeMatrix3d& plane) : line_(line), plane_(plane)
    {
        along_ = AcGeVector2d(std::cos(line.angle), std::sin(line.angle));
        step_ = line.offset.dotProduct(along_.perpVector());
        shift_ = line.offset.dotProduct(along_);
        for (const double dash : line.dashes)
            period_ += std::abs(dash);
    }

    void takeEdges(std::span<const Outline> outlines, const AcGeMatrix3d& toPlane)
    {
        for (const Outline& outline : outlines)
            for (std::size_t i = 0; i < outline.size(); ++i) {
                const Edge edge{local(toPlane * outline[i]),
                                local(toPlane * outline[(i + 1) % outline.size()])};
                for (const AcGePoint2d p : {edge.from, edge.to}) {
                    lowX_ = std::min(lowX_, p.x);
                    highX_ = std::max(highX_, p.x);
                    lowY_ = std::min(lowY_, p.y);
                    highY_ = std::max(highY_, p.y);
                }
                edges_.push_back(edge);
            }
        height_ = outlines.empty() || outlines[0].empty() ? 0.0 : (toPlane * outlines[0][0]).z;
    }

    // About how many strokes it draws; endless for lines that do not advance.
    double count() const
    {
        if (!(std::abs(step_) > 1e-9))
            return 1e300;
        const double rows = (highY_ - lowY_) / std::abs(step_) + 1.0;
        const double each =
            period_ > 0.0 ? (highX_ - lowX_) / period_ * static_cast<double>(line_.dashes.size())
                          : 1.0;
        return rows * std::max(each, 1.0);
    }

    void stroke(StrokeSink& sink) const
    {
        const double a = lowY_ / step_;
        const double b = highY_ / step_;
        const double first = std::ceil(std::min(a, b));
        const double behind = std::min(std::max(a, b) - first, kMostStrokes);
        // counted, since far from the origin one more row may round to the same one
        for (double number = 0.0; number <= behind && !sink.done(); ++number) {
            const double row = first + number;
            const std::vector<double> cuts = cutsAt(row * step_);
            for (std::size_t i = 0; i + 1 < cuts.size(); i += 2)
                dashes(sink, row, cuts[i], cuts[i + 1]);
        }
    }

private:
    AcGePoint2d local(const AcGePoint3d& p) const
    {
        const AcGeVector2d v = p.convert2d() - line_.base;
        return {v.dotProduct(along_), along_.crossProduct(v)};
    }
    AcGePoint3d world(double x, double y) const
    {
        const AcGePoint2d p = line_.base + along_ * x + along_.perpVector() * y;
        return plane_ * AcGePoint3d(p, height_);
    }
    std::vector<double> cutsAt(double y) const
    {
        std::vector<double> cuts;
        for (const Edge& edge : edges_)
            if ((edge.from.y <= y) != (edge.to.y <= y))
                cuts.push_back(edge.from.x + (edge.to.x - edge.from.x) * (y - edge.from.y) /
                                                 (edge.to.y - edge.from.y));
        std::sort(cuts.begin(), cuts.end());
        return cuts;
    }
    void dashes(StrokeSink& sink, double row, double from, double to) const
    {
        const double y = row * step_;
        if (!(period_ > 0.0)) {
            sink.segment(world(from, y), world(to, y));
            return;
        }
        const double start = row * shift_;
        const double first = std::floor((from - start) / period_);
        const double behind = std::min((to - start) / period_ - first, kMostStrokes);
        for (double number = 0.0; number <= behind && !sink.done(); ++number) {
            double x = start + (first + number) * period_;
            for (const double dash : line_.dashes) {
                const double end = x + std::abs(dash);
                const double a = std::max(x, from);
                const double b = std::min(end, to);
                if (dash > 0.0 && b > a)
                    sink.segment(world(a, y), world(b, y));
                else if (dash == 0.0 && x >= from && x <= to)
                    sink.point(world(x, y));
                x = end;
            }
        }
    }

    const PatternLine& line_;
    const AcGeMatrix3d& plane_;
    AcGeVector2d along_;
    double step_ = 0.0;  // across, from line to line
    double shift_ = 0.0; // along
    double period_ = 0.0;
    double height_ = 0.0;
    std::vector<Edge> edges_;
    double lowX_ = 1e300, highX_ = -1e300, lowY_ = 1e300, highY_ = -1e300;
};

} // namespace

void strokePattern(StrokeSink& sink, std::span<const PatternLine> lines,
                   std::span<const Outline> outlines, const AcGeMatrix3d& plane)
{
    std::vector<Family> families;
    const AcGeMatrix3d toPlane = plane.inverse();
    double strokes = 0.0;
    for (const PatternLine& line : lines) {
        families.emplace_back(line, plane);
        families.back().takeEdges(outlines, toPlane);
        strokes += families.back().count();
    }
    if (families.empty() || !(strokes <= kMostStrokes)) {
        for (const Outline& outline : outlines)
            sink.polyline(outline, true);
        return;
    }
    for (const Family& family : families)
        family.stroke(sink);
}

} // namespace host
