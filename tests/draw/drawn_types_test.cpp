#include "host/db/hatch.h"
#include "host/edit/system_variables.h"
#include "tests/support/drawing_test.h"

// Every type that can be drawn, by the host's own command: one pass as it would be typed, and a
// second one that is cancelled.

namespace {

struct DrawnType {
    const char* type;
    const char* lines;   // properties
    const wchar_t* pass; // what the command is answered
    std::vector<std::string> made;
};

// At hand for what needs something to work on: a circle about 20,0 of radius 5, an arc about 40,0
// from 45,0 to 40,5, a square from 60,0 to 70,10.
class DrawnTypesTest : public ObjectDrawingTest {
protected:
    std::size_t openScene()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.dimensionStyle("Plan");
        drawing.entity("CIRCLE", "AcDbCircle", "10\n20.0\n20\n0.0\n30\n0.0\n40\n5.0\n");
        drawing.entity("ARC", "AcDbCircle",
                       "10\n40.0\n20\n0.0\n30\n0.0\n40\n5.0\n100\nAcDbArc\n50\n0.0\n51\n90.0\n");
        drawing.entity("LWPOLYLINE", "AcDbPolyline",
                       "90\n4\n70\n1\n10\n60.0\n20\n0.0\n10\n70.0\n20\n0.0\n10\n70.0\n20\n10.0\n10"
                       "\n60.0\n20\n10.0\n");
        open(drawing, "scene.dxf");
        return entities().size();
    }
};

Looks one(const char* word)
{
    return {std::string(word) + " Walls 1 THINGS"};
}

} // namespace

TEST_F(DrawnTypesTest, EachGetsItsPropertiesAndRecords)
{
    const wchar_t* const kLinear = L"0,0\n5,0\n2,3\n";
    const DrawnType cases[] = {
        {"3DFace", "", L"0,0\n1,0\n1,1\n0,1\n\n", one("3DFace")},
        {"3DPolyline", "obj_prop|closed|1\n", L"0,0\n1,0,1\n1,1,2\n\n", one("3DPolyline")},
        {"Circle", "", L"0,0\n2\n", one("Circle")},
        {"Circle", "obj_prop|circlemode|2P\n", L"0,0\n2,0\n", one("Circle")},
        {"Circle", "obj_prop|circlemode|3P\n", L"0,0\n1,1\n2,0\n", one("Circle")},
        {"Circle", "obj_prop|circleradius|2\n", L"0,0\n", one("Circle")},
        {"Dimension", "obj_prop|dimensionmode|Linear\n", kLinear, one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Aligned\nobj_prop|dimensionstyle|plan\n", kLinear,
         one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Angular\n", L"\n0,0\n5,0\n0,5\n2,2\n",
         one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Arc\n", L"45,0\n47,7\n", one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Diameter\n", L"25,0\n22,2\n", one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Jogged\n", L"25,0\n10,0\n18,2\n14,1\n",
         one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Ordinate\n", L"1,1\n1,3\n", one("Dimension")},
        {"Dimension", "obj_prop|dimensionmode|Radius\n", L"25,0\n22,2\n", one("Dimension")},
        {"Dimension",
         "",
         L"hor\n0,0\n5,0\n2,3\n\nver\n0,0\n0,5\n3,2\n\nexit\n",
         {"Dimension Walls 1 THINGS", "Dimension Walls 1 THINGS"}},
        {"Ellipse", "", L"0,0\n4,0\n1\n", one("Ellipse")},
        {"Ellipse", "obj_prop|ellipsemode|Arc\n", L"0,0\n4,0\n1\n0\n90\n", one("Ellipse")},
        {"Line", "", L"0,0\n1,0\n2,0\n\n", {"Line Walls 1 THINGS", "Line Walls 1 THINGS"}},
        {"Mesh", "obj_prop|meshmode|Box\n", L"0,0\n2,2\n1\n", one("Mesh")},
        {"Mesh", "", L"sphere\n0,0\n1\n", one("Mesh")},
        {"MLeader", "", L"0,0\n5,5\nOak\n", one("MLeader")},
        {"Mline", "obj_prop|mlinescale|2\n", L"0,0\n5,0\n\n", one("Mline")},
        {"MPolygon", "obj_prop|pattern|solid\n", L"0,0\n4,0\n4,4\n\n\n", one("MPolygon")},
        {"Point", "", L"3,4\n", one("Point")},
        {"Polyline", "obj_prop|constantwidth|0.5\n", L"0,0\n1,0\n\n", one("Polyline")},
        {"Hatch",
         "obj_prop|hatchmode|boundary\nobj_prop|pattern|solid\n",
         L"0,0\n4,0\n4,4\n\n",
         {"Polyline 0 256", "Hatch Walls 1 THINGS"}},
        {"Hatch", "obj_prop|hatchmode|boundary\nobj_prop|pattern|solid\n", L"0,0\n4,0\n\n", {}},
        {"Ray", "", L"0,0\n1,1\n\n", one("Ray")},
        {"Spline", "obj_prop|closed|1\n", L"0,0\n1,1\n2,0\n\n", one("Spline")},
        {"Wipeout", "", L"0,0\n4,0\n4,4\n\n", one("Wipeout")},
        {"Xline", "", L"0,0\n1,1\n\n", one("Xline")},
        {"Text", "obj_prop|text|Oak\n", L"3,4\n\n", one("Text")},
        {"MText", "obj_prop|text|Oak\n", L"3,4\n\n", one("MText")},
    };
    for (const DrawnType& each : cases) {
        SCOPED_TRACE(std::string(each.type) + " " + each.lines);
        const std::size_t before = openScene();
        load(std::string("obj_name|Thing|1|5\nobj_type|") + each.type +
             "\nobj_prop|layer|walls\nobj_prop|color|1\n" + each.lines +
             "od_name|THINGS\nod_key|NAME\n");
        const std::wstring printed =
            transcript(std::wstring(L"kelmaro_draw Thing\n") + each.pass + L"\x3");
        Looks made = drawn();
        made.erase(made.begin(), made.begin() + static_cast<std::ptrdiff_t>(before));
        EXPECT_EQ(made, each.made) << host::toUtf8(printed);
        EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
    }
}

// One pass ends it.
TEST_F(DrawnTypesTest, HatchesAreNotRepeated)
{
    struct Row {
        const char* lines;
        const wchar_t* pattern;
    };
    for (const Row& row : {Row{"obj_prop|pattern|Solid\nobj_prop|patternscale|3\n", L"SOLID"},
                           Row{"obj_prop|pattern|ansi31\nobj_prop|patternscale|0.5\n"
                               "obj_prop|patternangle|30\n",
                               L"ANSI31"},
                           Row{"obj_prop|pattern|ansi31\nobj_prop|patternangle|30\n", L"ANSI31"}}) {
        SCOPED_TRACE(row.lines);
        const std::size_t before = openScene();
        load(std::string("obj_name|Thing|1|5\nobj_type|Hatch\nobj_prop|layer|walls\n"
                         "obj_prop|backgroundcolor|3\nvariable|LUPREC|6\n") +
             row.lines);
        const std::wstring printed = transcript(L"kelmaro_draw Thing\n65,5\n\n");
        EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
        EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
        ASSERT_EQ(entities().size(), before + 1) << host::toUtf8(printed);
        EXPECT_EQ(look(last()), "Hatch Walls 256");
        const auto hatch = opened<AcDbHatch>(last());
        EXPECT_EQ(hatch->patternName(), row.pattern);
        EXPECT_EQ(hatch->backgroundColor().colorIndex(), 3);
    }
}
