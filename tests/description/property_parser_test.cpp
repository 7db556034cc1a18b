#include "description/property_parser.h"
#include "description/property_table.h"

#include <gtest/gtest.h>

#include <set>

namespace {

struct Line {
    const wchar_t* keyword;
    const wchar_t* value;
    const wchar_t* accepted = L"";
};

template <class T>
void expectConstraint(const PropConstraint<T>& actual, PropConstraint<T> expected)
{
    EXPECT_EQ(actual.mode, expected.mode);
    EXPECT_EQ(actual.value, expected.value);
    EXPECT_EQ(actual.accepted, expected.accepted);
}

bool parse(GraphicProps& props, const Line& line)
{
    return parseProperty(props, line.keyword, line.value, line.accepted);
}

} // namespace

TEST(PropertyParser, TheFirstItemIsTheValueAndTheLineSetsTheMode)
{
    GraphicProps props;
    EXPECT_TRUE(parse(props, {L"Layer", L" Walls "}));
    expectConstraint<std::wstring>(props.layer, {kOneValue, L"walls", {}});
    EXPECT_TRUE(parse(props, {L"LAYER", L"b", L"C, d\\,e,,"}));
    expectConstraint<std::wstring>(props.layer, {kValueAndList, L"walls", {L"b", L"c", L"d,e"}});
    EXPECT_TRUE(parse(props, {L"layer", L"f"}));
    EXPECT_EQ(props.layer.mode, kOneValue);
    EXPECT_EQ(props.layer.accepted.back(), L"f");

    EXPECT_TRUE(parse(props, {L"circleradius", L"5", L"1:10"}));
    expectConstraint<double>(props.circleRadius, {kValueAndRange, 5.0, {1.0, 10.0}});
}

TEST(PropertyParser, AnyStoresNothingButInColours)
{
    GraphicProps props;
    EXPECT_TRUE(parse(props, {L"layer", L"*", L"a,b"}));
    expectConstraint<std::wstring>(props.layer, {kValueAndList, L"a", {L"b"}});
    EXPECT_TRUE(parse(props, {L"angle", L"*"}));
    expectConstraint<double>(props.angle, {kNotGiven, kAnyReal, {}});
    EXPECT_TRUE(parse(props, {L"color", L"*", L"1,*"}));
    EXPECT_EQ(props.color, (ColorList{{}, {1}, {}}));
    EXPECT_TRUE(parse(props, {L"explode", L"1"}));
    EXPECT_TRUE(props.explode);
    EXPECT_TRUE(parse(props, {L"explode", L"*"}));
    EXPECT_FALSE(props.explode);
    EXPECT_TRUE(parse(props, {L"nonsense", L"*", L" ,*"}));
    EXPECT_FALSE(parse(props, {L"nonsense", L"1"}));
}

TEST(PropertyParser, AFailureKeepsWhatCameBefore)
{
    GraphicProps props;
    EXPECT_FALSE(parse(props, {L"circleradius", L"5", L"1:2:3"}));
    EXPECT_FALSE(props.circleRadius.isGiven());
    EXPECT_FALSE(parse(props, {L"circleradius", L"5", L"1:"}));
    EXPECT_FALSE(props.circleRadius.isGiven());
    EXPECT_FALSE(parse(props, {L"circleradius", L"5", L"6,x,7"}));
    expectConstraint<double>(props.circleRadius, {kValueAndList, 5.0, {6.0}});
    // A range keeps its mode when a bound is blank: one bound is then missing.
    EXPECT_TRUE(parse(props, {L"elevation", L"5", L" :9"}));
    expectConstraint<double>(props.elevation, {kValueAndRange, 5.0, {9.0}});
}

TEST(PropertyParser, GrammarsRefuse)
{
    const Line refused[] = {
        {L"angle", L"1e5"},
        {L"angle", L"+1"},
        {L"blockscale", L"(1 2)"},
        {L"blockscale", L"(1 2 x)"},
        {L"blockscale", L"1 2 3"},
        {L"circlemode", L"4p"},
        {L"closed", L"abc"},
        {L"color", L"none"},
        {L"color", L"(255,0,0)"},
        {L"color", L")1 2 3("},
        {L"color", L"red"},
        {L"patterncolor", L"none"},
        {L"color", L"x(1 2 3)"},
        {L"lineweight", L"thick"},
        {L"meshmode", L"cube"},
        {L"mlinejustification", L"middle"},
        {L"mlinejustification", L"1"},
        {L"mtextattachmentpoint", L"left"},
        {L"rotate", L"yes"},
        {L"textjustification", L"basemid"},
        {L"hatchmode", L"bound"},
        {L"dimensionmode", L"angle"},
    };
    for (const Line& line : refused) {
        GraphicProps props;
        EXPECT_FALSE(parse(props, line)) << line.keyword << " " << line.value;
    }
}

TEST(PropertyParser, Colours)
{
    const std::pair<const wchar_t*, ColorEntry> cases[] = {
        {L"ByBlock", {0}},
        {L"BYLAYER", {256}},
        {L"7", {7}},
        {L"-", {0}},
        {L"300", {300}},
        {L"1.9", {1}},
        {L"(255 0 0)", {255, 0, 0}},
        {L"( 1  2 3 ) x", {1, 2, 3}},
        {L"(999 -1 0)", {999, -1, 0}},
    };
    for (const auto& [text, entry] : cases) {
        GraphicProps props;
        EXPECT_TRUE(parse(props, {L"color", text})) << text;
        EXPECT_EQ(props.color, ColorList{entry}) << text;
    }
    GraphicProps props;
    EXPECT_TRUE(parse(props, {L"backgroundcolor", L"None", L"bylayer,3"}));
    EXPECT_EQ(props.backgroundColor, (ColorList{{-1}, {256}, {3}}));
    // A range of colours is only two more of them.
    EXPECT_TRUE(parse(props, {L"patterncolor", L"1", L"2:3"}));
    EXPECT_EQ(props.patternColor, (ColorList{{1}, {2}, {3}}));
}

TEST(PropertyParser, CodesFlagsAndWeights)
{
    GraphicProps props;
    for (const Line& line :
         {Line{L"lineWeight", L"Default", L"bylayer,ByBlock,13"}, Line{L"closed", L"-1", L"0"},
          Line{L"rotate", L"-1", L"2"}, Line{L"mlineJustification", L"BOTTOM", L"top,Zero"},
          Line{L"mtextAttachmentPoint", L"TopLeft", L"topmid,middlefit"},
          Line{L"textJustification", L"Left", L"bottomright,fit"},
          Line{L"blockScale", L"2", L"(1 2 -3.5)"}, Line{L"circleMode", L"Center", L"2P"},
          Line{L"text", L"Main St", L"HIGH st"}})
        EXPECT_TRUE(parse(props, line)) << line.keyword;
    expectConstraint<std::int32_t>(props.lineWeight, {kValueAndList, -3, {-1, -2, 13}});
    expectConstraint<std::uint8_t>(props.closed, {kValueAndList, 1, {0}});
    expectConstraint<std::uint8_t>(props.rotate, {kValueAndList, 0, {1}});
    expectConstraint<std::uint8_t>(props.mlineJustification, {kValueAndList, 2, {0, 1}});
    expectConstraint<std::int32_t>(props.mtextAttachmentPoint, {kValueAndList, 1, {24, 19}});
    expectConstraint<std::int32_t>(props.textJustification, {kValueAndList, 0, {14, 5}});
    expectConstraint<ScaleFactors>(props.blockScale,
                                   {kValueAndList, {2.0, 2.0, 2.0}, {{1.0, 2.0, -3.5}}});
    expectConstraint<std::wstring>(props.circleMode, {kValueAndList, L"center", {L"2p"}});
    expectConstraint<std::wstring>(props.text, {kValueAndList, L"Main St", {L"HIGH st"}});
}

// Each keyword feeds a member of its own, reads as it is written, and is asked for once.
TEST(PropertyTable, RowsDoNotOverlap)
{
    std::set<int> places;
    for (const PropertyRow& row : propertyTable()) {
        EXPECT_EQ(findProperty(row.keyword), &row);
        EXPECT_TRUE(places.insert(row.promptOrder).second) << row.promptOrder;
        for (const PropertyRow& other : propertyTable())
            EXPECT_TRUE(&row == &other || row.member != other.member) << row.promptOrder;
    }
    EXPECT_EQ(places.size(), 34U);
    EXPECT_EQ(*places.begin(), 0);
    EXPECT_EQ(*places.rbegin(), 33);
    EXPECT_EQ(findProperty(L"lineWeight"), nullptr); // lower-case only
    EXPECT_EQ(wordOfCode(findProperty(L"textjustification")->words, 9), L"MiddleLeft");
    EXPECT_EQ(wordOfCode(findProperty(L"lineweight")->words, 13), L"");
}
