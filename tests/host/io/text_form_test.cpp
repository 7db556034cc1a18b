#include "host/io/text_form.h"

#include "host/db/tag_list.h"

#include <gtest/gtest.h>

using namespace host;

namespace {

TextForm modernForm(TextStyle style = {})
{
    return TextForm(DxfVersion::r2018, CodePage::utf8(), std::move(style));
}

Tag tagOf(int code, std::string_view value)
{
    Tag tag;
    tag.code = static_cast<std::int16_t>(code);
    tag.value = value.data();
    tag.length = static_cast<std::uint32_t>(value.size());
    return tag;
}

} // namespace

TEST(TextForm, LearnsTheStyleOfTheFile)
{
    struct Case {
        std::string text;
        std::string lineEnd;
        std::size_t codeWidth, int16Width, int32Width;
    };
    const Case cases[] = {
        {"  0\r\nSECTION\r\n 70\r\n     1\r\n 90\r\n       12\r\n", "\r\n", 3, 6, 9},
        {"0\nSECTION\n70\n1\n90\n12\n", "\n", 0, 0, 0},
        {"999\nmade by hand\n  0\nSECTION\n 70\n1\n 90\n        3\n", "\n", 3, 0, 9},
        {"  0\nSECTION\n 70\n-32768\n 70\n     5\n", "\n", 3, 6, 9},
        {"  0\nEOF\n", "\n", 3, 6, 9},
        {"0\nEOF", "\n", 0, 0, 0},
        {"\xEF\xBB\xBF  0\r\nSECTION\r\n290\r\n     1\r\n", "\r\n", 3, 6, 9},
        {"   0\nSECTION\n", "\n", 4, 6, 9},
        {"no drawing", "\n", 3, 6, 9},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.text);
        const TextStyle style = TextStyle::learn(c.text);
        EXPECT_EQ(style.lineEnd, c.lineEnd);
        EXPECT_EQ(style.codeWidth, c.codeWidth);
        EXPECT_EQ(style.int16Width, c.int16Width);
        EXPECT_EQ(style.int32Width, c.int32Width);
    }
}

TEST(TextForm, WritesNewTagsInTheStyleOfTheFile)
{
    const TextForm filled = modernForm({.lineEnd = "\r\n"});
    const TextForm bare = modernForm({"\n", 0, 0, 0});
    struct Case {
        int code;
        std::int64_t value;
        std::string filled, bare;
    };
    const Case cases[] = {
        {70, 1, " 70\r\n     1\r\n", "70\n1\n"},
        {290, 1, "290\r\n     1\r\n", "290\n1\n"},
        {90, -5, " 90\r\n       -5\r\n", "90\n-5\n"},
        {160, 7, "160\r\n7\r\n", "160\n7\n"},
        {1071, 123456789012, "1071\r\n123456789012\r\n", "1071\n123456789012\n"},
    };
    for (const Case& c : cases) {
        std::string out;
        const std::string value = filled.integerValue(c.code, c.value);
        filled.write(tagOf(c.code, value), out);
        EXPECT_EQ(out, c.filled);
        out.clear();
        const std::string bareValue = bare.integerValue(c.code, c.value);
        bare.write(tagOf(c.code, bareValue), out);
        EXPECT_EQ(out, c.bare);
    }
    EXPECT_EQ(filled.realValue(40, 2.0), "2.0");
    EXPECT_EQ(filled.handleValue(5, 0xAB), "AB");
    const std::uint8_t bytes[] = {0, 0x7F, 0xFF};
    EXPECT_EQ(filled.binaryValue(310, bytes), "007FFF");
    EXPECT_EQ(filled.binary(tagOf(310, "007fFF")), std::vector<std::uint8_t>({0, 0x7F, 0xFF}));
    EXPECT_EQ(filled.binary(tagOf(310, "00x")), std::vector<std::uint8_t>({0}));
}

TEST(TextForm, ConvertsTextsByTheVersion)
{
    const TextForm older(DxfVersion::r2000, pageOfDrawing(DxfVersion::r2000, "ANSI_1252"), {});
    EXPECT_EQ(older.textValue(1, L"\u00e4 \u0416^\n"), "\xE4 \\U+0416^ ^J");
    EXPECT_EQ(older.text(tagOf(1, "\xE4 \\U+0416^ ^J")), L"\u00e4 \u0416^\n");
    const TextForm newer(DxfVersion::r2007, pageOfDrawing(DxfVersion::r2007, "ANSI_1252"), {});
    EXPECT_EQ(newer.textValue(1, L"\u00e4"), "\xC3\xA4");
}

TEST(TextForm, CutsRecordsAndGivesThemBackUnchanged)
{
    const std::string cases[] = {
        "  0\nLINE\n  8\n\n 10\n 1.0 \n",
        "  0\r\nLINE\r\n  8\n0\r\n",
        "0\nTEXT\n   1\n0\n0999\nremark\n",
        "999\nbefore\n  0\nSECTION\n",
        "  0\nEOF",
    };
    const TextForm form = modernForm();
    for (const std::string& record : cases) {
        SCOPED_TRACE(record);
        const auto image = FileImage::fromBytes(record);
        std::vector<Tag> tags;
        form.split(image->data(), image->size(), tags);
        std::string out;
        for (const Tag& tag : tags)
            form.write(tag, out);
        EXPECT_EQ(out, record.ends_with('\n') ? record : record + "\n");
    }
    const auto image = FileImage::fromBytes("  0\nEOF\nwhat follows is no tag");
    std::vector<Tag> tags;
    form.split(image->data(), image->size(), tags);
    EXPECT_EQ(tags.size(), 1u);
}

TEST(TextForm, KeepsTheCodeLineOfAChangedValue)
{
    const auto image = FileImage::fromBytes("  0\r\nLINE\r\n  62 \r\n     1\r\n");
    const TextForm form = modernForm();
    const auto source =
        std::make_shared<TagSource>(image, std::make_unique<TextForm>(modernForm()));
    TagList tags(source);
    tags.splitRecord(image->data(), image->size());
    ASSERT_EQ(tags.size(), 2u);
    tags.setInteger(1, 250);
    std::string out;
    for (const Tag& tag : tags)
        form.write(tag, out);
    EXPECT_EQ(out, "  0\r\nLINE\r\n  62 \r\n   250\r\n");
}
