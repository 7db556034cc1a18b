#include "host/files/file_image.h"

#include "tests/host/files/temporary_folder.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <sys/mman.h>
#include <unistd.h>

namespace host {
namespace {

namespace fs = std::filesystem;

class FileImages : public TemporaryFolder {
protected:
    static bool hasGuard(const FileImage& image)
    {
        const char* end = image.data() + image.size();
        return std::all_of(end, end + FileImage::kGuard, [](char byte) { return byte == '\0'; });
    }

    std::string error_;
    const std::size_t page_ = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
};

TEST_F(FileImages, HoldsTheBytesAndZerosBehindThem)
{
    for (const std::size_t size : {std::size_t{0}, std::size_t{1}, page_ - 64, page_ - 1, page_,
                                   page_ + 1, 2 * page_, 5 * page_ - 10}) {
        const std::string bytes(size, 'b');
        const fs::path path = make("a.dxf", bytes);
        for (const std::size_t mappedAbove : {FileImage::kMappedAbove, std::size_t{0}}) {
            SCOPED_TRACE(testing::Message() << size << " bytes, mapped above " << mappedAbove);
            const std::shared_ptr<FileImage> image = FileImage::open(path, error_, mappedAbove);
            ASSERT_TRUE(image) << error_;
            EXPECT_EQ(image->isMapped(), mappedAbove == 0 && size > 0);
            EXPECT_TRUE(image->bytes() == bytes);
            EXPECT_TRUE(hasGuard(*image));
        }
    }
    const std::shared_ptr<FileImage> image = FileImage::fromBytes("own");
    EXPECT_EQ(image->bytes(), "own");
    EXPECT_TRUE(hasGuard(*image));
}

TEST_F(FileImages, ReadsZerosWhereAnotherProgramCutTheFile)
{
    const fs::path path = make("a.dxf", std::string(10 * page_, 'b'));
    const fs::file_time_type opened = fs::last_write_time(path);
    const std::shared_ptr<FileImage> image = FileImage::open(path, error_, 0);
    ASSERT_TRUE(image);
    EXPECT_FALSE(image->changedOnDisk());
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(3 * page_)), 0);
    EXPECT_TRUE(image->changedOnDisk());
    const std::string_view bytes = image->bytes();
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), 'b'), static_cast<std::ptrdiff_t>(3 * page_));
    EXPECT_EQ(std::count(bytes.begin(), bytes.end(), '\0'), static_cast<std::ptrdiff_t>(7 * page_));
    EXPECT_TRUE(hasGuard(*image));

    // Grown again, with its time set back, it is another file all the same.
    ASSERT_EQ(truncate(path.c_str(), static_cast<off_t>(10 * page_)), 0);
    fs::last_write_time(path, opened);
    EXPECT_TRUE(image->changedOnDisk());
}

TEST_F(FileImages, TellsWhetherTheFileChanged)
{
    const fs::path path = make("a.dxf", std::string(page_, 'b'));
    const auto past = fs::last_write_time(path) - std::chrono::hours(1);
    fs::last_write_time(path, past);
    const std::shared_ptr<FileImage> mapped = FileImage::open(path, error_, 0);
    const std::shared_ptr<FileImage> read = FileImage::open(path, error_);
    ASSERT_TRUE(mapped && read);
    fs::create_hard_link(path, folder_ / "a.dxf.bak");
    fs::rename(make("other", "new"), path);
    EXPECT_FALSE(mapped->changedOnDisk()) << "replaced, the old contents live on";
    EXPECT_EQ(mapped->bytes().front(), 'b');

    make("a.dxf.bak", std::string(page_, 'c')); // the same size, written in place
    EXPECT_TRUE(mapped->changedOnDisk());
    EXPECT_FALSE(read->changedOnDisk());
    EXPECT_EQ(read->bytes().front(), 'b');
}

TEST_F(FileImages, NamesTheFileItCannotOpen)
{
    EXPECT_FALSE(FileImage::open(folder_ / "none.dxf", error_));
    EXPECT_EQ(error_,
              "cannot open '" + (folder_ / "none.dxf").string() + "': no such file or folder");
    EXPECT_FALSE(FileImage::open(folder_, error_));
    EXPECT_EQ(error_, "cannot open '" + folder_.string() + "': it is a folder");
    EXPECT_FALSE(FileImage::open("/dev/null", error_));
    EXPECT_TRUE(FileImage::open(make("a"), error_));
    EXPECT_EQ(error_, "");
}

// More files than the fault handler has room for.
TEST_F(FileImages, OpensAnyNumberOfFiles)
{
    const fs::path path = make("a.dxf", std::string(page_ + 5, 'b'));
    std::vector<std::shared_ptr<FileImage>> images;
    for (int i = 0; i < 300; ++i)
        images.push_back(FileImage::open(path, error_, 0));
    EXPECT_TRUE(images.front()->isMapped());
    EXPECT_FALSE(images.back()->isMapped());
    EXPECT_TRUE(images.back()->bytes() == images.front()->bytes());
    images.clear();
    EXPECT_TRUE(FileImage::open(path, error_, 0)->isMapped()) << "places are given back";
}

// The program's own bus errors go where they went before. The dying program leaves no files: it has
// none with a name.
TEST(FileImage, LeavesOtherFaultsAlone)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto faultElsewhere = [] {
        std::string error;
        const std::shared_ptr<FileImage> image = FileImage::open("/proc/self/exe", error, 0);
        std::FILE* other = std::tmpfile();
        if (!image || !image->isMapped() || !other || ftruncate(fileno(other), 100) != 0)
            std::_Exit(1);
        const auto* bytes = static_cast<const volatile char*>(
            mmap(nullptr, 100, PROT_READ, MAP_PRIVATE, fileno(other), 0));
        if (ftruncate(fileno(other), 0) == 0)
            std::_Exit(bytes[0]);
    };
    EXPECT_EXIT(
        {
            std::signal(SIGBUS, SIG_DFL);
            faultElsewhere();
        },
        testing::KilledBySignal(SIGBUS), "");
    EXPECT_EXIT(
        {
            std::signal(SIGBUS, [](int) { std::_Exit(42); });
            faultElsewhere();
        },
        testing::ExitedWithCode(42), "");
}

} // namespace
} // namespace host
