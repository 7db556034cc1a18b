#include "host/commands/drawing/polyline_path.h"

#include "host/db/lwpolyline.h"
#include "host/geom/arc_construction.h"

#include <algorithm>

namespace host {

PolylinePath::PolylinePath(const AcGePoint3d& start, double width)
    : vertices_{{start.convert2d(), 0.0, width, width, false}}, elevation_(start.z)
{
}

void PolylinePath::append(AcGePoint2d to, double bulge)
{
    vertices_.back().bulge = bulge;
    const double width = endWidth();
    vertices_.push_back({to, 0.0, width, width, false});
}

bool PolylinePath::undo()
{
    if (segments() == 0)
        return false;
    vertices_.pop_back();
    vertices_.back().bulge = 0.0;
    return true;
}

void PolylinePath::close(double bulge)
{
    vertices_.back().bulge = bulge;
    closed_ = true;
}

void PolylinePath::setWidths(double start, double end)
{
    vertices_.back().startWidth = start;
    vertices_.back().endWidth = end;
}

double PolylinePath::direction() const
{
    if (segments() == 0)
        return 0.0;
    const BulgeVertex& from = vertices_[vertices_.size() - 2];
    return arrivalDirection(from.point, vertices_.back().point, from.bulge);
}

std::unique_ptr<AcDbPolyline> PolylinePath::entity() const
{
    auto polyline = std::make_unique<AcDbPolyline>();
    // an open end has no segment of its own, and so no width that could differ
    const auto last = vertices_.end() - (closed_ ? 0 : 1);
    const double width = vertices_.front().startWidth;
    const bool uniform = std::all_of(vertices_.begin(), last, [&](const BulgeVertex& vertex) {
        return vertex.startWidth == width && vertex.endWidth == width;
    });
    if (uniform)
        polyline->setConstantWidth(width);
    for (unsigned i = 0; i < vertices_.size(); ++i) {
        const BulgeVertex& vertex = vertices_[i];
        polyline->addVertexAt(i, vertex.point, vertex.bulge, uniform ? -1.0 : vertex.startWidth,
                              uniform ? -1.0 : vertex.endWidth);
    }
    polyline->setElevation(elevation_);
    polyline->setClosed(closed_);
    return polyline;
}

} // namespace host
