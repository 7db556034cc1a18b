#include "host/text/number_format.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <random>

namespace host {
namespace {

TEST(ShortestReal, IsShortAndShowsThatItIsReal)
{
    const std::pair<double, std::string> cases[] = {
        {0.0, "0.0"},
        {-0.0, "-0.0"},
        {1.0, "1.0"},
        {-2.5, "-2.5"},
        {0.1, "0.1"},
        {1.0 / 3.0, "0.3333333333333333"},
        {100000.0, "100000.0"},
        {4567890.125, "4567890.125"},
        {0.0001, "0.0001"},
        {0.00001, "1e-05"},
        {9007199254740993.0, "9007199254740992.0"},
        {1e16, "1e+16"},
        {1.5e300, "1.5e+300"},
        {5e-324, "5e-324"},
        {std::numeric_limits<double>::infinity(), "0.0"},
        {std::nan(""), "0.0"},
    };
    for (const auto& [value, text] : cases)
        EXPECT_EQ(shortestReal(value), text);
}

TEST(ShortestReal, ReadsBackEqual)
{
    std::mt19937_64 random(7);
    for (int i = 0; i < 20000; ++i) {
        const double value = std::bit_cast<double>(random());
        if (!std::isfinite(value))
            continue;
        const std::optional<double> back = parseReal(shortestReal(value));
        ASSERT_TRUE(back.has_value()) << shortestReal(value);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(*back), std::bit_cast<std::uint64_t>(value));
    }
}

TEST(ParseReal, TakesWhatDrawingsHold)
{
    const std::pair<const char*, double> cases[] = {
        {"0", 0.0},
        {" 12.5\t", 12.5},
        {"+3.25", 3.25},
        {"-3", -3.0},
        {"1.", 1.0},
        {".5", 0.5},
        {"-.5", -0.5},
        {"1e3", 1000.0},
        {"1E+03", 1000.0},
        {"2.5e-1", 0.25},
        {"1e-400", 0.0},
        {"-0.001e-999999999999999999999", 0.0},
        {"0e99999", 0.0},
        {"1.7976931348623157e308", std::numeric_limits<double>::max()},
        {"5e-324", std::numeric_limits<double>::denorm_min()},
        {"00012.50000000000000000000000000000000000000000000000", 12.5},
    };
    for (const auto& [text, value] : cases) {
        SCOPED_TRACE(text);
        const std::optional<double> parsed = parseReal(text);
        ASSERT_TRUE(parsed.has_value());
        EXPECT_EQ(*parsed, value);
    }
}

TEST(ParseReal, RefusesTheRest)
{
    for (const char* text : {"",       " ",
                             "+",      "-",
                             ".",      "e5",
                             "1e",     "1e+",
                             "1 2",    "1,5",
                             "1.5x",   "x1",
                             "--1",    "+-1",
                             "-+1",    "++1",
                             "inf",    "-inf",
                             "nan",    "infinity",
                             "0x10",   "1e309",
                             "-1e999", "1d5",
                             "\n1",    "1e99999999999999999999"})
        EXPECT_EQ(parseReal(text), std::nullopt) << text;
    EXPECT_EQ(parseReal(std::string_view("1\0", 2)), std::nullopt);
    const std::string zeros(400, '0');
    EXPECT_EQ(parseReal("1" + zeros + "e-5"), std::nullopt);
    EXPECT_EQ(parseReal("0." + zeros + "1e5"), 0.0);
}

TEST(ParseInteger, TakesSixtyFourBits)
{
    const std::pair<const char*, std::optional<std::int64_t>> cases[] = {
        {"     7", 7},
        {"-32768 ", -32768},
        {"+5", 5},
        {"007", 7},
        {"9223372036854775807", std::numeric_limits<std::int64_t>::max()},
        {"-9223372036854775808", std::numeric_limits<std::int64_t>::min()},
        {"9223372036854775808", std::nullopt},
        {"", std::nullopt},
        {"-", std::nullopt},
        {"+-5", std::nullopt},
        {"1.0", std::nullopt},
        {"1 1", std::nullopt},
        {"0x1", std::nullopt},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(parseInteger(text), value) << text;
}

TEST(ParseHandle, IsHexadecimalOfSixteenDigits)
{
    const std::pair<const char*, std::optional<std::uint64_t>> cases[] = {
        {"0", 0},
        {"2F", 0x2F},
        {" 1ab ", 0x1AB},
        {"FFFFFFFFFFFFFFFF", ~std::uint64_t{0}},
        {"0000000000000000F", std::nullopt},
        {"", std::nullopt},
        {"G", std::nullopt},
        {"-1", std::nullopt},
        {"+1", std::nullopt},
        {"0x1", std::nullopt},
        {"1 2", std::nullopt},
    };
    for (const auto& [text, value] : cases)
        EXPECT_EQ(parseHandle(text), value) << text;
    EXPECT_EQ(handleText(0), "0");
    EXPECT_EQ(handleText(0x1ABCDEF), "1ABCDEF");
    EXPECT_EQ(handleText(~std::uint64_t{0}), "FFFFFFFFFFFFFFFF");
}

} // namespace
} // namespace host
