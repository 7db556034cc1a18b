#include "host/db/block_table.h"
#include "host/db/hatch.h"
#include "host/db/hatch_lines.h"
#include "host/edit/document.h"
#include "host/geom/polyline.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

#include <numbers>
#include <vector>

namespace {

constexpr double kPi = std::numbers::pi;

class HatchCommand : public DrawingTest {
protected:
    HatchCommand()
    {
        type(L"");
        printed();
    }

    std::size_t hatches()
    {
        std::size_t count = 0;
        for (const AcDbObjectId id : entities())
            count += AcDbObjectPointer<AcDbHatch>(id, AcDb::kForRead) ? 1 : 0;
        return count;
    }

    // Pattern, and "type:sources" of each path.
    std::string hatch()
    {
        const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
        if (!found)
            return "none";
        std::string text = host::toUtf8(found->patternName());
        for (const host::HatchLoop& loop : found->loops())
            text += " " + std::to_string(loop.type) + ":" + std::to_string(loop.sources.size());
        return text;
    }
    // By its paths, even-odd; arcs by fine chords.
    double area()
    {
        const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
        double sum = 0.0;
        if (!found)
            return sum;
        std::vector<double> sizes;
        for (const host::HatchLoop& loop : found->loops()) {
            const bool island = (loop.type & AcDbHatch::kExternal) == 0;
            const double size =
                std::abs(host::signedArea(loop.outline(AcGeMatrix3d::kIdentity, 0.0, 1e-7)));
            sum += island ? -size : size;
        }
        return sum;
    }

    // A square of 10 with a round island of 2, and a half disc of 5 beside it.
    void drawShapes()
    {
        type(L"line\n0,0\n10,0\n10,10\n0,10\nc\n");
        type(L"circle\n5,5\n2\n");
        type(L"arc\nc\n25,0\n30,0\n20,0\n");
        type(L"line\n20,0\n30,0\n\n");
        printed();
    }
};

} // namespace

TEST_F(HatchCommand, AsksAsThePlatformDoes)
{
    drawShapes();
    EXPECT_EQ(transcript(L"-hatch\np\nansi37\n2\n45\n1,1\n\n"),
              L"-hatch\nCurrent hatch pattern:  ANSI31\n"
              L"Specify internal point or "
              L"[Properties/Select objects/draW boundary/Advanced/Undo]: p\n"
              L"Enter a pattern name or [Solid/User defined] <ANSI31>: ansi37\n"
              L"Specify a scale for the pattern <1.0000>: 2\n"
              L"Specify an angle for the pattern <0>: 45\n"
              L"Current hatch pattern:  ANSI37\n"
              L"Specify internal point or "
              L"[Properties/Select objects/draW boundary/Advanced/Undo]: 1,1\n"
              L"Selecting everything visible...\nAnalyzing the selected data...\n"
              L"Specify internal point or "
              L"[Properties/Select objects/draW boundary/Advanced/Undo]: \nCommand: ");
    EXPECT_EQ(hatch(), "ANSI37 5:4 20:1");
    EXPECT_NEAR(area(), 100.0 - 4.0 * kPi, 1e-4);
    const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->patternScale(), 2.0);
    EXPECT_NEAR(found->patternAngle(), kPi / 4, 1e-12);
    EXPECT_TRUE(found->associative());
    const std::vector<host::PatternLine> lines = found->patternLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].angle, kPi / 2, 1e-12);
    EXPECT_EQ(found->getAssocObjIds().size(), 5u);
    for (const AcDbObjectId source : found->getAssocObjIds()) {
        const AcDbObjectPointer<AcDbEntity> entity(source, AcDb::kForRead);
        EXPECT_EQ(entity->persistentReactors(), std::vector<AcDbObjectId>{last()});
    }
}

TEST_F(HatchCommand, AreasByPoints)
{
    drawShapes();
    struct Case {
        const wchar_t* typed;
        const char* hatch;
        double area;
    };
    const Case cases[] = {
        {L"-hatch\n1,1\n\n", "ANSI31 5:4 20:1", 100.0 - 4.0 * kPi},
        {L"-hatch\n5,5\n\n", "ANSI31 5:1", 4.0 * kPi},
        {L"-hatch\n25,1\n\n", "ANSI31 5:2", 12.5 * kPi},
        {L"-hatch\n25,1\n5,5\n\n", "ANSI31 5:2 5:1", 16.5 * kPi},
        {L"-hatch\n25,1\n5,5\nu\n\n", "ANSI31 5:2", 12.5 * kPi},
        {L"-hatch\na\ns\ni\n\n1,1\n\n", "ANSI31 5:4", 100.0},
        {L"-hatch\na\ns\nn\na\nn\n\n1,1\n\n", "ANSI31 5:0 20:0", 100.0 - 4.0 * kPi},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(host::toUtf8(row.typed));
        const std::size_t before = hatches();
        type(row.typed);
        EXPECT_EQ(hatches(), before + 1);
        EXPECT_EQ(hatch(), row.hatch);
        EXPECT_NEAR(area(), row.area, 1e-4);
    }
    EXPECT_TRUE(transcript(L"-hatch\n15,5\n\n").find(L"Valid hatch boundary not found.\n") !=
                std::wstring::npos);
    EXPECT_EQ(hatches(), std::size(cases));
}

TEST_F(HatchCommand, LinesWithoutEndsBoundAsOthersDo)
{
    drawShapes();
    type(L"xline\n5,5\n5,9\n\nray\n5,5\n9,5\n\nline\n1e12,0\n1e12,9\n\n");
    type(L"-hatch\n5.5,5.5\n\n");
    EXPECT_EQ(hatch(), "ANSI31 5:3");
    EXPECT_NEAR(area(), kPi, 1e-6);
    type(L"-hatch\ns\nall\n\n\n"); // they enclose nothing by themselves
    EXPECT_EQ(hatches(), 2u);
    EXPECT_EQ(hatch(), "ANSI31 1:4 1:2 16:1");
}

// As scripts send it: blanks end answers, a missing number is the default.
TEST_F(HatchCommand, PropertiesInOneLine)
{
    drawShapes();
    struct Case {
        const wchar_t* typed;
        const char* name;
        double scale;
        double degrees;
    };
    const Case cases[] = {
        {L"_.-hatch _p SOLID\n1,1\n\n", "SOLID", 1.0, 0.0},
        {L"_.-hatch _p \"ansi31\" 1.500000 30.000000\n1,1\n\n", "ANSI31", 1.5, 30.0},
        {L"_.-hatch _p \"ansi31\"  \n1,1\n\n", "ANSI31", 1.5, 30.0},
        {L"_.-hatch _p \"ansi31\" 2.000000 \n1,1\n\n", "ANSI31", 2.0, 30.0},
        {L"_.-hatch _p \"\" 1.000000 0.000000\n1,1\n\n", "ANSI31", 1.0, 0.0},
        {L"_.-hatch _p \"nowhere\"\nansi37 1 0\n1,1\n\n", "ANSI37", 1.0, 0.0},
        {L"_.-hatch _p _s 1,1\n\n", "SOLID", 1.0, 0.0},
    };
    for (const auto& [typed, name, scale, degrees] : cases) {
        SCOPED_TRACE(host::toUtf8(typed));
        type(typed);
        const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
        ASSERT_TRUE(found);
        EXPECT_EQ(host::toUtf8(found->patternName()), name);
        EXPECT_EQ(found->patternScale(), scale);
        EXPECT_NEAR(found->patternAngle(), degrees * kPi / 180.0, 1e-12);
        EXPECT_EQ(found->isSolidFill(), std::string(name) == "SOLID");
    }
    EXPECT_EQ(hatches(), std::size(cases));
}

TEST_F(HatchCommand, UserDefinedLines)
{
    drawShapes();
    type(L"-hatch\np\nu\n30\n0.5\ny\n1,1\n\n");
    const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->patternType(), AcDbHatch::kUserDefined);
    const std::vector<host::PatternLine> lines = found->patternLines();
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_NEAR(lines[0].angle, kPi / 6, 1e-12);
    EXPECT_NEAR(lines[1].angle, kPi * 2 / 3, 1e-12);
    EXPECT_NEAR(lines[0].offset.length(), 0.5, 1e-12);
}

TEST_F(HatchCommand, ObjectsAndDrawnBoundaries)
{
    drawShapes();
    type(L"pline\n40,0\n50,0\n50,10\n40,10\nc\n");
    type(L"circle\n45,5\n3\ncircle\n45,5\n1\n");
    // closed ones by themselves, islands in islands hatched again
    type(L"-hatch\ns\nc\n39,-1\n51,11\n\n\n");
    EXPECT_EQ(hatch(), "ANSI31 3:1 16:1 0:1");
    // the innermost is neither external nor an island: its area counts again
    EXPECT_NEAR(area() + 2.0 * kPi, 100.0 - 9.0 * kPi + kPi, 1e-4);
    type(L"-hatch\ns\n25,0\n\n\n"); // one line encloses nothing
    EXPECT_NE(printed().find(L"The selected objects enclose no area.\n"), std::wstring::npos);
    EXPECT_EQ(hatches(), 1u);

    type(L"-hatch\nw\nn\n60,0\n70,0\n70,10\n60,10\nc\n80,0\n90,0\n80,10\n\n\n\n");
    EXPECT_EQ(hatch(), "ANSI31 3:0 3:0");
    EXPECT_NEAR(area(), 150.0, 1e-9);
    const std::size_t before = entities().size();
    type(L"-hatch\nw\ny\n60,20\n70,20\n70,30\nc\n\n\n");
    EXPECT_EQ(entities().size(), before + 2); // the polyline, too
    EXPECT_EQ(hatch(), "ANSI31 3:1");
}

TEST_F(HatchCommand, WhatIsNotSeenOrNotALineIsNoBoundary)
{
    DxfDrawing drawing;
    drawing.layer("Off", 0, -7);
    const auto line = [](const char* from, const char* to) {
        const std::string a(from);
        const std::string b(to);
        return "10\n" + a.substr(0, a.find(' ')) + "\n20\n" + a.substr(a.find(' ') + 1) +
               "\n30\n3.0\n11\n" + b.substr(0, b.find(' ')) + "\n21\n" + b.substr(b.find(' ') + 1) +
               "\n31\n3.0\n";
    };
    for (const auto& [from, to] : {std::pair("0.0 0.0", "30.0 0.0"),
                                   {"30.0 0.0", "30.0 10.0"},
                                   {"30.0 10.0", "0.0 10.0"},
                                   {"0.0 10.0", "0.0 0.0"}})
        drawing.entity("LINE", "AcDbLine", line(from, to));
    drawing.entity("LINE", "AcDbLine", line("15.0 0.0", "15.0 10.0"), "Off");
    drawing.entity("TEXT", "AcDbText",
                   "10\n10.0\n20\n4.0\n30\n3.0\n40\n2.0\n1\nABC\n100\nAcDbText\n");
    open(drawing);
    type(L"hpname\nSOLID\n");
    type(L"-hatch\n1,1\n\n");
    EXPECT_EQ(hatch(), "SOLID 5:4 10:1"); // around the text, across the line that is off
    const AcDbObjectPointer<AcDbHatch> found(last(), AcDb::kForRead);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->elevation(), 3.0);
    EXPECT_EQ(found->loops()[1].polyline.front().point, AcGePoint2d(10.0, 4.0));
}

TEST_F(HatchCommand, SeparateHatches)
{
    drawShapes();
    type(L"-hatch\na\nh\ny\n\n25,1\n5,5\n\n");
    EXPECT_EQ(hatches(), 2u);
}

TEST_F(HatchCommand, CancelAnywhereLeavesNoHatch)
{
    drawShapes();
    const std::size_t before = entities().size();
    for (const wchar_t* const typed :
         {L"-hatch\n", L"-hatch\n1,1\n", L"-hatch\np\n", L"-hatch\np\nansi31\n",
          L"-hatch\n1,1\ns\n", L"-hatch\n1,1\nw\nn\n60,0\n70,0\n", L"-hatch\n1,1\na\ns\n"}) {
        SCOPED_TRACE(host::toUtf8(typed));
        EXPECT_FALSE(type(typed).command.empty());
        EXPECT_TRUE(type(L"\x1b").command.empty());
        EXPECT_EQ(entities().size(), before);
    }
}
