#include "import/support_path.h"

#include "host/edit/environment.h"
#include "host/text/encoding.h"
#include "import/readable_file.h"
#include "tests/support/command_test.h"

#include <fstream>

namespace {

class SupportPathTest : public CommandTest {
protected:
    std::wstring value()
    {
        std::wstring value;
        EXPECT_EQ(acedGetEnv(L"ACAD", value), RTNORM);
        return value;
    }
    // A folder with these files.
    std::wstring folderWith(const std::string& name, std::initializer_list<const char*> files)
    {
        const std::filesystem::path made = folder() / name;
        std::filesystem::create_directories(made);
        for (const char* file : files)
            std::ofstream(made / file) << ";;\n";
        return made.wstring();
    }

    std::wstring own = (folder() / "profile" / "support").wstring();
};

} // namespace

TEST_F(SupportPathTest, AddsAFolderBehindTheOthers)
{
    EXPECT_EQ(value(), own);
    EXPECT_TRUE(addSupportFolder(L"/fonts/one"));
    EXPECT_EQ(value(), own + L";/fonts/one;");
    EXPECT_TRUE(addSupportFolder(L"/Fonts/one"));
    EXPECT_EQ(value(), own + L";/fonts/one;/Fonts/one;"); // another folder here
    EXPECT_EQ(supportFolders(), (std::vector<std::wstring>{own, L"/fonts/one", L"/Fonts/one"}));
}

TEST_F(SupportPathTest, AFolderWhoseTextIsThereIsNotAdded)
{
    ASSERT_TRUE(addSupportFolder(L"/fonts/one"));
    for (const wchar_t* folder : {L"/fonts/one", L"/fonts", L"s/o"}) {
        EXPECT_TRUE(addSupportFolder(folder));
        EXPECT_EQ(value(), own + L";/fonts/one;") << folder;
    }
}

TEST_F(SupportPathTest, PatternsGoToTheFirstFolderThatMayTakeThem)
{
    const std::initializer_list<const char*> both = {"acad.pat", "acadiso.pat"};
    const std::wstring installed = folderWith("Program Files/Support", both);
    const std::wstring partial = folderWith("support-partial", {"acad.pat"});
    const std::wstring other = folderWith("patterns", both);
    const std::wstring good = folderWith("My SUPPORT", both);
    EXPECT_EQ(patternFolder(), own);

    std::filesystem::remove(std::filesystem::path(own) / "acad.pat");
    EXPECT_EQ(patternFolder(), std::nullopt);
    for (const std::wstring& folder : {installed, partial, other})
        ASSERT_TRUE(addSupportFolder(folder));
    EXPECT_EQ(patternFolder(), std::nullopt);
    ASSERT_TRUE(addSupportFolder(good));
    EXPECT_EQ(patternFolder(), good);
}

TEST(ResourcePath, AnExtensionCountsWhereItFirstStands)
{
    const struct {
        std::wstring_view path;
        bool counts;
    } cases[] = {
        {L"/maps/a.dwg", true},      {L".dwg", true},
        {L"/maps/a.DWG", false},     {L"/maps/a.Dwg", false},
        {L"/maps/a.dwg.dwg", false}, {L"/old.dwg/a.dwg", false},
        {L"/maps/a.dwgx", false},    {L"/maps/adwg", false},
        {L"/old.dwt/a.dwg", true},   {L"", false},
    };
    for (const auto& [path, counts] : cases)
        EXPECT_EQ(hasExtension(path, L".dwg"), counts) << host::toUtf8(path);
}

TEST_F(SupportPathTest, OnlyFilesAreReadable)
{
    folderWith("in.dwg", {"A.lin"});
    EXPECT_FALSE(readableFile((folder() / "in.dwg").wstring()));
    EXPECT_FALSE(readableFile((folder() / "none.dwg").wstring()));
    EXPECT_FALSE(readableFile(L""));
    EXPECT_EQ(readableFile((folder() / "in.dwg" / "a.LIN").wstring()),
              folder() / "in.dwg" / "A.lin");
}
