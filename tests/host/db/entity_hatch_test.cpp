#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mpolygon.h"
#include "tests/support/drawing_text.h"

#include <numbers>

using host::test::dxf;
using host::test::openText;
using host::test::StrokeText;

namespace {

constexpr double kPi = std::numbers::pi;

// Paths whose codes are those of the pattern's fields: an ellipse (40, 50, 51, 73), a spline's
// weights (42) and a polyline (72, 73).
const std::string kHead = "0 HATCH|5 A0|100 AcDbEntity|8 0|100 AcDbHatch|10 0|20 0|30 5|210 0|220 "
                          "0|230 1|2 ANSI31|70 0|71 1";
const std::string kPaths =
    "|91 2|92 1|93 2|72 3|10 1|20 1|11 4|21 0|40 0.5|50 0|51 180|73 1|72 1|10 -3|20 1|11 5|21 1|97 "
    "1|330 B0|92 2|72 1|73 1|93 3|10 0|20 0|42 0|10 8|20 0|42 1|10 8|20 8|42 0|97 2|330 B1|330 B2";
const std::string kPattern = "|75 1|76 2|52 30|41 2.5|77 1|78 1|53 75|43 1|44 2|45 -2|46 2|79 2|49 "
                             "1.5|49 -0.5|98 1|10 3|20 3";

} // namespace

TEST(Hatch, FieldsBehindThePathsAreNotTakenFromThem)
{
    ReadDrawing drawing = openText(kHead + kPaths + kPattern);
    AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(hatch.openStatus(), Acad::eOk);
    EXPECT_EQ(hatch->patternName(), L"ANSI31");
    EXPECT_EQ(hatch->patternType(), AcDbHatch::kCustomDefined);
    EXPECT_EQ(hatch->hatchStyle(), AcDbHatch::kOuter);
    EXPECT_NEAR(hatch->patternAngle(), kPi / 6, 1e-15);
    EXPECT_EQ(hatch->patternScale(), 2.5);
    EXPECT_TRUE(hatch->patternDouble());
    EXPECT_TRUE(hatch->associative());
    EXPECT_FALSE(hatch->isSolidFill());
    EXPECT_EQ(hatch->elevation(), 5.0);

    const std::vector<host::HatchLoop> loops = hatch->loops();
    ASSERT_EQ(loops.size(), 2u);
    EXPECT_EQ(loops[0].edges.size(), 2u);
    EXPECT_EQ(loops[0].sources, (std::vector<std::uint64_t>{0xB0}));
    ASSERT_EQ(loops[1].polyline.size(), 3u);
    EXPECT_EQ(loops[1].polyline[1].bulge, 1.0);
    EXPECT_EQ(loops[1].sources, (std::vector<std::uint64_t>{0xB1, 0xB2}));

    const std::vector<host::PatternLine> lines = hatch->patternLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].base, AcGePoint2d(1, 2));
    EXPECT_EQ(lines[0].offset, AcGeVector2d(-2, 2));
    EXPECT_EQ(lines[0].dashes, (std::vector<double>{1.5, -0.5}));
}

TEST(Hatch, FilledOneHasNeitherAngleNorScale)
{
    // the 41 and 52 of a path must not answer for them
    ReadDrawing drawing = openText("0 HATCH|5 A0|100 AcDbEntity|8 0|100 AcDbHatch|2 SOLID|70 1|71 "
                                   "0|91 1|92 1|93 1|72 2|10 0|20 0|40 9|50 12|51 120|73 1|97 0|75 "
                                   "0|76 1|98 0");
    AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(hatch.openStatus(), Acad::eOk);
    EXPECT_TRUE(hatch->isSolidFill());
    EXPECT_EQ(hatch->patternAngle(), 0.0);
    EXPECT_EQ(hatch->patternScale(), 1.0);
    EXPECT_EQ(hatch->patternType(), AcDbHatch::kPreDefined);
}

TEST(Hatch, SettersLeaveThePathsAlone)
{
    ReadDrawing drawing = openText(kHead + kPaths + kPattern);
    {
        AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForWrite);
        ASSERT_EQ(hatch.openStatus(), Acad::eOk);
        EXPECT_EQ(hatch->setPatternScale(0.0), Acad::eInvalidInput);
        EXPECT_EQ(hatch->setPatternAngle(kPi / 6), Acad::eOk);
        EXPECT_FALSE(hatch->isModified());
        EXPECT_EQ(hatch->setPatternAngle(kPi / 2), Acad::eOk);
        EXPECT_EQ(hatch->setPatternScale(4.0), Acad::eOk);
    }
    std::string wanted = kPattern;
    wanted.replace(wanted.find("52 30"), 5, "52 90.0").replace(wanted.find("41 2.5"), 6, "41 4.0");
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(kHead + kPaths + wanted));
}

TEST(Hatch, BackgroundColourStandsInExtendedData)
{
    struct Case {
        std::string data;
        int index; // 0 by block, 257 none
    };
    const Case cases[] = {
        {"", 257},
        {"|1001 HATCHBACKGROUNDCOLOR|1071 -1023410175", 1},  // C3000001
        {"|1001 HATCHBACKGROUNDCOLOR|1071 -1040187393", 0},  // C1FFFFFF
        {"|1001 HATCHBACKGROUNDCOLOR|1071 -1040187137", 5},  // C20000FF
        {"|1001 HATCHBACKGROUNDCOLOR|1071 -939524096", 257}, // C8000000
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.data);
        ReadDrawing drawing = openText(kHead + kPaths + kPattern + row.data);
        AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(hatch.openStatus(), Acad::eOk);
        EXPECT_EQ(hatch->backgroundColor().colorIndex(), row.index);
    }

    ReadDrawing drawing = openText(kHead + kPaths + kPattern);
    AcCmColor red;
    red.setRGB(255, 16, 1);
    {
        AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForWrite);
        ASSERT_EQ(hatch.openStatus(), Acad::eOk);
        EXPECT_EQ(hatch->setBackgroundColor(red), Acad::eOk);
    }
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf(kHead + kPaths + kPattern + "|1001 HATCHBACKGROUNDCOLOR") +
                  "1071\n-1023471615\n"); // C2FF1001
    {
        AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForWrite);
        EXPECT_EQ(hatch->backgroundColor(), red);
        AcCmColor none;
        none.setNone();
        EXPECT_EQ(hatch->setBackgroundColor(none), Acad::eOk);
    }
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(kHead + kPaths + kPattern));
}

TEST(Hatch, ErasedBoundaryIsForgotten)
{
    ReadDrawing drawing =
        openText(kHead + kPaths + kPattern +
                 "|0 LWPOLYLINE|5 B1|102 {ACAD_REACTORS|330 A0|102 }|100 AcDbEntity|8 0|100 "
                 "AcDbPolyline|90 0|70 1");
    {
        AcDbObjectPointer<AcDbPolyline> boundary(drawing.idOf("B1"), AcDb::kForWrite);
        ASSERT_EQ(boundary.openStatus(), Acad::eOk);
        boundary->erase();
    }
    AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(hatch.openStatus(), Acad::eOk);
    EXPECT_FALSE(hatch->associative());
    std::string paths = kPaths;
    paths.replace(paths.find("97 2|330 B1|330 B2"), 18, "97 1|330 B2");
    std::string head = kHead;
    head.replace(head.find("71 1"), 4, "71 0");
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(head + paths + kPattern));
}

TEST(Hatch, NewOneIsWrittenInOrder)
{
    ReadDrawing drawing = openText("0 POINT|5 A0|100 AcDbEntity|8 0|100 AcDbPoint|10 0|20 0|30 0");
    AcDbHatch hatch;
    EXPECT_EQ(hatch.setPatternAngle(kPi / 2), Acad::eOk); // before there are paths
    EXPECT_EQ(hatch.setPatternScale(2.0), Acad::eOk);
    EXPECT_EQ(hatch.setElevation(3.0), Acad::eOk);
    EXPECT_EQ(hatch.setNormal(AcGeVector3d::kZAxis), Acad::eOk);
    const host::PatternLine line{0.0, {0.0, 1.0}, {0.5, 1.5}, {1.0, -0.25}};
    EXPECT_EQ(hatch.setPatternLines(AcDbHatch::kPreDefined, L"MINE", {&line, 1}), Acad::eOk);
    EXPECT_EQ(hatch.setAssociative(true), Acad::eOk);
    host::HatchLoop loop;
    loop.type = AcDbHatch::kExternal | AcDbHatch::kPolyline;
    loop.polyline = {{{0, 0}}, {{4, 0}}, {{4, 4}}};
    loop.sources = {0xA0};
    EXPECT_EQ(hatch.setLoops({&loop, 1}), Acad::eOk);

    std::vector<int> codes;
    for (const host::Tag& tag : hatch.tags())
        codes.push_back(tag.code);
    const std::vector<int> wanted = {0,  100, 8,  100, 10, 20, 30, 210, 220, 230, 2,  70,  71, 91,
                                     92, 72,  73, 93,  10, 20, 10, 20,  10,  20,  97, 330, 75, 76,
                                     52, 41,  77, 78,  53, 43, 44, 45,  46,  79,  49, 49,  98};
    EXPECT_EQ(codes, wanted);

    // at a right angle the line runs up, its base lies to the left, the next line too
    const std::vector<host::PatternLine> lines = hatch.patternLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NEAR(lines[0].angle, kPi / 2, 1e-12);
    EXPECT_TRUE(lines[0].base.isEqualTo({-2.0, 0.0}));
    EXPECT_TRUE(lines[0].offset.isEqualTo({-3.0, 1.0}));
    EXPECT_EQ(lines[0].dashes, (std::vector<double>{2.0, -0.5}));

    EXPECT_EQ(hatch.setSolidFill(), Acad::eOk);
    EXPECT_TRUE(hatch.isSolidFill());
    EXPECT_EQ(hatch.patternName(), L"SOLID");
    EXPECT_EQ(hatch.patternScale(), 1.0);
    EXPECT_TRUE(hatch.patternLines().empty());
    EXPECT_EQ(hatch.loops().size(), 1u);
}

TEST(Hatch, DrawsFillsAndPatternLines)
{
    const std::string square =
        "|91 1|92 3|72 0|73 1|93 4|10 0|20 0|10 4|20 0|10 4|20 4|10 0|20 4|97 "
        "0|75 0|76 1";
    const std::string start =
        "0 HATCH|5 A0|100 AcDbEntity|8 0|100 AcDbHatch|10 0|20 0|30 0|2 X|70 ";
    const std::pair<std::string, std::string> cases[] = {
        {start + "1|71 0" + square + "|98 0", "fill 0,0 4,0 4,4 0,4\n"},
        {start + "0|71 0" + square + "|52 0|41 1|77 0|78 1|53 0|43 0|44 1|45 0|46 2|79 0|98 0",
         "line 0,1 4,1\nline 0,3 4,3\n"},
        // a dash of 1, a gap of 2, begun again at the base of each line
        {start + "0|71 0" + square +
             "|52 0|41 1|77 0|78 1|53 0|43 0|44 1|45 0.5|46 2|79 2|49 1|49 -2|98 0",
         "line 0,1 1,1\nline 3,1 4,1\nline 0.5,3 1.5,3\nline 3.5,3 4,3\n"},
        // too dense to be told from a fill
        {start + "0|71 0" + square +
             "|52 0|41 1|77 0|78 1|53 0|43 0|44 0|45 0|46 0.00001|79 0|98 0",
         "closed 0,0 4,0 4,4 0,4\n"},
        // so far from the origin that a step of the lines, or of the dashes, is lost
        {start + "0|71 0" + square + "|52 0|41 1|77 0|78 1|53 0|43 0|44 1e300|45 0|46 2|79 0|98 0",
         ""},
        {start + "0|71 0" + square +
             "|52 0|41 1|77 0|78 1|53 0|43 1e300|44 1|45 0|46 2|79 2|49 1|49 -2|98 0",
         ""},
    };
    for (const auto& [record, strokes] : cases) {
        SCOPED_TRACE(record);
        ReadDrawing drawing = openText(record);
        AcDbObjectPointer<AcDbHatch> hatch(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(hatch.openStatus(), Acad::eOk);
        StrokeText drawn;
        EXPECT_TRUE(hatch->strokes(drawn));
        EXPECT_EQ(drawn.text, strokes);
    }
}

TEST(MPolygon, ItsFieldsStandElsewhere)
{
    const std::string record =
        "0 MPOLYGON|5 A0|100 AcDbEntity|8 0|100 AcDbMPolygon|70 1|10 0|20 0|30 0|210 0|220 0|230 "
        "1|2 ANSI37|63 3|71 0|91 1|92 2|73 1|72 0|93 3|10 0|20 0|10 5|20 0|10 5|20 5|76 1|52 45|41 "
        "0.5|73 0|77 0|78 0|11 0|21 0|99 0";
    ReadDrawing drawing = openText(record);
    AcDbObjectPointer<AcDbMPolygon> polygon(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(polygon.openStatus(), Acad::eOk);
    EXPECT_EQ(polygon->patternName(), L"ANSI37");
    EXPECT_FALSE(polygon->isSolidFill());
    EXPECT_NEAR(polygon->patternAngle(), kPi / 4, 1e-15);
    EXPECT_EQ(polygon->patternScale(), 0.5);
    EXPECT_EQ(polygon->patternColor().colorIndex(), 3);
    EXPECT_EQ(polygon->numLoops(), 1);
    AcCmColor blue;
    blue.setColorIndex(5);
    EXPECT_EQ(polygon->setPatternColor(blue), Acad::eOk);
    std::string wanted = record;
    wanted.replace(wanted.find("63 3"), 4, "63 5");
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(wanted));
}
