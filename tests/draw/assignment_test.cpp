#include "draw/assignment.h"

#include "description/property_parser.h"
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
#include "tests/support/described_drawing.h"
#include "tests/support/entity_bodies.h"

#include <numbers>

namespace {

constexpr bool kKeep = false;
constexpr bool kForce = true;

struct Case {
    const char* name;
    const EntityBody& entity;
    const wchar_t* word;
    const wchar_t* keyword;
    const wchar_t* value;
    const wchar_t* accepted;
    bool force;
    std::string (*read)(const AcDbEntity& entity);
    const char* expected;
};

const EntityBody kLine{"LINE", "AcDbLine", kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n",
                       "6\nDashed\n62\n3\n48\n2.5\n370\n25\n", "Walls"};
const EntityBody k3dPath{"POLYLINE", "AcDb3dPolyline",
                         "66\n1\n" + kOrigin + "70\n8\n0\nSEQEND\n5\nF30\n100\nAcDbEntity\n8\n0\n"};
// control points on a straight line, degree 1
const EntityBody kOpenSpline{
    "SPLINE", "AcDbSpline",
    "70\n8\n71\n1\n72\n5\n73\n3\n74\n0\n40\n0.0\n40\n0.0\n40\n1.0\n40\n2.0\n40\n"
    "2.0\n10\n0.0\n20\n0.0\n30\n0.0\n10\n4.0\n20\n0.0\n30\n0.0\n10\n4.0\n20\n"
    "3.0\n30\n0.0\n"};
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
const EntityBody kDimension{"DIMENSION", "AcDbDimension",
                            kOrigin +
                                "70\n1\n3\nSurvey\n100\nAcDbAlignedDimension\n13\n0.0\n23\n0.0\n33"
                                "\n0.0\n14\n1.0\n24\n0.0\n34\n0.0\n"};
const EntityBody kMline{
    "MLINE", "AcDbMline",
    "2\nSTANDARD\n340\nF18\n40\n20.0\n70\n2\n71\n3\n72\n2\n73\n2\n" + kOrigin +
        "210\n0.0\n220\n0.0\n230\n1.0\n11\n0.0\n21\n0.0\n31\n0.0\n12\n1.0\n22\n0.0\n"
        "32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n74\n0\n75\n0\n74\n0\n75\n0\n11\n8.0\n21"
        "\n0.0\n31\n0.0\n12\n1.0\n22\n0.0\n32\n0.0\n13\n0.0\n23\n1.0\n33\n0.0\n74\n0"
        "\n75\n0\n74\n0\n75\n0\n"};
const EntityBody kMLeader{"MULTILEADER", "AcDbMLeader",
                          "300\nCONTEXT_DATA{\n40\n1.0\n301\n}\n340\nF28\n90\n0\n"};

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
std::string color(const AcDbEntity& e)
{
    return colorOf(e.color());
}
std::string layer(const AcDbEntity& e)
{
    return host::toUtf8(e.layer());
}
std::string linetype(const AcDbEntity& e)
{
    return host::toUtf8(e.linetype());
}
std::string linetypeScale(const AcDbEntity& e)
{
    return number(e.linetypeScale());
}
std::string weight(const AcDbEntity& e)
{
    return number(e.lineWeight());
}
std::string radius(const AcDbEntity& e)
{
    return number(as<AcDbCircle>(e).radius());
}
template <class T> std::string closed(const AcDbEntity& e)
{
    return as<T>(e).isClosed() ? "closed" : "open";
}
std::string width(const AcDbEntity& e)
{
    double constant = -1.0;
    return as<AcDbPolyline>(e).getConstantWidth(constant) == Acad::eOk ? number(constant) : "none";
}
std::string elevation(const AcDbEntity& e)
{
    return number(as<AcDbPolyline>(e).elevation());
}
std::string height(const AcDbEntity& e)
{
    return number(as<AcDbText>(e).height());
}
std::string style(const AcDbEntity& e)
{
    return nameOf<AcDbTextStyleTableRecord>(as<AcDbText>(e).textStyle());
}
std::string attachment(const AcDbEntity& e)
{
    return number(as<AcDbMText>(e).attachment());
}
std::string mtextHeight(const AcDbEntity& e)
{
    return number(as<AcDbMText>(e).textHeight());
}
std::string mtextStyle(const AcDbEntity& e)
{
    return nameOf<AcDbTextStyleTableRecord>(as<AcDbMText>(e).textStyle());
}
std::string pattern(const AcDbEntity& e)
{
    return host::toUtf8(as<AcDbHatch>(e).patternName());
}
std::string patternAngle(const AcDbEntity& e)
{
    return number(as<AcDbHatch>(e).patternAngle() * 180.0 / std::numbers::pi);
}
std::string patternScale(const AcDbEntity& e)
{
    return number(as<AcDbHatch>(e).patternScale());
}
// distance between the lines of a pattern of parallel lines
std::string patternSpacing(const AcDbEntity& e)
{
    const std::vector<host::PatternLine> lines = as<AcDbHatch>(e).patternLines();
    return lines.size() == 1 ? number(lines[0].offset.length()) : "other";
}
std::string background(const AcDbEntity& e)
{
    return colorOf(as<AcDbHatch>(e).backgroundColor());
}
std::string patternColor(const AcDbEntity& e)
{
    return colorOf(as<AcDbMPolygon>(e).patternColor());
}
std::string dimensionStyle(const AcDbEntity& e)
{
    return nameOf<AcDbDimStyleTableRecord>(as<AcDbDimension>(e).dimensionStyle());
}
std::string mlineClosed(const AcDbEntity& e)
{
    return as<AcDbMline>(e).closedMline() ? "closed" : "open";
}
std::string mlineJustification(const AcDbEntity& e)
{
    return number(as<AcDbMline>(e).justification());
}
std::string mlineScale(const AcDbEntity& e)
{
    return number(as<AcDbMline>(e).scale());
}
std::string mlineStyle(const AcDbEntity& e)
{
    return nameOf<AcDbMlineStyle>(as<AcDbMline>(e).style());
}
std::string mleaderStyle(const AcDbEntity& e)
{
    return nameOf<AcDbMLeaderStyle>(as<AcDbMLeader>(e).MLeaderStyle());
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
    static ObjectDef object(const wchar_t* type)
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
        {"a wrong colour", kLine, L"Line", L"color", L"1", L"", kKeep, color, "1"},
        {"an accepted one", kLine, L"Line", L"color", L"1", L"2,3", kKeep, color, "3"},
        {"the first, by force", kLine, L"Line", L"color", L"1", L"2,3", kForce, color, "1"},
        {"any is accepted", kLine, L"Line", L"color", L"1", L"*", kKeep, color, "3"},
        {"nothing to write", kLine, L"Line", L"color", L"*", L"1", kForce, color, "3"},
        {"a true colour", kLine, L"Line", L"color", L"(10 20 30)", L"", kKeep, color, "10 20 30"},
        {"by layer", kLine, L"Line", L"color", L"bylayer", L"", kKeep, color, "256"},
        {"layer", kLine, L"Line", L"layer", L"roofs", L"", kKeep, layer, "Roofs"},
        {"an allowed layer", kLine, L"Line", L"layer", L"roofs", L"WALLS,0", kKeep, layer, "Walls"},
        {"the first one listed", kLine, L"Line", L"layer", L"roofs", L"walls,0", kForce, layer,
         "Roofs"},
        {"a layer that is not there", kLine, L"Line", L"layer", L"cellar", L"", kKeep, layer,
         "Walls"},
        {"linetype", kLine, L"Line", L"linetype", L"dotted", L"", kKeep, linetype, "Dotted"},
        {"linetype scale in range", kLine, L"Line", L"linetypescale", L"1", L"2:3", kKeep,
         linetypeScale, "2.5"},
        {"out of range", kLine, L"Line", L"linetypescale", L"1", L"1:2", kKeep, linetypeScale, "1"},
        {"line weight", kLine, L"Line", L"lineweight", L"50", L"", kKeep, weight, "50"},
        {"an open property", kLine, L"Line", L"lineweight", L"*", L"", kForce, weight, "25"},

        {"radius in range", kCircle, L"Circle", L"circleradius", L"2.5", L"5:6", kKeep, radius,
         "5"},
        {"by force", kCircle, L"Circle", L"circleradius", L"2.5", L"5:6", kForce, radius, "2.5"},
        {"no radius", kCircle, L"Circle", L"circleradius", L"-1", L"", kKeep, radius, "5"},

        {"a polyline opens", kPath, L"Polyline", L"closed", L"0", L"", kKeep, closed<AcDbPolyline>,
         "open"},
        {"and stays closed", kPath, L"Polyline", L"closed", L"0", L"1", kKeep, closed<AcDbPolyline>,
         "closed"},
        {"width", kPath, L"Polyline", L"constantwidth", L"2", L"", kKeep, width, "2"},
        {"a tapered one gets a width", kTapered, L"Polyline", L"constantwidth", L"2", L"0:3", kKeep,
         width, "2"},
        {"an accepted elevation is written over", kPath, L"Polyline", L"elevation", L"1", L"0:5",
         kKeep, elevation, "1"},
        {"one that is not accepted stays", kPath, L"Polyline", L"elevation", L"1", L"4:5", kKeep,
         elevation, "3"},
        {"by force it does not", kPath, L"Polyline", L"elevation", L"1", L"4:5", kForce, elevation,
         "1"},
        {"an open elevation", kPath, L"Polyline", L"elevation", L"*", L"", kForce, elevation, "3"},
        {"a polyline in space closes", k3dPath, L"3DPolyline", L"closed", L"1", L"", kKeep,
         closed<AcDb3dPolyline>, "closed"},

        {"control points", kOpenSpline, L"Spline", L"closed", L"1", L"", kKeep, closed<AcDbSpline>,
         "closed"},
        {"fit points", kFitSpline, L"Spline", L"closed", L"1", L"", kKeep, closed<AcDbSpline>,
         "closed"},
        {"a spline never opens", kClosedSpline, L"Spline", L"closed", L"0", L"", kForce,
         closed<AcDbSpline>, "closed"},
        {"and an open one stays so", kOpenSpline, L"Spline", L"closed", L"0", L"", kForce,
         closed<AcDbSpline>, "open"},

        {"height", kText, L"Text", L"textheight", L"4", L"1:2", kKeep, height, "4"},
        {"style", kText, L"Text", L"textstyle", L"titles", L"", kKeep, style, "Titles"},
        {"force leaves the style alone", kText, L"Text", L"textstyle", L"titles", L"", kForce,
         style, "Notes"},
        {"a style that is not there", kText, L"Text", L"textstyle", L"labels", L"", kKeep, style,
         "Notes"},
        {"but not the height", kText, L"Text", L"textheight", L"4", L"1:9", kForce, height, "4"},
        {"attachment", kMText, L"MText", L"mtextattachmentpoint", L"topright", L"", kKeep,
         attachment, "3"},
        {"height of lines", kMText, L"MText", L"textheight", L"4", L"", kKeep, mtextHeight, "4"},
        {"style of lines", kMText, L"MText", L"textstyle", L"titles", L"", kKeep, mtextStyle,
         "Titles"},
        {"left alone too", kMText, L"MText", L"textstyle", L"titles", L"", kForce, mtextStyle,
         "Notes"},

        {"pattern", kHatch, L"Hatch", L"pattern", L"solid", L"", kKeep, pattern, "SOLID"},
        {"pattern angle in degrees", kHatch, L"Hatch", L"patternangle", L"30", L"", kKeep,
         patternAngle, "30"},
        {"scale in range", kHatch, L"Hatch", L"patternscale", L"1", L"2:3", kKeep, patternScale,
         "2"},
        {"background", kHatch, L"Hatch", L"backgroundcolor", L"3", L"", kKeep, background, "3"},
        {"none is accepted", kHatch, L"Hatch", L"backgroundcolor", L"3", L"none", kKeep, background,
         "none"},
        {"of a multi-polygon", kMPolygon, L"MPolygon", L"patterncolor", L"2", L"", kKeep,
         patternColor, "2"},
        {"its scale", kMPolygon, L"MPolygon", L"patternscale", L"1", L"", kKeep, patternScale, "1"},
        {"its angle", kMPolygon, L"MPolygon", L"patternangle", L"60", L"", kKeep, patternAngle,
         "60"},

        {"dimension style", kDimension, L"Dimension", L"dimensionstyle", L"plan", L"", kKeep,
         dimensionStyle, "Plan"},
        {"an accepted one", kDimension, L"Dimension", L"dimensionstyle", L"plan", L"survey", kKeep,
         dimensionStyle, "Survey"},
        {"multileader style", kMLeader, L"MLeader", L"mleaderstyle", L"callout", L"", kKeep,
         mleaderStyle, "Callout"},
        {"one that is not there", kMLeader, L"MLeader", L"mleaderstyle", L"note", L"", kKeep,
         mleaderStyle, "Standard"},

        {"a multiline opens", kMline, L"Mline", L"closed", L"0", L"", kKeep, mlineClosed, "open"},
        {"justification", kMline, L"Mline", L"mlinejustification", L"top", L"", kKeep,
         mlineJustification, "0"},
        {"multiline scale", kMline, L"Mline", L"mlinescale", L"5", L"", kKeep, mlineScale, "5"},
        {"multiline style", kMline, L"Mline", L"mlinestyle", L"fence", L"", kKeep, mlineStyle,
         "Fence"},

        {"of another class", kLine, L"Line", L"circleradius", L"9", L"", kForce, layer, "Walls"},
    };

    DxfDrawing drawing = styledDrawing();
    std::vector<std::string> handles;
    for (const Case& row : cases)
        handles.push_back(row.entity.addTo(drawing));
    open(drawing);
    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const Case& row = cases[at];
        SCOPED_TRACE(std::string(row.entity.type) + ": " + row.name);
        ObjectDef thing = object(row.word);
        ASSERT_TRUE(parseProperty(thing.props, row.keyword, row.value, row.accepted));
        const AcDbObjectId id = assigned(thing, idOf(handles[at]), row.force);
        const AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForRead);
        ASSERT_TRUE(entity);
        EXPECT_EQ(row.read(*entity), row.expected);
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
    const double at2 = std::stod(patternSpacing(*first));
    const double at4 = std::stod(patternSpacing(*second));
    EXPECT_GT(at2, 0.0);
    EXPECT_NEAR(at4, 2.0 * at2, 1e-4);
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
        drawing.entity("MLINE", "AcDbMline", kMline.fields, "Walls", "62\n3\n370\n25\n",
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
    EXPECT_EQ(layer(*made), "Walls");
    EXPECT_EQ(color(*made), "3");
    EXPECT_EQ(weight(*made), "25");

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
    EXPECT_EQ(layer(*vertex), "Roofs");
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
    EXPECT_EQ(layer(*entity), "Walls");
}
