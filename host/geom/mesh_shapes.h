#pragma once

#include "host/geom/matrix.h"

#include <vector>

namespace host {

// Closed coarse meshes of simple bodies. They stand on the plane z = 0 about the origin and are
// divided as evenly as `MeshDivisions` says; faces run counter-clockwise seen from outside, also
// for a negative height, which builds downwards. Lengths are not zero, radii positive.
struct MeshShape {
    std::vector<AcGePoint3d> vertices; // none twice
    std::vector<std::vector<int>> faces;

    double volume() const;
    void transformBy(const AcGeMatrix3d& map);
};

struct MeshDivisions {
    int around = 8;
    int along = 3;  // the height; the sides of a box
    int across = 3; // from a base's centre to its rim
};

// From the corner at the origin; lengths may be negative.
MeshShape boxMesh(double length, double width, double height, const MeshDivisions& divisions = {});
// As the box, but its height sinks to nothing along x.
MeshShape wedgeMesh(double length, double width, double height,
                    const MeshDivisions& divisions = {});
// Cone, its stump and cylinder; the top radius may be zero.
MeshShape coneMesh(double baseRadius, double topRadius, double height,
                   const MeshDivisions& divisions = {});
// Corners lie on the circles of the radii, the first one at `turn` from the x axis.
MeshShape pyramidMesh(int sides, double baseRadius, double topRadius, double height, double turn,
                      const MeshDivisions& divisions = {});
MeshShape sphereMesh(double radius, const MeshDivisions& divisions = {12, 6, 3});
MeshShape torusMesh(double radius, double tubeRadius, const MeshDivisions& divisions = {8, 8, 3});

} // namespace host
