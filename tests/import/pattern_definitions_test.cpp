#include "import/pattern_definitions.h"

#include "host/text/encoding.h"
#include "import/definition_names.h"
#include "tests/host/files/temporary_folder.h"
#include "text/text_file.h"

namespace {

class PatternDefinitionsTest : public TemporaryFolder {
protected:
    TextFileLines linesOf(const std::string& bytes)
    {
        return *TextFileLines::open(make("source.pat", bytes).wstring());
    }
    PatternDefinitions read(const std::string& bytes)
    {
        TextFileLines lines = linesOf(bytes);
        return readPatternDefinitions(lines);
    }
    // What a pattern file with these bytes holds afterwards.
    std::string appended(const std::string& bytes, const PatternDefinitions& definitions,
                         const std::vector<std::wstring>& names)
    {
        const auto file = make("acad.pat", bytes);
        EXPECT_TRUE(appendPatterns(file.wstring(), definitions, names));
        return contents(file);
    }
};

} // namespace

TEST(DefinedName, IsWhatFollowsTheStar)
{
    const struct {
        std::wstring_view line;
        std::optional<std::wstring> name;
    } cases[] = {
        {L"*ANSI31, iron\n", L"ANSI31"},
        {L"*ANSI31\r\n", L"ANSI31"},
        {L" \t*Brick \t,of clay,red\n", L"Brick"},
        {L"*,nameless\n", L""},
        {L"*", L""},
        {L"45, 0,0, 0,3\n", std::nullopt},
        {L";*OLD, comment\n", std::nullopt},
        {L"\r*ANSI31\n", std::nullopt}, // only blanks and tabs may stand before the star
        {L"", std::nullopt},
    };
    for (const auto& [line, name] : cases)
        EXPECT_EQ(definedName(line), name) << host::toUtf8(line);
}

TEST_F(PatternDefinitionsTest, NamesAreLowerCasedInTheOrderOfTheFile)
{
    TextFileLines lines = linesOf(";;*NO\n*B,x\nA,1,-1\n\n\t*a\n*B\n");
    EXPECT_EQ(definedNames(lines), (std::vector<std::wstring>{L"b", L"a", L"b"}));
}

TEST_F(PatternDefinitionsTest, ADefinitionIsItsLinesWithoutCommentsAndEmptyOnes)
{
    const PatternDefinitions read = this->read("1,2,3\n"
                                               "*First, lines\r\n"
                                               "  45, 0,0, 0,3\r\n"
                                               "; a comment\r\n"
                                               " \t; another\r\n"
                                               " \t \r\n"
                                               "90, 0,0, 0,3 ; kept\n"
                                               "*second\n"
                                               "*FIRST, again\n"
                                               "0, 0,0, 0,9\n"
                                               "*last\n"
                                               "nonsense");
    const PatternDefinitions expected = {
        {L"first", L"*First, lines\n  45, 0,0, 0,3\n90, 0,0, 0,3 ; kept\n"},
        {L"second", L"*second\n"},
        {L"last", L"*last\nnonsense"},
    };
    EXPECT_EQ(read, expected);
}

TEST_F(PatternDefinitionsTest, AppendsWhatTheFileLacks)
{
    const PatternDefinitions definitions = {
        {L"a", L"*A, \u0444\n1,0,0,0,1\n"}, {L"b", L"*B\n2,0,0,0,1"}, {L"c", L"*C\n"}};
    const std::string former = "\xEF\xBB\xBF*x\r\n1,0,0,0,1\r\n  *B ,known\r\n9,0,0,0,9";
    EXPECT_EQ(appended(former, definitions, {L"b"}), former);
    EXPECT_EQ(appended(former, definitions, {}), former);
    EXPECT_EQ(appended(former, definitions, {L"c", L"b", L"a"}),
              former + "\n*C\n\n\n*A, \xD1\x84\n1,0,0,0,1\n\n");
    EXPECT_EQ(appended("", definitions, {L"b"}), "\n*B\n2,0,0,0,1\n");
    EXPECT_EQ(fileCount(), 1U); // no backup, nothing temporary
}

TEST_F(PatternDefinitionsTest, OtherBytesOfTheFileStay)
{
    const std::string former = "*\xE4\xF6, not UTF-8\n0,0,0,0,1\n";
    EXPECT_EQ(appended(former, {{L"a", L"*A\n"}}, {L"a"}), former + "\n*A\n\n");
}

TEST_F(PatternDefinitionsTest, AFileThatIsNotThereIsNotMade)
{
    const auto file = folder_ / "acad.pat";
    EXPECT_FALSE(
        appendPatterns(file.wstring(), {{L"a", L"*A\n"}}, std::vector<std::wstring>{L"a"}));
    EXPECT_FALSE(std::filesystem::exists(file));
    EXPECT_FALSE(
        appendPatterns(folder_.wstring(), {{L"a", L"*A\n"}}, std::vector<std::wstring>{L"a"}));
}
