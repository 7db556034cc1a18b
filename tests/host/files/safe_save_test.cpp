#include "host/files/safe_save.h"

#include "host/files/file_image.h"
#include "tests/host/files/temporary_folder.h"

#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>

namespace host {
namespace {

namespace fs = std::filesystem;

// While it lives no file grows beyond the limit, as on a full disk.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &former_);
        const rlimit limit{bytes, former_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() { setrlimit(RLIMIT_FSIZE, &former_); }

private:
    rlimit former_{};
};

class SafeSaving : public TemporaryFolder {
protected:
    bool save(const fs::path& target, const std::string& bytes,
              SafeSave::Backup backup = SafeSave::Backup::keep)
    {
        const std::unique_ptr<SafeSave> saving = SafeSave::begin(target, error_, backup);
        if (!saving)
            return false;
        saving->write(bytes);
        return saving->commit(error_);
    }

    static mode_t modeOf(const fs::path& path)
    {
        struct stat status {};
        stat(path.c_str(), &status);
        return status.st_mode & 07777;
    }

    std::string error_;
};

TEST_F(SafeSaving, KeepsTheFormerFileAsBackup)
{
    const fs::path target = folder_ / "a.dxf";
    EXPECT_TRUE(save(target, "one")) << error_;
    EXPECT_EQ(fileCount(), 1u) << "no backup of nothing";
    EXPECT_TRUE(save(target, "two"));
    EXPECT_TRUE(save(target, "three"));
    EXPECT_EQ(contents(target), "three");
    EXPECT_EQ(contents(folder_ / "a.dxf.bak"), "two");
    EXPECT_TRUE(save(target, "four", SafeSave::Backup::none));
    EXPECT_EQ(contents(folder_ / "a.dxf.bak"), "two");
    EXPECT_EQ(fileCount(), 2u) << "nothing temporary is left";
}

// As after a save that failed between the backup and the renaming.
TEST_F(SafeSaving, ReplacesABackupThatIsTheFileItself)
{
    const fs::path target = make("a.dxf", "one");
    fs::create_hard_link(target, folder_ / "a.dxf.bak");
    EXPECT_TRUE(save(target, "two")) << error_;
    EXPECT_EQ(contents(target), "two");
    EXPECT_EQ(contents(folder_ / "a.dxf.bak"), "one");
    EXPECT_EQ(fileCount(), 2u);
}

TEST_F(SafeSaving, WritesSmallAndLargePiecesInOrder)
{
    const fs::path target = folder_ / "a.dxf";
    const std::string large(std::size_t{3} << 20, 'L');
    const std::string middle(200000, 'M');
    std::string expected;
    const std::unique_ptr<SafeSave> saving = SafeSave::begin(target, error_);
    ASSERT_TRUE(saving);
    for (const std::string& piece :
         {std::string("a"), large, std::string("b"), middle, middle, middle, middle, middle, middle,
          std::string("c"), large, std::string("d")}) {
        saving->write(piece);
        expected += piece;
    }
    ASSERT_TRUE(saving->commit(error_));
    EXPECT_TRUE(contents(target) == expected);
}

TEST_F(SafeSaving, CopiesRangesOfTheImageItReplaces)
{
    std::string former;
    for (int i = 0; former.size() < 2000000; ++i)
        former += std::to_string(i) + "\n";
    const fs::path target = make("a.dxf", former);
    for (const std::size_t mappedAbove : {FileImage::kMappedAbove, std::size_t{0}}) {
        const std::shared_ptr<FileImage> image = FileImage::open(target, error_, mappedAbove);
        ASSERT_TRUE(image);
        const std::unique_ptr<SafeSave> saving = SafeSave::begin(target, error_);
        ASSERT_TRUE(saving);
        saving->write(*image, 0, 1000001);
        saving->write("between\n");
        saving->write(*image, 1000001, 7);
        saving->write(*image, 1000008, image->size() - 1000008);
        ASSERT_TRUE(saving->commit(error_)) << error_;
        const std::string expected =
            former.substr(0, 1000001) + "between\n" + former.substr(1000001);
        EXPECT_TRUE(contents(target) == expected) << mappedAbove;
        EXPECT_TRUE(image->bytes() == former) << "the old image stays valid";
        former = expected;
    }
}

TEST_F(SafeSaving, LeavesEverythingWhenTheDiskIsFull)
{
    const fs::path target = make("a.dxf", "old");
    make("a.dxf.bak", "older");
    for (const std::size_t size : {std::size_t{5000}, std::size_t{700000}, std::size_t{4000000}}) {
        SCOPED_TRACE(size);
        {
            const FullDisk full(4096);
            EXPECT_FALSE(save(target, std::string(size, 'n')));
        }
        EXPECT_EQ(error_, "cannot write '" + target.string() + "': the file would be too large");
        EXPECT_EQ(contents(target), "old");
        EXPECT_EQ(contents(folder_ / "a.dxf.bak"), "older");
        EXPECT_EQ(fileCount(), 2u);
    }
}

TEST_F(SafeSaving, TellsWhyItCannotBegin)
{
    make("file");
    fs::create_symlink("loop", folder_ / "loop");
    const fs::path guarded = make("guarded.dxf", "old");
    fs::permissions(guarded, fs::perms::owner_read);
    const std::pair<fs::path, const char*> cases[] = {
        {folder_ / "missing" / "a.dxf", "the folder does not exist"},
        {folder_ / "file" / "a.dxf", "a part of the path is no folder"},
        {folder_, "it is a folder"},
        {folder_ / "loop", "too many links"},
        {guarded, "permission denied"},
        {"/dev/full", "permission denied"},
    };
    for (const auto& [target, reason] : cases) {
        EXPECT_FALSE(save(target, "new"));
        EXPECT_EQ(error_, "cannot write '" + target.string() + "': " + reason);
    }
    EXPECT_EQ(contents(guarded), "old");
    EXPECT_EQ(fileCount(), 3u);
}

TEST_F(SafeSaving, FailsWhenTheBackupCannotBeKept)
{
    const fs::path target = make("a.dxf", "old");
    make("a.dxf.bak/inside");
    EXPECT_FALSE(save(target, "new"));
    EXPECT_EQ(error_, "cannot write '" + target.string() + ".bak': it is a folder");
    EXPECT_EQ(contents(target), "old");
    EXPECT_EQ(fileCount(), 2u);
}

TEST_F(SafeSaving, FollowsLinksToTheFile)
{
    const fs::path target = make("real/a.dxf", "old");
    fs::create_symlink("real/a.dxf", folder_ / "relative");
    fs::create_symlink(folder_ / "relative", folder_ / "chain.dxf");
    fs::create_symlink("real/none.dxf", folder_ / "dangling.dxf");
    EXPECT_TRUE(save(folder_ / "chain.dxf", "new")) << error_;
    EXPECT_TRUE(fs::is_symlink(folder_ / "chain.dxf"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "relative"));
    EXPECT_EQ(contents(target), "new");
    EXPECT_EQ(contents(folder_ / "real/a.dxf.bak"), "old");
    EXPECT_TRUE(save(folder_ / "dangling.dxf", "made"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "dangling.dxf"));
    EXPECT_EQ(contents(folder_ / "real/none.dxf"), "made");
}

TEST_F(SafeSaving, KeepsTheMode)
{
    const mode_t former = umask(022);
    const fs::path target = make("a.dxf", "old");
    for (const unsigned mode : {0600u, 0664u, 0755u}) {
        fs::permissions(target, static_cast<fs::perms>(mode));
        EXPECT_TRUE(save(target, "new"));
        EXPECT_EQ(modeOf(target), mode);
    }
    EXPECT_TRUE(save(folder_ / "b.dxf", "first"));
    EXPECT_EQ(modeOf(folder_ / "b.dxf"), 0644u);
    umask(former);
}

TEST_F(SafeSaving, LeavesNothingWhenItIsGivenUp)
{
    const fs::path target = make("a.dxf", "old");
    {
        const std::unique_ptr<SafeSave> saving = SafeSave::begin(target, error_);
        ASSERT_TRUE(saving);
        saving->write(std::string(3000000, 'n'));
        EXPECT_EQ(fileCount(), 2u);
    }
    EXPECT_EQ(contents(target), "old");
    EXPECT_EQ(fileCount(), 1u);
}

TEST_F(SafeSaving, SavesTheLongestName)
{
    const fs::path target = folder_ / (std::string(247, 'n') + ".dxf"); // with ".bak" 255
    EXPECT_TRUE(save(target, "one")) << error_;
    EXPECT_TRUE(save(target, "two")) << error_;
    EXPECT_EQ(contents(target.string() + ".bak"), "one");
}

} // namespace
} // namespace host
