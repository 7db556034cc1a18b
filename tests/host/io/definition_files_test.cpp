#include "host/io/definition_files.h"

#include "host/io/lin_file.h"
#include "host/io/mln_file.h"
#include "host/io/pat_file.h"
#include "host/io/shape_names.h"
#include "tests/host/files/temporary_folder.h"

#include <gtest/gtest.h>

#include <cwchar>
#include <numbers>

using namespace host;

namespace {

class PatternFileInFolder : public TemporaryFolder {};

} // namespace

TEST(PatternFile, KeepsWhatIsGoodOfABrokenFile)
{
    const std::vector<PatternDefinition> patterns =
        readPatterns(L"; a remark\n 0,0,0,0,1\n"
                     L"*First, with, commas\r\n"
                     L"45, .5,-1., 0,2 ; behind a line\r\n"
                     L"45, 0, 0, 0\r\n"         // too short
                     L"x, 0, 0, 0, 1\r\n"       // no number
                     L"0, 0, 0, 0, 1, 2, , 3\n" // a hole
                     L"90,1,2,3,4,5,-6,0\n"
                     L"*, nameless\n0,0,0,0,1\n"
                     L"  *Empty\n\n"
                     L"*Last\n0,0,0,0,1e1");
    ASSERT_EQ(patterns.size(), 3u);
    EXPECT_EQ(patterns[0].name, L"First");
    ASSERT_EQ(patterns[0].lines.size(), 2u);
    EXPECT_NEAR(patterns[0].lines[0].angle, std::numbers::pi / 4, 1e-15);
    EXPECT_EQ(patterns[0].lines[0].base, AcGePoint2d(0.5, -1));
    EXPECT_EQ(patterns[0].lines[0].offset, AcGeVector2d(0, 2));
    EXPECT_TRUE(patterns[0].lines[0].dashes.empty());
    EXPECT_EQ(patterns[0].lines[1].offset, AcGeVector2d(3, 4));
    EXPECT_EQ(patterns[0].lines[1].dashes, (std::vector<double>{5, -6, 0}));
    EXPECT_EQ(patterns[1].name, L"Empty");
    EXPECT_TRUE(patterns[1].lines.empty());
    EXPECT_EQ(patterns[2].name, L"Last");
    ASSERT_EQ(patterns[2].lines.size(), 1u);
    EXPECT_EQ(patterns[2].lines[0].offset.y, 10.0);
}

TEST(LinetypeFile, ReadsDashesTextsAndShapes)
{
    const std::vector<LinetypeDefinition> linetypes =
        readLinetypes(L";; a remark\n"
                      L"*GAS, Gas, pipe ----GAS----\n"
                      L"A,.5,-.2,[\"GAS, [1]\",STANDARD,S=.1,U=90,X=-0.1,Y=-.05],-.25\n"
                      L"*TRACK,Rails\na, .15,[TRACK1,rails.shx,S=.25,R=100g],.15\n"
                      L"*gas,a second one\nA,1\n");
    ASSERT_EQ(linetypes.size(), 2u);
    EXPECT_EQ(linetypes[0].name, L"GAS");
    EXPECT_EQ(linetypes[0].description, L"Gas, pipe ----GAS----");
    ASSERT_EQ(linetypes[0].dashes.size(), 3u);
    EXPECT_TRUE(linetypes[0].dashes[0].text.empty());
    const LinetypeDash& text = linetypes[0].dashes[1];
    EXPECT_EQ(text.length, -0.2);
    EXPECT_EQ(text.text, L"GAS, [1]");
    EXPECT_EQ(text.style, L"STANDARD");
    EXPECT_EQ(text.scale, 0.1);
    EXPECT_EQ(text.rotation, 90.0);
    EXPECT_TRUE(text.upright);
    EXPECT_FALSE(text.absolute);
    EXPECT_EQ(text.x, -0.1);
    EXPECT_EQ(text.y, -0.05);
    const LinetypeDash& shape = linetypes[1].dashes[0];
    EXPECT_EQ(shape.shape, L"TRACK1");
    EXPECT_EQ(shape.style, L"rails.shx");
    EXPECT_NEAR(shape.rotation, 90.0, 1e-12);
}

TEST(LinetypeFile, LeavesBrokenLinetypesOut)
{
    const std::pair<const wchar_t*, const wchar_t*> rows[] = {
        {L"no line at all", L"*X,d\n"},
        {L"not a number", L"*X,d\nA,.5,-.x\n"},
        {L"another alignment", L"*X,d\nB,.5\n"},
        {L"nothing behind the alignment", L"*X,d\nA,\n"},
        {L"a bracket before any dash", L"*X,d\nA,[\"T\",S],1\n"},
        {L"a bracket that stays open", L"*X,d\nA,1,[\"T\",S,-1\n"},
        {L"an unknown setting", L"*X,d\nA,1,[\"T\",S,Q=1],-1\n"},
        {L"no name", L"*,d\nA,1\n"},
    };
    for (const auto& [name, text] : rows) {
        SCOPED_TRACE(std::string(name, name + std::wcslen(name)));
        const std::vector<LinetypeDefinition> linetypes =
            readLinetypes(std::wstring(text) + L"*GOOD,d\nA,1,-1\n");
        ASSERT_EQ(linetypes.size(), 1u);
        EXPECT_EQ(linetypes[0].name, L"GOOD");
    }
}

TEST(MlineStyleFile, ReadsStylesAndLeavesBrokenOnesOut)
{
    const std::vector<MlineStyleDefinition> styles =
        readMlineStyles(L"MLSTYLE\n  2\nROAD\n 70\n272\n  3\nA road\n 62\n3\n 51\n45.0\n 52\n90.0\n"
                        L" 71\n2\n 49\n1.5\n 62\n1\n  6\nDASHED\n 49\n-1.5\n 62\n256\n  6\n"
                        L"BYLAYER\n  0\n"
                        L"MLSTYLE\n  2\nNOTHING\n 71\n0\n  0\n"
                        L"MLSTYLE\n  2\nBROKEN\n 49\nx\n  0\n"
                        L"MLSTYLE\n  2\nLOST\nhalf a group\n 49\n1\n  0\n"
                        L"MLSTYLE\n  2\nroad\n 49\n1\n  0\n"
                        L"MLSTYLE\n  2\nLAST\n 49\n1");
    ASSERT_EQ(styles.size(), 2u);
    EXPECT_EQ(styles[0].name, L"ROAD");
    EXPECT_EQ(styles[0].description, L"A road");
    EXPECT_EQ(styles[0].flags, 272);
    EXPECT_EQ(styles[0].fill, 3);
    EXPECT_EQ(styles[0].startAngle, 45.0);
    ASSERT_EQ(styles[0].elements.size(), 2u);
    EXPECT_EQ(styles[0].elements[0].offset, 1.5);
    EXPECT_EQ(styles[0].elements[0].color, 1);
    EXPECT_EQ(styles[0].elements[0].linetype, L"DASHED");
    EXPECT_EQ(styles[1].name, L"LAST");
}

TEST(ShapeNames, AreFoundInACompiledFile)
{
    using namespace std::string_literals;
    const std::string file = "shapes V1.0\r\n\x1A"s +
                             "\x80\0\x82\0\x02\0"s + // 128 to 130, two shapes
                             "\x80\0\x07\0\x82\0\x09\0"s + "BOX\0\x01\x02\0"s + "TRACK1\0\x03\0"s;
    EXPECT_EQ(shapeNumberIn(file, "BOX"), 128);
    EXPECT_EQ(shapeNumberIn(file, "track1"), 130);
    EXPECT_EQ(shapeNumberIn(file, "TRACK"), 0);
    for (std::size_t length = 0; length < file.size(); ++length)
        shapeNumberIn(std::string_view(file).substr(0, length), "TRACK1");
    EXPECT_EQ(shapeNumberIn("no shape file", "BOX"), 0);
}

TEST_F(PatternFileInFolder, IsReadAgainOnceItHasChanged)
{
    const std::filesystem::path file = folder_ / "own.pat";
    DefinitionFileReader files;
    PatternDefinition pattern;
    EXPECT_EQ(files.pattern(file, L"One", pattern), Acad::eFileNotFound);
    EXPECT_EQ(files.pattern(folder_, L"One", pattern), Acad::eFileNotFound);
    make("own.pat", "\xEF\xBB\xBF*One,d\n0,0,0,0,1\n");
    EXPECT_EQ(files.pattern(file, L"ONE", pattern), Acad::eOk);
    EXPECT_EQ(pattern.name, L"One");
    EXPECT_EQ(files.pattern(file, L"Two", pattern), Acad::eKeyNotFound);
    make("own.pat", "*One,d\n0,0,0,0,1\n*Two,d\n0,0,0,0,2\n");
    EXPECT_EQ(files.pattern(file, L"two", pattern), Acad::eOk);
    EXPECT_EQ(pattern.lines[0].offset.y, 2.0);
}
