#include "draw/drawing_scripts.h"

#include "description/property_parser.h"
#include "draw/finish_steps.h"
#include "draw/hatch_boundary.h"

#include <gtest/gtest.h>

namespace {

using Given = std::vector<std::pair<const wchar_t*, const wchar_t*>>; // keywords and values

GraphicProps propsOf(const wchar_t* type, const Given& given)
{
    GraphicProps props;
    props.name = L"Old Oak";
    props.types = {type};
    for (const auto& [keyword, value] : given)
        EXPECT_TRUE(parseProperty(props, keyword, value, L""));
    return props;
}

struct Script {
    const wchar_t* type;
    Given given;
    const wchar_t* text;
    const wchar_t* name;
    FinishStep finish;
    bool typeFilter = true;
    bool repeat = true;
};

const Script kExpected[] = {
    {L"3DFace", {}, L"_.3dface\n", L"3dface", FinishObject},
    {L"3DPolyline", {}, L"_.3dpoly\n", L"3dpoly", Finish3dPolyline},
    {L"Arc", {}, L"_.arc\n", L"3dface", FinishObject},
    {L"BlockReference",
     {{L"blockname", L"Tree"}},
     L"kelmaro_impl_insrt Old Oak\n",
     L"kelmaro_impl_insrt",
     FinishObject},
    {L"Circle", {}, L"_.circle\n", L"circle", FinishObject},
    {L"Circle", {{L"circlemode", L"Center"}}, L"_.circle\n", L"circle", FinishObject},
    {L"Circle", {{L"circlemode", L"2P"}}, L"_.circle _2p\n", L"circle", FinishObject},
    {L"Circle",
     {{L"circlemode", L"3p"}, {L"circleradius", L"2"}},
     L"_.circle _3p\n",
     L"circle",
     FinishObject},
    {L"Circle", {{L"circleradius", L"2"}}, L"_.point\n", L"point", FinishCircleFromPoint, false},
    {L"Circle",
     {{L"circleradius", L"2"}, {L"circlemode", L"center"}},
     L"_.point\n",
     L"point",
     FinishCircleFromPoint,
     false},
    {L"Dimension", {}, L"_.dim\n", L"dim", FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"Aligned"}},
     L"_.dimaligned\n",
     L"dimaligned",
     FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"angular"}},
     L"_.dimangular\n",
     L"dimangular",
     FinishDimension},
    {L"Dimension", {{L"dimensionmode", L"arc"}}, L"_.dimarc\n", L"dimarc", FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"diameter"}},
     L"_.dimdiameter\n",
     L"dimdiameter",
     FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"jogged"}},
     L"_.dimjogged\n",
     L"dimjogged",
     FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"linear"}},
     L"_.dimlinear\n",
     L"dimlinear",
     FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"ordinate"}},
     L"_.dimordinate\n",
     L"dimordinate",
     FinishDimension},
    {L"Dimension",
     {{L"dimensionmode", L"radius"}},
     L"_.dimradius\n",
     L"dimradius",
     FinishDimension},
    {L"Ellipse", {}, L"_.ellipse\n", L"ellipse", FinishDimension},
    {L"Ellipse", {{L"ellipsemode", L"Arc"}}, L"_.ellipse arc\n", L"ellipse", FinishDimension},
    {L"Ellipse", {{L"ellipsemode", L"center"}}, L"_.ellipse\n", L"ellipse", FinishDimension},
    {L"Hatch",
     {{L"hatchmode", L"Boundary"}, {L"pattern", L"solid"}},
     L"_.pline\n",
     L"pline",
     FinishHatchBoundary,
     false},
    {L"Hatch",
     {{L"pattern", L"Solid"}, {L"patternscale", L"3"}},
     L"_.-hatch _p SOLID\n",
     L"-hatch",
     FinishHatch,
     true,
     false},
    {L"Hatch",
     {{L"hatchmode", L"point"},
      {L"pattern", L"Ansi31"},
      {L"patternscale", L"0.5"},
      {L"patternangle", L"45"}},
     L"_.-hatch _p \"ansi31\" 0.500000 45.000000\n",
     L"-hatch",
     FinishHatch,
     true,
     false},
    {L"Hatch",
     {{L"pattern", L"brick"}, {L"patternangle", L"-30"}},
     L"_.-hatch _p \"brick\"  -30.000000\n",
     L"-hatch",
     FinishHatch,
     true,
     false},
    {L"Hatch", {}, L"_.-hatch _p \"\"  \n", L"-hatch", FinishHatch, true, false},
    {L"Line", {}, L"_.line\n", L"line", FinishObject},
    {L"Mesh", {}, L"_.mesh\n", L"mesh", FinishObject},
    {L"Mesh", {{L"meshmode", L"Torus"}}, L"_.mesh torus\n", L"mesh", FinishObject},
    {L"MLeader", {}, L"_.mleader\n", L"mleader", FinishMLeader},
    {L"Mline", {}, L"_.mline\n", L"mline", FinishMline},
    {L"Mline", {{L"mlinestyle", L"Kerb"}}, L"_.mline _style kerb\n", L"mline", FinishMline},
    {L"MPolygon", {}, L"_.mpolygon\n", L"mpolygon", FinishMPolygon},
    {L"MText", {}, L"kelmaro_impl_mtxt Old Oak\n", L"kelmaro_impl_mtxt", FinishObject},
    {L"Point", {}, L"_.point\n", L"point", FinishObject},
    {L"Polyline", {}, L"_.pline\n", L"pline", FinishPolyline},
    {L"Ray", {}, L"_.ray\n", L"ray", FinishObject},
    {L"Spline", {}, L"_.spline\n", L"spline", FinishSpline},
    {L"Text", {}, L"kelmaro_impl_txt Old Oak\n", L"kelmaro_impl_txt", FinishObject},
    {L"Wipeout", {}, L"_.wipeout\n", L"wipeout", FinishObject},
    {L"Xline", {}, L"_.xline\n", L"xline", FinishObject},
};

} // namespace

TEST(DrawingScripts, EachTypeHasItsLine)
{
    for (const Script& expected : kExpected) {
        SCOPED_TRACE(std::string(expected.text, expected.text + wcslen(expected.text)));
        const ScriptChoice choice = chooseScript(propsOf(expected.type, expected.given));
        ASSERT_TRUE(choice.script);
        EXPECT_EQ(choice.script->commandText, expected.text);
        EXPECT_EQ(choice.script->commandName, expected.name);
        EXPECT_EQ(choice.script->finish, expected.finish);
        EXPECT_EQ(choice.script->typeFilter, expected.typeFilter);
        EXPECT_EQ(choice.script->repeat, expected.repeat);
    }
}

TEST(DrawingScripts, TheFirstTypeAloneDecidesInAnyCase)
{
    GraphicProps props = propsOf(L"pOLYLINE", {});
    props.types.push_back(L"Line");
    ASSERT_TRUE(chooseScript(props).script);
    EXPECT_EQ(chooseScript(props).script->commandName, L"pline");
}

TEST(DrawingScripts, WhatIsNotDrawn)
{
    const auto told = [](const GraphicProps& props) {
        const ScriptChoice choice = chooseScript(props);
        return choice.script ? "drawn" : choice.unsupported ? "told" : "silent";
    };
    for (const wchar_t* type :
         {L"3DSolid", L"PolyFaceMesh", L"Surface", L"Helix", L"?", L"BlockReference"})
        EXPECT_STREQ(told(propsOf(type, {})), "told");
    GraphicProps circle = propsOf(L"Circle", {});
    circle.circleMode = {kOneValue, L"ttr", {}};
    EXPECT_STREQ(told(circle), "silent");
    circle.circleMode.value = L"2P"; // compared exactly
    EXPECT_STREQ(told(circle), "silent");
    GraphicProps dimension = propsOf(L"Dimension", {});
    dimension.dimensionMode = {kOneValue, L"baseline", {}};
    EXPECT_STREQ(told(dimension), "silent");
}

TEST(DrawingScripts, AWildcardIsNotGiven)
{
    GraphicProps props = propsOf(L"BlockReference", {});
    props.blockName = {kOneValue, L"*", {}};
    EXPECT_TRUE(chooseScript(props).unsupported);
    props = propsOf(L"Circle", {});
    props.circleRadius = {kOneValue, kAnyReal, {}};
    EXPECT_EQ(chooseScript(props).script->commandName, L"circle");
    props = propsOf(L"Mline", {});
    props.mlineStyle = {kOneValue, L"*", {}};
    EXPECT_EQ(chooseScript(props).script->commandText, L"_.mline\n");
}
