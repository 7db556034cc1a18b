#include "host/files/support_files.h"

#include "tests/host/files/temporary_folder.h"

#include <chrono>
#include <cmath>
#include <map>
#include <optional>
#include <sstream>
#include <vector>

namespace fs = std::filesystem;

namespace {

using Numbers = std::vector<double>;

// A definition as a strict reader takes it: its lines of numbers.
struct Definition {
    std::string description;
    std::vector<Numbers> lines;
};
using Definitions = std::map<std::string, Definition>;

std::string trimmed(std::string text)
{
    text.erase(0, std::min(text.find_first_not_of(' '), text.size()));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// The numbers of a comma separated line; nothing when one is none.
std::optional<Numbers> numbersOf(const std::string& line)
{
    Numbers numbers;
    std::istringstream fields(line);
    for (std::string field; std::getline(fields, field, ',');) {
        field = trimmed(field);
        std::size_t used = 0;
        if (field.empty() || field.find_first_not_of("0123456789.-") != std::string::npos)
            return std::nullopt;
        numbers.push_back(std::stod(field, &used));
        if (used != field.size())
            return std::nullopt;
    }
    return numbers;
}

// Reads "*NAME,description" and the lines behind it; each of those begins with `prefix`.
Definitions read(const std::string& text, const std::string& prefix)
{
    Definitions definitions;
    Definition* current = nullptr;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        SCOPED_TRACE(line);
        if (line.empty() || line[0] == ';')
            continue;
        if (line[0] == '*') {
            const std::size_t comma = line.find(',');
            EXPECT_NE(comma, std::string::npos);
            const std::string name = line.substr(1, comma - 1);
            EXPECT_EQ(definitions.count(name), 0u) << "defined twice";
            EXPECT_EQ(name.find_first_not_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_"),
                      std::string::npos);
            current = &definitions[name];
            current->description = trimmed(line.substr(comma + 1));
            EXPECT_FALSE(current->description.empty());
            continue;
        }
        EXPECT_TRUE(line.starts_with(prefix));
        const std::optional<Numbers> numbers = numbersOf(line.substr(prefix.size()));
        if (!numbers || !current) {
            ADD_FAILURE() << "no definition";
            continue;
        }
        current->lines.push_back(*numbers);
    }
    return definitions;
}

struct SupportFilesTest : TemporaryFolder {
    SupportFilesTest() { host::ensureSupportFiles(support_); }

    Definitions patterns(const char* name) { return read(contents(support_ / name), ""); }
    Definitions linetypes(const char* name) { return read(contents(support_ / name), "A,"); }

    const fs::path support_ = folder_ / "profile" / "support";
};

// From the `first` number of each line on, those of `metric` are 25.4 times those of `inches`.
void expectScaled(const Definitions& inches, const Definitions& metric, std::size_t first)
{
    ASSERT_EQ(inches.size(), metric.size());
    for (const auto& [name, definition] : inches) {
        SCOPED_TRACE(name);
        ASSERT_EQ(metric.count(name), 1u);
        const Definition& scaled = metric.at(name);
        EXPECT_EQ(scaled.description, definition.description);
        ASSERT_EQ(scaled.lines.size(), definition.lines.size());
        for (std::size_t line = 0; line < scaled.lines.size(); ++line) {
            ASSERT_EQ(scaled.lines[line].size(), definition.lines[line].size());
            for (std::size_t i = 0; i < scaled.lines[line].size(); ++i) {
                const double value = definition.lines[line][i] * (i < first ? 1.0 : 25.4);
                EXPECT_NEAR(scaled.lines[line][i], value, std::abs(value) * 1e-7);
            }
        }
    }
}

TEST_F(SupportFilesTest, PatternsAreFamiliesOfLines)
{
    const Definitions patterns = this->patterns("acad.pat");
    for (const char* name :
         {"SOLID",  "ANSI31", "ANSI32", "ANSI33", "ANSI34", "ANSI35", "ANSI36", "ANSI37",
          "ANSI38", "LINE",   "NET",    "NET3",   "DOTS",   "DOLMIT", "BRICK",  "GRASS",
          "EARTH",  "HEX",    "HONEY",  "ANGLE",  "CROSS",  "DASH",   "SQUARE", "STARS",
          "STEEL",  "TRIANG", "ZIGZAG", "SACNCR", "MUDST",  "PLAST"})
        EXPECT_EQ(patterns.count(name), 1u) << name;
    for (const auto& [name, pattern] : patterns) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(pattern.lines.empty());
        for (const Numbers& line : pattern.lines) {
            ASSERT_GE(line.size(), 5u);
            ASSERT_NE(line.size(), 6u) << "a single dash is a line without gaps";
            EXPECT_GT(line[4], 0.0) << "lines on top of each other";
            double length = 0;
            for (std::size_t i = 5; i < line.size(); ++i)
                length += std::abs(line[i]);
            EXPECT_TRUE(line.size() == 5 || length > 0.0);
        }
    }
}

// Two ends of strokes of closed shapes meet: the figure is walked by hand from the corner at 0,0.
TEST_F(SupportFilesTest, ShapesOfPatternsClose)
{
    struct Case {
        const char* name;
        double x, y; // a point that strokes reach
        std::size_t strokes;
    };
    const double height = std::sqrt(3.0) / 2;
    const Case cases[] = {
        {"HEX", 0, 0, 3},
        {"HEX", 0.125, 0, 3},
        {"HEX", 0.125 * 1.5, 0.125 * height, 3}, // the next corner up
        {"TRIANG", 0, 0, 2},
        {"TRIANG", 0.1875, 0, 2},
        {"TRIANG", 0.1875 / 2, 0.1875 * height, 2},
        {"ZIGZAG", 0.125, 0, 2},
        {"ZIGZAG", 0.125, 0.125, 2},
        {"FLEX", 0.25, 0, 2},
        {"FLEX", 0.375, 0.125, 2},
        {"FLEX", 0.5, 0, 2},
        {"SQUARE", 0, 0, 2},
    };
    const Definitions patterns = this->patterns("acad.pat");
    for (const Case& row : cases) {
        SCOPED_TRACE(std::string(row.name) + " " + std::to_string(row.x) + "," +
                     std::to_string(row.y));
        std::size_t strokes = 0;
        for (const Numbers& line : patterns.at(row.name).lines) {
            // the point in the family's own axes: along the lines and across them
            const double turn = line[0] * std::acos(-1.0) / 180;
            const double dx = row.x - line[1], dy = row.y - line[2];
            const double along = dx * std::cos(turn) + dy * std::sin(turn);
            const double across = dy * std::cos(turn) - dx * std::sin(turn);
            const double number = std::round(across / line[4]);
            if (std::abs(across - number * line[4]) > 1e-6)
                continue;
            const double period = line[5] - line[6];
            double place = std::fmod(along - number * line[3], period);
            if (place < -1e-6)
                place += period;
            const bool starts = std::abs(place) < 1e-6 || std::abs(place - period) < 1e-6;
            const bool ends = std::abs(place - line[5]) < 1e-6;
            strokes += starts || ends ? 1u : 0u;
        }
        EXPECT_EQ(strokes, row.strokes);
    }
}

TEST_F(SupportFilesTest, MetricFilesAreTheSameInMillimetres)
{
    constexpr std::size_t kBehindAngle = 1;
    expectScaled(patterns("acad.pat"), patterns("acadiso.pat"), kBehindAngle);
    expectScaled(linetypes("acad.lin"), linetypes("acadiso.lin"), 0);
    EXPECT_EQ(patterns("acadiso.pat").at("LINE").lines[0], (Numbers{0, 0, 0, 0, 3.175}));
}

TEST_F(SupportFilesTest, LinetypesComeInThreeSizes)
{
    const Definitions linetypes = this->linetypes("acad.lin");
    for (const char* name :
         {"BORDER", "CENTER", "DASHDOT", "DASHED", "DIVIDE", "DOT", "HIDDEN", "PHANTOM"}) {
        SCOPED_TRACE(name);
        ASSERT_EQ(linetypes.count(name), 1u);
        const Numbers& plain = linetypes.at(name).lines.at(0);
        const std::pair<const char*, double> variants[] = {{"2", 0.5}, {"X2", 2.0}};
        for (const auto& [suffix, factor] : variants) {
            ASSERT_EQ(linetypes.count(std::string(name) + suffix), 1u);
            const Numbers& scaled = linetypes.at(std::string(name) + suffix).lines.at(0);
            ASSERT_EQ(scaled.size(), plain.size());
            for (std::size_t i = 0; i < plain.size(); ++i)
                EXPECT_DOUBLE_EQ(scaled[i], plain[i] * factor);
        }
    }
    EXPECT_EQ(linetypes.count("CONTINUOUS"), 0u); // every drawing has it
    for (const auto& [name, linetype] : linetypes) {
        SCOPED_TRACE(name);
        ASSERT_EQ(linetype.lines.size(), 1u);
        const Numbers& dashes = linetype.lines[0];
        EXPECT_GE(dashes.size(), 2u);
        EXPECT_LE(dashes.size(), 12u); // more do not fit into a linetype
        EXPECT_GE(dashes[0], 0.0);
        EXPECT_LT(dashes.back(), 0.0);
        EXPECT_LE(linetype.description.size(), 79u); // what one line of a list shows
    }
}

TEST_F(SupportFilesTest, DescriptionsShowTheDashes)
{
    const Definitions linetypes = this->linetypes("acad.lin");
    const std::pair<const char*, const char*> cases[] = {
        {"DASHED", "Dashed __ __ __"},
        {"DASHDOT", "Dash and dot __ . __ . __ ."},
        {"DOT", "Dotted . . . . ."},
        {"ACAD_ISO08W100", "Long dash and short dash ________ __ ________ __"},
    };
    for (const auto& [name, beginning] : cases)
        EXPECT_TRUE(linetypes.at(name).description.starts_with(beginning))
            << linetypes.at(name).description;
}

TEST_F(SupportFilesTest, MetricLinetypesFitThePen)
{
    const Definitions linetypes = this->linetypes("acadiso.lin");
    for (int number = 2; number <= 15; ++number) {
        const std::string two = (number < 10 ? "0" : "") + std::to_string(number);
        EXPECT_EQ(linetypes.count("ACAD_ISO" + two + "W100"), 1u) << number;
    }
    EXPECT_EQ(linetypes.at("ACAD_ISO02W100").lines.at(0), (Numbers{12, -3}));
    EXPECT_EQ(linetypes.at("ACAD_ISO04W100").lines.at(0), (Numbers{24, -3, 0, -3}));
}

TEST_F(SupportFilesTest, TheMultilineStyleIsWholeGroups)
{
    std::istringstream lines(contents(support_ / "acad.mln"));
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    EXPECT_EQ(line, "MLSTYLE");
    std::string groups;
    std::string value;
    while (std::getline(lines, line) && trimmed(line) != "0") {
        ASSERT_TRUE(std::getline(lines, value)) << "no value behind " << line;
        groups += trimmed(line) + "=" + value + " ";
    }
    EXPECT_EQ(trimmed(line), "0");
    EXPECT_EQ(groups, "2=STANDARD 70=0 3= 62=256 51=90.0 52=90.0 71=2 "
                      "49=0.5 62=256 6=BYLAYER 49=-0.5 62=256 6=BYLAYER ");
}

TEST_F(SupportFilesTest, KeepsTheUsersFilesAndAddsWhatIsMissing)
{
    const std::string before = contents(support_ / "acad.lin");
    ASSERT_FALSE(before.empty());
    std::ofstream(support_ / "acad.pat") << "*MINE\n0, 0,0, 0,1\n";
    std::ofstream(support_ / "acad.mln").close(); // emptied on purpose
    fs::remove(support_ / "acad.lin");
    host::ensureSupportFiles(support_);
    EXPECT_EQ(contents(support_ / "acad.pat"), "*MINE\n0, 0,0, 0,1\n");
    EXPECT_EQ(contents(support_ / "acad.mln"), "");
    EXPECT_EQ(contents(support_ / "acad.lin"), before);
    const auto count = std::distance(fs::directory_iterator(support_), fs::directory_iterator());
    EXPECT_EQ(count, 5) << "nothing else may stay, no temporary files, no backups";
}

TEST_F(SupportFilesTest, ALaterCallWritesNothing)
{
    const fs::file_time_type past = fs::file_time_type::clock::now() - std::chrono::hours(1);
    for (const fs::directory_entry& entry : fs::directory_iterator(support_))
        fs::last_write_time(entry.path(), past);
    fs::last_write_time(support_, past);
    host::ensureSupportFiles(support_);
    for (const fs::directory_entry& entry : fs::directory_iterator(support_))
        EXPECT_EQ(fs::last_write_time(entry.path()), past) << entry.path();
    EXPECT_EQ(fs::last_write_time(support_), past);
}

TEST_F(SupportFilesTest, AFolderThatCannotBeMadeIsNoError)
{
    make("plain file");
    host::ensureSupportFiles(folder_ / "plain file" / "support");
    EXPECT_TRUE(fs::is_regular_file(folder_ / "plain file"));
}

} // namespace
