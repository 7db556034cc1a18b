#include "host/edit/environment.h"
#include "tests/description/description_test.h"
#include "tests/support/resource_drawing.h"

#include <set>

namespace {

using Paths = std::vector<std::wstring>;

class ResourceDirectives : public DescriptionTest {
protected:
    void make(const std::string& name, const std::string& bytes = DxfDrawing().text())
    {
        const std::filesystem::path path = folder() / name;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << bytes;
    }
    std::wstring in(const std::wstring& name) { return folder().wstring() + L"/" + name; }
    // The titles of the resource files that a description visits.
    Paths visitedBy(const std::wstring& source)
    {
        EXPECT_EQ(messagesOf(source), L"");
        Paths files;
        for (const std::wstring& path : description_.resourceFiles)
            files.push_back(path.substr(path.find_last_of(L'/') + 1));
        return files;
    }
    std::wstring supportPath()
    {
        std::wstring value;
        EXPECT_EQ(acedGetEnv(L"ACAD", value), RTNORM);
        return value;
    }

    const std::wstring own = (folder() / "profile" / "support").wstring();
};

} // namespace

TEST_F(ResourceDirectives, APatternThatNothingMatchesEndsTheLoad)
{
    make("maps/readme.txt", "");
    const struct {
        const wchar_t* pattern;
        std::wstring resolved;
    } cases[] = {
        {L"none.dwg", in(L"none.dwg")},
        {L"maps\\none?.dwg", in(L"maps/none?.dwg")},
        {L"\\none.dwg", in(L"/none.dwg")}, // no drive, so relative all the same
        {L"\\\\server\\none.dwg", in(L"//server/none.dwg")},
        {L"maps", in(L"maps")}, // a folder is no file
        {L"map*", in(L"map*")},
        {L"/nowhere/none.dwg", L"/nowhere/none.dwg"},
        {L"c:\\nowhere\\none.dwg", L"c:/nowhere/none.dwg"},
        {L"$(x)", in(L"$(x)")},
    };
    for (const wchar_t* keyword : {L"layer", L"font", L"pattern", L"blockreferencefile"}) {
        for (const auto& [pattern, resolved] : cases) {
            EXPECT_EQ(messagesOf(std::wstring(keyword) + L"\t" + pattern + L"\nfoo\n"),
                      L"error: invalid path: '" + resolved + L"'\n");
            EXPECT_TRUE(isEmpty());
        }
    }
}

TEST_F(ResourceDirectives, FilesAreFoundFromTheDescriptionsFolder)
{
    make("a.dwg");
    make("Maps/B.dwg");
    EXPECT_EQ(visitedBy(L"layout\ta.dwg\n"), Paths{L"a.dwg"});
    EXPECT_EQ(visitedBy(L"layout\tMAPS\\b.DWG\n"), Paths{L"b.dwg"});
    EXPECT_EQ(visitedBy(L"layout\tmaps/../maps/b.dwg\n"), Paths{L"b.dwg"});
    EXPECT_EQ(visitedBy(L"layout\t" + in(L"maps/b.dwg") + L"\n"), Paths{L"b.dwg"});
    EXPECT_EQ(visitedBy(L"layout\tz:" + in(L"a.dwg") + L"\n"), Paths{L"a.dwg"});
}

TEST_F(ResourceDirectives, OnlyDrawingsSupplyLayouts)
{
    for (const char* name : {"c.dwt", "a.dwg", "B.dwg", "d.DWG", "e.dwg.dwg", "f.lin", "g.dxf"})
        make(name);
    EXPECT_EQ(visitedBy(L"layout\t*\n"), (Paths{L"a.dwg", L"b.dwg", L"c.dwt"}));
    EXPECT_EQ(visitedBy(L"Layout\t?.dwt\nlayout\td.dwg\n"), Paths{L"c.dwt"});
    EXPECT_EQ(visitedBy(L"layout\t*.dxf\nlayout\tf.*\n"), Paths{});
}

TEST_F(ResourceDirectives, EachDirectiveTakesItsOwnExtensions)
{
    for (const char* name : {"a.dwg", "a.dwt"})
        make(name);
    make("a.lin", "*T\nA,1,-1\n");
    make("a.mln", "");
    make("a.pat", "*T\n0,0,0,0,1\n");
    const struct {
        const wchar_t* keyword;
        const wchar_t* property;
        Paths files;
    } cases[] = {
        {L"blockreference", L"blockname", {L"a.dwg", L"a.dwt"}},
        {L"dimension", L"dimensionstyle", {L"a.dwg", L"a.dwt"}},
        {L"layer", L"layer", {L"a.dwg", L"a.dwt"}},
        {L"linetype", L"linetype", {L"a.dwg", L"a.dwt", L"a.lin"}},
        {L"mleader", L"mleaderstyle", {L"a.dwg", L"a.dwt"}},
        {L"mline", L"mlinestyle", {L"a.dwg", L"a.dwt", L"a.mln"}},
        {L"pattern", L"pattern", {L"a.pat"}},
        {L"textstyle", L"textstyle", {L"a.dwg", L"a.dwt"}},
    };
    for (const auto& [keyword, property, files] : cases) {
        SCOPED_TRACE(host::toUtf8(keyword));
        messagesOf(std::wstring(keyword) + L"\ta.*\nobj_name\tx\t1\t1\nobj_type\tLine\nobj_prop\t" +
                   property + L"\tnowhere\n");
        Paths expected;
        for (const std::wstring& file : files)
            expected.push_back(host::lowerCased(in(file)));
        EXPECT_EQ(description_.resourceFiles, expected);
    }
}

TEST_F(ResourceDirectives, BlockFilesAreKnownByTheirTitles)
{
    make("b/Tree.dwg");
    make("a/TREE.dwt");
    make("a/Big Pump.dwg");
    make("a/skipped.DWG");
    EXPECT_EQ(messagesOf(L"blockreferencefile\tb\\*\nblockreferencefile\ta\\*\n"
                         L"obj_name\tx\t1\t1\nobj_type\tBlockReference\nobj_prop\tblockname\ttree\n"
                         L"obj_name\ty\t1\t1\nobj_type\tBlockReference\nobj_prop\tblockname\tBIG "
                         L"pump\n"),
              L"");
    ASSERT_EQ(description_.blockFiles.size(), 2U);
    const BlockFileDef& tree = description_.blockFiles.at(L"tree"); // the first directive's
    EXPECT_EQ(tree.path, host::lowerCased(in(L"b/Tree.dwg")));
    EXPECT_EQ(tree.blockName, L"Tree");
    EXPECT_EQ(description_.blockFiles.at(L"big pump").blockName, L"Big Pump");
}

TEST_F(ResourceDirectives, FontsTellTheHostTheirFolderAtOnce)
{
    make("Fonts/a.shx");
    make("Fonts/b.shx");
    make("capitals/c.SHX");
    make("types/d.ttf");
    make("shapes/e.shx");
    EXPECT_EQ(messagesOf(L"font\tcapitals\\*\nfont\ttypes\\*\n"), L"");
    EXPECT_EQ(supportPath(), own);
    EXPECT_EQ(messagesOf(L"font\tFONTS\\*\nlinetype\tshapes\\e.shx\nfoo\n"),
              L"3: error: invalid syntax: 'foo'\n");
    EXPECT_EQ(supportPath(), own + L";" + in(L"Fonts") + L";" + in(L"shapes") + L";");
    EXPECT_EQ(messagesOf(L"linetype\tFonts\\*\n"), L"");
    EXPECT_EQ(supportPath(), own + L";" + in(L"Fonts") + L";" + in(L"shapes") + L";");
}

TEST_F(ResourceDirectives, AFontThatCannotBeHadDropsTheModelLater)
{
    // The support path cannot be kept while a folder stands in the place of the profile.
    std::filesystem::remove(folder() / "profile" / "profile");
    std::filesystem::create_directories(folder() / "profile" / "profile");
    const std::wstring object = L"obj_name\tx\t1\t1\nobj_type\tLine\n";
    const SourceAndMessages cases[] = {
        {L"", L""},
        {L"foo\n", L"2: error: invalid syntax: 'foo'\n"},
        {L"class\ta\t1\n", L""}, // it does not get as far as that
        {L"obj_name\tx\t1\t1\n", L""},
        {object + L"obj_name\ty\t1\t1\nfoo\n", L"5: error: invalid syntax: 'foo'\n"},
        {L"variable\tLUPREC\t2\nfoo\n", L""},
        {L"variable\tNOSUCHNAME\t2\nfoo\n", L"2: warning: invalid variable 'NOSUCHNAME'\n"},
        {L"variable\tLUPREC\nfoo\n", L"2: error: invalid 'variable' definition\n"},
        {object + L"od_name\tA\nod_key\tId\nod_name\tB\nfoo\n", L""},
        {object + L"od_name\tA\nod_name\tB\nfoo\n", L"5: warning: table 'A' ill-formed\n"},
        {object + L"od_name\tA\nfoo\n", L"5: error: invalid syntax: 'foo'\n"},
    };
    int folders = 0;
    for (const std::wstring keyword : {L"font", L"linetype"}) {
        for (const auto& [source, messages] : cases) {
            SCOPED_TRACE(host::toUtf8(keyword + L"\n" + source));
            // of a folder that is known for this run no more is asked
            const std::string fonts = "Fonts" + std::to_string(++folders);
            make(fonts + "/a.shx");
            make(fonts + "/b.shx");
            const std::wstring name(fonts.begin(), fonts.end());
            EXPECT_EQ(messagesOf(keyword + L"\t" + name + L"\\*\n" + source),
                      L"error: unable to load '" + in(name + L"/a.shx") + L"'\n" + messages);
            EXPECT_TRUE(isEmpty());
        }
    }
}
