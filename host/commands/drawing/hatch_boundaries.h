#pragma once

#include "host/db/hatch.h"
#include "host/geom/planar_faces.h"

#include <optional>
#include <vector>

namespace host {

// A boundary path and how deep it lies in others: 0 is outermost.
struct HatchPath {
    HatchLoop loop;
    int depth = 0;
};

struct HatchArea {
    std::vector<HatchPath> paths;
    double elevation = 0.0;

    // Those that a style of islands uses.
    std::vector<HatchLoop> loops(AcDbHatch::HatchStyle style) const;
};

// What entities enclose, as they are drawn in the xy plane. Hatches, dimensions and points enclose
// nothing; a text is an island in what lies around it.
class HatchBoundaries {
public:
    explicit HatchBoundaries(std::vector<AcDbObjectId> entities);

    std::optional<HatchArea> around(const AcGePoint3d& point) const; // none in the open
    std::optional<HatchArea> outlines() const; // of all of them; none where nothing is closed

private:
    // The paths' kinds by their depth; deeper ones are of the last.
    struct PathTypes {
        int outer;
        int island;
        int deeper;
    };
    std::optional<HatchArea> areaOf(const std::vector<PlanarLoop>& loops,
                                    const PathTypes& types) const;
    HatchLoop pathOf(const PlanarLoop& loop) const;
    void addTexts(const std::vector<PlanarLoop>& loops, HatchArea& area) const;

    std::vector<AcDbObjectId> entities_;
    std::vector<double> elevations_; // of each entity
    std::vector<PlanarSink::TextOutline> texts_;
    std::optional<PlanarFaces> faces_;
};

} // namespace host
