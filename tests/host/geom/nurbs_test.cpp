#include "host/geom/nurbs.h"

#include <cmath>
#include <numbers>

#include <gtest/gtest.h>

namespace {

using host::NurbsCurve;
using Points = std::vector<AcGePoint3d>;
constexpr double kPi = std::numbers::pi;

void expectNear(const AcGePoint3d& actual, const AcGePoint3d& expected, double tolerance = 1e-12)
{
    EXPECT_NEAR(actual.x, expected.x, tolerance);
    EXPECT_NEAR(actual.y, expected.y, tolerance);
    EXPECT_NEAR(actual.z, expected.z, tolerance);
}

NurbsCurve quarterCircle()
{
    return *NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}},
                             {1, std::sqrt(0.5), 1});
}

TEST(Nurbs, RationalQuarterCircleIsExact)
{
    const NurbsCurve curve = quarterCircle();
    expectNear(curve.pointAt(0.5), {std::sqrt(0.5), std::sqrt(0.5), 0});
    for (double u = 0.0; u <= 1.0; u += 0.125)
        EXPECT_NEAR(curve.pointAt(u).distanceTo({0, 0, 0}), 1.0, 1e-14) << u;
    EXPECT_NEAR(curve.length(), kPi / 2, 1e-10);
    expectNear(curve.closestPoint({3, 4, 0}), {0.6, 0.8, 0}, 1e-10);
    expectNear(curve.closestPoint({2, -5, 0}), {1, 0, 0});
    EXPECT_TRUE(curve.tangentAt(0).isCodirectionalTo({0, 1, 0}, AcGeTol(1e-12, 1e-12)));
    EXPECT_TRUE(curve.tangentAt(1).isCodirectionalTo({-1, 0, 0}, AcGeTol(1e-12, 1e-12)));
}

TEST(Nurbs, KnownPointsOfACubic)
{
    // One Bezier cubic: at 1/2 the weights are 1/8, 3/8, 3/8, 1/8.
    const auto bezier =
        NurbsCurve::make(3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {0, 8, 0}, {8, 8, 8}, {8, 0, 0}});
    ASSERT_TRUE(bezier);
    expectNear(bezier->pointAt(0.5), {4, 6, 3});
    EXPECT_TRUE(bezier->tangentAt(0).isEqualTo({0, 24, 0})); // degree times the first leg
    expectNear(bezier->pointAt(-3), {0, 0, 0});
    expectNear(bezier->pointAt(7), {8, 0, 0});

    // Unclamped uniform quadratic: spans begin and end at the middles of the legs.
    const auto uniform =
        NurbsCurve::make(2, {0, 1, 2, 3, 4, 5, 6}, {{0, 0, 0}, {2, 0, 0}, {2, 2, 0}, {4, 2, 0}});
    ASSERT_TRUE(uniform);
    EXPECT_EQ(uniform->startParameter(), 2.0);
    EXPECT_EQ(uniform->endParameter(), 4.0);
    expectNear(uniform->pointAt(2), {1, 0, 0});
    expectNear(uniform->pointAt(3), {2, 1, 0});
    expectNear(uniform->pointAt(4), {3, 2, 0});
}

TEST(Nurbs, RepeatedKnotsMakeACorner)
{
    const auto corner = NurbsCurve::make(2, {0, 0, 0, 1, 1, 2, 2, 2},
                                         {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {2, 1, 0}, {2, 2, 0}});
    ASSERT_TRUE(corner);
    expectNear(corner->pointAt(1), {2, 0, 0});
    expectNear(corner->pointAt(1.5), {2, 1, 0});
    EXPECT_NEAR(corner->length(), 4.0, 1e-12);
    expectNear(corner->closestPoint({5, -5, 0}), {2, 0, 0});

    const auto degreeOne =
        NurbsCurve::make(1, {0, 0, 1, 1, 2, 2}, {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {5, 1, 0}});
    ASSERT_TRUE(degreeOne); // a jump at the double knot
    expectNear(degreeOne->pointAt(0.5), {0.5, 0, 0});
    expectNear(degreeOne->pointAt(1.5), {3, 1, 0});
}

TEST(Nurbs, EndKnotsMayRepeatTooOften)
{
    const auto curve =
        NurbsCurve::make(2, {0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {1, 2, 0}, {2, 0, 0}, {9, 9, 9}});
    ASSERT_TRUE(curve);
    expectNear(curve->pointAt(0.5), {1, 1, 0});
    expectNear(curve->pointAt(1), {2, 0, 0}); // the last control point has no say
}

TEST(Nurbs, RefusesWhatIsNotWhole)
{
    const Points three{{0, 0, 0}, {1, 1, 0}, {2, 0, 0}};
    const double nan = std::nan("");
    EXPECT_TRUE(NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, three));
    EXPECT_FALSE(NurbsCurve::make(0, {0, 0, 0, 1}, three));
    EXPECT_FALSE(NurbsCurve::make(3, {0, 0, 0, 0, 1, 1, 1}, three)); // too few points
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, 0, 1, 1}, three));       // too few knots
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, 1, 0, 1, 1}, three));    // a knot falls
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, nan, 1, 1, 1}, three));
    EXPECT_FALSE(NurbsCurve::make(2, {3, 3, 3, 3, 3, 3}, three)); // no range
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, three, {1, 0, 1}));
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, three, {1, 1}));
    EXPECT_FALSE(NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {nan, 0, 0}, {1, 0, 0}}));
}

TEST(Nurbs, ExtentsAreThoseOfTheCurve)
{
    // The arch reaches half the height of its control polygon.
    const auto arch = NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {3, 8, 0}, {4, 0, 0}});
    ASSERT_TRUE(arch);
    expectNear(arch->extents().minPoint(), {0, 0, 0});
    expectNear(arch->extents().maxPoint(), {4, 4, 0}, 1e-12);

    // With x = 0, 4, -3, 1 the derivative is zero where 22 u^2 - 22 u + 4 = 0.
    const auto wave = NurbsCurve::make(3, {0, 0, 0, 0, 1, 1, 1, 1},
                                       {{0, 0, 0}, {4, 1, 0}, {-3, 2, 0}, {1, 3, 0}});
    ASSERT_TRUE(wave);
    const double u = (22.0 - std::sqrt(22.0 * 22.0 - 4.0 * 22.0 * 4.0)) / 44.0;
    const double v = 1.0 - u;
    const double greatest = 12.0 * u * v * v - 9.0 * u * u * v + u * u * u;
    EXPECT_NEAR(wave->extents().maxPoint().x, greatest, 1e-12);
    EXPECT_NEAR(wave->extents().minPoint().x, 1.0 - greatest, 1e-12);
}

TEST(Nurbs, SamplesKeepTheChordTolerance)
{
    const std::vector<AcGePoint3d> points = quarterCircle().sampled(0.001);
    for (std::size_t i = 1; i < points.size(); ++i)
        EXPECT_GE(interpolated(points[i - 1], points[i], 0.5).distanceTo({0, 0, 0}), 0.999);
    EXPECT_LE(points.size(), 65u);
    expectNear(points.back(), {0, 1, 0});
}

TEST(FitSpline, PassesThroughItsPointsWithoutAKink)
{
    const Points fit{{0, 0, 0}, {1, 2, 0}, {4, 2, 1}, {5, -1, 0}, {9, 0, 0}};
    for (const bool closed : {false, true}) {
        SCOPED_TRACE(closed);
        const auto curve = NurbsCurve::throughPoints(fit, closed);
        ASSERT_TRUE(curve);
        EXPECT_EQ(curve->isClosed(), closed);
        double u = 0.0;
        for (std::size_t i = 1; i < fit.size(); ++i) {
            u += fit[i - 1].distanceTo(fit[i]);
            expectNear(curve->pointAt(u), fit[i]);
            if (i + 1 == fit.size() && !closed)
                continue;
            // First and second derivative from both sides; h is far above rounding.
            const double h = 1e-4;
            const AcGeVector3d before = curve->tangentAt(u - 1e-9);
            const AcGeVector3d after = curve->tangentAt(u + 1e-9);
            EXPECT_LT((before - after).length(), 1e-7);
            const AcGeVector3d bendBefore = (before - curve->tangentAt(u - h)) / h;
            const AcGeVector3d bendAfter = (curve->tangentAt(u + h) - after) / h;
            EXPECT_LT((bendBefore - bendAfter).length(), 1e-3);
        }
        if (closed) {
            const AcGeVector3d leave = curve->tangentAt(curve->startParameter());
            const AcGeVector3d arrive = curve->tangentAt(curve->endParameter());
            EXPECT_LT((leave - arrive).length(), 1e-12);
        }
    }
}

TEST(FitSpline, KeepsGivenEndDirections)
{
    const Points fit{{0, 0, 0}, {4, 0, 0}};
    const auto curve =
        NurbsCurve::throughPoints(fit, false, AcGeVector3d(0, 5, 0), AcGeVector3d(0, -0.1, 0));
    ASSERT_TRUE(curve);
    EXPECT_TRUE(curve->tangentAt(0).isEqualTo({0, 1, 0}));
    EXPECT_TRUE(curve->tangentAt(4).isEqualTo({0, -1, 0}));
    expectNear(curve->pointAt(2),
               {2, 1, 0}); // middle plus an eighth of length times the difference of slopes
}

TEST(FitSpline, FewOrRepeatedPoints)
{
    EXPECT_FALSE(NurbsCurve::throughPoints({}));
    EXPECT_FALSE(NurbsCurve::throughPoints(Points{{1, 1, 1}}));
    EXPECT_FALSE(NurbsCurve::throughPoints(Points{{1, 1, 1}, {1, 1, 1}}, true));

    const auto line = NurbsCurve::throughPoints(Points{{0, 0, 0}, {0, 0, 0}, {3, 4, 0}});
    ASSERT_TRUE(line);
    EXPECT_NEAR(line->length(), 5.0, 1e-12);

    const auto thereAndBack = NurbsCurve::throughPoints(Points{{0, 0, 0}, {3, 4, 0}}, true);
    ASSERT_TRUE(thereAndBack);
    EXPECT_NEAR(thereAndBack->length(), 10.0, 1e-9);
}

} // namespace

TEST(Nurbs, ControlPointsWithEvenKnots)
{
    using host::NurbsCurve;
    const std::vector<AcGePoint3d> square = {{0, 0, 0}, {6, 0, 0}, {6, 6, 0}, {0, 6, 0}};
    const std::optional<NurbsCurve> open = NurbsCurve::ofControlPoints(3, square);
    ASSERT_TRUE(open);
    EXPECT_EQ(open->knots(), (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
    EXPECT_TRUE(open->pointAt(0.5).isEqualTo({4.5, 3.0, 0.0})); // (1 3 3 1) / 8

    const std::optional<NurbsCurve> closed = NurbsCurve::ofControlPoints(3, square, true);
    ASSERT_TRUE(closed);
    EXPECT_EQ(closed->controlPoints().size(), 7u);
    // at a knot the weights are (1 4 1) / 6, and both ends are one place
    EXPECT_TRUE(closed->pointAt(closed->startParameter()).isEqualTo({5.0, 1.0, 0.0}));
    EXPECT_TRUE(closed->pointAt(closed->endParameter()).isEqualTo({5.0, 1.0, 0.0}));

    const std::optional<NurbsCurve> lowered =
        NurbsCurve::ofControlPoints(3, {{0, 0, 0}, {2, 2, 0}});
    ASSERT_TRUE(lowered);
    EXPECT_EQ(lowered->degree(), 1);
    EXPECT_FALSE(NurbsCurve::ofControlPoints(3, {{0, 0, 0}}));
    EXPECT_FALSE(NurbsCurve::ofControlPoints(2, {{0, 0, 0}, {1, 0, 0}}, true));
}
