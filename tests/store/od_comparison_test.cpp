#include "store/od_comparison.h"

#include "tests/support/command_test.h"

#include <limits>

namespace {

class NearlyEqual : public CommandTest {
protected:
    void setPrecision(int digits)
    {
        resbuf value;
        value.restype = RTSHORT;
        value.resval.rint = static_cast<std::int16_t>(digits);
        ASSERT_EQ(acedSetVar(L"LUPREC", value), RTNORM);
    }
};

} // namespace

TEST(ValuesEqual, TheLeftOperandDecides)
{
    const OdValue none;
    const OdValue two(std::int32_t{2});
    const OdValue real(2.0);
    const OdValue more(2.5);
    const OdValue text(L"2.5x");
    const OdValue origin(AcGePoint3d{});
    const OdValue point(AcGePoint3d(1.0, 2.0, 3.0));
    const OdValue pointText(L"1,2,3");
    const OdValue originText(L"0, 0,0 ");
    const OdValue nan(std::numeric_limits<double>::quiet_NaN());
    const struct {
        const char* name;
        const OdValue& left;
        const OdValue& right;
        bool equal;
    } cases[] = {
        {"integer, real", two, real, true},
        {"integer, other real", two, more, false},
        {"integer, text", two, text, true},
        {"text, integer", text, two, true},
        {"real, text", more, text, true},
        {"text, real", text, more, true},
        {"text, other real", text, real, false},
        {"texts with case", OdValue(L"AB"), OdValue(L"ab"), false},
        {"text, its point", pointText, point, false},
        {"text of zeros, any point", originText, point, true},
        {"point, its text", point, pointText, false},
        {"origin, text of zeros", origin, originText, false},
        {"integer, point", two, point, false},
        {"points", point, OdValue(AcGePoint3d(1.0, 2.0, 3.0)), true},
        {"none, anything", none, point, true},
        {"anything, none", text, none, true},
        {"not a number", nan, nan, false},
    };
    for (const auto& [name, left, right, equal] : cases)
        EXPECT_EQ(valuesEqual(left, right), equal) << name;
}

TEST_F(NearlyEqual, FollowsThePrecisionOfTheDrawing)
{
    setPrecision(4);
    EXPECT_TRUE(nearlyEqual(1.0, 1.00009));
    EXPECT_FALSE(nearlyEqual(0.0, 0.0001));
    EXPECT_FALSE(nearlyEqual(1.0, 1.00011));
    setPrecision(0);
    EXPECT_TRUE(nearlyEqual(5.0, 4.1));
    EXPECT_FALSE(nearlyEqual(5.0, 4.0));
    EXPECT_TRUE(nearlyEqualPoints({1.0, 1.0, 1.0}, {1.9, 0.1, 1.0}));
    EXPECT_FALSE(nearlyEqualPoints({1.0, 1.0, 1.0}, {1.0, 1.0, 2.0}));
}
