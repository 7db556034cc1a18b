#include "host/commands/drawing/hatch_boundaries.h"

#include "host/db/dimension.h"
#include "host/db/object_pointer.h"
#include "host/db/ray.h"
#include "host/geom/planar_search.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

// The file counts the angles of a clockwise edge clockwise.
HatchArc edgeOf(const PlanarCurve& arc)
{
    HatchArc edge;
    edge.centre = arc.centre;
    edge.majorAxis = {arc.radius, 0.0};
    edge.counterClockwise = arc.sweep > 0.0;
    const double first = std::fmod(edge.counterClockwise ? arc.start : -arc.start, kTurn);
    edge.start = first < 0.0 ? first + kTurn : first;
    edge.end = edge.start + std::abs(arc.sweep);
    if (std::abs(arc.sweep) > kTurn - 1e-9) {
        edge.start = 0.0;
        edge.end = kTurn;
    }
    return edge;
}

bool enclosesNothing(const AcDbEntity& entity)
{
    return AcDbHatch::cast(&entity) || AcDbDimension::cast(&entity);
}

bool isEndless(const AcDbEntity& entity)
{
    return AcDbRay::cast(&entity) || AcDbXline::cast(&entity);
}

} // namespace

std::vector<HatchLoop> HatchArea::loops(AcDbHatch::HatchStyle style) const
{
    const int deepest = style == AcDbHatch::kIgnore  ? 0
                        : style == AcDbHatch::kOuter ? 1
                                                     : std::numeric_limits<int>::max();
    std::vector<HatchLoop> used;
    for (const HatchPath& path : paths)
        if (path.depth <= deepest)
            used.push_back(path.loop);
    return used;
}

HatchBoundaries::HatchBoundaries(const std::vector<AcDbObjectId>& entities)
{
    for (const AcDbObjectId id : entities) {
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        if (!entity || enclosesNothing(*entity))
            continue;
        PlanarSink sink;
        sink.setSource(sources_.size());
        entity->strokes(sink);
        curves_.insert(curves_.end(), sink.curves().begin(), sink.curves().end());
        texts_.insert(texts_.end(), sink.texts().begin(), sink.texts().end());
        sources_.push_back(
            {id.handle().value(), sink.elevation().value_or(0.0), isEndless(*entity)});
    }
}

std::optional<HatchArea> HatchBoundaries::around(const AcGePoint3d& point) const
{
    constexpr int kFound = AcDbHatch::kDerived;
    return areaOf(loopsAround(curves_, point.convert2d()),
                  {AcDbHatch::kExternal | kFound, AcDbHatch::kOutermost | kFound, kFound});
}

std::optional<HatchArea> HatchBoundaries::outlines() const
{
    std::vector<PlanarCurve> curves = curves_;
    std::erase_if(curves, [&](const PlanarCurve& c) { return sources_[c.source].isEndless; });
    return areaOf(PlanarFaces(curves).outlines(),
                  {AcDbHatch::kExternal, AcDbHatch::kOutermost, AcDbHatch::kDefault});
}

std::optional<HatchArea> HatchBoundaries::areaOf(const std::vector<PlanarLoop>& loops,
                                                 const PathTypes& types) const
{
    if (loops.empty())
        return std::nullopt;
    HatchArea area;
    area.elevation = sources_[loops.front().curves.front().source].elevation;
    for (const PlanarLoop& loop : loops) {
        HatchLoop path = pathOf(loop);
        path.type |= loop.depth == 0 ? types.outer : loop.depth == 1 ? types.island : types.deeper;
        area.paths.push_back({std::move(path), loop.depth});
    }
    addTexts(loops, area);
    return area;
}

// What comes from one entity is a polyline, as that entity is; a chain of several is edges.
HatchLoop HatchBoundaries::pathOf(const PlanarLoop& loop) const
{
    HatchLoop path;
    for (const PlanarCurve& curve : loop.curves) {
        const std::uint64_t source = sources_[curve.source].handle;
        if (std::find(path.sources.begin(), path.sources.end(), source) == path.sources.end())
            path.sources.push_back(source);
    }
    if (path.sources.size() == 1 && loop.curves.size() > 1) {
        path.type = AcDbHatch::kPolyline;
        for (const PlanarCurve& curve : loop.curves)
            path.polyline.push_back({curve.from, std::tan(curve.sweep / 4.0)});
        return path;
    }
    for (const PlanarCurve& curve : loop.curves) {
        if (curve.isArc())
            path.edges.push_back(edgeOf(curve));
        else
            path.edges.push_back(HatchLine{curve.from, curve.to});
    }
    return path;
}

// A text lies in a hatched part when an odd number of paths is around it.
void HatchBoundaries::addTexts(const std::vector<PlanarLoop>& loops, HatchArea& area) const
{
    for (const PlanarSink::TextOutline& text : texts_) {
        const auto around = [&](AcGePoint2d corner) {
            return std::count_if(loops.begin(), loops.end(),
                                 [&](const PlanarLoop& loop) { return loop.contains(corner); });
        };
        const auto depth = around(text.corners.front());
        const bool whole = std::all_of(text.corners.begin(), text.corners.end(),
                                       [&](AcGePoint2d corner) { return around(corner) == depth; });
        if (depth % 2 == 0 || !whole)
            continue;
        HatchLoop path;
        path.type = AcDbHatch::kPolyline | AcDbHatch::kTextbox;
        path.sources = {sources_[text.source].handle};
        for (const AcGePoint2d corner : text.corners)
            path.polyline.push_back({corner});
        area.paths.push_back({std::move(path), static_cast<int>(depth)});
    }
}

} // namespace host
