#include "host/geom/arc.h"

#include <cmath>
#include <limits>
#include <numbers>

#include <gtest/gtest.h>

#include "host/geom/polyline.h"

namespace {

using host::Arc3d;
constexpr double kPi = std::numbers::pi;

void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance = 1e-12)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

TEST(Bulge, MakesTheArcBetweenTheVertices)
{
    // tan(22.5 degrees) is a quarter circle.
    const double quarter = std::sqrt(2.0) - 1.0;
    struct Case {
        const char* what;
        AcGePoint3d from, to;
        double bulge;
        AcGePoint3d centre, middle;
        double radius, sweep;
    };
    const Case cases[] = {
        {"half circle to the left bulges right",
         {0, 0, 0},
         {2, 0, 0},
         1.0,
         {1, 0, 0},
         {1, -1, 0},
         1,
         kPi},
        {"half circle to the right", {0, 0, 0}, {2, 0, 0}, -1.0, {1, 0, 0}, {1, 1, 0}, 1, kPi},
        {"quarter, left",
         {1, 0, 0},
         {0, 1, 0},
         quarter,
         {0, 0, 0},
         {std::sqrt(0.5), std::sqrt(0.5), 0},
         1,
         kPi / 2},
        {"quarter, right",
         {0, 1, 5},
         {1, 0, 5},
         -quarter,
         {0, 0, 5},
         {std::sqrt(0.5), std::sqrt(0.5), 5},
         1,
         kPi / 2},
        {"three quarters, left",
         {0, 1, 0},
         {1, 0, 0},
         1.0 / quarter,
         {0, 0, 0},
         {-std::sqrt(0.5), -std::sqrt(0.5), 0},
         1,
         3 * kPi / 2},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const auto arc = Arc3d::fromBulge(c.from, c.to, c.bulge);
        ASSERT_TRUE(arc);
        expectNear(arc->centre, c.centre);
        expectNear(arc->startPoint(), c.from);
        expectNear(arc->endPoint(), c.to);
        expectNear(arc->pointAt((arc->start + arc->end) / 2), c.middle);
        EXPECT_NEAR(arc->radius(), c.radius, 1e-12);
        EXPECT_NEAR(arc->sweep(), c.sweep, 1e-12);
        EXPECT_TRUE(arc->isCircular());
    }
}

TEST(Bulge, TurnsAgainstTheNormal)
{
    const auto arc = Arc3d::fromBulge({0, 0, 0}, {2, 0, 0}, 1.0, {0, 0, -1});
    ASSERT_TRUE(arc);
    expectNear(arc->pointAt(kPi / 2), {1, 1, 0});
}

TEST(Bulge, IsStraightWithoutTurnOrLength)
{
    EXPECT_FALSE(Arc3d::fromBulge({0, 0, 0}, {2, 0, 0}, 0.0));
    EXPECT_FALSE(Arc3d::fromBulge({0, 0, 0}, {2, 0, 0}, -1e-12));
    EXPECT_FALSE(Arc3d::fromBulge({3, 3, 3}, {3, 3, 3}, 1.0));
    EXPECT_FALSE(Arc3d::fromBulge({0, 0, 0}, {2, 0, 0}, std::numeric_limits<double>::infinity()));
}

TEST(Arc, RangeIsReducedToOneTurn)
{
    struct Case {
        double start, end, sweep;
    };
    const Case cases[] = {
        {0, kPi / 2, kPi / 2},  {3 * kPi / 2, kPi / 2, kPi}, // over zero
        {-kPi / 2, 0, kPi / 2}, {0, 2 * kPi, 2 * kPi},
        {1, 1, 2 * kPi}, // equal angles: the whole circle
        {0, 9 * kPi, kPi},      {0, std::nan(""), 2 * kPi},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(testing::Message() << c.start << " to " << c.end);
        EXPECT_NEAR(Arc3d::circular({}, 1, c.start, c.end).sweep(), c.sweep, 1e-11);
    }
}

TEST(Arc, ParametersOnItSurviveTurnsAndRounding)
{
    const Arc3d arc = Arc3d::circular({}, 1, 3 * kPi / 2, kPi / 2); // 270 to 450 degrees
    EXPECT_NEAR(arc.onArc(0.0).value_or(0), 2 * kPi, 1e-12);
    EXPECT_NEAR(arc.onArc(-kPi / 4).value_or(0), 7 * kPi / 4, 1e-12);
    EXPECT_NEAR(arc.onArc(6 * kPi).value_or(0), 2 * kPi, 1e-12);
    EXPECT_EQ(arc.onArc(arc.start - 1e-14), arc.start);
    EXPECT_EQ(arc.onArc(arc.end + 1e-14), arc.end);
    EXPECT_FALSE(arc.onArc(kPi));
    EXPECT_FALSE(arc.onArc(arc.start - 1e-9));
    EXPECT_FALSE(arc.onArc(arc.end + 1e-9));
}

TEST(Arc, ExtentsReachTheQuadrantsOnItOnly)
{
    const double h = std::sqrt(0.5);
    struct Case {
        const char* what;
        double start, end;
        AcGePoint3d low, high;
    };
    const Case cases[] = {
        {"first quarter", 0, kPi / 2, {0, 0, 0}, {1, 1, 0}},
        {"over the top", kPi / 4, 3 * kPi / 4, {-h, h, 0}, {h, 1, 0}},
        {"over zero", -kPi / 4, kPi / 4, {h, -h, 0}, {1, h, 0}},
        {"within a quadrant",
         kPi / 6,
         kPi / 3,
         {0.5, 0.5, 0},
         {std::sqrt(0.75), std::sqrt(0.75), 0}},
        {"three quarters", 0, 3 * kPi / 2, {-1, -1, 0}, {1, 1, 0}},
        {"all but the right", kPi / 4, -kPi / 4, {-1, -1, 0}, {h, 1, 0}},
        {"full", 1, 1, {-1, -1, 0}, {1, 1, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const AcDbExtents box = Arc3d::circular({0, 0, 0}, 1, c.start, c.end).extents();
        expectNear(box.minPoint(), c.low);
        expectNear(box.maxPoint(), c.high);
    }
}

TEST(Arc, ExtentsOfATiltedCircleAndASlantedEllipse)
{
    // Normal along x: the circle stands in the yz plane.
    const AcDbExtents standing =
        Arc3d::circle({0, 0, 3}, 2, AcGeMatrix3d::arbitraryAxes({1, 0, 0})).extents();
    expectNear(standing.minPoint(), {3, -2, -2});
    expectNear(standing.maxPoint(), {3, 2, 2});

    // Half-axes 5 and 5/2 at 45 degrees: reach sqrt((5^2 + 2.5^2) / 2) on both axes.
    const double r = 5 * std::sqrt(0.5);
    const AcDbExtents slanted =
        Arc3d::elliptical({1, 1, 0}, {r, r, 0}, {0, 0, 1}, 0.5, 0, 2 * kPi).extents();
    const double reach = std::sqrt(15.625);
    expectNear(slanted.minPoint(), {1 - reach, 1 - reach, 0});
    expectNear(slanted.maxPoint(), {1 + reach, 1 + reach, 0});
}

TEST(Arc, LengthByKnownValues)
{
    EXPECT_NEAR(Arc3d::circular({}, 2, 0, kPi / 2).length(), kPi, 1e-12);
    // Perimeter of half-axes 2 and 1, and its quarter.
    const Arc3d ellipse = Arc3d::elliptical({}, {2, 0, 0}, {0, 0, 1}, 0.5, 0, 2 * kPi);
    EXPECT_NEAR(ellipse.length(), 9.688448220547676, 1e-9);
    const Arc3d quarter = Arc3d::elliptical({}, {2, 0, 0}, {0, 0, 1}, 0.5, 0, kPi / 2);
    EXPECT_NEAR(quarter.length(), 9.688448220547676 / 4, 1e-9);
}

TEST(Arc, ClosestPointIsOnTheArcOrAtItsEnd)
{
    const Arc3d upper = Arc3d::circular({0, 0, 0}, 1, 0, kPi);
    expectNear(upper.closestPoint({0, 5, 7}), {0, 1, 0});
    expectNear(upper.closestPoint({0.5, -5, 0}), {1, 0, 0});
    expectNear(upper.closestPoint({-0.5, -5, 0}), {-1, 0, 0});

    const Arc3d ellipse = Arc3d::elliptical({}, {2, 0, 0}, {0, 0, 1}, 0.5, 0, 2 * kPi);
    expectNear(ellipse.closestPoint({5, 0, 0}), {2, 0, 0});
    expectNear(ellipse.closestPoint({0, -0.1, 0}), {0, -1, 0});
    // The normal through (sqrt 2, sqrt 1/2) has the direction (1/2, 1) times sqrt 2.
    const double s = std::sqrt(2.0);
    expectNear(ellipse.closestPoint({s + 1, s / 2 + 2, 0}), {s, s / 2, 0}, 1e-9);
}

TEST(Arc, SamplesKeepTheChordTolerance)
{
    const Arc3d arc = Arc3d::circular({0, 0, 0}, 100, 0.3, 2.9);
    const std::vector<AcGePoint3d> points = arc.sampled(0.5);
    expectNear(points.front(), arc.startPoint());
    expectNear(points.back(), arc.endPoint());
    for (std::size_t i = 1; i < points.size(); ++i) {
        const AcGePoint3d middle = interpolated(points[i - 1], points[i], 0.5);
        EXPECT_GE(middle.distanceTo(arc.centre), 99.5 - 1e-9);
    }
    // One radian of 100 with sagitta 0.5 takes 5 chords of 0.2; far more would be waste.
    EXPECT_LE(points.size(), 15u);

    const std::vector<AcGePoint3d> ring = Arc3d::circle({0, 0, 0}, 1).sampled(1e9);
    EXPECT_EQ(ring.front(), ring.back());
    EXPECT_EQ(ring.size(), 9u); // however coarse, a circle keeps eight corners
}

TEST(Arc, MirroredAndStretchedStaysAnArc)
{
    const Arc3d arc = Arc3d::circular({1, 0, 0}, 1, 0, kPi / 2);
    const Arc3d mapped = arc.transformed(AcGeMatrix3d::scaling({-2, 3, 1}));
    expectNear(mapped.startPoint(), {-4, 0, 0});
    expectNear(mapped.endPoint(), {-2, 3, 0});
    EXPECT_FALSE(mapped.isCircular());
    EXPECT_TRUE(arc.transformed(AcGeMatrix3d::scaling({-2, 2, 2})).isCircular());
}

TEST(Arc, WithoutRadiusOrRatioIsAPointOrASegment)
{
    const Arc3d dot = Arc3d::circle({3, 4, 0}, 0);
    EXPECT_EQ(dot.length(), 0.0);
    expectNear(dot.extents().maxPoint(), {3, 4, 0});
    expectNear(dot.closestPoint({9, 9, 9}), {3, 4, 0});
    EXPECT_GE(dot.sampled().size(), 2u);

    const Arc3d flat = Arc3d::elliptical({0, 0, 0}, {3, 0, 0}, {0, 0, 1}, 0.0, 0, 2 * kPi);
    EXPECT_NEAR(flat.length(), 12.0, 1e-9); // there and back
    expectNear(flat.closestPoint({1, 5, 0}), {1, 0, 0}, 1e-9);
    expectNear(flat.extents().minPoint(), {-3, 0, 0});
}

TEST(Polyline, MeasuresWithAndWithoutTheClosingSegment)
{
    const AcGePoint3d square[] = {
        {1e6, 1e6, 0}, {1e6 + 2, 1e6, 0}, {1e6 + 2, 1e6 + 2, 0}, {1e6, 1e6 + 2, 0}};
    EXPECT_EQ(host::polylineLength(square, false), 6.0);
    EXPECT_EQ(host::polylineLength(square, true), 8.0);
    EXPECT_EQ(host::signedArea(square), 4.0);
    expectNear(host::closestOnPolyline(square, true, {1e6 - 1, 1e6 + 1, 0}), {1e6, 1e6 + 1, 0});
    expectNear(host::closestOnPolyline(square, false, {1e6 - 1, 1e6 + 0.5, 0}), {1e6, 1e6, 0});
}

} // namespace
