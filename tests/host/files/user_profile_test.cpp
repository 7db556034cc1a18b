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

// A variable of the environment for one test; null removes it.
class Environment {
public:
    Environment(const char* name, const char* value) : name_(name)
    {
        if (const char* former = std::getenv(name))
            former_ = former;
        set(value);
    }
    ~Environment() { set(former_ ? former_->c_str() : nullptr); }

private:
    void set(const char* value) { value ? setenv(name_, value, 1) : unsetenv(name_); }

    const char* name_;
    std::optional<std::string> former_;
};

TEST_F(UserProfiles, LieWhereTheUserKeepsConfiguration)
{
    const Environment home("HOME", "/home/ann");
    const std::pair<const char*, const char*> cases[] = {
        {"/etc/ann", "/etc/ann/kelmaro"},
        {"", "/home/ann/.config/kelmaro"},
        {"relative", "/home/ann/.config/kelmaro"},
        {nullptr, "/home/ann/.config/kelmaro"},
    };
    for (const auto& [config, folder] : cases) {
        const Environment set("XDG_CONFIG_HOME", config);
        EXPECT_EQ(UserProfile::defaultFolder(), folder);
    }
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
