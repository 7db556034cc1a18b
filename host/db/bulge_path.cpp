#include "host/db/bulge_path.h"

namespace host {

namespace {

AcGePoint3d placed(const BulgeVertex& vertex, double elevation)
{
    return {vertex.point, elevation};
}

std::optional<Arc3d> arcFrom(const BulgeVertex& from, const BulgeVertex& to, double elevation)
{
    if (from.bulge == 0.0)
        return std::nullopt;
    return Arc3d::fromBulge(placed(from, elevation), placed(to, elevation), from.bulge);
}

} // namespace

void strokeBulgePath(StrokeSink& sink, std::span<const BulgeVertex> vertices, bool closed,
                     double elevation, const AcGeMatrix3d& plane)
{
    if (vertices.empty())
        return;
    if (vertices.size() == 1) {
        sink.point(plane * placed(vertices[0], elevation));
        return;
    }
    std::vector<AcGePoint3d> run{plane * placed(vertices[0], elevation)};
    const std::size_t segments = closed ? vertices.size() : vertices.size() - 1;
    bool anyArc = false;
    for (std::size_t i = 0; i < segments && !sink.done(); ++i) {
        const BulgeVertex& next = vertices[(i + 1) % vertices.size()];
        const AcGePoint3d end = plane * placed(next, elevation);
        if (const std::optional<Arc3d> arc = arcFrom(vertices[i], next, elevation)) {
            if (run.size() > 1)
                sink.polyline(run, false);
            sink.arc(arc->transformed(plane));
            run.assign(1, end);
            anyArc = true;
        } else {
            run.push_back(end);
        }
    }
    if (run.size() < 2)
        return;
    const bool whole = closed && !anyArc;
    if (whole)
        run.pop_back(); // the first again
    sink.polyline(run, whole);
}

Outline outlineOfBulgePath(std::span<const BulgeVertex> vertices, bool closed, double elevation,
                           const AcGeMatrix3d& plane, double chordTolerance)
{
    Outline outline;
    for (std::size_t i = 0; i < vertices.size(); ++i) {
        const bool last = i + 1 == vertices.size();
        const BulgeVertex& next = vertices[last ? 0 : i + 1];
        const std::optional<Arc3d> arc =
            last && !closed ? std::nullopt : arcFrom(vertices[i], next, elevation);
        if (!arc) {
            outline.push_back(plane * placed(vertices[i], elevation));
            continue;
        }
        const std::vector<AcGePoint3d> points = arc->transformed(plane).sampled(chordTolerance);
        outline.insert(outline.end(), points.begin(), points.end() - 1);
    }
    return outline;
}

} // namespace host
