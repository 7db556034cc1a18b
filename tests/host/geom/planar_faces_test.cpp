#include "host/geom/planar_search.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <string>

using host::PlanarCurve;
using host::PlanarFaces;
using host::PlanarLoop;

namespace {

constexpr double kPi = std::numbers::pi;
using Curves = std::vector<PlanarCurve>;

PlanarCurve line(double x1, double y1, double x2, double y2)
{
    return PlanarCurve::segment({x1, y1}, {x2, y2});
}

Curves operator+(Curves left, const Curves& right)
{
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

// Lines in an order and with directions that make no chain.
Curves square(double low, double high)
{
    return {line(low, low, high, low), line(low, high, high, high), line(low, high, low, low),
            line(high, low, high, high)};
}

Curves circle(double x, double y, double radius)
{
    return {PlanarCurve::arc({x, y}, radius, 0.0, kPi), PlanarCurve::arc({x, y}, radius, kPi, kPi)};
}

Curves moved(Curves curves, double x, double y)
{
    for (PlanarCurve& curve : curves)
        for (AcGePoint2d* p : {&curve.from, &curve.to, &curve.centre})
            *p += AcGeVector2d(x, y);
    return curves;
}

// "depth:area" of each loop, four digits.
std::string summary(const std::vector<PlanarLoop>& loops)
{
    std::string text;
    for (const PlanarLoop& loop : loops) {
        char area[40];
        std::snprintf(area, sizeof area, "%d:%.4f ", loop.depth, loop.area);
        text += area;
    }
    return text;
}

} // namespace

TEST(PlanarFaces, FindsTheFaceAroundAPoint)
{
    struct Case {
        const char* name;
        Curves curves;
        AcGePoint2d point;
        const char* found;
    };
    const Curves crossing{line(-5, 0, 15, 0), line(-5, 10, 15, 10), line(0, -5, 0, 15),
                          line(10, -5, 10, 15)};
    const Curves hanging{line(0, 5, 3, 5), line(3, 5, 3, 6), line(20, 20, 30, 30)};
    const Curves diamond{line(0, 5, 2, 3), line(2, 3, 4, 5), line(4, 5, 2, 7), line(2, 7, 0, 5)};
    const Case cases[] = {
        {"four lines", square(0, 10), {1, 1}, "0:100.0000 "},
        {"an island, seen from outside",
         square(0, 10) + circle(5, 5, 2),
         {1, 1},
         "0:100.0000 1:12.5664 "},
        {"an island, seen from inside", square(0, 10) + circle(5, 5, 2), {5, 5}, "0:12.5664 "},
        {"lines that run on", crossing, {5, 5}, "0:100.0000 "},
        {"beside lines that run on", crossing, {-2, 5}, ""},
        {"a line and an arc",
         {line(0, 0, 10, 0), PlanarCurve::arc({5, 0}, 5, 0, kPi)},
         {5, 1},
         "0:39.2699 "},
        {"what hangs loose", square(0, 10) + hanging, {1, 1}, "0:100.0000 "},
        {"an island on a bridge",
         square(0, 10) + square(4, 6) + Curves{line(0, 5, 4, 5)},
         {1, 1},
         "0:100.0000 1:4.0000 "},
        {"islands in islands",
         square(0, 10) + square(1, 9) + square(2, 8) + circle(5, 5, 1),
         {0.5, 0.5},
         "0:100.0000 1:64.0000 2:36.0000 3:3.1416 "},
        {"circles that cross", circle(0, 0, 5) + circle(6, 0, 5), {3, 0}, "0:22.3648 "},
        {"beside circles that cross", circle(0, 0, 5) + circle(6, 0, 5), {-1, 0}, "0:56.1751 "},
        {"a circle that touches", square(0, 10) + circle(5, 5, 5), {0.5, 0.5}, "0:5.3650 "},
        {"an island that touches at a corner",
         square(0, 10) + diamond,
         {9, 9},
         "0:100.0000 1:8.0000 "},
        {"lines twice and overlapping",
         square(0, 10) + square(0, 10) + Curves{line(-3, 0, 6, 0), line(4, 0, 14, 0)},
         {5, 5},
         "0:100.0000 "},
        {"a gap",
         {line(0, 0, 10, 0), line(10, 0, 10, 9.9), line(10, 10, 0, 10), line(0, 10, 0, 0)},
         {5, 5},
         ""},
        {"a point on a curve", square(0, 10), {10, 5}, ""},
        {"far from the origin",
         moved(square(0, 10) + circle(5, 5, 2), 4.5e6, 5.6e6),
         {4.5e6 + 1, 5.6e6 + 1},
         "0:100.0000 1:12.5664 "},
        {"nothing", {}, {0, 0}, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(summary(PlanarFaces(row.curves).around(row.point)), row.found);
    }
}

TEST(PlanarFaces, LoopsAreOfWholeCurvesInOrder)
{
    // the hanging line must not cut the side that it touches, nor the halves stay two
    const Curves curves = square(0, 10) + circle(5, 5, 2) + Curves{line(0, 5, 2, 5)};
    const std::vector<PlanarLoop> loops = PlanarFaces(curves).around({1, 1});
    ASSERT_EQ(loops.size(), 2u);
    ASSERT_EQ(loops[0].curves.size(), 4u);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(loops[0].curves[i].length(), 10.0);
        EXPECT_EQ(loops[0].curves[i].to, loops[0].curves[(i + 1) % 4].from);
    }
    ASSERT_EQ(loops[1].curves.size(), 1u);
    EXPECT_NEAR(loops[1].curves[0].sweep, 2.0 * kPi, 1e-12);
}

// The window about the point decides how exactly ends meet, not the whole drawing.
TEST(PlanarFaces, AreFoundBesideWhatLiesFarAway)
{
    const Curves fine = moved(square(0, 0.01) + circle(0.005, 0.005, 0.002), 7.0, 7.0);
    const Curves farLine{line(1e9, 0, 1e9, 1)};
    struct Case {
        const char* name;
        Curves curves;
        AcGePoint2d point;
        const char* found;
    };
    const Case cases[] = {
        {"a speck", fine + farLine, {7.001, 7.001}, "0:0.0001 1:0.0000 "},
        {"cut by a line without ends",
         circle(5, 5, 2) + Curves{line(0, 0, 1e9, 1e9), line(0, 0, -1e9, -1e9)},
         {5.5, 5},
         "0:6.2832 "},
        {"by one that only comes from far",
         circle(5, 5, 2) + Curves{line(5, -1e9, 5, 5), line(1e9, 5, 5, 5)},
         {5.5, 4.5},
         "0:3.1416 "},
        {"all of it",
         square(-1e7, 1e7) + fine + farLine,
         {0, 0},
         "0:400000000000000.0000 1:0.0001 2:0.0000 "},
        {"a large arc across", square(0, 10) + circle(5, -1e6 + 5, 1e6), {5, 2}, "0:50.0000 "},
        {"in the open", fine + farLine, {8, 8}, ""},
        {"on a curve", square(0, 10) + farLine, {10, 5}, ""},
        {"nothing", {}, {0, 0}, ""},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(summary(host::loopsAround(row.curves, row.point)), row.found);
    }
    EXPECT_EQ(summary(PlanarFaces(square(0, 10) + circle(5, 5, 2) + farLine).outlines()),
              "0:100.0000 1:12.5664 ");
}

TEST(PlanarFaces, OutlinesOfConnectedParts)
{
    const Curves curves = square(0, 10) + Curves{line(5, 0, 5, 10)} + circle(2, 5, 1) +
                          circle(20, 5, 3) + Curves{line(30, 30, 40, 40)};
    EXPECT_EQ(summary(PlanarFaces(curves).outlines()), "0:100.0000 0:28.2743 1:3.1416 ");
}

TEST(PlanarCurve, CrossingsTellInsideFromOutside)
{
    const Curves disc = circle(0, 0, 5);
    const auto inside = [&](double x, double y) {
        int turns = 0;
        for (const PlanarCurve& curve : disc)
            turns += curve.crossings({x, y});
        return turns;
    };
    EXPECT_EQ(inside(0, 0), 1); // at the height of both ends
    EXPECT_EQ(inside(-4.9, 0), 1);
    EXPECT_EQ(inside(-5.1, 0), 0);
    EXPECT_EQ(inside(5.1, 0), 0);
    EXPECT_EQ(inside(-4, 4), 0);
    EXPECT_EQ(inside(0, 4.9), 1);
    EXPECT_EQ(inside(-1, 5), 0); // at the height of the top
}
