#include "host/files/user_profile.h"

#include "host/files/open_file.h"
#include "tests/host/files/temporary_folder.h"

namespace host {
namespace {

class UserProfiles : public TemporaryFolder {
protected:
    std::string error_;
};

TEST_F(UserProfiles, KeepValuesBetweenRuns)
{
    const std::pair<std::wstring, std::wstring> values[] = {
        {L"ACAD", L"C:\\new\\r;/maps"},
        {L"With = sign\\", L"=a=b"},
        {L"Lines", L"one\ntwo\r\nthree\\n"},
        {L"\u0418\u043C\u044F", L" \u0416 "},
        {L"Empty", L""},
    };
    {
        UserProfile profile(folder_ / "kelmaro");
        for (const auto& [name, value] : values)
            EXPECT_TRUE(profile.set(name, value, error_)) << error_;
    }
    const UserProfile profile(folder_ / "kelmaro");
    for (const auto& [name, value] : values)
        EXPECT_EQ(profile.get(name), value);
    EXPECT_EQ(profile.get(L"acad"), values[0].second);
    EXPECT_EQ(profile.get(L"nothing"), std::nullopt);
    EXPECT_EQ(profile.get(L""), std::nullopt);
}

TEST_F(UserProfiles, KeepTheSpellingOfANameAndForeignLines)
{
    const std::filesystem::path file = make("profile", "\xEF\xBB\xBF# mine\r\n\nFont=a\n=x\n");
    UserProfile profile(folder_);
    EXPECT_TRUE(profile.set(L"FONT", L"b", error_));
    EXPECT_EQ(contents(file), "\xEF\xBB\xBF# mine\n\nFont=b\n=x\n");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(UserProfiles, LeaveWhatAnotherProgramSet)
{
    UserProfile first(folder_);
    UserProfile second(folder_);
    EXPECT_TRUE(first.set(L"A", L"1", error_));
    EXPECT_TRUE(second.set(L"B", L"2", error_));
    EXPECT_EQ(contents(folder_ / "profile"), "A=1\nB=2\n");
}

TEST_F(UserProfiles, TellWhatCannotBeWritten)
{
    make("file");
    UserProfile profile(folder_ / "file" / "kelmaro");
    EXPECT_FALSE(profile.set(L"A", L"1", error_));
    EXPECT_NE(error_.find((folder_ / "file" / "kelmaro").string()), std::string::npos) << error_;
    EXPECT_EQ(profile.get(L"A"), L"1") << "for this run";
}

TEST_F(UserProfiles, LieWhereTheUserKeepsConfiguration)
{
    const char* former = std::getenv("XDG_CONFIG_HOME");
    const std::string kept = former ? former : "";
    setenv("HOME", "/home/ann", 1);
    setenv("XDG_CONFIG_HOME", "/etc/ann", 1);
    EXPECT_EQ(UserProfile::defaultFolder(), "/etc/ann/kelmaro");
    for (const char* useless : {"", "relative"}) {
        setenv("XDG_CONFIG_HOME", useless, 1);
        EXPECT_EQ(UserProfile::defaultFolder(), "/home/ann/.config/kelmaro");
    }
    former ? setenv("XDG_CONFIG_HOME", kept.c_str(), 1) : unsetenv("XDG_CONFIG_HOME");
}

TEST_F(UserProfiles, ReadWholeFiles)
{
    const std::string bytes(1000003, 'z');
    EXPECT_TRUE(readWholeFile(make("large", bytes), error_) == bytes);
    EXPECT_EQ(error_, "");
    EXPECT_NE(readWholeFile("/proc/self/status", error_), "") << "tells no size";
    EXPECT_EQ(readWholeFile(folder_, error_), "");
    EXPECT_EQ(error_, "cannot read '" + folder_.string() + "': it is a folder");
}

} // namespace
} // namespace host
