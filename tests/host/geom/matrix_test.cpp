#include "host/geom/matrix.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

#include "host/geom/extents.h"

namespace {

constexpr double kPi = std::numbers::pi;
const AcGeTol kNear(1e-12, 1e-12);

void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected)
{
    EXPECT_TRUE(actual.isEqualTo(expected, kNear))
        << actual.x << ", " << actual.y << ", " << actual.z << " is not " << expected.x << ", "
        << expected.y << ", " << expected.z;
}

void expectNear(const AcGeVector3d& actual, const AcGeVector3d& expected)
{
    expectNear(AcGePoint3d::kOrigin + actual, AcGePoint3d::kOrigin + expected);
}

TEST(ArbitraryAxes, FollowsTheNormal)
{
    struct Case {
        const char* what;
        AcGeVector3d normal, x, y;
    };
    const double s = std::sqrt(0.5);
    const Case cases[] = {
        {"world", {0, 0, 1}, {1, 0, 0}, {0, 1, 0}},
        {"from below, x turns round", {0, 0, -1}, {-1, 0, 0}, {0, 1, 0}},
        {"along x", {1, 0, 0}, {0, 1, 0}, {0, 0, 1}},
        {"along -x", {-1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
        {"along y", {0, 1, 0}, {-1, 0, 0}, {0, 0, 1}},
        {"along -y", {0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
        {"long and slanted", {0, 7, 7}, {-1, 0, 0}, {0, -s, s}},
        {"none", {0, 0, 0}, {1, 0, 0}, {0, 1, 0}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        const AcGeMatrix3d m = AcGeMatrix3d::arbitraryAxes(c.normal);
        expectNear(m.axis(0), c.x);
        expectNear(m.axis(1), c.y);
    }
}

TEST(ArbitraryAxes, ChangesItsRuleAtOneSixtyFourth)
{
    // A little below the limit the x axis is y cross normal, about +x; above it is z cross normal,
    // about +y.
    const auto xAxisAt = [](double nx) {
        return AcGeMatrix3d::arbitraryAxes({nx, 0.0, std::sqrt(1.0 - nx * nx)}).axis(0);
    };
    EXPECT_GT(xAxisAt(1.0 / 64.0 - 1e-6).x, 0.99);
    EXPECT_GT(xAxisAt(1.0 / 64.0 + 1e-6).y, 0.99);
}

TEST(Matrix, MapsPointsAndDirections)
{
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, {0, 0, 5}, {1, 0, 0});
    expectNear(turn * AcGePoint3d(3, 0, 4), {1, 2, 4});
    expectNear(turn * AcGeVector3d(3, 0, 4), {0, 3, 4}); // the centre has no say

    expectNear(AcGeMatrix3d::rotation(kPi / 2, {1, 0, 0}) * AcGePoint3d(0, 1, 0), {0, 0, 1});
    expectNear(AcGeMatrix3d::rotation(1.0, {0, 0, 0}) * AcGePoint3d(3, 2, 1), {3, 2, 1});
    expectNear(AcGeMatrix3d::scaling({2, 3, -1}, {1, 1, 1}) * AcGePoint3d(2, 2, 2), {3, 4, 0});
    expectNear(AcGeMatrix3d::mirroring({2, 0, 0}, {1, 0, 0}) * AcGePoint3d(5, 6, 7), {-1, 6, 7});
}

TEST(Matrix, ProductMapsByTheRightFactorFirst)
{
    const AcGeMatrix3d move = AcGeMatrix3d::translation({10, 0, 0});
    const AcGeMatrix3d turn = AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis);
    expectNear(turn * move * AcGePoint3d(1, 0, 0), {0, 11, 0});
    expectNear(move * turn * AcGePoint3d(1, 0, 0), {10, 1, 0});
}

TEST(Matrix, InverseTakesBack)
{
    const AcGeMatrix3d m = AcGeMatrix3d::translation({5, -3, 2}) *
                           AcGeMatrix3d::rotation(0.7, {1, 2, 3}) *
                           AcGeMatrix3d::scaling({2, -0.5, 4});
    expectNear(m.inverse() * (m * AcGePoint3d(1, 2, 3)), {1, 2, 3});

    const AcGeMatrix3d half = AcGeMatrix3d::scaling(2.0).inverse();
    expectNear(half * AcGePoint3d(1, 2, 3), {0.5, 1, 1.5});
}

TEST(Matrix, IsSingularByDirectionNotBySize)
{
    EXPECT_FALSE(AcGeMatrix3d::scaling(1e-9).isSingular());
    EXPECT_TRUE(AcGeMatrix3d::scaling({1, 0, 1}).isSingular());
    EXPECT_TRUE(AcGeMatrix3d::coordSystem({}, {1, 2, 3}, {2, 4, 6}, {0, 0, 1}).isSingular());
}

TEST(Vector, AnglesKnowTheirSide)
{
    const AcGeVector3d x = AcGeVector3d::kXAxis;
    const AcGeVector3d y = AcGeVector3d::kYAxis;
    EXPECT_NEAR(x.angleTo(y), kPi / 2, 1e-15);
    EXPECT_NEAR(x.angleTo(y, AcGeVector3d::kZAxis), kPi / 2, 1e-15);
    EXPECT_NEAR(y.angleTo(x, AcGeVector3d::kZAxis), 3 * kPi / 2, 1e-15);
    EXPECT_NEAR(AcGeVector2d(0, -2).angle(), 3 * kPi / 2, 1e-15);
}

TEST(Vector, ZeroIsParallelToNothing)
{
    const AcGeVector3d v(1, 2, 3);
    EXPECT_TRUE(v.isParallelTo(v * -4e6));
    EXPECT_FALSE(v.isCodirectionalTo(v * -4e6));
    EXPECT_TRUE(v.isPerpendicularTo({3, 0, -1}));
    EXPECT_FALSE(v.isParallelTo({1, 2, 3.001}));
    EXPECT_FALSE(v.isParallelTo({}));
    EXPECT_FALSE(v.isPerpendicularTo({}));
    EXPECT_EQ(AcGeVector3d().normal(), AcGeVector3d());
}

TEST(Point, StandsForAnAdsPoint)
{
    const ads_point raw{1, 2, 3};
    const AcGePoint3d point = raw;
    const ads_point again = point + AcGeVector3d(0, 0, 4);
    EXPECT_EQ(again, (ads_point{1, 2, 7}));
}

TEST(Extents, GrowFromNothing)
{
    AcDbExtents box;
    EXPECT_FALSE(box.isValid());
    box.addExt(AcDbExtents());
    box.addPoint({0, std::nan(""), 0});
    EXPECT_FALSE(box.isValid());
    EXPECT_FALSE(box.overlaps2d(box));

    box.addPoint({2e20, 1, 1}); // beyond the corners of empty extents
    EXPECT_EQ(box.minPoint(), AcGePoint3d(2e20, 1, 1));
    EXPECT_EQ(box.maxPoint(), AcGePoint3d(2e20, 1, 1));
}

TEST(Extents, MappedBoxHoldsAllCorners)
{
    AcDbExtents box({0, 0, 0}, {4, 2, 1});
    box.transformBy(AcGeMatrix3d::rotation(kPi / 2, AcGeVector3d::kZAxis));
    expectNear(box.minPoint(), {-2, 0, 0});
    expectNear(box.maxPoint(), {0, 4, 1});
}

TEST(Extents, TouchingBoxesOverlap)
{
    const AcDbExtents box({0, 0, 0}, {4, 4, 0});
    EXPECT_TRUE(box.overlaps2d({{4, 4, 9}, {5, 5, 9}})); // z has no say
    EXPECT_FALSE(box.overlaps2d({{4.001, 0, 0}, {5, 5, 0}}));
    EXPECT_TRUE(box.contains2d({{0, 0, 0}, {4, 4, 0}}));
    EXPECT_FALSE(box.contains2d({{1, 1, 0}, {2, 4.001, 0}}));
}

} // namespace
