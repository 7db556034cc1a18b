#pragma once

#include "host/db/bulge_path.h"

#include <memory>
#include <vector>

class AcDbPolyline;

namespace host {

// A flat polyline while it is drawn: its vertices at one elevation, and the widths that its next
// segment takes.
class PolylinePath {
public:
    PolylinePath(const AcGePoint3d& start, double width);

    // Ends the path's last segment there. The next one is as wide as this one ends.
    void append(AcGePoint2d to, double bulge);
    bool undo(); // the last segment; false when there is none
    // From the end back to the start.
    void close(double bulge);
    void setWidths(double start, double end);

    std::size_t segments() const { return vertices_.size() - 1; }
    AcGePoint3d start() const { return {vertices_.front().point, elevation_}; }
    AcGePoint3d end() const { return {vertices_.back().point, elevation_}; }
    double direction() const; // in which the last segment arrives; along x before the first
    double startWidth() const { return vertices_.back().startWidth; }
    double endWidth() const { return vertices_.back().endWidth; }

    std::unique_ptr<AcDbPolyline> entity() const; // outside of any drawing

private:
    std::vector<BulgeVertex> vertices_; // the last one holds the next segment's widths
    double elevation_ = 0.0;
    bool closed_ = false;
};

} // namespace host
