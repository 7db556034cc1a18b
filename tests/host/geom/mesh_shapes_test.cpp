#include "host/geom/mesh_shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>

using host::MeshShape;

namespace {

// Every edge belongs to two faces, once in each direction; the number of holes follows from
// vertices - edges + faces: 2 without one, 0 with one.
void expectClosed(const MeshShape& shape, int characteristic)
{
    std::map<std::pair<int, int>, int> edges;
    for (const std::vector<int>& face : shape.faces)
        for (std::size_t i = 0; i < face.size(); ++i)
            ++edges[{face[i], face[(i + 1) % face.size()]}];
    for (const auto& [edge, count] : edges) {
        EXPECT_EQ(count, 1);
        EXPECT_TRUE(edges.contains({edge.second, edge.first}));
    }
    EXPECT_EQ(static_cast<int>(shape.vertices.size()) - static_cast<int>(edges.size() / 2) +
                  static_cast<int>(shape.faces.size()),
              characteristic);
}

// Of a regular polygon of that many corners on the unit circle.
double area(int corners)
{
    return 0.5 * corners * std::sin(2.0 * M_PI / corners);
}

} // namespace

TEST(MeshShapes, AreClosedAndAsLargeAsTheirBodies)
{
    struct Row {
        const char* name;
        MeshShape shape;
        double volume;
        std::size_t faces;
        int characteristic = 2;
    };
    const Row rows[] = {
        {"box", host::boxMesh(2, 3, 4), 24.0, 54},
        {"box the other way", host::boxMesh(-2, 3, -4), 24.0, 54},
        {"wedge", host::wedgeMesh(2, 3, 4), 12.0, 45},
        {"cone", host::coneMesh(3, 0, 5), area(8) * 9 * 5 / 3, 48},
        {"stump", host::coneMesh(3, 1, 6), area(8) * (9 + 3 + 1) * 6 / 3, 72},
        {"cylinder downwards", host::coneMesh(3, 3, -5), area(8) * 9 * 5, 72},
        {"pyramid", host::pyramidMesh(4, std::sqrt(2.0), 0, 3, 0.0), 4.0, 72},
        {"torus", host::torusMesh(5, 2), 0.0, 64, 0},
        {"sphere", host::sphereMesh(1, {12, 6, 3}), 0.0, 72},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        expectClosed(row.shape, row.characteristic);
        EXPECT_EQ(row.shape.faces.size(), row.faces);
        if (row.volume > 0.0)
            EXPECT_NEAR(row.shape.volume(), row.volume, 1e-9);
        else
            EXPECT_GT(row.shape.volume(), 0.0);
    }
    for (const AcGePoint3d& vertex : host::sphereMesh(2).vertices)
        EXPECT_NEAR(vertex.asVector().length(), 2.0, 1e-12);
    for (const AcGePoint3d& vertex : host::torusMesh(5, 2).vertices)
        EXPECT_NEAR(std::hypot(std::hypot(vertex.x, vertex.y) - 5.0, vertex.z), 2.0, 1e-12);
}
