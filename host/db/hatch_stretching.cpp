#include "host/db/hatch_stretching.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace host {

namespace {

// Takes paths from the plane of a hatch to the mapped plane. Its normal is chosen so that what runs
// counter-clockwise goes on doing so.
class PathMap {
public:
    PathMap(const AcDbHatch& hatch, const AcGeMatrix3d& map)
        : elevation_(hatch.elevation()), from_(map * AcGeMatrix3d::arbitraryAxes(hatch.normal())),
          normal_(from_.axis(0).crossProduct(from_.axis(1)).normal()),
          back_(AcGeMatrix3d::arbitraryAxes(normal_).inverse())
    {
    }

    AcGeVector3d normal() const { return normal_; }
    double elevation() const { return mapped(AcGePoint2d()).z; }

    HatchLoop loop(const HatchLoop& original) const
    {
        HatchLoop loop;
        loop.type = original.type;
        loop.closed = original.closed;
        for (const HatchEdge& edge : original.edges)
            loop.edges.push_back(
                std::visit([&](const auto& one) { return HatchEdge(this->edge(one)); }, edge));
        const std::vector<BulgeVertex>& path = original.polyline;
        const bool straight = std::all_of(path.begin(), path.end(), [](const BulgeVertex& vertex) {
            return vertex.bulge == 0.0;
        });
        if (straight) {
            for (const BulgeVertex& vertex : path)
                loop.polyline.push_back({mapped(vertex.point).convert2d()});
            return loop;
        }
        loop.type &= ~AcDbHatch::kPolyline;
        for (std::size_t i = 0; i < path.size(); ++i)
            loop.edges.push_back(segment(path[i], path[(i + 1) % path.size()]));
        return loop;
    }

private:
    AcGePoint3d mapped(AcGePoint2d p) const { return back_ * (from_ * AcGePoint3d(p, elevation_)); }
    AcGeVector2d mapped(const AcGeVector3d& v) const { return (back_ * (from_ * v)).convert2d(); }

    HatchLine edge(const HatchLine& line) const
    {
        return {mapped(line.from).convert2d(), mapped(line.to).convert2d()};
    }
    HatchArc edge(const HatchArc& arc) const
    {
        const AcGeVector2d minor =
            arc.majorAxis.perpVector() * (arc.counterClockwise ? arc.ratio : -arc.ratio);
        return ellipse(arc.centre, {arc.majorAxis.x, arc.majorAxis.y, 0.0}, {minor.x, minor.y, 0.0},
                       arc.start, arc.end);
    }
    HatchSpline edge(HatchSpline spline) const
    {
        for (AcGePoint2d& point : spline.points)
            point = mapped(point).convert2d();
        return spline;
    }
    HatchEdge segment(const BulgeVertex& from, const BulgeVertex& to) const
    {
        const std::optional<Arc3d> arc =
            Arc3d::fromBulge({from.point, 0.0}, {to.point, 0.0}, from.bulge);
        if (!arc)
            return edge(HatchLine{from.point, to.point});
        return ellipse(arc->centre.convert2d(), arc->cosAxis, arc->sinAxis, arc->start, arc->end);
    }
    // The mapped axes are conjugate diameters; the principal ones lie a turn of the angle further.
    HatchArc ellipse(AcGePoint2d centre, const AcGeVector3d& cosAxis, const AcGeVector3d& sinAxis,
                     double start, double end) const
    {
        const AcGeVector2d a = mapped(cosAxis);
        const AcGeVector2d b = mapped(sinAxis);
        const double turn =
            0.5 * std::atan2(2.0 * a.dotProduct(b), a.lengthSqrd() - b.lengthSqrd());
        const AcGeVector2d minor = b * std::cos(turn) - a * std::sin(turn);
        HatchArc made;
        made.centre = mapped(centre).convert2d();
        made.majorAxis = a * std::cos(turn) + b * std::sin(turn);
        made.ratio = minor.length() / made.majorAxis.length();
        const double whole = start < turn ? 2.0 * std::numbers::pi : 0.0;
        made.start = start - turn + whole;
        made.end = end - turn + whole;
        made.counterClockwise = a.crossProduct(b) > 0.0;
        made.elliptical = true;
        return made;
    }

    double elevation_;
    AcGeMatrix3d from_;
    AcGeVector3d normal_;
    AcGeMatrix3d back_;
};

} // namespace

std::unique_ptr<AcDbEntity> stretchedHatch(const AcDbHatch& hatch, const AcGeMatrix3d& map)
{
    const PathMap paths(hatch, map);
    if (paths.normal().isZeroLength() || (!hatch.isSolidFill() && !hatch.isGradient()))
        return nullptr;
    std::vector<HatchLoop> loops;
    for (const HatchLoop& loop : hatch.loops())
        loops.push_back(paths.loop(loop));
    std::unique_ptr<AcDbEntity> copy(AcDbEntity::cast(hatch.clone().release()));
    AcDbHatch& made = *AcDbHatch::cast(copy.get());
    made.setAssociative(false);
    made.setNormal(paths.normal());
    made.setElevation(paths.elevation());
    made.setLoops(loops);
    return copy;
}

} // namespace host
