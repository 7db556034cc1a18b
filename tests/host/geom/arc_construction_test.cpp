#include "host/geom/arc_construction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

using host::PlaneCircle;
using host::PlaneLine;

namespace {

constexpr double kPi = std::numbers::pi;
const double kQuarter = std::sqrt(2.0) - 1.0; // the bulge of a quarter circle

} // namespace

TEST(ArcConstruction, BulgesFromWhatIsStated)
{
    const std::pair<std::optional<double>, double> cases[] = {
        {host::bulgeThrough({-1, 0}, {0, -1}, {1, 0}), 1.0},
        {host::bulgeThrough({-1, 0}, {0, 1}, {1, 0}), -1.0},
        {host::bulgeThrough({1, 0}, {std::sqrt(0.5), std::sqrt(0.5)}, {0, 1}), kQuarter},
        {host::bulgeThrough({1, 0}, {-1, 0}, {0, -1}), std::tan(3 * kPi / 8)}, // three quarters
        {host::bulgeLeaving({1, 0}, {0, 1}, kPi / 2), kQuarter},
        {host::bulgeLeaving({0, 0}, {2, 0}, kPi / 2), -1.0},
        {host::bulgeLeaving({0, 0}, {2, 0}, 0.0), 0.0},
        {host::bulgeOfRadius({1, 0}, {0, 1}, 1.0), kQuarter},
        {host::bulgeOfRadius({1, 0}, {0, 1}, -1.0), std::tan(3 * kPi / 8)},
        {host::bulgeOfRadius({1, 0}, {-1, 0}, 1.0), 1.0},
    };
    int row = 0;
    for (const auto& [found, expected] : cases) {
        SCOPED_TRACE(row++);
        ASSERT_TRUE(found);
        EXPECT_NEAR(*found, expected, 1e-12);
    }
    EXPECT_NEAR(host::arrivalDirection({1, 0}, {0, 1}, kQuarter), kPi, 1e-12);
}

TEST(ArcConstruction, DegenerateArcsAreNone)
{
    EXPECT_FALSE(host::bulgeThrough({0, 0}, {1, 1}, {2, 2}));
    EXPECT_FALSE(host::bulgeThrough({0, 0}, {3, 3}, {2, 2})); // the end lies between
    EXPECT_FALSE(host::bulgeThrough({0, 0}, {0, 0}, {2, 2}));
    EXPECT_FALSE(host::bulgeThrough({0, 0}, {1, 2}, {0, 0}));
    EXPECT_FALSE(host::bulgeLeaving({0, 0}, {2, 0}, kPi));
    EXPECT_FALSE(host::bulgeLeaving({1, 1}, {1, 1}, 0.0));
    EXPECT_FALSE(host::bulgeOfRadius({0, 0}, {2.1, 0}, 1.0));
    EXPECT_FALSE(host::turnOfChord(1.0, 2.5));
    EXPECT_FALSE(host::circleThrough({0, 0}, {1, 1}, {2, 2}));
    EXPECT_FALSE(host::circleThrough({0, 0}, {1, 1}, {1, 1}));
}

TEST(ArcConstruction, TurnsAboutACentre)
{
    EXPECT_NEAR(host::turnBetween({0, 0}, {1, 0}, {0, 5}), kPi / 2, 1e-12);
    EXPECT_NEAR(host::turnBetween({0, 0}, {1, 0}, {0, -5}), 3 * kPi / 2, 1e-12);
    EXPECT_NEAR(host::turnBetween({0, 0}, {1, 0}, {7, 0}), 2 * kPi, 1e-12);
    EXPECT_NEAR(*host::turnOfChord(5.0, 5.0), kPi / 3, 1e-12);
    EXPECT_NEAR(*host::turnOfChord(5.0, -5.0), 5 * kPi / 3, 1e-12);
    EXPECT_TRUE(host::turned({3, 1}, {1, 1}, kPi / 2).isEqualTo({1, 3}));
}

TEST(ArcConstruction, ACircleThroughThreePoints)
{
    // 3-4-5 about (2, 1)
    const std::optional<PlaneCircle> found = host::circleThrough({7, 1}, {5, 5}, {-1, -3});
    ASSERT_TRUE(found);
    EXPECT_NEAR(found->centre.x, 2.0, 1e-12);
    EXPECT_NEAR(found->centre.y, 1.0, 1e-12);
    EXPECT_NEAR(found->radius, 5.0, 1e-12);
}

TEST(ArcConstruction, ATangentCircleTouchesNearWhereItWasPointedAt)
{
    const PlaneLine xAxis{{-3, 0}, {2, 0}};
    const PlaneLine yAxis{{0, 9}, {0, -1}};
    const PlaneCircle round{{10, 0}, 3.0};
    const PlaneCircle other{{20, 0}, 3.0};
    struct Case {
        host::TangentTarget first;
        AcGePoint2d nearFirst;
        host::TangentTarget second;
        AcGePoint2d nearSecond;
        double radius;
        AcGePoint2d centre;
    };
    const Case cases[] = {
        {xAxis, {4, 0}, yAxis, {0, 4}, 2.0, {2, 2}},
        {xAxis, {-4, 0}, yAxis, {0, 4}, 2.0, {-2, 2}},
        // centre at height 2, five from the circle's centre: sqrt(25 - 4) to the left
        {xAxis, {5, 0}, round, {8, 2}, 2.0, {10 - std::sqrt(21.0), 2}},
        {round, {12, 2}, other, {18, 2}, 10.0, {15, 12}}, // 13 away from both: 5-12-13
        {round, {7, 0}, other, {23, 0}, 8.0, {15, 0}},    // around both, 5 from both centres
    };
    int row = 0;
    for (const Case& each : cases) {
        SCOPED_TRACE(row++);
        const std::optional<PlaneCircle> found = host::tangentCircle(
            each.first, each.nearFirst, each.second, each.nearSecond, each.radius);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->centre.x, each.centre.x, 1e-6);
        EXPECT_NEAR(found->centre.y, each.centre.y, 1e-6);
    }
    EXPECT_FALSE(host::tangentCircle(xAxis, {0, 0}, PlaneLine{{0, 5}, {1, 0}}, {0, 5}, 1.0));
    EXPECT_FALSE(host::tangentCircle(round, {7, 0}, other, {17, 0}, 1.0)); // a gap of four
}
