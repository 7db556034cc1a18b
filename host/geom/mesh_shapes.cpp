#include "host/geom/mesh_shapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <numbers>

// A body is patches: maps of the unit square, divided evenly, whose borders meet. Places that
// coincide become one vertex, so the patches grow together, and a face with a side of no length
// loses it.

namespace host {

namespace {

constexpr double kTurn = 2.0 * std::numbers::pi;

class MeshBuilder {
public:
    explicit MeshBuilder(double size) : grain_(size * 1e-9) {}

    template <class Place> void patch(Place place, int alongU, int alongV)
    {
        const auto vertex = [&](int i, int j) {
            return numberOf(
                place(static_cast<double>(i) / alongU, static_cast<double>(j) / alongV));
        };
        for (int i = 0; i < alongU; ++i)
            for (int j = 0; j < alongV; ++j)
                addFace({vertex(i, j), vertex(i + 1, j), vertex(i + 1, j + 1), vertex(i, j + 1)});
    }

    MeshShape finished()
    {
        if (shape_.volume() < 0.0)
            for (std::vector<int>& face : shape_.faces)
                std::reverse(face.begin(), face.end());
        return std::move(shape_);
    }

private:
    int numberOf(const AcGePoint3d& place)
    {
        const std::array<long long, 3> key{std::llround(place.x / grain_),
                                           std::llround(place.y / grain_),
                                           std::llround(place.z / grain_)};
        const auto [at, added] =
            numbers_.try_emplace(key, static_cast<int>(shape_.vertices.size()));
        if (added)
            shape_.vertices.push_back(place);
        return at->second;
    }

    void addFace(std::vector<int> corners)
    {
        corners.erase(std::unique(corners.begin(), corners.end()), corners.end());
        if (corners.size() > 1 && corners.front() == corners.back())
            corners.pop_back();
        if (corners.size() > 2)
            shape_.faces.push_back(std::move(corners));
    }

    double grain_;
    MeshShape shape_;
    std::map<std::array<long long, 3>, int> numbers_;
};

AcGePoint3d bilinear(const std::array<AcGePoint3d, 4>& corners, double u, double v)
{
    return interpolated(interpolated(corners[0], corners[1], u),
                        interpolated(corners[3], corners[2], u), v);
}

// The corner points below, from the origin around, then those above them.
MeshShape sixSided(const std::array<AcGePoint3d, 8>& c, const MeshDivisions& divisions)
{
    static constexpr std::array<std::array<int, 4>, 6> kSides{
        {{0, 3, 2, 1}, {4, 5, 6, 7}, {0, 1, 5, 4}, {1, 2, 6, 5}, {2, 3, 7, 6}, {3, 0, 4, 7}}};
    MeshBuilder builder((c[6] - c[0]).length() + (c[2] - c[0]).length());
    for (const std::array<int, 4>& side : kSides) {
        const std::array<AcGePoint3d, 4> corners{c[side[0]], c[side[1]], c[side[2]], c[side[3]]};
        builder.patch([&](double u, double v) { return bilinear(corners, u, v); }, divisions.along,
                      divisions.along);
    }
    return builder.finished();
}

// A body between two figures that `rim` draws for the radius 1: base, side and, where there is one,
// the top.
template <class Rim>
MeshShape stump(Rim rim, int around, double baseRadius, double topRadius, double height,
                const MeshDivisions& divisions)
{
    MeshBuilder builder(baseRadius + topRadius + std::abs(height));
    const auto at = [&](double u, double radius, double z) {
        const AcGeVector2d out = rim(u) * radius;
        return AcGePoint3d(out.x, out.y, z);
    };
    builder.patch([&](double u, double v) { return at(u, baseRadius * v, 0.0); }, around,
                  divisions.across);
    builder.patch(
        [&](double u, double v) {
            return at(u, baseRadius + (topRadius - baseRadius) * v, height * v);
        },
        around, divisions.along);
    builder.patch([&](double u, double v) { return at(u, topRadius * (1.0 - v), height); }, around,
                  divisions.across);
    return builder.finished();
}

} // namespace

double MeshShape::volume() const
{
    double six = 0.0;
    for (const std::vector<int>& face : faces)
        for (std::size_t i = 2; i < face.size(); ++i) {
            const AcGeVector3d a = vertices[static_cast<std::size_t>(face[0])].asVector();
            const AcGeVector3d b = vertices[static_cast<std::size_t>(face[i - 1])].asVector();
            const AcGeVector3d c = vertices[static_cast<std::size_t>(face[i])].asVector();
            six += a.dotProduct(b.crossProduct(c));
        }
    return six / 6.0;
}

void MeshShape::transformBy(const AcGeMatrix3d& map)
{
    for (AcGePoint3d& vertex : vertices)
        vertex = map * vertex;
}

MeshShape boxMesh(double length, double width, double height, const MeshDivisions& divisions)
{
    return sixSided({{{0, 0, 0},
                      {length, 0, 0},
                      {length, width, 0},
                      {0, width, 0},
                      {0, 0, height},
                      {length, 0, height},
                      {length, width, height},
                      {0, width, height}}},
                    divisions);
}

MeshShape wedgeMesh(double length, double width, double height, const MeshDivisions& divisions)
{
    return sixSided({{{0, 0, 0},
                      {length, 0, 0},
                      {length, width, 0},
                      {0, width, 0},
                      {0, 0, height},
                      {length, 0, 0},
                      {length, width, 0},
                      {0, width, height}}},
                    divisions);
}

MeshShape coneMesh(double baseRadius, double topRadius, double height,
                   const MeshDivisions& divisions)
{
    return stump([](double u) { return AcGeVector2d(std::cos(u * kTurn), std::sin(u * kTurn)); },
                 divisions.around, baseRadius, topRadius, height, divisions);
}

MeshShape pyramidMesh(int sides, double baseRadius, double topRadius, double height, double turn,
                      const MeshDivisions& divisions)
{
    const auto corner = [&](double number) {
        const double angle = turn + kTurn * number / sides;
        return AcGeVector2d(std::cos(angle), std::sin(angle));
    };
    const auto rim = [&](double u) {
        const double place = u * sides;
        const double before = std::floor(place + 1e-9);
        const double rest = place - before;
        return corner(before) * (1.0 - rest) + corner(before + 1.0) * rest;
    };
    return stump(rim, sides * divisions.along, baseRadius, topRadius, height, divisions);
}

MeshShape sphereMesh(double radius, const MeshDivisions& divisions)
{
    MeshBuilder builder(radius);
    builder.patch(
        [&](double u, double v) {
            const double rise = (v - 0.5) * std::numbers::pi;
            return AcGePoint3d(radius * std::cos(rise) * std::cos(u * kTurn),
                               radius * std::cos(rise) * std::sin(u * kTurn),
                               radius * std::sin(rise));
        },
        divisions.around, divisions.along);
    return builder.finished();
}

MeshShape torusMesh(double radius, double tubeRadius, const MeshDivisions& divisions)
{
    MeshBuilder builder(radius + tubeRadius);
    builder.patch(
        [&](double u, double v) {
            const double out = radius + tubeRadius * std::cos(v * kTurn);
            return AcGePoint3d(out * std::cos(u * kTurn), out * std::sin(u * kTurn),
                               tubeRadius * std::sin(v * kTurn));
        },
        divisions.around, divisions.along);
    return builder.finished();
}

} // namespace host
