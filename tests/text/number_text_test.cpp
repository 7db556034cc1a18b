#include "text/number_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

TEST(NumberText, KnowsWhatIsANumber)
{
    for (const wchar_t* text : {L"1", L"-1.5", L" 7\t", L"-", L".", L"-.", L"5.", L"0001"})
        EXPECT_TRUE(isNumber(text)) << text;
    for (const wchar_t* text :
         {L"", L"  ", L"+1", L"1e5", L"--1", L"1-", L"1.2.3", L"1 2", L"- 1", L"x", L"1,5"})
        EXPECT_FALSE(isNumber(text)) << text;
}

TEST(NumberText, ReadsTheIntegerATextBeginsWith)
{
    const std::pair<const wchar_t*, std::int32_t> cases[] = {
        {L"12abc", 12},
        {L" \t-7", -7},
        {L"+3", 3},
        {L"abc", 0},
        {L"", 0},
        {L"- 3", 0},
        {L"1.9", 1},
        {L"2147483647", 2147483647},
        {L"2147483648", 2147483647},
        {L"-2147483648", -2147483647 - 1},
        {L"-99999999999999999999999", -2147483647 - 1},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(leadingInteger(text), value) << text;
}

TEST(NumberText, ReadsTheRealATextBeginsWith)
{
    const std::pair<const wchar_t*, double> cases[] = {
        {L"2.5m", 2.5},   {L"-.5", -0.5},
        {L"1e3", 1000.0}, {L"1E-2x", 0.01},
        {L"1e", 1.0},     {L"1e+", 1.0},
        {L"5.", 5.0},     {L".", 0.0},
        {L"abc", 0.0},    {L" +4", 4.0},
        {L"inf", 0.0},    {L"nan", 0.0},
        {L"0x10", 0.0},   {L"1,5", 1.0},
        {L"1e-999", 0.0}, {L"1e999", std::numeric_limits<double>::infinity()},
        {L"0e999", 0.0},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(leadingReal(text), value) << text;
}

// Beyond the range the size counts, not the sign of the exponent.
TEST(NumberText, RealsBeyondTheRangeAreInfiniteOrZero)
{
    const double infinite = std::numeric_limits<double>::infinity();
    const std::wstring zeros(400, L'0');
    EXPECT_EQ(leadingReal(L"." + zeros + L"1"), 0.0);
    EXPECT_EQ(leadingReal(L"0." + zeros + L"1e10"), 0.0);
    EXPECT_EQ(leadingReal(L"-1" + zeros + L"e-10"), -infinite);
    EXPECT_EQ(leadingReal(L"1" + zeros), infinite);
    EXPECT_EQ(leadingReal(L"." + zeros + L"1e401"), 1.0);
    EXPECT_EQ(leadingReal(L"1" + zeros + L".5e-400"), 1.0);
    EXPECT_EQ(leadingReal(L"000.001e-99999999999"), 0.0);
    EXPECT_EQ(leadingReal(L"000.001e99999999999"), infinite);
}

TEST(NumberText, ReadsPointsWithCommasAlone)
{
    EXPECT_EQ(leadingPoint(L"1,2,3"), (std::array{1.0, 2.0, 3.0}));
    EXPECT_EQ(leadingPoint(L" 1, -2.5,3e1 and more"), (std::array{1.0, -2.5, 30.0}));
    for (const wchar_t* text : {L"1,2", L"1 ,2,3", L"1;2;3", L"1,,3", L"a,2,3", L"1,2,", L""})
        EXPECT_FALSE(leadingPoint(text)) << text;
}

TEST(NumberText, TrimsZerosUpToOneDigit)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"1.500000000000", L"1.5"},
        {L"2.000000000000", L"2.0"},
        {L"100", L"100"},
        {L"0.10", L"0.1"},
        {L"1.", L"1."},
        {L"10.01", L"10.01"},
    };
    for (const auto& [text, trimmed] : cases)
        EXPECT_EQ(trimZeros(text), trimmed);
}

TEST(NumberText, RoundsThroughTheDecimalText)
{
    EXPECT_EQ(roundTo(2.345, 2), 2.35); // stored a little above its decimal
    EXPECT_EQ(roundTo(1.005, 2), 1.0);  // stored a little below it
    EXPECT_EQ(roundTo(0.5, 0), 0.0);    // halves go to the even digit
    EXPECT_EQ(roundTo(1.5, 0), 2.0);
    EXPECT_EQ(roundTo(-1234.5678, 1), -1234.6);
    EXPECT_EQ(realText(1e21), L"1000000000000000000000.000000");
}

TEST(NumberText, TruncatesTowardZeroAndSaturates)
{
    EXPECT_EQ(truncated(3.9), 3);
    EXPECT_EQ(truncated(-3.9), -3);
    EXPECT_EQ(truncated(1e300), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(truncated(-1e300), std::numeric_limits<std::int32_t>::min());
    EXPECT_EQ(truncated(std::nan("")), 0);
}
