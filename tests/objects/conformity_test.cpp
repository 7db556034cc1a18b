#include "objects/conformity.h"

#include "description/property_parser.h"
#include "tests/support/entity_bodies.h"
#include "tests/support/opened_drawing.h"

namespace {

struct Case {
    const char* name;
    const EntityBody& entity;
    const wchar_t* word;
    const wchar_t* keyword;
    const wchar_t* value;
    const wchar_t* accepted;
    bool conforms;
};

const EntityBody kLine{"LINE", "AcDbLine", kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n"};
const EntityBody kLooked{"LINE", "AcDbLine", kLine.fields, "6\nDashed\n62\n1\n48\n2.5\n370\n25\n",
                         "Walls"};
const EntityBody kByBlock{"LINE", "AcDbLine", kLine.fields, "62\n0\n370\n-2\n"};
const EntityBody kTrueColor{"LINE", "AcDbLine", kLine.fields, "62\n12\n420\n16711680\n"};
const EntityBody kSpline{"SPLINE", "AcDbSpline", "70\n9\n71\n3\n72\n0\n73\n0\n74\n0\n"};
const EntityBody kText{"TEXT", "AcDbText",
                       kOrigin +
                           "40\n2.5\n1\nHello\n50\n90.0\n7\nNotes\n72\n1\n11\n0.0\n21\n0.0\n31\n"
                           "0.0\n100\nAcDbText\n73\n3\n"};
const EntityBody kMText{"MTEXT", "AcDbMText",
                        kOrigin +
                            "40\n3.0\n41\n0.0\n71\n5\n72\n1\n1\n{\\H2x;North} wall\n7\nNotes\n"
                            "11\n0.0\n21\n1.0\n31\n0.0\n"};
const EntityBody kFullEllipse{"ELLIPSE", "AcDbEllipse",
                              kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n40\n0.5\n41\n0.0\n42\n"
                                        "6.283185307179586\n"};
const EntityBody kHalfEllipse{"ELLIPSE", "AcDbEllipse",
                              kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n40\n0.5\n41\n0.0\n42\n"
                                        "3.141592653589793\n"};
const EntityBody kReference{"INSERT", "AcDbBlockReference",
                            "2\nDoor\n" + kOrigin + "41\n0.001\n42\n0.001\n43\n0.001\n50\n30.0\n"};
const EntityBody kRotated{
    "DIMENSION", "AcDbDimension",
    kOrigin + "70\n0\n3\nSurvey\n100\nAcDbAlignedDimension\n13\n0.0\n23\n0.0\n33\n"
              "0.0\n14\n1.0\n24\n0.0\n34\n0.0\n50\n0.0\n100\nAcDbRotatedDimension\n"};
const EntityBody kMline{"MLINE", "AcDbMline",
                        "2\nSTANDARD\n340\nF18\n40\n20.0\n70\n2\n71\n3\n72\n2\n73\n2\n" + kOrigin +
                            "210\n0.0\n220\n0.0\n230\n1.0\n"};

const EntityBody k3dPath{"POLYLINE", "AcDb3dPolyline",
                         "66\n1\n" + kOrigin + "70\n9\n0\nSEQEND\n5\nF30\n100\nAcDbEntity\n8\n0\n"};
const EntityBody kTinted{"HATCH", "AcDbHatch",
                         kHatch.fields + "1001\nHATCHBACKGROUNDCOLOR\n1071\n-1023410173\n"};

class ConformityTest : public DrawingTest {
protected:
    static ObjectDef object(const wchar_t* types)
    {
        ObjectDef made;
        made.props.name = L"Thing";
        made.props.types = {types};
        return made;
    }
};

} // namespace

TEST_F(ConformityTest, EachPropertyOfEachClass)
{
    const Case cases[] = {
        {"no property at all", kLine, L"Line", L"layer", L"*", L"", true},
        {"another class", kLine, L"Circle", L"layer", L"*", L"", false},
        {"a type in another case", kLine, L"line", L"layer", L"*", L"", false},

        {"colour index", kLooked, L"Line", L"color", L"1", L"", true},
        {"another index", kLooked, L"Line", L"color", L"2", L"", false},
        {"accepted index", kLooked, L"Line", L"color", L"2", L"3,1", true},
        {"by layer", kLine, L"Line", L"color", L"bylayer", L"", true},
        {"the layer's colour does not count", kLine, L"Line", L"color", L"7", L"", false},
        {"by block", kByBlock, L"Line", L"color", L"byblock", L"", true},
        {"true colour", kTrueColor, L"Line", L"color", L"(255 0 0)", L"", true},
        {"the index beside it", kTrueColor, L"Line", L"color", L"12", L"", true},
        {"any colour", kTrueColor, L"Line", L"color", L"*", L"", true},
        {"layer without case", kLooked, L"Line", L"layer", L"WALLS", L"", true},
        {"another layer", kLooked, L"Line", L"layer", L"doors", L"", false},
        {"accepted layer", kLooked, L"Line", L"layer", L"doors", L"roofs,walls", true},
        {"linetype", kLooked, L"Line", L"linetype", L"dashed", L"", true},
        {"no linetype is by layer", kLine, L"Line", L"linetype", L"bylayer", L"", true},
        {"linetype scale", kLooked, L"Line", L"linetypescale", L"2.50004", L"", true},
        {"default linetype scale", kLine, L"Line", L"linetypescale", L"2.5", L"", false},
        {"line weight", kLooked, L"Line", L"lineweight", L"25", L"", true},
        {"wrong line weight", kLooked, L"Line", L"lineweight", L"13", L"", false},
        {"any line weight", kLooked, L"Line", L"lineweight", L"*", L"", true},
        {"by block is a weight", kByBlock, L"Line", L"lineweight", L"byblock", L"", true},
        {"not a mark for any", kLooked, L"Line", L"lineweight", L"byblock", L"", false},
        {"weight in a range", kLooked, L"Line", L"lineweight", L"13", L"20:25", true},

        {"radius", kCircle, L"Circle", L"circleradius", L"5.00009", L"", true},
        {"radius beyond the tolerance", kCircle, L"Circle", L"circleradius", L"5.0002", L"", false},
        {"radius at a bound", kCircle, L"Circle", L"circleradius", L"1", L"2:5", true},
        {"radius outside", kCircle, L"Circle", L"circleradius", L"1", L"5.1:6", false},
        {"modes of drawing are not looked at", kCircle, L"Circle", L"circlemode", L"3p", L"", true},

        {"closed polyline", kPath, L"Polyline", L"closed", L"1", L"", true},
        {"not an open one", kPath, L"Polyline", L"closed", L"0", L"", false},
        {"width", kPath, L"Polyline", L"constantwidth", L"0.5", L"", true},
        {"a tapered one has none", kTapered, L"Polyline", L"constantwidth", L"0", L"0:10", false},
        {"elevation", kPath, L"Polyline", L"elevation", L"3", L"", true},
        {"another elevation", kPath, L"Polyline", L"elevation", L"0", L"", false},
        {"closed spline", kSpline, L"Spline", L"closed", L"1", L"", true},
        {"not an open one", kSpline, L"Spline", L"closed", L"0", L"", false},
        {"other classes have no radius", kPath, L"Polyline", L"circleradius", L"9", L"", true},

        {"angle", kText, L"Text", L"angle", L"90", L"", true},
        {"height", kText, L"Text", L"textheight", L"2", L"", false},
        {"justification", kText, L"Text", L"textjustification", L"topcenter", L"", true},
        {"another one", kText, L"Text", L"textjustification", L"center", L"", false},
        {"style", kText, L"Text", L"textstyle", L"notes", L"", true},
        {"another style", kText, L"Text", L"textstyle", L"standard", L"", false},
        {"style range in lower case", kText, L"Text", L"textstyle", L"x", L"n:o", true},
        {"contents without case", kText, L"Text", L"text", L"HELLO", L"", true},
        {"contents range with case", kText, L"Text", L"text", L"x", L"g:i", false},
        {"angle of its direction", kMText, L"MText", L"angle", L"90", L"", true},
        {"attachment", kMText, L"MText", L"mtextattachmentpoint", L"middlecenter", L"", true},
        {"another one", kMText, L"MText", L"mtextattachmentpoint", L"topleft", L"", false},
        {"height", kMText, L"MText", L"textheight", L"3", L"", true},
        {"style", kMText, L"MText", L"textstyle", L"notes", L"", true},
        {"contents without format codes", kMText, L"MText", L"text", L"North wall", L"", true},

        {"a full turn is no arc", kFullEllipse, L"Ellipse", L"ellipsemode", L"arc", L"", false},
        {"a half one is", kHalfEllipse, L"Ellipse", L"ellipsemode", L"arc", L"", true},
        {"pattern", kHatch, L"Hatch", L"pattern", L"ansi31", L"", true},
        {"another pattern", kHatch, L"Hatch", L"pattern", L"solid", L"", false},
        {"pattern angle in degrees", kHatch, L"Hatch", L"patternangle", L"45", L"", true},
        {"pattern scale", kHatch, L"Hatch", L"patternscale", L"1", L"", false},
        {"no background", kHatch, L"Hatch", L"backgroundcolor", L"none", L"", true},
        {"a background is asked for", kHatch, L"Hatch", L"backgroundcolor", L"3", L"", false},

        {"a background", kTinted, L"Hatch", L"backgroundcolor", L"3", L"", true},
        {"none is asked for", kTinted, L"Hatch", L"backgroundcolor", L"none", L"", false},
        {"any background", kTinted, L"Hatch", L"backgroundcolor", L"none", L"*", true},
        {"pattern", kMPolygon, L"MPolygon", L"pattern", L"ansi31", L"", true},
        {"pattern angle", kMPolygon, L"MPolygon", L"patternangle", L"30", L"", true},
        {"pattern scale", kMPolygon, L"MPolygon", L"patternscale", L"3", L"", false},
        {"a hatch's background is none of its own", kMPolygon, L"MPolygon", L"backgroundcolor",
         L"3", L"", true},
        {"closed", k3dPath, L"3DPolyline", L"closed", L"1", L"", true},
        {"not open", k3dPath, L"3DPolyline", L"closed", L"0", L"", false},

        {"block", kReference, L"BlockReference", L"blockname", L"DOOR", L"", true},
        {"another block", kReference, L"BlockReference", L"blockname", L"gate", L"", false},
        {"scale in the block's units", kReference, L"BlockReference", L"blockscale", L"1", L"",
         true},
        {"not as written", kReference, L"BlockReference", L"blockscale", L"0.5", L"", false},
        {"rotation", kReference, L"BlockReference", L"angle", L"30", L"", true},
        {"dimension mode", kAligned, L"Dimension", L"dimensionmode", L"aligned", L"", true},
        {"linear", kRotated, L"Dimension", L"dimensionmode", L"linear", L"", true},
        {"not aligned", kRotated, L"Dimension", L"dimensionmode", L"aligned", L"", false},
        {"dimension style", kAligned, L"Dimension", L"dimensionstyle", L"survey", L"", true},
        {"another style", kAligned, L"Dimension", L"dimensionstyle", L"standard", L"", false},
        {"closed multiline", kMline, L"Mline", L"closed", L"1", L"", true},
        {"justification", kMline, L"Mline", L"mlinejustification", L"bottom", L"", true},
        {"another one", kMline, L"Mline", L"mlinejustification", L"zero", L"", false},
        {"scale", kMline, L"Mline", L"mlinescale", L"20", L"", true},
        {"style", kMline, L"Mline", L"mlinestyle", L"standard", L"", true},
        {"another style", kMline, L"Mline", L"mlinestyle", L"fence", L"", false},
    };

    DxfDrawing drawing;
    drawing.layer("Walls");
    drawing.linetype("Dashed");
    drawing.textStyle("Notes");
    drawing.dimensionStyle("Survey");
    drawing.block("Door", 4); // millimetres in a drawing in metres
    drawing.rootEntry("ACAD_MLINESTYLE", "F17");
    drawing.object("0\nDICTIONARY\n5\nF17\n330\nC\n100\nAcDbDictionary\n281\n1\n3\nStandard\n350\n"
                   "F18\n0\nMLINESTYLE\n5\nF18\n330\nF17\n100\nAcDbMlineStyle\n2\nStandard\n70\n0\n"
                   "3\n\n62\n256\n51\n90.0\n52\n90.0\n71\n2\n49\n0.5\n62\n256\n6\nBYLAYER\n49\n"
                   "-0.5\n62\n256\n6\nBYLAYER\n");
    std::vector<std::string> handles;
    for (const Case& row : cases)
        handles.push_back(row.entity.addTo(drawing));
    open(drawing);

    for (std::size_t at = 0; at < std::size(cases); ++at) {
        const Case& row = cases[at];
        SCOPED_TRACE(std::string(row.entity.type) + ": " + row.name);
        Description description;
        ObjectDef thing = object(row.word);
        ASSERT_TRUE(parseProperty(thing.props, row.keyword, row.value, row.accepted));
        description.objects[L"thing"] = thing;
        EXPECT_EQ(conforms(description, idOf(handles[at]), L"THING"), row.conforms);
    }
}

TEST_F(ConformityTest, AFullEllipseIsACircleAtEveryPrecision)
{
    for (int luprec = 0; luprec <= 8; ++luprec) {
        DxfDrawing drawing;
        drawing.luprec = luprec;
        const std::string full = kFullEllipse.addTo(drawing);
        const std::string half = kHalfEllipse.addTo(drawing);
        open(drawing, std::to_string(luprec) + ".dxf");
        ObjectDef thing = object(L"Ellipse");
        thing.props.ellipseMode = {kOneValue, L"circle", {}};
        Description description;
        description.objects[L"thing"] = thing;
        EXPECT_TRUE(conforms(description, idOf(full), L"thing")) << luprec;
        EXPECT_FALSE(conforms(description, idOf(half), L"thing")) << luprec;
    }
}

TEST_F(ConformityTest, OneFailingPropertyIsEnough)
{
    DxfDrawing drawing;
    drawing.layer("Walls");
    const std::string handle = drawing.line("Walls", "370\n13\n");
    open(drawing);
    ObjectDef wall = object(L"Line");
    ASSERT_TRUE(parseProperty(wall.props, L"layer", L"walls", L""));
    ASSERT_TRUE(parseProperty(wall.props, L"lineweight", L"25", L""));
    Description description;
    description.objects[L"wall"] = wall;
    EXPECT_FALSE(conforms(description, idOf(handle), L"wall"));
    description.objects[L"wall"].props.lineWeight.value = 13;
    EXPECT_TRUE(conforms(description, idOf(handle), L"wall"));
}

TEST_F(ConformityTest, AClassConformsThroughAnyOfItsObjects)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    const std::string circle = drawing.circle(1.0);
    open(drawing);
    Description description;
    description.objects[L"wall"] = object(L"Line");
    ClassDef inner;
    inner.name = L"Walls";
    inner.objects = {L"wall"};
    ClassDef outer;
    outer.name = L"Buildings";
    outer.children = {inner};
    description.rootClass.children = {outer};

    EXPECT_TRUE(conforms(description, idOf(line), L"buildings"));
    EXPECT_TRUE(conforms(description, idOf(line), L"WALLS"));
    EXPECT_FALSE(conforms(description, idOf(circle), L"Buildings"));
    EXPECT_FALSE(conforms(description, idOf(line), L"roofs"));
    EXPECT_TRUE(classConforms(description, idOf(line), description.rootClass));
}

TEST_F(ConformityTest, ATypeIsAcceptedByACompleteObjectOnly)
{
    DxfDrawing drawing;
    const std::string handle = drawing.line();
    open(drawing);
    const AcDbObjectPointer<AcDbEntity> line(idOf(handle), AcDb::kForRead);
    ASSERT_TRUE(line);
    ObjectDef thing = object(L"Circle");
    thing.props.types.push_back(L"Line");
    EXPECT_TRUE(typeAccepted(thing, *line));
    thing.props.types[0] = L"?";
    EXPECT_FALSE(typeAccepted(thing, *line));
    thing.props.types = {L"line"};
    EXPECT_FALSE(typeAccepted(thing, *line));
}

TEST_F(ConformityTest, WhatCannotBeOpenedDoesNotConform)
{
    DxfDrawing drawing;
    const std::string handle = drawing.line();
    open(drawing);
    Description description;
    description.objects[L"thing"] = object(L"Line");
    const AcDbObjectId id = idOf(handle);
    {
        const AcDbObjectPointer<AcDbEntity> line(id, AcDb::kForWrite);
        EXPECT_FALSE(conforms(description, id, L"thing"));
        line->erase();
    }
    EXPECT_FALSE(conforms(description, id, L"thing"));
}
