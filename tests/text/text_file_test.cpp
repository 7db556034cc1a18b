#include "text/text_file.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <vector>

namespace {

class TextFileTest : public ::testing::Test {
protected:
    TextFileTest()
    {
        std::string name = (std::filesystem::temp_directory_path() / "text-file-XXXXXX").string();
        folder_ = mkdtemp(name.data());
    }
    ~TextFileTest() override { std::filesystem::remove_all(folder_); }

    std::vector<std::wstring> linesOf(const std::string& bytes) const
    {
        const std::filesystem::path path = folder_ / "lines.txt";
        std::ofstream(path, std::ios::binary) << bytes;
        std::vector<std::wstring> pieces;
        std::optional<TextFileLines> lines = TextFileLines::open(path.wstring());
        EXPECT_TRUE(lines);
        while (const auto piece = lines->next())
            pieces.emplace_back(*piece);
        return pieces;
    }

    std::filesystem::path folder_;
};

} // namespace

TEST_F(TextFileTest, KeepsLineFeedsAndFoldsCarriageReturns)
{
    using Pieces = std::vector<std::wstring>;
    EXPECT_EQ(linesOf("a\n\nb"), (Pieces{L"a\n", L"\n", L"b"}));
    EXPECT_EQ(linesOf("a\r\nb\rc\r\n"), (Pieces{L"a\n", L"b\rc\n"}));
    EXPECT_EQ(linesOf("\xEF\xBB\xBF\xC3\xA9 a\n"), (Pieces{L"\u00e9 a\n"}));
    EXPECT_EQ(linesOf(""), Pieces{});
}

// One more character than a piece holds makes a second piece, be it the line feed alone.
TEST_F(TextFileTest, CutsLongLines)
{
    const auto lengths = [this](std::size_t characters) {
        std::string line;
        for (std::size_t i = 0; i < characters; ++i)
            line += "\xC3\xA4"; // pieces count characters, not bytes
        std::vector<std::size_t> sizes;
        for (const std::wstring& piece : linesOf(line + "\nx"))
            sizes.push_back(piece.size());
        return sizes;
    };
    EXPECT_EQ(lengths(10238), (std::vector<std::size_t>{10239, 1}));
    EXPECT_EQ(lengths(10239), (std::vector<std::size_t>{10239, 1, 1}));
    EXPECT_EQ(lengths(20480), (std::vector<std::size_t>{10239, 10239, 3, 1}));
}

TEST_F(TextFileTest, FindsTheNameInAnotherCaseAndRefusesFolders)
{
    std::ofstream(folder_ / "Towns.TXT") << "x";
    EXPECT_TRUE(TextFileLines::open((folder_ / "towns.txt").wstring()));
    EXPECT_FALSE(TextFileLines::open((folder_ / "none.txt").wstring()));
    EXPECT_FALSE(TextFileLines::open(folder_.wstring()));
}

TEST_F(TextFileTest, WritesAWholeFile)
{
    const std::filesystem::path path = folder_ / "made.txt";
    const auto bytes = [&] {
        std::ifstream file(path, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
    };
    EXPECT_TRUE(writeTextFile(path.wstring(), L"a longer first text\n"));
    EXPECT_TRUE(writeTextFile(path.wstring(), L"\u00e9\tb\n\nc"));
    EXPECT_EQ(bytes(), "\xC3\xA9\tb\n\nc"); // no mark, no carriage return, nothing of the first
    EXPECT_TRUE(writeTextFile(path.wstring(), L""));
    EXPECT_EQ(bytes(), "");
    // and nothing beside it
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_), {}), 1);
}

TEST_F(TextFileTest, TellsWhereItCannotWrite)
{
    EXPECT_FALSE(writeTextFile((folder_ / "missing" / "made.txt").wstring(), L"a"));
    EXPECT_FALSE(std::filesystem::exists(folder_ / "missing"));
    EXPECT_FALSE(writeTextFile(folder_.wstring(), L"a"));

    const std::filesystem::path kept = folder_ / "kept.txt";
    std::ofstream(kept) << "mine";
    std::filesystem::permissions(kept, std::filesystem::perms::owner_read);
    EXPECT_FALSE(writeTextFile(kept.wstring(), L"a"));
    EXPECT_EQ(std::filesystem::file_size(kept), 4u);
}
