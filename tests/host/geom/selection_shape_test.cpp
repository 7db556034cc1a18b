#include "host/geom/selection_shape.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <random>

#include <gtest/gtest.h>

namespace {

using namespace host;
constexpr double kPi = std::numbers::pi;
using Points = std::vector<AcGePoint3d>;
using Drawing = std::function<void(StrokeSink&)>;

enum Outcome { kOutside, kTouched, kInside };

Outcome outcome(const SelectionShape& shape, const Drawing& draw)
{
    WindowTest window(shape);
    CrossingTest crossing(shape);
    draw(window);
    draw(crossing);
    EXPECT_TRUE(!window.isInside() || crossing.crosses()) << "inside, yet not touched";
    return window.isInside() ? kInside : crossing.crosses() ? kTouched : kOutside;
}

struct Case {
    const char* what;
    Drawing draw;
    Outcome expected;
};

void expectAll(const SelectionShape& shape, const std::vector<Case>& cases)
{
    for (const Case& c : cases) {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(outcome(shape, c.draw), c.expected);
    }
}

Drawing line(AcGePoint3d from, AcGePoint3d to)
{
    return [=](StrokeSink& sink) { sink.segment(from, to); };
}
Drawing chain(Points points, bool closed)
{
    return [=](StrokeSink& sink) { sink.polyline(points, closed); };
}
Drawing area(std::vector<Outline> outlines)
{
    return [=](StrokeSink& sink) { sink.filledArea(outlines); };
}
Drawing curve(Arc3d arc)
{
    return [=](StrokeSink& sink) { sink.arc(arc); };
}

Points square(double low, double high)
{
    return {{low, low, 0}, {high, low, 0}, {high, high, 0}, {low, high, 0}};
}

TEST(Rectangle, TakesLinesAndAreasByGeometry)
{
    const auto window = SelectionShape::rectangle({10, 8}, {0, 0}); // corners in any order
    expectAll(
        window,
        {
            {"nothing drawn", [](StrokeSink&) {}, kOutside},
            {"point within, far above",
             [](StrokeSink& s) {
                 s.point({5, 5, 900});
             },
             kInside},
            {"point on the corner",
             [](StrokeSink& s) {
                 s.point({10, 8, 0});
             },
             kInside},
            {"point beside",
             [](StrokeSink& s) {
                 s.point({10.001, 5, 0});
             },
             kOutside},
            {"line within", line({1, 1, 0}, {9, 7, 0}), kInside},
            {"line on the edge", line({2, 0, 0}, {7, 0, 0}), kInside},
            {"line of no length within", line({2, 2, 0}, {2, 2, 0}), kInside},
            {"one end within", line({1, 1, 0}, {19, 7, 0}), kTouched},
            {"through, both ends outside", line({-5, 3, 0}, {15, 4, 0}), kTouched},
            {"touches a corner only", line({8, 10, 0}, {12, 6, 0}), kTouched},
            {"passes the corner", line({8, 10.01, 0}, {12, 6.01, 0}), kOutside},
            {"ends on the edge", line({10, 4, 0}, {15, 4, 0}), kTouched},
            {"box over the window, line past it", line({-4, 4, 0}, {4, 14, 0}), kOutside},
            {"closed around the window", chain(square(-20, 20), true), kOutside},
            {"filled around the window", area({square(-20, 20)}), kTouched},
            {"filled, the window in its hole", area({square(-20, 20), square(-15, 15)}), kOutside},
            {"filled, the hole within", area({square(-20, 20), square(2, 3)}), kTouched},
            {"filled within", area({square(1, 3)}), kInside},
            {"only the closing segment touches",
             chain({{-1, -1, 0}, {-1, 20, 0}, {20, 20, 0}}, true), kTouched},
            {"the same left open", chain({{-1, -1, 0}, {-1, 20, 0}, {20, 20, 0}}, false), kOutside},
            {"two strokes, one outside",
             [](StrokeSink& s) {
                 s.segment({1, 1, 0}, {2, 2, 0});
                 s.segment({50, 1, 0}, {60, 2, 0});
             },
             kTouched},
        });
}

TEST(Rectangle, TakesArcsByTheCurveNotItsBox)
{
    const auto window = SelectionShape::rectangle({0, 0}, {10, 10});
    const auto circle = [](double x, double y, double r) {
        return curve(Arc3d::circle({x, y, 0}, r));
    };
    const auto arc = [](double x, double y, double r, double from, double to) {
        return curve(Arc3d::circular({x, y, 0}, r, from * kPi / 180, to * kPi / 180));
    };
    expectAll(window,
              {
                  {"circle within", circle(5, 5, 4), kInside},
                  {"circle fitting exactly", circle(5, 5, 5), kInside},
                  {"circle too big by a hair", circle(5, 5, 5.0001), kTouched},
                  {"circle around the window", circle(5, 5, 8), kOutside},
                  {"circle around through the corners", circle(5, 5, std::sqrt(50.0)), kTouched},
                  {"centre outside, passes through", circle(15, 5, 6), kTouched},
                  {"touches the edge from outside", circle(15, 5, 5), kTouched},
                  {"misses the edge", circle(15, 5, 4.9999), kOutside},
                  {"beside the corner, boxes overlap", circle(12, 12, 2.5), kOutside},
                  {"reaches the corner", circle(13, 14, 5), kTouched},
                  {"right half turned away", arc(10, 5, 3, -89, 89), kOutside},
                  {"left half turned in", arc(10, 5, 3, 91, 269), kInside},
                  {"ends on the edge", arc(10, 5, 3, -90, 90), kTouched},
                  {"chord would cross, arc does not", arc(5, 5, 9, 10, 350), kOutside},
                  {"box over the corner, curve short of it", arc(20, 20, 14, 180, 270), kOutside},
                  {"box covers the window, curve beyond it", arc(20, 20, 29, 180, 270), kOutside},
                  {"bulges in between two outside ends", arc(16, 5, 7, 120, 240), kTouched},
                  {"radius zero within", circle(3, 3, 0), kInside},
                  {"radius zero outside", circle(13, 3, 0), kOutside},
              });
}

TEST(Rectangle, TakesStandingAndFlatArcs)
{
    const auto window = SelectionShape::rectangle({0, 0}, {10, 10});
    const AcGeMatrix3d standing =
        AcGeMatrix3d::arbitraryAxes({0, -1, 0}); // xz plane, seen as a line
    const auto upright = [&](double x, double y, double r) {
        return curve(Arc3d::circle(
            {x, 0, -y}, r,
            AcGeMatrix3d::coordSystem({0, y, 0}, standing.axis(0), standing.axis(1), {})));
    };
    expectAll(
        window,
        {
            {"seen as a line within", upright(5, 5, 2), kInside},
            {"seen as a line through", upright(5, 5, 20), kTouched},
            {"seen along the edge, wider", upright(5, 10, 20), kTouched},
            {"seen along the edge, beside", upright(15, 10, 4), kOutside},
            {"ellipse of ratio 0 through",
             curve(Arc3d::elliptical({5, 5, 0}, {20, 20, 0}, {0, 0, 1}, 0, 0, 2 * kPi)), kTouched},
            {"ellipse of ratio 0 past the corner",
             curve(Arc3d::elliptical({12, 12, 0}, {9, -9, 0}, {0, 0, 1}, 0, 0, 2 * kPi)), kOutside},
            {"thin ellipse past the corner",
             curve(Arc3d::elliptical({12, 12, 0}, {9, -9, 0}, {0, 0, 1}, 0.1, 0, 2 * kPi)),
             kOutside},
            {"thick enough to reach it",
             curve(Arc3d::elliptical({12, 12, 0}, {9, -9, 0}, {0, 0, 1}, 0.23, 0, 2 * kPi)),
             kTouched},
        });
}

TEST(Polygon, TakesByItsOwnOutline)
{
    // A U: open at the top between x = 3 and x = 7.
    const auto shape = SelectionShape::polygon(
        {{0, 0}, {10, 0}, {10, 10}, {7, 10}, {7, 3}, {3, 3}, {3, 10}, {0, 10}});
    expectAll(shape,
              {
                  {"within a leg", line({1, 1, 0}, {1, 9, 0}), kInside},
                  {"from leg to leg through the gap", line({1, 8, 0}, {9, 8, 0}), kTouched},
                  {"along the bottom of the gap", line({2, 3, 0}, {8, 3, 0}), kInside},
                  {"in the gap", line({4, 5, 0}, {6, 9, 0}), kOutside},
                  {"circle in the gap", curve(Arc3d::circle({5, 6, 0}, 1.9)), kOutside},
                  {"circle fitting the gap", curve(Arc3d::circle({5, 6, 0}, 2)), kTouched},
                  {"arc within a leg", curve(Arc3d::circular({1.5, 5, 0}, 1.4, 0, 3)), kInside},
                  {"arc from leg to leg", curve(Arc3d::circular({5, 5, 0}, 4, 0, kPi)), kTouched},
                  {"arc from leg to leg by the bottom",
                   curve(Arc3d::circular({5, 5, 0}, 4, kPi, 0)), kInside},
                  {"filled in the gap", area({{{4, 5, 0}, {6, 5, 0}, {5, 9, 0}}}), kOutside},
                  {"filled around all", area({square(-5, 15)}), kTouched},
              });
}

// Surveys lie millions of units from the origin; a touch must survive the rounding there.
TEST(Polygon, TouchesFarFromTheOrigin)
{
    const double x = 5421377.1;
    const double y = 3311249.7;
    const auto shape = SelectionShape::polygon({{x, y}, {x + 0.3, y + 0.1}, {x, y + 0.7}});
    expectAll(shape,
              {
                  {"ends on the slanted edge", line({x + 0.15, y + 0.05, 0}, {x + 1, y - 4, 0}),
                   kTouched},
                  {"beside it", line({x + 0.15, y + 0.0499, 0}, {x + 1, y - 4, 0}), kOutside},
                  {"along the edge", line({x, y + 0.1, 0}, {x, y + 0.6, 0}), kInside},
                  {"circle touching the left edge",
                   curve(Arc3d::circle({x - 0.2, y + 0.3, 0}, 0.2)), kTouched},
                  {"a road's curve of great radius",
                   curve(Arc3d::circle({x - 80000, y + 0.3, 0}, 80000.1)), kTouched},
                  {"the same, short of it", curve(Arc3d::circle({x - 80000, y + 0.3, 0}, 79999.9)),
                   kOutside},
              });
}

TEST(Polygon, DegenerateShapesTakeOnlyWhatTheyTouch)
{
    const Drawing diagonal = line({0, 0, 0}, {10, 10, 0});
    EXPECT_EQ(outcome(SelectionShape::polygon({}), diagonal), kOutside);
    EXPECT_EQ(outcome(SelectionShape::polygon({{5, 5}}), diagonal), kTouched);
    EXPECT_EQ(outcome(SelectionShape::polygon({{5, 4}, {5, 4}}), diagonal), kOutside);
    EXPECT_EQ(outcome(SelectionShape::pickBox({5, 5}, 0), diagonal), kTouched);
    const Drawing circle = curve(Arc3d::circle({0, 0, 0}, 5));
    EXPECT_EQ(outcome(SelectionShape::pickBox({3, 4}, 0), circle), kTouched);
    EXPECT_EQ(outcome(SelectionShape::pickBox({3, 3}, 0), circle), kOutside);
}

TEST(Fence, TakesWhatItsLineMeets)
{
    const auto fence = SelectionShape::fence({{0, 0}, {10, 0}, {10, 10}});
    expectAll(fence,
              {
                  {"crossed", line({5, -1, 0}, {5, 1, 0}), kTouched},
                  {"crosses only where it would close", line({5, 4, 0}, {4, 5, 0}), kOutside},
                  {"lies along it", line({2, 0, 0}, {3, 0, 0}), kTouched},
                  {"circle in the bend", curve(Arc3d::circle({7, 3, 0}, 2)), kOutside},
                  {"circle over the bend", curve(Arc3d::circle({9, 1, 0}, 2)), kTouched},
                  {"circle touching", curve(Arc3d::circle({5, 3, 0}, 3)), kTouched},
                  {"filled around the whole fence", area({square(-5, 20)}), kTouched},
              });
}

TEST(Fence, MeetsAStandingCircleAlongItsOwnLine)
{
    const AcGeMatrix3d xz = AcGeMatrix3d::arbitraryAxes({0, -1, 0});
    const Drawing standing = curve(Arc3d::circle({0, 0, 0}, 20, xz));
    EXPECT_EQ(outcome(SelectionShape::fence({{2, 0}, {3, 0}}), standing), kTouched);
    EXPECT_EQ(outcome(SelectionShape::fence({{21, 0}, {30, 0}}), standing), kOutside);
    const Drawing begunElsewhere = curve(Arc3d::circular({0, 0, 0}, 20, 2, 2, xz));
    EXPECT_EQ(outcome(SelectionShape::fence({{15, 0}, {30, 0}}), begunElsewhere), kTouched);
}

TEST(Fence, MeetsAnArcThatEndsOnItWithoutCrossing)
{
    const auto fence = SelectionShape::fence({{-5, 1}, {5, 1}});
    expectAll(fence,
              {
                  {"ends there", curve(Arc3d::circular({0, 0, 0}, 1, 0, kPi / 2)), kTouched},
                  {"begins there", curve(Arc3d::circular({0, 0, 0}, 1, kPi / 2, kPi)), kTouched},
                  {"stays below", curve(Arc3d::circular({0, 0, 0}, 1, 2, 3)), kOutside},
              });
}

TEST(PickBox, TakesTextFromWithinAndSplinesByTheCurve)
{
    const TextBox text{{0, 0, 0}, {20, 0, 0}, {1, 4, 0}, L"Main St", L"txt"};
    const auto spline =
        NurbsCurve::make(2, {0, 0, 0, 1, 1, 1}, {{0, 0, 0}, {10, 20, 0}, {20, 0, 0}});
    ASSERT_TRUE(spline);
    const auto textAt = [&](AcGePoint2d p) {
        return outcome(SelectionShape::pickBox(p, 0.2), [&](StrokeSink& s) { s.textBox(text); });
    };
    EXPECT_EQ(textAt({10, 2}), kTouched);
    EXPECT_EQ(textAt({0.2, 3.8}), kOutside); // left of the slanted side
    EXPECT_EQ(textAt({20.8, 3.8}), kTouched);

    const auto splineAt = [&](AcGePoint2d p, double half) {
        return outcome(SelectionShape::pickBox(p, half), [&](StrokeSink& s) { s.spline(*spline); });
    };
    EXPECT_EQ(splineAt({10, 10.5}, 0.5001), kTouched); // its top is at (10, 10)
    EXPECT_EQ(splineAt({10, 10.5}, 0.4999), kOutside);
    EXPECT_EQ(splineAt({10, 15}, 1), kOutside); // within the control polygon
    EXPECT_EQ(splineAt({10, 5}, 50), kInside);
}

TEST(Sinks, BlocksArePlacedBeforeTheTest)
{
    const auto window = SelectionShape::rectangle({90, 0}, {110, 10});
    const AcGeMatrix3d place =
        AcGeMatrix3d::translation({100, 5, 0}) * AcGeMatrix3d::scaling({8, 4, 1});
    const auto block = [&](StrokeSink& sink) {
        TransformingSink inside(sink, place);
        inside.arc(Arc3d::circle({0, 0, 0}, 1)); // an ellipse of 8 by 4
        inside.textBox({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, L"A", L""});
    };
    EXPECT_EQ(outcome(window, block), kInside);

    ExtentsSink extents;
    block(extents);
    EXPECT_TRUE(extents.extents().minPoint().isEqualTo({92, 1, 0}));
    EXPECT_TRUE(extents.extents().maxPoint().isEqualTo({108, 9, 0}));
}

TEST(Sinks, AreDoneOnceNothingCanChange)
{
    const auto window = SelectionShape::rectangle({0, 0}, {1, 1});
    WindowTest inside(window);
    CrossingTest crossing(window);
    inside.segment({0, 0, 0}, {1, 1, 0});
    crossing.segment({5, 5, 0}, {6, 6, 0});
    EXPECT_FALSE(inside.done());
    EXPECT_FALSE(crossing.done());
    inside.segment({5, 5, 0}, {6, 6, 0});
    crossing.segment({0, 0, 0}, {1, 1, 0});
    EXPECT_TRUE(inside.done());
    EXPECT_TRUE(crossing.done());
    inside.point({0.5, 0.5, 0}); // too late
    EXPECT_FALSE(inside.isInside());
}

// A plain walk over many points of the curve; cases too near to call are left out.
TEST(Arcs, AgreeWithAPlainWalkOnRandomShapes)
{
    std::mt19937 random(20);
    std::uniform_real_distribution<double> place(-10.0, 10.0);
    int decided[3] = {};
    for (int round = 0; round < 2000; ++round) {
        const AcGePoint2d a(place(random), place(random));
        const AcGePoint2d b(place(random), place(random));
        const AcGePoint2d c(place(random), place(random));
        const auto shape = SelectionShape::polygon({a, b, c});
        const Arc3d arc = Arc3d::elliptical(
            {place(random), place(random), place(random)},
            {place(random) / 2, place(random) / 2, place(random) / 2},
            {place(random), place(random), place(random)}, 0.7, place(random), place(random));

        int within = 0;
        constexpr int kSteps = 2000;
        for (int i = 0; i <= kSteps; ++i) {
            const AcGePoint2d p = arc.pointAt(arc.start + arc.sweep() * i / kSteps).convert2d();
            const double s1 = (b - a).crossProduct(p - a);
            const double s2 = (c - b).crossProduct(p - b);
            const double s3 = (a - c).crossProduct(p - c);
            within += (s1 >= 0 && s2 >= 0 && s3 >= 0) || (s1 <= 0 && s2 <= 0 && s3 <= 0);
        }
        const Outcome found = outcome(shape, curve(arc));
        if (within > kSteps / 200 && within < kSteps - kSteps / 200) {
            EXPECT_EQ(found, kTouched) << round;
        } else if (within == kSteps + 1) {
            EXPECT_NE(found, kOutside) << round;
        } else if (within == 0) {
            EXPECT_NE(found, kInside) << round;
        }
        ++decided[found];

        // Where the walk sees nothing, a touch can only be a graze shorter than a step.
        if (within == 0 && found == kTouched) {
            double nearest = 1e9;
            for (int i = 0; i <= kSteps; ++i) {
                const AcGePoint3d p = arc.pointAt(arc.start + arc.sweep() * i / kSteps);
                nearest =
                    std::min({nearest, std::abs((b - a).normal().crossProduct(p.convert2d() - a)),
                              std::abs((c - b).normal().crossProduct(p.convert2d() - b)),
                              std::abs((a - c).normal().crossProduct(p.convert2d() - c))});
            }
            EXPECT_LT(nearest, 0.05) << round;
        }
    }
    for (const int count : decided)
        EXPECT_GT(count, 20);
}

} // namespace
