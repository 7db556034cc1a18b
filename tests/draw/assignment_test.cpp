#include "draw/assignment.h"

#include "description/property_parser.h"
#include "host/db/angle.h"
#include "host/db/circle.h"
#include "host/db/dictionary.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/mtext.h"
#include "host/db/polyline3d.h"
#include "host/db/spline.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/db/text.h"
#include "host/db/xrecord.h"
#include "host/text/encoding.h"
#include "objects/entity_type.h"
#include "tests/support/described_drawing.h"
#include "tests/support/entity_bodies.h"

namespace {

constexpr bool kKeep = false;
constexpr bool kForce = true;

struct Case {
    const EntityBody& entity;
    std::wstring given; // keyword, the value to draw with and what else is accepted
    const char* expected;
    bool force = kKeep;
};

const EntityBody kLine{"LINE", "AcDbLine", kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n",
                       "6\nDashed\n62\n3\n48\n2.5\n370\n25\n", "Walls"};
const EntityBody kFitSpline{
    "SPLINE", "AcDbSpline",
    "70\n8\n71\n3\n72\n0\n73\n0\n74\n3\n44\n0.001\n11\n0.0\n21\n0.0\n31\n0.0\n"
    "11\n4.0\n21\n0.0\n31\n0.0\n11\n4.0\n21\n3.0\n31\n0.0\n"};
const EntityBody kClosedSpline{
    "SPLINE", "AcDbSpline",
    "70\n9\n71\n1\n72\n5\n73\n3\n74\n0\n40\n0.0\n40\n0.0\n40\n1.0\n40\n2.0\n"
    "40\n2.0\n10\n0.0\n20\n0.0\n30\n0.0\n10\n4.0\n20\n0.0\n30\n0.0\n10\n4.0\n"
    "20\n3.0\n30\n0.0\n"};
const EntityBody kText{"TEXT", "AcDbText",
                       kOrigin + "40\n2.5\n1\nHello\n7\nNotes\n100\nAcDbText\n"};
const EntityBody kMText{"MTEXT", "AcDbMText",
                        kOrigin + "40\n3.0\n41\n0.0\n71\n5\n72\n1\n1\nNorth\n7\nNotes\n"};
template <class T> const T& as(const AcDbEntity& entity)
{
    return static_cast<const T&>(entity);
}
std::string number(double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.6g", value + 0.0);
    return digits;
}
std::string word(bool closed)
{
    return closed ? "closed" : "open";
}
template <class Style> std::string nameOf(AcDbObjectId id)
{
    const AcDbObjectPointer<Style> style(id, AcDb::kForRead);
    return style ? host::toUtf8(style->name()) : "none";
}
std::string colorOf(const AcCmColor& color)
{
    if (color.isNone())
        return "none";
    return color.isByColor()
               ? number(color.red()) + " " + number(color.green()) + " " + number(color.blue())
               : number(color.colorIndex());
}
std::string widthOf(const AcDbPolyline& polyline)
{
    double width = -1.0;
    return polyline.getConstantWidth(width) == Acad::eOk ? number(width) : "none";
}

// What an entity of a class has for a property; the class is empty where it makes no difference.
struct Reading {
    const wchar_t* keyword;
    std::wstring type;
    std::string (*read)(const AcDbEntity& e);
};

using E = AcDbEntity;
const Reading kReadings[] = {
    {L"color", L"", [](const E& e) { return colorOf(e.color()); }},
    {L"layer", L"", [](const E& e) { return host::toUtf8(e.layer()); }},
    {L"linetype", L"", [](const E& e) { return host::toUtf8(e.linetype()); }},
    {L"linetypescale", L"", [](const E& e) { return number(e.linetypeScale()); }},
    {L"lineweight", L"", [](const E& e) { return number(e.lineWeight()); }},
    {L"circleradius", L"Circle", [](const E& e) { return number(as<AcDbCircle>(e).radius()); }},
    {L"closed", L"Mline", [](const E& e) { return word(as<AcDbMline>(e).closedMline()); }},
    {L"closed", L"", [](const E& e) { return word(as<AcDbCurve>(e).isClosed()); }},
    {L"constantwidth", L"", [](const E& e) { return widthOf(as<AcDbPolyline>(e)); }},
    {L"elevation", L"", [](const E& e) { return number(as<AcDbPolyline>(e).elevation()); }},
    {L"textheight", L"Text", [](const E& e) { return number(as<AcDbText>(e).height()); }},
    {L"textheight", L"MText", [](const E& e) { return number(as<AcDbMText>(e).textHeight()); }},
    {L"textstyle", L"Text",
     [](const E& e) { return nameOf<AcDbTextStyleTableRecord>(as<AcDbText>(e).textStyle()); }},
    {L"textstyle", L"MText",
     [](const E& e) { return nameOf<AcDbTextStyleTableRecord>(as<AcDbMText>(e).textStyle()); }},
    {L"mtextattachmentpoint", L"",
     [](const E& e) { return number(as<AcDbMText>(e).attachment()); }},
    {L"pattern", L"", [](const E& e) { return host::toUtf8(as<AcDbHatch>(e).patternName()); }},
    {L"patternangle", L"",
     [](const E& e) { return number(host::toDegrees(as<AcDbHatch>(e).patternAngle())); }},
    {L"patternscale", L"", [](const E& e) { return number(as<AcDbHatch>(e).patternScale()); }},
    {L"backgroundcolor", L"",
     [](const E& e) { return colorOf(as<AcDbHatch>(e).backgroundColor()); }},
    {L"patterncolor", L"", [](const E& e) { return colorOf(as<AcDbMPolygon>(e).patternColor()); }},
    {L"dimensionstyle", L"",
     [](const E& e) {
         return nameOf<AcDbDimStyleTableRecord>(as<AcDbDimension>(e).dimensionStyle());
     }},
    {L"mlinejustification", L"",
     [](const E& e) { return number(as<AcDbMline>(e).justification()); }},
    {L"mlinescale", L"", [](const E& e) { return number(as<AcDbMline>(e).scale()); }},
    {L"mlinestyle", L"",
     [](const E& e) { return nameOf<AcDbMlineStyle>(as<AcDbMline>(e).style()); }},
    {L"mleaderstyle", L"",
     [](const E& e) { return nameOf<AcDbMLeaderStyle>(as<AcDbMLeader>(e).MLeaderStyle()); }},
};

std::string read(const AcDbEntity& entity, std::wstring_view keyword)
{
    for (const Reading& each : kReadings)
        if (each.keyword == keyword && (each.type.empty() || each.type == entityTypeName(entity)))
            return each.read(entity);
    return "none";
}

// Distance between the lines of a pattern of parallel lines.
double patternSpacing(const AcDbEntity& e)
{
    const std::vector<host::PatternLine> lines = as<AcDbHatch>(e).patternLines();
    return lines.size() == 1 ? lines[0].offset.length() : 0.0;
}

std::string dictionary(const char* handle, const char* entries)
{
    return std::string("0\nDICTIONARY\n5\n") + handle + "\n330\nC\n100\nAcDbDictionary\n281\n1\n" +
           entries;
}
std::string mlineStyleRecord(const char* handle, const char* name)
{
    return std::string("0\nMLINESTYLE\n5\n") + handle + "\n330\nF17\n100\nAcDbMlineStyle\n2\n" +
           name +
           "\n70\n0\n3\n\n62\n256\n51\n90.0\n52\n90.0\n71\n2\n49\n0.5\n62\n256\n6\nBYLAYER\n49\n"
           "-0.5\n62\n256\n6\nBYLAYER\n";
}

DxfDrawing styledDrawing()
{
    DxfDrawing drawing;
    drawing.layer("Walls");
    drawing.layer("Roofs");
    drawing.linetype("Dashed");
    drawing.linetype("Dotted");
    drawing.textStyle("Notes");
    drawing.textStyle("Titles");
    drawing.dimensionStyle("Survey");
    drawing.dimensionStyle("Plan");
    drawing.rootEntry("ACAD_MLINESTYLE", "F17");
    drawing.object(dictionary("F17", "3\nStandard\n350\nF18\n3\nFence\n350\nF19\n") +
                   mlineStyleRecord("F18", "Standard") + mlineStyleRecord("F19", "Fence"));
    drawing.rootEntry("ACAD_MLEADERSTYLE", "F27");
    drawing.object(dictionary("F27", "3\nStandard\n350\nF28\n3\nCallout\n350\nF29\n") +
                   "0\nMLEADERSTYLE\n5\nF28\n330\nF27\n100\nAcDbMLeaderStyle\n"
                   "0\nMLEADERSTYLE\n5\nF29\n330\nF27\n100\nAcDbMLeaderStyle\n");
    return drawing;
}

class AssignmentTest : public DrawingTest {
protected:
    static ObjectDef object(const std::wstring& type)
    {
        ObjectDef made;
        made.props.name = L"Thing";
        made.props.types = {type};
        return made;
    }
    // The id that the entity has afterwards; null when the assignment was refused.
    AcDbObjectId assigned(const ObjectDef& object, AcDbObjectId id, bool force)
    {
        const bool done = ApplyGraphicProps(object, {}, id, {.assign = true, .force = force});
        return done ? id : AcDbObjectId();
    }
};

} // namespace

TEST_F(AssignmentTest, EachPropertyOfEachClass)
{
    const Case cases[] = {
        {kLine, L"color|1", "1"},
        {kLine, L"color|1|2,3", "3"},
        {kLine, L"color|1|2,3", "1", kForce},
        {kLine, L"color|1|*", "3"},
        // nothing to write
        {kLine, L"color|*|1", "3", kForce},
        {kLine, L"color|(10 20 30)", "10 20 30"},
        {kLine, L"color|bylayer", "256"},
        {kLine, L"layer|roofs", "Roofs"},
        {kLine, L"layer|roofs|WALLS,0", "Walls"},
        {kLine, L"layer|roofs|walls,0", "Roofs", kForce},
        {kLine, L"layer|cellar", "Walls"},
        {kLine, L"linetype|dotted", "Dotted"},
        {kLine, L"linetypescale|1|2:3", "2.5"},
        {kLine, L"linetypescale|1|1:2", "1"},
        {kLine, L"lineweight|50", "50"},
        {kLine, L"lineweight|*", "25", kForce},
        {kCircle, L"circleradius|2.5|5:6", "5"},
        {kCircle, L"circleradius|2.5|5:6", "2.5", kForce},
        // no radius
        {kCircle, L"circleradius|-1", "5"},
        {kPath, L"closed|0", "open"},
        {kPath, L"closed|0|1", "closed"},
        {kPath, L"constantwidth|2", "2"},
        {kTapered, L"constantwidth|2|0:3", "2"},
        // the elevation is tested the other way round
        {kPath, L"elevation|1|0:5", "1"},
        {kPath, L"elevation|1|4:5", "3"},
        {kPath, L"elevation|1|4:5", "1", kForce},
        {kPath, L"elevation|*", "3", kForce},
        {kSpacePath, L"closed|1", "closed"},
        {kOpenSpline, L"closed|1", "closed"},
        {kFitSpline, L"closed|1", "closed"},
        // a spline never opens
        {kClosedSpline, L"closed|0", "closed", kForce},
        {kOpenSpline, L"closed|0", "open", kForce},
        {kText, L"textheight|4|1:2", "4"},
        {kText, L"textstyle|titles", "Titles"},
        // force leaves the style alone, here and below
        {kText, L"textstyle|titles", "Notes", kForce},
        {kText, L"textstyle|labels", "Notes"},
        {kText, L"textheight|4|1:9", "4", kForce},
        {kMText, L"mtextattachmentpoint|topright", "3"},
        {kMText, L"textheight|4", "4"},
        {kMText, L"textstyle|titles", "Titles"},
        {kMText, L"textstyle|titles", "Notes", kForce},
        {kHatch, L"pattern|solid", "SOLID"},
        {kHatch, L"patternangle|30", "30"},
        {kHatch, L"patternscale|1|2:3", "2"},
        {kHatch, L"backgroundcolor|3", "3"},
        {kHatch, L"backgroundcolor|3|none", "none"},
        {kMPolygon, L"patterncolor|2", "2"},
        {kMPolygon, L"patternscale|1", "1"},
        {kMPolygon, L"patternangle|60", "60"},
        {kAligned, L"dimensionstyle|plan", "Plan"},
        {kAligned, L"dimensionstyle|plan|survey", "Survey"},
        {kCallout, L"mleaderstyle|callout", "Callout"},
        {kCallout, L"mleaderstyle|note", "Standard"},
        {kClosedMline, L"closed|0", "open"},
        {kClosedMline, L"mlinejustification|top", "0"},
        {kClosedMline, L"mlinescale|5", "5"},
        {kClosedMline, L"mlinestyle|fence", "Fence"},
        // of another class
        {kLine, L"circleradius|9", "none", kForce},
    };

    DxfDrawing drawing = styledDrawing();
    std::vector<std::string> handles;
    for (const Case& row : cases)
        handles.push_back(row.entity.addTo(drawing));
    open(drawing);
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const Case& row = cases[at];
        SCOPED_TRACE(row.entity.type + (" " + host::toUtf8(row.given)));
        const std::size_t value = row.given.find(L'|') + 1;
        const std::size_t accepted = std::min(row.given.find(L'|', value), row.given.size());
        const std::wstring keyword = row.given.substr(0, value - 1);
        AcDbObjectId id = idOf(handles[at]);
        ObjectDef thing =
            object(entityTypeName(*AcDbObjectPointer<AcDbEntity>(id, AcDb::kForRead)));
        ASSERT_TRUE(parseProperty(thing.props, keyword, row.given.substr(value, accepted - value),
                                  row.given.substr(std::min(accepted + 1, row.given.size()))));
        id = assigned(thing, id, row.force);
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        ASSERT_TRUE(entity);
        EXPECT_EQ(read(*entity, keyword), row.expected);
    }
}

// One line every 3.175 at scale 1.
TEST_F(AssignmentTest, AHatchFollowsItsScaleAlsoWhereNothingWasWritten)
{
    DxfDrawing drawing = styledDrawing();
    const std::string kept = kHatch.addTo(drawing);
    const std::string changed = kHatch.addTo(drawing);
    open(drawing);
    ObjectDef range = object(L"Hatch");
    ASSERT_TRUE(parseProperty(range.props, L"patternscale", L"1", L"2:3"));
    ObjectDef four = object(L"Hatch");
    ASSERT_TRUE(parseProperty(four.props, L"patternscale", L"4", L""));

    const AcDbObjectPointer<AcDbEntity> first(assigned(range, idOf(kept), kKeep), AcDb::kForRead);
    const AcDbObjectPointer<AcDbEntity> second(assigned(four, idOf(changed), kKeep),
                                               AcDb::kForRead);
    ASSERT_TRUE(first && second);
    EXPECT_GT(patternSpacing(*first), 0.0);
    EXPECT_NEAR(patternSpacing(*second), 2.0 * patternSpacing(*first), 1e-9);
}

TEST_F(AssignmentTest, ATextKeepsItsPlaceWhenItIsJustified)
{
    const std::pair<const wchar_t*, AcGePoint3d> cases[] = {
        {L"center", {5.0, 7.0, 0.0}}, {L"topright", {5.0, 7.0, 0.0}}, {L"middle", {5.0, 7.0, 0.0}}};
    for (const auto& [word, alignment] : cases) {
        SCOPED_TRACE(host::toUtf8(word));
        DxfDrawing drawing = styledDrawing();
        const std::string handle = drawing.entity(
            "TEXT", "AcDbText", "10\n5.0\n20\n7.0\n30\n0.0\n40\n2.5\n1\nHello\n100\nAcDbText\n");
        open(drawing);
        ObjectDef thing = object(L"Text");
        ASSERT_TRUE(parseProperty(thing.props, L"textjustification", word, L""));
        const AcDbObjectPointer<AcDbText> text(assigned(thing, idOf(handle), kForce),
                                               AcDb::kForRead);
        ASSERT_TRUE(text);
        EXPECT_EQ(text->alignmentPoint(), alignment);
    }
}

TEST_F(AssignmentTest, AnotherMultilineStyleTakesANewEntityWithAllThatHungOnTheOld)
{
    DxfDrawing drawing = styledDrawing();
    const std::string handle =
        drawing.entity("MLINE", "AcDbMline", kClosedMline.fields, "Walls", "62\n3\n370\n25\n",
                       "102\n{ACAD_XDICTIONARY\n360\nF40\n102\n}\n");
    drawing.object("0\nDICTIONARY\n5\nF40\n330\n" + handle +
                   "\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nNOTES\n360\nF41\n3\nMORE\n360\nF42\n"
                   "0\nXRECORD\n5\nF41\n330\nF40\n100\nAcDbXrecord\n280\n1\n1\nold wall\n"
                   "0\nDICTIONARY\n5\nF42\n330\nF40\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nDEEP\n"
                   "360\nF43\n0\nXRECORD\n5\nF43\n330\nF42\n100\nAcDbXrecord\n280\n1\n70\n17\n");
    open(drawing);
    ObjectDef thing = object(L"Mline");
    ASSERT_TRUE(parseProperty(thing.props, L"mlinestyle", L"fence", L""));
    ASSERT_TRUE(parseProperty(thing.props, L"layer", L"roofs", L"walls"));
    const AcDbObjectId old = idOf(handle);
    const AcDbObjectId id = assigned(thing, old, kKeep);

    EXPECT_NE(id, old);
    EXPECT_TRUE(old.isErased());
    const AcDbObjectPointer<AcDbMline> made(id, AcDb::kForRead);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->vertices(), (std::vector<AcGePoint3d>{{0, 0, 0}, {8, 0, 0}}));
    EXPECT_TRUE(made->closedMline());
    EXPECT_EQ(made->justification(), Mline::kBottom);
    EXPECT_EQ(made->scale(), 20.0);
    EXPECT_EQ(read(*made, L"layer"), "Walls");
    EXPECT_EQ(read(*made, L"color"), "3");
    EXPECT_EQ(read(*made, L"lineweight"), "25");

    const auto entry = [](AcDbObjectId holder, const wchar_t* name) {
        const AcDbObjectPointer<AcDbDictionary> open(holder, AcDb::kForRead);
        AcDbObjectId found;
        if (open)
            open->getAt(name, found);
        return found;
    };
    const auto item = [](AcDbObjectId record) {
        const AcDbObjectPointer<AcDbXrecord> open(record, AcDb::kForRead);
        ResbufChain chain;
        return open && open->rbChain(chain) == Acad::eOk && chain.size() == 1 ? chain[0] : resbuf();
    };
    const AcDbObjectId entries = made->extensionDictionary();
    EXPECT_EQ(item(entry(entries, L"NOTES")).resval.rstring, L"old wall");
    EXPECT_EQ(item(entry(entry(entries, L"MORE"), L"DEEP")).resval.rint, 17);
    EXPECT_TRUE(idOf("F43").isErased());
}

TEST_F(AssignmentTest, TheVerticesOfAPolylineGoAlong)
{
    DxfDrawing drawing = styledDrawing();
    const std::string handle = drawing.entity(
        "POLYLINE", "AcDb3dPolyline",
        "66\n1\n" + kOrigin + "70\n8\n0\nVERTEX\n5\nF31\n100\nAcDbEntity\n8\n0\n100\nAcDbVertex\n" +
            "100\nAcDb3dPolylineVertex\n" + kOrigin +
            "70\n32\n0\nSEQEND\n5\nF32\n100\nAcDbEntity\n8\n0\n");
    open(drawing);
    ObjectDef thing = object(L"3DPolyline");
    ASSERT_TRUE(parseProperty(thing.props, L"layer", L"roofs", L""));
    ASSERT_FALSE(assigned(thing, idOf(handle), kKeep).isNull());
    const AcDbObjectPointer<AcDbEntity> vertex(idOf("F31"), AcDb::kForRead);
    ASSERT_TRUE(vertex);
    EXPECT_EQ(read(*vertex, L"layer"), "Roofs");
}

TEST_F(AssignmentTest, WhatIsNotOfTheTypeOrCannotBeOpenedIsRefused)
{
    DxfDrawing drawing = styledDrawing();
    drawing.layer("Locked", 4);
    const std::string line = drawing.line("Walls");
    const std::string locked = drawing.circle(5.0, "Locked");
    open(drawing);
    ObjectDef thing = object(L"Circle");
    ASSERT_TRUE(parseProperty(thing.props, L"layer", L"roofs", L""));
    EXPECT_TRUE(assigned(thing, idOf(line), kForce).isNull());
    EXPECT_TRUE(assigned(thing, idOf(locked), kForce).isNull());
    EXPECT_TRUE(assigned(thing, {}, kForce).isNull());
    const AcDbObjectPointer<AcDbEntity> entity(idOf(line), AcDb::kForRead);
    EXPECT_EQ(read(*entity, L"layer"), "Walls");
}
