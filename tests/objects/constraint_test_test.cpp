#include "objects/constraint_test.h"

#include "description/graphic_props.h"
#include "tests/support/opened_drawing.h"

namespace {

struct RealCase {
    const char* name;
    PropConstraint<double> constraint;
    double actual;
    bool matches;
};

using Reals = PropConstraint<double>;
using Texts = PropConstraint<std::wstring>;
using Scales = PropConstraint<ScaleFactors>;

class ConstraintTest : public DrawingTest {
protected:
    void precision(int luprec)
    {
        DxfDrawing drawing;
        drawing.luprec = luprec;
        open(drawing, "precision" + std::to_string(luprec) + ".dxf");
    }
};

} // namespace

TEST_F(ConstraintTest, RealsHaveTheTolerance)
{
    precision(4);
    const RealCase cases[] = {
        {"equal", {kOneValue, 2.0, {}}, 2.0, true},
        {"within a unit of the last digit", {kOneValue, 2.0, {}}, 2.00009, true},
        {"beyond it", {kOneValue, 2.0, {}}, 2.00011, false},
        {"any accepts everything", {kOneValue, kAnyReal, {}}, -7.0, true},
        {"a list counts in list mode", {kValueAndList, 2.0, {3.0, 4.0}}, 4.00005, true},
        {"what the list lacks", {kValueAndList, 2.0, {3.0, 4.0}}, 5.0, false},
        {"any in a list", {kValueAndList, 2.0, {3.0, kAnyReal}}, 5.0, true},
        {"a list is nothing to a single value", {kOneValue, 2.0, {3.0}}, 3.0, false},
        {"inside a range", {kValueAndRange, 2.0, {3.0, 4.0}}, 3.5, true},
        {"the value beside its range", {kValueAndRange, 2.0, {3.0, 4.0}}, 2.0, true},
        {"nearly at the lower bound", {kValueAndRange, 2.0, {3.0, 4.0}}, 2.99995, true},
        {"nearly at the upper bound", {kValueAndRange, 2.0, {3.0, 4.0}}, 4.00005, true},
        {"below", {kValueAndRange, 2.0, {3.0, 4.0}}, 2.9, false},
        {"above", {kValueAndRange, 2.0, {3.0, 4.0}}, 4.1, false},
    };
    for (const RealCase& row : cases) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(matches(row.constraint, kAnyReal, row.actual), row.matches);
    }
}

TEST_F(ConstraintTest, TheToleranceFollowsTheDrawing)
{
    const Reals two{kOneValue, 2.0, {}};
    precision(0);
    EXPECT_TRUE(matches(two, kAnyReal, 2.9));
    EXPECT_FALSE(matches(two, kAnyReal, 3.1));
    precision(8);
    EXPECT_FALSE(matches(two, kAnyReal, 2.00001));
}

TEST_F(ConstraintTest, TextsAreEqualWithoutCaseAndOrderedWithIt)
{
    const std::tuple<const char*, Texts, std::wstring, bool> cases[] = {
        {"case does not matter", {kOneValue, L"walls", {}}, L"WALLS", true},
        {"Cyrillic too", {kOneValue, L"стены", {}}, L"СТЕНЫ", true},
        {"another text", {kOneValue, L"walls", {}}, L"wall", false},
        {"a list", {kValueAndList, L"walls", {L"doors"}}, L"Doors", true},
        {"between", {kValueAndRange, L"x", {L"a", L"m"}}, L"doors", true},
        {"capitals stand before small letters",
         {kValueAndRange, L"x", {L"a", L"m"}},
         L"Doors",
         false},
        {"the upper bound does not help there", {kValueAndRange, L"x", {L"a", L"m"}}, L"M", false},
        {"equal to both", {kValueAndRange, L"x", {L"m", L"m"}}, L"M", true},
    };
    for (const auto& [name, constraint, actual, expected] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(matches(constraint, anyText, actual), expected);
    }
}

TEST_F(ConstraintTest, AScaleIsInsideWithAllAxesOrAtABoundWithAll)
{
    const Scales range{kValueAndRange, {9, 9, 9}, {{1, 1, 1}, {3, 3, 3}}};
    EXPECT_TRUE(matches(range, anyScale, ScaleFactors{2, 2, 2}));
    EXPECT_TRUE(matches(range, anyScale, ScaleFactors{1, 1, 1.00005}));
    EXPECT_FALSE(matches(range, anyScale, ScaleFactors{2, 2, 4}));
    EXPECT_FALSE(matches(range, anyScale, ScaleFactors{1, 2, 2}));
    EXPECT_TRUE(matches(range, anyScale, ScaleFactors{9, 9, 9}));
}

TEST_F(ConstraintTest, CodesHaveMarksOfTheirOwn)
{
    const PropConstraint<std::int32_t> byBlock{kOneValue, -2, {}};
    EXPECT_TRUE(matches(byBlock, kAnyCode, std::int32_t{7}));
    EXPECT_FALSE(matches(byBlock, kAnyLineWeight, std::int32_t{7}));
    EXPECT_TRUE(matches(byBlock, kAnyLineWeight, std::int32_t{-2}));
}

TEST_F(ConstraintTest, ColorsAreTriedInOrder)
{
    AcCmColor red;
    red.setColorIndex(1);
    AcCmColor trueRed;
    trueRed.setRGB(255, 0, 0);
    trueRed.setStoredIndex(12);
    AcCmColor none;
    none.setNone();
    const std::tuple<const char*, ColorList, AcCmColor, NoneColor, bool> cases[] = {
        {"not given", {}, red, NoneColor::refused, true},
        {"any", {{5}, {}}, red, NoneColor::refused, true},
        {"an index", {{5}, {1}}, red, NoneColor::refused, true},
        {"another index", {{5}}, red, NoneColor::refused, false},
        {"by layer", {{256}}, AcCmColor(), NoneColor::refused, true},
        {"the index beside a true colour", {{12}}, trueRed, NoneColor::refused, true},
        {"a true colour", {{255, 0, 0}}, trueRed, NoneColor::refused, true},
        {"one step off", {{254, 0, 0}}, trueRed, NoneColor::refused, false},
        {"an index is no true colour", {{255, 0, 0}}, red, NoneColor::refused, false},
        {"two numbers fit nothing", {{255, 0}}, trueRed, NoneColor::refused, false},
        {"none where it counts", {{-1}}, none, NoneColor::accepted, true},
        {"none elsewhere", {{-1}}, none, NoneColor::refused, false},
        {"none is asked of a colour", {{-1}}, red, NoneColor::accepted, false},
    };
    for (const auto& [name, colors, actual, noneColor, expected] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(matches(colors, actual, noneColor), expected);
    }
}
