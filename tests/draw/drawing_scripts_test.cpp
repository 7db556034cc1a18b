#include "draw/drawing_scripts.h"

#include "description/property_parser.h"
#include "draw/finish_steps.h"
#include "draw/hatch_boundary.h"
#include "host/text/encoding.h"

#include <gtest/gtest.h>

#include <sstream>

namespace {

// Properties as "keyword value", apart by semicolons.
GraphicProps propsOf(const wchar_t* type, const wchar_t* given = L"")
{
    GraphicProps props;
    props.name = L"Old Oak";
    props.types = {type};
    std::wistringstream all(given);
    for (std::wstring each; std::getline(all, each, L';');) {
        const std::size_t blank = each.find(L' ');
        EXPECT_TRUE(parseProperty(props, each.substr(0, blank), each.substr(blank + 1), L""));
    }
    return props;
}

// What becomes of an object: the line that is typed, or how it is refused.
std::wstring outcomeOf(const GraphicProps& props)
{
    const ScriptChoice choice = chooseScript(props);
    return choice.script ? choice.script->commandText : choice.unsupported ? L"told" : L"silent";
}

struct Script {
    const wchar_t* type;
    const wchar_t* given;
    const wchar_t* text; // its first word, without "_.", is the command that is waited for
    FinishStep finish;
};

const Script kExpected[] = {
    {L"3DFace", L"", L"_.3dface\n", FinishObject},
    {L"3DPolyline", L"", L"_.3dpoly\n", Finish3dPolyline},
    {L"BlockReference", L"blockname Tree", L"kelmaro_impl_insrt Old Oak\n", FinishObject},
    {L"Circle", L"", L"_.circle\n", FinishObject},
    {L"Circle", L"circlemode Center", L"_.circle\n", FinishObject},
    {L"Circle", L"circlemode 2P", L"_.circle _2p\n", FinishObject},
    {L"Circle", L"circlemode 3p;circleradius 2", L"_.circle _3p\n", FinishObject},
    {L"Circle", L"circleradius 2", L"_.point\n", FinishCircleFromPoint},
    {L"Circle", L"circleradius 2;circlemode center", L"_.point\n", FinishCircleFromPoint},
    {L"Dimension", L"", L"_.dim\n", FinishDimension},
    {L"Dimension", L"dimensionmode Aligned", L"_.dimaligned\n", FinishDimension},
    {L"Dimension", L"dimensionmode angular", L"_.dimangular\n", FinishDimension},
    {L"Dimension", L"dimensionmode arc", L"_.dimarc\n", FinishDimension},
    {L"Dimension", L"dimensionmode diameter", L"_.dimdiameter\n", FinishDimension},
    {L"Dimension", L"dimensionmode jogged", L"_.dimjogged\n", FinishDimension},
    {L"Dimension", L"dimensionmode linear", L"_.dimlinear\n", FinishDimension},
    {L"Dimension", L"dimensionmode ordinate", L"_.dimordinate\n", FinishDimension},
    {L"Dimension", L"dimensionmode radius", L"_.dimradius\n", FinishDimension},
    {L"Ellipse", L"", L"_.ellipse\n", FinishDimension},
    {L"Ellipse", L"ellipsemode Arc", L"_.ellipse arc\n", FinishDimension},
    {L"Ellipse", L"ellipsemode center", L"_.ellipse\n", FinishDimension},
    {L"Hatch", L"hatchmode Boundary;pattern solid", L"_.pline\n", FinishHatchBoundary},
    {L"Hatch", L"pattern Solid;patternscale 3", L"_.-hatch _p SOLID\n", FinishHatch},
    {L"Hatch", L"hatchmode point;pattern Ansi31;patternscale 0.5;patternangle 45",
     L"_.-hatch _p \"ansi31\" 0.500000 45.000000\n", FinishHatch},
    {L"Hatch", L"pattern brick;patternscale 1234567.1234567",
     L"_.-hatch _p \"brick\" 1234567.123457 \n", FinishHatch},
    {L"Hatch", L"pattern brick;patternangle -30", L"_.-hatch _p \"brick\"  -30.000000\n",
     FinishHatch},
    {L"Hatch", L"", L"_.-hatch _p \"\"  \n", FinishHatch},
    {L"Line", L"", L"_.line\n", FinishObject},
    {L"Mesh", L"", L"_.mesh\n", FinishObject},
    {L"Mesh", L"meshmode Torus", L"_.mesh torus\n", FinishObject},
    {L"MLeader", L"", L"_.mleader\n", FinishMLeader},
    {L"Mline", L"", L"_.mline\n", FinishMline},
    {L"Mline", L"mlinestyle Kerb", L"_.mline _style kerb\n", FinishMline},
    {L"MPolygon", L"", L"_.mpolygon\n", FinishMPolygon},
    {L"MText", L"", L"kelmaro_impl_mtxt Old Oak\n", FinishObject},
    {L"Point", L"", L"_.point\n", FinishObject},
    {L"pOLYLINE", L"", L"_.pline\n", FinishPolyline},
    {L"Ray", L"", L"_.ray\n", FinishObject},
    {L"Spline", L"", L"_.spline\n", FinishSpline},
    {L"Text", L"", L"kelmaro_impl_txt Old Oak\n", FinishObject},
    {L"Wipeout", L"", L"_.wipeout\n", FinishObject},
    {L"Xline", L"", L"_.xline\n", FinishObject},
};

} // namespace

TEST(DrawingScripts, EachTypeHasItsLine)
{
    for (const Script& expected : kExpected) {
        SCOPED_TRACE(host::toUtf8(expected.text));
        const ScriptChoice choice = chooseScript(propsOf(expected.type, expected.given));
        ASSERT_TRUE(choice.script);
        const std::wstring text = expected.text;
        const std::size_t name = text.starts_with(L"_.") ? 2 : 0;
        EXPECT_EQ(choice.script->commandText, text);
        EXPECT_EQ(choice.script->commandName, text.substr(name, text.find_first_of(L" \n") - name));
        EXPECT_EQ(choice.script->finish, expected.finish);
        // what is drawn for another entity's sake is of another type
        EXPECT_EQ(choice.script->typeFilter, expected.finish != FinishCircleFromPoint &&
                                                 expected.finish != FinishHatchBoundary);
        EXPECT_EQ(choice.script->repeat, expected.finish != FinishHatch);
    }
}

TEST(DrawingScripts, AnArcWaitsForAnotherCommand)
{
    const ScriptChoice choice = chooseScript(propsOf(L"Arc"));
    ASSERT_TRUE(choice.script);
    EXPECT_EQ(choice.script->commandText, L"_.arc\n");
    EXPECT_EQ(choice.script->commandName, L"3dface");
    EXPECT_EQ(choice.script->finish, FinishObject);
}

TEST(DrawingScripts, TheFirstTypeAloneDecides)
{
    GraphicProps props = propsOf(L"Polyline");
    props.types.push_back(L"Line");
    EXPECT_EQ(outcomeOf(props), L"_.pline\n");
    props.types.front() = L"Surface";
    EXPECT_EQ(outcomeOf(props), L"told");
}

TEST(DrawingScripts, WhatIsNotDrawn)
{
    for (const wchar_t* type :
         {L"3DSolid", L"PolyFaceMesh", L"Surface", L"Helix", L"?", L"BlockReference"})
        EXPECT_EQ(outcomeOf(propsOf(type)), L"told");
    // words that a description cannot state; they are compared exactly
    for (const wchar_t* word : {L"ttr", L"2P", L"Center", L""}) {
        GraphicProps props = propsOf(L"Circle", L"circleradius 2");
        props.circleMode = {kOneValue, word, {}};
        EXPECT_EQ(outcomeOf(props), L"silent");
    }
    GraphicProps dimension = propsOf(L"Dimension");
    dimension.dimensionMode = {kOneValue, L"baseline", {}};
    EXPECT_EQ(outcomeOf(dimension), L"silent");
}

TEST(DrawingScripts, AWildcardIsNotGiven)
{
    struct Row {
        const wchar_t* type;
        PropConstraint<std::wstring> GraphicProps::*property;
        const wchar_t* outcome;
    };
    for (const Row& row : {Row{L"BlockReference", &GraphicProps::blockName, L"told"},
                           Row{L"Circle", &GraphicProps::circleMode, L"_.circle\n"},
                           Row{L"Dimension", &GraphicProps::dimensionMode, L"_.dim\n"},
                           Row{L"Hatch", &GraphicProps::pattern, L"_.-hatch _p \"\"  \n"},
                           Row{L"Mesh", &GraphicProps::meshMode, L"_.mesh\n"},
                           Row{L"Mline", &GraphicProps::mlineStyle, L"_.mline\n"}}) {
        GraphicProps props = propsOf(row.type);
        props.*row.property = {kOneValue, L"*", {}};
        props.circleRadius = props.patternScale = props.patternAngle = {kOneValue, kAnyReal, {}};
        EXPECT_EQ(outcomeOf(props), row.outcome);
    }
}
