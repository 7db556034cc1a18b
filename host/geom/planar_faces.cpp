#include "host/geom/planar_faces.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numbers>
#include <numeric>
#include <unordered_map>

// Every piece between two vertices is two half-edges, one each way, numbered 2n and 2n + 1. A walk
// that leaves each vertex by the half-edge next clockwise to the one it came by keeps a face on its
// left: a face's outline runs counter-clockwise, the outline of a connected part, which has the
// surrounding face on its left, clockwise. Pieces that a walk takes both ways enclose nothing.

namespace host {

namespace {

constexpr double kRelativeTolerance = 1e-8;
constexpr double kMostTolerance = 1e-4; // of the typical curve
constexpr double kSameDirection = 1e-7; // radians

using HalfEdge = std::size_t;

struct Edge {
    PlanarCurve curve;
    std::size_t parent; // the curve that it is a piece of
    std::size_t from;   // vertices
    std::size_t to;
    bool alive = true;
};

// Points by number; those within the tolerance of each other are one.
class Vertices {
public:
    explicit Vertices(double tolerance) : tolerance_(tolerance) {}

    std::size_t at(AcGePoint2d p)
    {
        const Cell cell = cellOf(p);
        for (std::int64_t i = cell.first - 1; i <= cell.first + 1; ++i)
            for (std::int64_t j = cell.second - 1; j <= cell.second + 1; ++j)
                if (const auto found = cells_.find({i, j}); found != cells_.end())
                    for (const std::size_t vertex : found->second)
                        if (points_[vertex].distanceTo(p) <= tolerance_)
                            return vertex;
        points_.push_back(p);
        cells_[cell].push_back(points_.size() - 1);
        return points_.size() - 1;
    }
    std::size_t size() const { return points_.size(); }

private:
    using Cell = std::pair<std::int64_t, std::int64_t>;
    Cell cellOf(AcGePoint2d p) const
    {
        const auto number = [this](double x) {
            constexpr double kMost = 9e18; // what the type holds
            return static_cast<std::int64_t>(
                std::clamp(std::floor(x / (2.0 * tolerance_)), -kMost, kMost));
        };
        return {number(p.x), number(p.y)};
    }

    double tolerance_;
    std::vector<AcGePoint2d> points_;
    std::map<Cell, std::vector<std::size_t>> cells_;
};

double typicalLength(std::span<const PlanarCurve> curves)
{
    std::vector<double> lengths;
    for (const PlanarCurve& curve : curves)
        lengths.push_back(curve.length());
    const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
    std::nth_element(lengths.begin(), middle, lengths.end());
    return *middle;
}

// After the size of the whole, but so that a few far ends don't make one place of all the rest.
double toleranceOf(std::span<const PlanarCurve> curves, std::span<const PlanarCurve::Box> boxes)
{
    PlanarCurve::Box all = boxes.front();
    for (const PlanarCurve::Box& box : boxes) {
        all.least = {std::min(all.least.x, box.least.x), std::min(all.least.y, box.least.y)};
        all.most = {std::max(all.most.x, box.most.x), std::max(all.most.y, box.most.y)};
    }
    const double far = std::max(
        {std::abs(all.least.x), std::abs(all.least.y), std::abs(all.most.x), std::abs(all.most.y)});
    return std::min(std::max(kRelativeTolerance * all.least.distanceTo(all.most), 1e-14 * far),
                    kMostTolerance * typicalLength(curves));
}

// Where each curve is to be cut, as parameters from 0 to 1.
std::vector<std::vector<double>> cutsOf(std::span<const PlanarCurve> curves,
                                        std::span<const PlanarCurve::Box> boxes, double tolerance)
{
    std::vector<std::vector<double>> cuts(curves.size(), {0.0, 1.0});
    std::vector<std::size_t> order(curves.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::sort(order.begin(), order.end(),
              [&](std::size_t a, std::size_t b) { return boxes[a].least.x < boxes[b].least.x; });
    for (std::size_t i = 0; i < order.size(); ++i) {
        const PlanarCurve::Box& box = boxes[order[i]];
        for (std::size_t j = i + 1; j < order.size(); ++j) {
            const PlanarCurve::Box& other = boxes[order[j]];
            if (other.least.x > box.most.x + tolerance)
                break;
            if (other.least.y > box.most.y + tolerance || box.least.y > other.most.y + tolerance)
                continue;
            meetings(curves[order[i]], curves[order[j]], tolerance, cuts[order[i]]);
            meetings(curves[order[j]], curves[order[i]], tolerance, cuts[order[j]]);
        }
    }
    return cuts;
}

bool continues(const PlanarCurve& one, const PlanarCurve& next, double tolerance)
{
    return one.isArc() && next.isArc() && one.source == next.source &&
           one.centre.distanceTo(next.centre) <= tolerance &&
           std::abs(one.radius - next.radius) <= tolerance &&
           (one.sweep > 0.0) == (next.sweep > 0.0) &&
           std::abs(one.sweep + next.sweep) <= 2.0 * std::numbers::pi + 1e-9;
}

int depthAmong(const PlanarLoop& loop, std::span<const PlanarLoop> others)
{
    return static_cast<int>(
        std::count_if(others.begin(), others.end(), [&](const PlanarLoop& other) {
            return other.area > loop.area && other.contains(loop.somePoint());
        }));
}

} // namespace

class PlanarFaces::Builder {
public:
    Builder(std::span<const PlanarCurve> curves, double tolerance,
            const std::vector<std::vector<double>>& cuts)
        : tolerance_(tolerance)
    {
        Vertices vertices(tolerance);
        for (std::size_t i = 0; i < curves.size(); ++i)
            addPieces(curves[i], i, cuts[i], vertices);
        out_.resize(vertices.size());
    }

    // Until every piece left has two different faces at its sides.
    std::vector<std::vector<HalfEdge>> walks()
    {
        for (;;) {
            dropLooseEnds();
            std::vector<std::vector<HalfEdge>> all = walkAll();
            bool dropped = false;
            for (std::size_t edge = 0; edge < edges_.size(); ++edge)
                if (edges_[edge].alive && walkOf_[2 * edge] == walkOf_[2 * edge + 1]) {
                    edges_[edge].alive = false;
                    dropped = true;
                }
            if (!dropped)
                return all;
        }
    }

    // A walk that passes a vertex twice is cut there into loops.
    template <class Take> void splitAtVertices(const std::vector<HalfEdge>& walk, Take take) const
    {
        std::vector<HalfEdge> chain;
        std::unordered_map<std::size_t, std::size_t> placeOf; // of the chain's origins
        for (const HalfEdge half : walk) {
            placeOf[origin(half)] = chain.size();
            chain.push_back(half);
            const auto met = placeOf.find(head(half));
            if (met == placeOf.end())
                continue;
            const std::size_t begin = met->second;
            take(std::span<const HalfEdge>(chain).subspan(begin));
            for (std::size_t i = begin; i < chain.size(); ++i)
                placeOf.erase(origin(chain[i]));
            chain.resize(begin);
        }
    }

    // With its sense as its area's sign; the curves run counter-clockwise.
    PlanarLoop loopOf(std::span<const HalfEdge> chain) const
    {
        PlanarLoop loop;
        std::vector<std::size_t> parents;
        for (const HalfEdge half : chain) {
            const PlanarCurve curve =
                half % 2 ? edges_[half / 2].curve.reversed() : edges_[half / 2].curve;
            const std::size_t parent = edges_[half / 2].parent;
            if (!loop.curves.empty() && joins(loop.curves.back(), parents.back(), curve, parent)) {
                join(loop.curves.back(), curve);
                continue;
            }
            loop.curves.push_back(curve);
            parents.push_back(parent);
        }
        if (loop.curves.size() > 1 &&
            joins(loop.curves.back(), parents.back(), loop.curves.front(), parents.front())) {
            join(loop.curves.back(), loop.curves.front());
            loop.curves.front() = loop.curves.back();
            loop.curves.pop_back();
        }
        const AcGePoint2d near = loop.curves.front().from;
        for (const PlanarCurve& curve : loop.curves)
            loop.area += 0.5 * curve.doubleArea(near);
        if (loop.area < 0.0) {
            std::reverse(loop.curves.begin(), loop.curves.end());
            for (PlanarCurve& curve : loop.curves)
                curve = curve.reversed();
        }
        return loop;
    }

    void collect(std::vector<PlanarCurve>& pieces) const
    {
        for (const Edge& edge : edges_)
            if (edge.alive)
                pieces.push_back(edge.curve);
    }

private:
    std::size_t origin(HalfEdge half) const
    {
        return half % 2 ? edges_[half / 2].to : edges_[half / 2].from;
    }
    std::size_t head(HalfEdge half) const { return origin(half ^ 1); }

    bool joins(const PlanarCurve& one, std::size_t parent, const PlanarCurve& next,
               std::size_t nextParent) const
    {
        if (!one.isArc() && parent == nextParent)
            return one.to.distanceTo(next.from) <= tolerance_ &&
                   (one.to - one.from).dotProduct(next.to - next.from) > 0.0;
        return one.to.distanceTo(next.from) <= tolerance_ && continues(one, next, tolerance_);
    }
    static void join(PlanarCurve& one, const PlanarCurve& next)
    {
        one.to = next.to;
        one.sweep += next.sweep;
    }

    void addPieces(const PlanarCurve& curve, std::size_t parent, std::vector<double> cuts,
                   Vertices& vertices)
    {
        std::sort(cuts.begin(), cuts.end());
        double begin = 0.0;
        for (const double end : cuts) {
            const bool last = end == 1.0;
            const double rest = (1.0 - end) * curve.length();
            if ((end - begin) * curve.length() <= tolerance_ || (!last && rest <= tolerance_))
                continue;
            const PlanarCurve piece = curve.part(begin, end);
            addEdge({piece, parent, vertices.at(piece.from), vertices.at(piece.to)});
            begin = end;
        }
    }

    // Curves that lie on each other count once.
    void addEdge(const Edge& edge)
    {
        if (edge.from == edge.to)
            return;
        std::vector<std::size_t>& between =
            between_[{std::min(edge.from, edge.to), std::max(edge.from, edge.to)}];
        for (const std::size_t other : between)
            if (edges_[other].curve.at(0.5).distanceTo(edge.curve.at(0.5)) <= 4.0 * tolerance_)
                return;
        between.push_back(edges_.size());
        edges_.push_back(edge);
    }

    void dropLooseEnds()
    {
        std::vector<std::size_t> degree(out_.size());
        for (const Edge& edge : edges_) {
            if (!edge.alive)
                continue;
            ++degree[edge.from];
            ++degree[edge.to];
        }
        std::vector<std::vector<std::size_t>> touching(out_.size());
        for (std::size_t i = 0; i < edges_.size(); ++i) {
            touching[edges_[i].from].push_back(i);
            touching[edges_[i].to].push_back(i);
        }
        std::vector<std::size_t> loose;
        for (std::size_t vertex = 0; vertex < degree.size(); ++vertex)
            if (degree[vertex] == 1)
                loose.push_back(vertex);
        while (!loose.empty()) {
            const std::size_t vertex = loose.back();
            loose.pop_back();
            for (const std::size_t i : touching[vertex]) {
                Edge& edge = edges_[i];
                if (!edge.alive)
                    continue;
                edge.alive = false;
                const std::size_t other = edge.from == vertex ? edge.to : edge.from;
                --degree[vertex];
                if (--degree[other] == 1)
                    loose.push_back(other);
            }
        }
    }

    // Leaving a vertex: by direction, and where that is the same, by how far the curve bends left.
    struct Leaving {
        std::int64_t direction;
        double curvature;
        HalfEdge half;
        bool operator<(const Leaving& other) const
        {
            return direction != other.direction ? direction < other.direction
                                                : curvature < other.curvature;
        }
    };
    Leaving leaving(HalfEdge half) const
    {
        const PlanarCurve& curve = edges_[half / 2].curve;
        const bool backward = half % 2 != 0;
        const double angle =
            backward ? curve.direction(1.0) + std::numbers::pi : curve.direction(0.0);
        constexpr double kTurn = 2.0 * std::numbers::pi;
        const auto steps = static_cast<std::int64_t>(std::llround(kTurn / kSameDirection));
        double reduced = std::fmod(angle, kTurn);
        if (reduced < 0.0)
            reduced += kTurn;
        return {std::llround(reduced / kSameDirection) % steps,
                backward ? -curve.curvature() : curve.curvature(), half};
    }

    std::vector<std::vector<HalfEdge>> walkAll()
    {
        for (auto& leavings : out_)
            leavings.clear();
        std::vector<HalfEdge> living;
        for (HalfEdge half = 0; half < 2 * edges_.size(); ++half)
            if (edges_[half / 2].alive) {
                out_[origin(half)].push_back(leaving(half));
                living.push_back(half);
            }
        std::vector<HalfEdge> next(2 * edges_.size());
        for (auto& leavings : out_) {
            std::sort(leavings.begin(), leavings.end());
            for (std::size_t i = 0; i < leavings.size(); ++i)
                next[leavings[i].half ^ 1] =
                    leavings[(i + leavings.size() - 1) % leavings.size()].half;
        }
        constexpr std::size_t kNone = static_cast<std::size_t>(-1);
        walkOf_.assign(2 * edges_.size(), kNone);
        std::vector<std::vector<HalfEdge>> all;
        for (const HalfEdge start : living) {
            if (walkOf_[start] != kNone)
                continue;
            all.emplace_back();
            for (HalfEdge half = start; walkOf_[half] == kNone; half = next[half]) {
                walkOf_[half] = all.size() - 1;
                all.back().push_back(half);
            }
        }
        return all;
    }

    double tolerance_;
    std::vector<Edge> edges_;
    std::map<std::pair<std::size_t, std::size_t>, std::vector<std::size_t>> between_;
    std::vector<std::vector<Leaving>> out_; // by vertex
    std::vector<std::size_t> walkOf_;       // by half-edge
};

bool PlanarLoop::contains(AcGePoint2d p) const
{
    int turns = 0;
    for (const PlanarCurve& curve : curves)
        turns += curve.crossings(p);
    return turns != 0;
}

PlanarFaces::PlanarFaces(std::span<const PlanarCurve> curves)
{
    if (curves.empty())
        return;
    std::vector<PlanarCurve::Box> boxes;
    for (const PlanarCurve& curve : curves)
        boxes.push_back(curve.box());
    tolerance_ = toleranceOf(curves, boxes);
    Builder builder(curves, tolerance_, cutsOf(curves, boxes, tolerance_));
    for (const std::vector<HalfEdge>& walk : builder.walks())
        builder.splitAtVertices(walk, [&](std::span<const HalfEdge> chain) {
            PlanarLoop loop = builder.loopOf(chain);
            const bool isPart = loop.area < 0.0;
            loop.area = std::abs(loop.area);
            (isPart ? parts_ : faces_).push_back(std::move(loop));
        });
    builder.collect(pieces_);
}

PlanarFaces::~PlanarFaces() = default;

std::vector<PlanarLoop> PlanarFaces::around(AcGePoint2d point) const
{
    for (const PlanarCurve& piece : pieces_)
        if (piece.parameterOf(point, tolerance_))
            return {};
    const PlanarLoop* outer = nullptr;
    for (const PlanarLoop& face : faces_)
        if ((!outer || face.area < outer->area) && face.contains(point))
            outer = &face;
    if (!outer)
        return {};
    std::vector<PlanarLoop> loops;
    for (const PlanarLoop& part : parts_)
        if (part.area < outer->area * (1.0 - 1e-12) && outer->contains(part.somePoint()))
            loops.push_back(part);
    loops.push_back(*outer);
    for (PlanarLoop& loop : loops)
        loop.depth = depthAmong(loop, loops);
    std::sort(loops.begin(), loops.end(), [](const PlanarLoop& a, const PlanarLoop& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.area > b.area;
    });
    return loops;
}

std::vector<PlanarLoop> PlanarFaces::outlines() const
{
    std::vector<PlanarLoop> loops = parts_;
    for (PlanarLoop& loop : loops)
        loop.depth = depthAmong(loop, loops);
    std::sort(loops.begin(), loops.end(), [](const PlanarLoop& a, const PlanarLoop& b) {
        return a.depth != b.depth ? a.depth < b.depth : a.area > b.area;
    });
    return loops;
}

} // namespace host
