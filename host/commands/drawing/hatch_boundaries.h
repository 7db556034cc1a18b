#pragma once

#include "host/db/hatch.h"
#include "host/geom/planar_faces.h"

#include <cstdint>
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
    explicit HatchBoundaries(const std::vector<AcDbObjectId>& entities);

    std::optional<HatchArea> around(const AcGePoint3d& point) const; // none in the open
    // Of all of them, without lines that have no end; none where nothing is closed.
    std::optional<HatchArea> outlines() const;

private:
    struct Source {
        std::uint64_t handle = 0;
        double elevation = 0.0;
        bool isEndless = false;
    };
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

    std::vector<Source> sources_; // the entities
    std::vector<PlanarCurve> curves_;
    std::vector<PlanarSink::TextOutline> texts_;
};

} // namespace host
