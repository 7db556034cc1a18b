#include "host/io/binary_form.h"
#include "tests/host/io/drawing_bench.h"

#include <limits>

using namespace host;
using namespace host::test;

namespace {

std::string bytesOf(std::initializer_list<int> bytes)
{
    std::string text;
    for (const int byte : bytes)
        text += static_cast<char>(byte);
    return text;
}

std::string texts(BinaryCodes codes, std::initializer_list<std::pair<int, std::string_view>> tags)
{
    std::string bytes;
    for (const auto& [code, value] : tags) {
        bytes += static_cast<char>(code);
        if (codes == BinaryCodes::twoBytes)
            bytes += '\0';
        bytes += value;
        bytes += '\0';
    }
    return bytes;
}

std::string drawing(BinaryCodes codes, std::string_view version, std::string_view record)
{
    return std::string(kBinarySentinel) +
           texts(codes, {{0, "SECTION"},
                         {2, "HEADER"},
                         {9, "$ACADVER"},
                         {1, version},
                         {0, "ENDSEC"},
                         {0, "SECTION"},
                         {2, "ENTITIES"},
                         {0, "LINE"},
                         {5, "2A"}}) +
           std::string(record) + texts(codes, {{0, "ENDSEC"}, {0, "EOF"}});
}

struct Value {
    const char* name;
    int code;
    std::string twoBytes; // the whole tag
};
const Value kValues[] = {
    {"real", 40, bytesOf({40, 0, 0, 0, 0, 0, 0, 0, 0xF8, 0x3F})}, // 1.5
    {"short", 62, bytesOf({62, 0, 0xFE, 0xFF})},                  // -2
    {"long", 90, bytesOf({90, 0, 1, 0, 0, 0x80})},
    {"64 bits", 160, bytesOf({160, 0, 1, 0, 0, 0, 0, 0, 0, 0})},
    {"boolean", 290, bytesOf({0x22, 1, 1})},
    {"chunk", 310, bytesOf({0x36, 1, 3, 0, 'a', 0})},
    {"text", 1, bytesOf({1, 0, 'a', 0})},
    {"handle", 330, bytesOf({0x4A, 1, '1', 'F', 0})},
    {"long of extended data", 1071, bytesOf({0x2F, 4, 5, 0, 0, 0})},
};

} // namespace

TEST(BinaryForm, CutsValuesByTheirCode)
{
    const BinaryForm form(DxfVersion::r2000, CodePage(), BinaryCodes::twoBytes);
    for (const Value& value : kValues) {
        SCOPED_TRACE(value.name);
        std::vector<Tag> tags;
        form.split(value.twoBytes.data(), value.twoBytes.size(), tags);
        ASSERT_EQ(tags.size(), 1u);
        EXPECT_EQ(tags[0].code, value.code);
        std::string out;
        form.write(tags[0], out);
        EXPECT_EQ(out, value.twoBytes);
        for (std::size_t cut = 1; cut < value.twoBytes.size(); ++cut) {
            Tag tag;
            const char* at = value.twoBytes.data();
            EXPECT_EQ(takeBinaryTag(at, at + cut, BinaryCodes::twoBytes, tag), BinaryTrouble::cut);
        }
    }
    const auto tagOf = [&](std::size_t row) {
        std::vector<Tag> tags;
        form.split(kValues[row].twoBytes.data(), kValues[row].twoBytes.size(), tags);
        return tags[0];
    };
    EXPECT_EQ(form.real(tagOf(0)), 1.5);
    EXPECT_EQ(form.integer(tagOf(1)), -2);
    EXPECT_EQ(form.integer(tagOf(2)), -2147483647);
    EXPECT_EQ(form.integer(tagOf(4)), 1);
    EXPECT_EQ(form.binary(tagOf(5)), (std::vector<std::uint8_t>{0, 'a', 0}));
    EXPECT_EQ(form.handle(tagOf(7)), 0x1Fu);
    EXPECT_EQ(form.real(tagOf(6)), 0.0) << "a text is no real";
    EXPECT_EQ(form.integer(tagOf(0)), 0) << "a real is no integer";
}

// Such a file could not be read again.
TEST(BinaryForm, WritesNoNumbersWithoutEnd)
{
    const BinaryForm form(DxfVersion::r2018, CodePage::utf8(), BinaryCodes::twoBytes);
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
    for (const double value : {kInfinity, -kInfinity, kNaN})
        EXPECT_EQ(form.realValue(40, value), std::string(8, '\0'));
}

TEST(BinaryForm, WritesGreatCodesOfR12BehindAnEscape)
{
    const BinaryForm form(DxfVersion::r12, CodePage(), BinaryCodes::oneByte);
    Tag tag;
    tag.code = 1000;
    tag.value = "ab";
    tag.length = 2;
    std::string out;
    form.write(tag, out);
    EXPECT_EQ(out, bytesOf({0xFF, 0xE8, 3, 'a', 'b', 0}));
    std::vector<Tag> tags;
    form.split(out.data(), out.size(), tags);
    ASSERT_EQ(tags.size(), 1u);
    EXPECT_EQ(tags[0].code, 1000);
    EXPECT_EQ(tags[0].bytes(), "ab");
}

TEST(BinaryForm, OpensBothWidthsOfCodesAndSavesThemUnchanged)
{
    const std::pair<BinaryCodes, std::string> cases[] = {
        {BinaryCodes::oneByte, drawing(BinaryCodes::oneByte, "AC1009",
                                       bytesOf({8, '0', 0, 0xFF, 0xE9, 3, 'A', 0, 67, 1, 0}))},
        {BinaryCodes::twoBytes,
         drawing(BinaryCodes::twoBytes, "AC1015",
                 bytesOf({8, 0, '0', 0, 67, 0, 1, 0}) + kValues[5].twoBytes)},
    };
    for (const auto& [codes, bytes] : cases) {
        OpenDrawing opened(bytes);
        ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
        EXPECT_TRUE(opened.drawing().binary);
        EXPECT_EQ(opened.saved(), bytes);
        EXPECT_EQ(opened.drawing().index.types().name(opened.stub(0x2A).type), "LINE");
    }
    OpenDrawing modern(cases[1].second);
    EXPECT_TRUE((modern.stub(0x2A).flags & kPaperSpace) != 0);
}

TEST(BinaryForm, RefusesDamageWithItsOffset)
{
    const std::string start = drawing(BinaryCodes::twoBytes, "AC1015", "");
    const std::size_t place = start.size() - 15; // of ENDSEC, which EOF follows
    const auto with = [&](std::string_view record) {
        return drawing(BinaryCodes::twoBytes, "AC1015", record);
    };
    const std::string at = "plan.dxf, byte " + std::to_string(place) + ": ";
    const std::pair<std::string, std::string> cases[] = {
        {with(bytesOf({0xF4, 1, 0})), at + "500 is no group code"},
        {with(bytesOf({40, 0, 0, 0, 0, 0, 0, 0, 0xF0, 0x7F})),
         at + "a value is no number, but group code 40 wants one"},
        {start.substr(0, place), at + "the file ends without EOF"},
        {start.substr(0, place + 4), at + "the file ends inside a group"},
        {std::string(kBinarySentinel), "plan.dxf is no drawing"},
        {start.substr(0, 10), "plan.dxf is no drawing"},
    };
    for (const auto& [bytes, message] : cases) {
        SCOPED_TRACE(message);
        OpenDrawing opened(bytes);
        EXPECT_EQ(toUtf8(opened.outcome().message), message);
    }
}
