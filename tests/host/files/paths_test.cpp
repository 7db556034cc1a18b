#include "host/files/paths.h"

#include "host/text/encoding.h"
#include "tests/host/files/temporary_folder.h"

namespace host {
namespace {

namespace fs = std::filesystem;

TEST(Paths, AreCutAtBothSeparators)
{
    struct Case {
        const wchar_t* path;
        const wchar_t* folder;
        const wchar_t* title;
        const wchar_t* extension;
    };
    const Case cases[] = {
        {L"a.dxf", L"", L"a", L".dxf"},
        {L"maps\\north/a.b.dxf", L"maps\\north", L"a.b", L".dxf"},
        {L"/a.dxf", L"/", L"a", L".dxf"},
        {L"C:\\a.dxf", L"C:\\", L"a", L".dxf"},
        {L"C:a.dxf", L"C:", L"a", L".dxf"},
        {L"maps.old\\a", L"maps.old", L"a", L""},
        {L"maps\\\\a", L"maps", L"a", L""},
        {L"maps\\", L"maps", L"", L""},
        {L".profile", L"", L".profile", L""},
        {L"a.", L"", L"a", L"."},
        {L"", L"", L"", L""},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(toUtf8(one.path));
        EXPECT_EQ(folderOf(one.path), one.folder);
        EXPECT_EQ(titleOf(one.path), one.title);
        EXPECT_EQ(extensionOf(one.path), one.extension);
        EXPECT_EQ(fileNameOf(one.path), std::wstring(one.title) + one.extension);
    }
}

TEST(Paths, AreAbsoluteWithDriveOrSeparator)
{
    for (const wchar_t* path : {L"C:\\a", L"c:a", L"z:", L"\\a", L"/a", L"\\\\server\\share"})
        EXPECT_TRUE(isAbsolutePath(path)) << toUtf8(path);
    for (const wchar_t* path : {L"", L"a", L"a\\b", L"..\\a", L":a", L"1:a", L"ab:c"})
        EXPECT_FALSE(isAbsolutePath(path)) << toUtf8(path);
}

TEST(Paths, AreJoined)
{
    EXPECT_EQ(joinPath(L"maps", L"a.dxf"), L"maps/a.dxf");
    EXPECT_EQ(joinPath(L"maps\\", L"a.dxf"), L"maps\\a.dxf");
    EXPECT_EQ(joinPath(L"", L"a.dxf"), L"a.dxf");
    EXPECT_EQ(joinPath(L"maps", L"C:\\a.dxf"), L"C:\\a.dxf");
    EXPECT_EQ(shownPath(std::wstring_view(L"C:\\maps\\a.dxf")), L"C:/maps/a.dxf");
}

TEST(Wildcards, MatchTheWholeNameWithoutCase)
{
    struct Case {
        const wchar_t* name;
        const wchar_t* pattern;
        bool matches;
    };
    const Case cases[] = {
        {L"Plan.DXF", L"*.dxf", true},
        {L"plan.dxfx", L"*.dxf", false},
        {L"plan", L"*.dxf", false},
        {L"plan", L"*.*", true},
        {L"plan", L"*", true},
        {L"", L"*", true},
        {L"", L"?", false},
        {L"a1b", L"a?b", true},
        {L"ab", L"a?b", false},
        {L"a12b", L"a?b", false},
        {L"abcabd", L"*ab?", true},
        {L"aXbXc", L"a*x*c", true},
        {L"aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaab", L"*a*a*a*a*a*a*a*a*c", false},
        {L"\u041F\u041B\u0410\u041D.dxf", L"\u043F\u043B*", true},
        {L"a[1].dxf", L"a[1].*", true},
        {L"plan.dxf", L"plan.dxf", true},
        {L"plan.dxf", L"plan", false},
    };
    for (const Case& one : cases)
        EXPECT_EQ(wildcardMatches(one.name, one.pattern), one.matches)
            << toUtf8(one.name) << " by " << toUtf8(one.pattern);
}

class FindingFiles : public TemporaryFolder {
protected:
    FindingFiles() : working_(fs::current_path()), root_(fromUtf8(folder_.native()))
    {
        fs::current_path(folder_);
    }
    ~FindingFiles() override { fs::current_path(working_); }

    // The found path below the test's folder.
    std::wstring found(const std::wstring& name) const
    {
        const std::optional<fs::path> path = findPath(name);
        return path ? fromUtf8(path->native()).substr(root_.size() + 1) : L"-";
    }

    std::vector<std::wstring> matching(const std::wstring& pattern) const
    {
        std::vector<std::wstring> names = findFiles(pattern);
        for (std::wstring& name : names) {
            EXPECT_TRUE(name.starts_with(root_ + L"/")) << toUtf8(name);
            name.erase(0, root_.size() + 1);
        }
        return names;
    }

    fs::path working_;
    std::wstring root_;
};

TEST_F(FindingFiles, PreferTheExactName)
{
    make("Plan.dxf");
    make("plan.DXF");
    make("Maps/North/B.dxf");
    make("maps/South/c.dxf");
    make("\xD0\x9F\xD0\xBB\xD0\xB0\xD0\xBD.dxf");
    make("odd\xFF.dxf");
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"Plan.dxf", L"Plan.dxf"},
        {L"plan.DXF", L"plan.DXF"},
        {L"PLAN.DXF", L"Plan.dxf"}, // the first by name
        {L"MAPS\\north\\b.DXF", L"Maps/North/B.dxf"},
        {L"maps/north/b.dxf", L"Maps/North/B.dxf"}, // the exact folder does not hold it
        {L"maps/south/C.dxf", L"maps/South/c.dxf"},
        {L".\\maps\\.\\south\\", L"maps/South"},
        {L"maps\\..\\PLAN.dxf", L"Plan.dxf"},
        {L"maps\\..\\Plan.dxf", L"Plan.dxf"},
        {L"\u043F\u041B\u0430\u043D.DXF", L"\u041F\u043B\u0430\u043D.dxf"},
        {L"ODD\xDCFF.dxf", L"odd\xDCFF.dxf"},
        {root_ + L"\\MAPS\\south\\c.dxf", L"maps/South/c.dxf"},
        {L"C:" + root_ + L"\\maps\\south\\C.DXF", L"maps/South/c.dxf"},
        {L"none.dxf", L"-"},
        {L"maps/none/c.dxf", L"-"},
        {L"plan.dxf/c.dxf", L"-"},
        {L"", L"-"},
    };
    for (const auto& [name, path] : cases)
        EXPECT_EQ(found(name), path) << toUtf8(name);
}

TEST_F(FindingFiles, GoUpBehindLinksAsTheSystemDoes)
{
    make("real/inner/x");
    make("real/beside.dxf");
    fs::create_directory_symlink("real/inner", folder_ / "link");
    const std::optional<fs::path> path = findPath(L"link\\..\\BESIDE.dxf");
    ASSERT_TRUE(path);
    EXPECT_EQ(fs::canonical(*path), folder_ / "real/beside.dxf");
}

TEST_F(FindingFiles, MatchWildcardsInTheLastPart)
{
    for (const char* name :
         {"b.dxf", "A.DXF", "a.txt", "C.dxf", "_.dxf", "sub/d.dxf", "folder.dxf/e.txt"})
        make(name);
    fs::create_symlink("b.dxf", folder_ / "link.dxf");
    fs::create_symlink("nowhere", folder_ / "broken.dxf");
    using Names = std::vector<std::wstring>;
    EXPECT_EQ(matching(L"*.dxf"), (Names{L"_.dxf", L"A.DXF", L"b.dxf", L"C.dxf", L"link.dxf"}));
    EXPECT_EQ(matching(L"SUB\\?.dxf"), (Names{L"sub/d.dxf"}));
    EXPECT_EQ(matching(root_ + L"/a.*"), (Names{L"A.DXF", L"a.txt"}));
    EXPECT_EQ(matching(L"c.DXF"), (Names{L"C.dxf"}));
    EXPECT_EQ(matching(L"sub"), Names{}) << "a folder is no file";
    EXPECT_EQ(matching(L"*.nothing"), Names{});
    EXPECT_EQ(matching(L"none\\*.dxf"), Names{});
    EXPECT_EQ(matching(L"s*b\\d.dxf"), Names{}) << "not in a folder's name";
    EXPECT_EQ(matching(L""), Names{});
}

} // namespace
} // namespace host
