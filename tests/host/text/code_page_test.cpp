#include "host/text/code_page.h"

#include <gtest/gtest.h>

namespace host {
namespace {

const char* const kNames[] = {
    "ANSI_874",  "ANSI_932",  "ANSI_936",  "ANSI_949",  "ANSI_950",  "ANSI_1250", "ANSI_1251",
    "ANSI_1252", "ANSI_1253", "ANSI_1254", "ANSI_1255", "ANSI_1256", "ANSI_1257", "ANSI_1258",
    "ANSI_1361", "DOS437",    "DOS850",    "DOS852",    "DOS855",    "DOS857",    "DOS860",
    "DOS861",    "DOS863",    "DOS864",    "DOS865",    "DOS866",    "DOS869",    "DOS932",
    "ISO8859-1", "ISO8859-2", "ISO8859-3", "ISO8859-4", "ISO8859-5", "ISO8859-6", "ISO8859-7",
    "ISO8859-8", "ISO8859-9", "MACINTOSH", "BIG5",      "GB2312",    "KSC5601",   "JOHAB"};

std::string encoded(const CodePage& page, std::wstring_view text)
{
    return page.encode(text, [](wchar_t, std::string& out) { out += "<lacks>"; });
}

TEST(CodePage, DecodesEachByItsName)
{
    struct Case {
        const char* name;
        std::string bytes;
        std::wstring text;
    };
    const Case cases[] = {
        {"ANSI_1252", "\x80\xE9\xFF", L"\u20AC\u00E9\u00FF"},
        {"ansi_1252", "\x9C", L"\u0153"},
        {"", "\xE9", L"\u00E9"},
        {"NOBODY_KNOWS", "\xE9", L"\u00E9"},
        {"ANSI_1250", "\xB3", L"\u0142"},
        {"ansi_1251", "\xCF\xF0", L"\u041F\u0440"},
        {"ANSI_1253", "\xC1", L"\u0391"},
        {"ANSI_1254", "\xF0", L"\u011F"},
        {"ANSI_1255", "\xE0\xE1", L"\u05D0\u05D1"},
        {"ANSI_1256", "\xC7", L"\u0627"},
        {"ANSI_1257", "\xE0", L"\u0105"},
        {"ANSI_1258", "\xFE", L"\u20AB"},
        {"ANSI_874", "\xA1", L"\u0E01"},
        {"dos850", "\x81\xE1", L"\u00FC\u00DF"},
        {"DOS437", "\xE1\xF8", L"\u00DF\u00B0"},
        {"dos866", "\x80", L"\u0410"},
        {"iso8859-5", "\xB0", L"\u0410"},
        {"ISO8859-1", "\xE9", L"\u00E9"},
        {"MACINTOSH", "\x8E", L"\u00E9"},
        {"ANSI_932", "\x93\xFA\x96\x7B\xB1", L"\u65E5\u672C\uFF71"},
        {"ANSI_932", "\x83\x5C\\", L"\u30BD\\"}, // a second byte that looks like a backslash
        {"ANSI_936", "\xD6\xD0", L"\u4E2D"},
        {"ANSI_949", "\xB0\xA1", L"\uAC00"},
        {"ANSI_950", "\xA4\xA4", L"\u4E2D"},
    };
    for (const Case& one : cases) {
        SCOPED_TRACE(std::string(one.name) + " " + testing::PrintToString(one.bytes));
        const CodePage page = CodePage::forDrawing(one.name, false);
        EXPECT_EQ(page.decode(one.bytes), one.text);
        EXPECT_EQ(encoded(page, one.text), one.bytes);
    }
}

TEST(CodePage, KeepsAsciiAndEveryByteAboveIt)
{
    for (const char* name : kNames) {
        const CodePage page = CodePage::forDrawing(name, false);
        for (int value = 0; value < 256; ++value) {
            const std::string byte(1, static_cast<char>(value));
            const std::wstring text = page.decode(byte);
            ASSERT_EQ(text.size(), 1u) << name << ' ' << value;
            if (value < 128) {
                ASSERT_EQ(text[0], value) << name;
            }
            ASSERT_EQ(encoded(page, text), byte) << name << ' ' << value;
        }
    }
}

TEST(CodePage, TextOfAnyTwoBytesReadsTheSameAgain)
{
    for (const char* name : {"ANSI_932", "ANSI_936", "ANSI_949", "ANSI_950", "ANSI_1361"}) {
        const CodePage page = CodePage::forDrawing(name, false);
        int pairs = 0;
        for (int first = 0x80; first < 256; ++first) {
            for (int second = 0; second < 256; ++second) {
                const std::string bytes = {static_cast<char>(first), static_cast<char>(second)};
                const std::wstring text = page.decode(bytes);
                ASSERT_EQ(page.decode(encoded(page, text)), text) << name << first << ' ' << second;
                pairs += text.size() == 1;
            }
        }
        EXPECT_GT(pairs, 7000) << name; // not a page that merely passes bytes through
    }
}

// Small roman numbers and the negation sign have two or three codes each.
TEST(CodePage, WritesTheUsualOneOfSeveralCodes)
{
    const CodePage japanese = CodePage::forDrawing("ANSI_932", false);
    EXPECT_EQ(japanese.decode("\xEE\xEF\xFA\x40"), L"\u2170\u2170");
    EXPECT_EQ(encoded(japanese, L"\u2170"), "\xFA\x40");
    EXPECT_EQ(japanese.decode("\x81\xCA\xEE\xF9"), L"\uFFE2\uFFE2");
    EXPECT_EQ(encoded(japanese, L"\uFFE2"), "\x81\xCA");
}

TEST(CodePage, PassesUndefinedBytes)
{
    const CodePage page;
    EXPECT_EQ(page.decode("a\x81\x8D\x8F\x90\x9Dz"), L"a\xDC81\xDC8D\xDC8F\xDC90\xDC9Dz");
    const CodePage japanese = CodePage::forDrawing("ANSI_932", false);
    EXPECT_EQ(japanese.decode("\x93"), L"\xDC93") << "half a character at the end";
    EXPECT_EQ(japanese.decode("\x93 x"), L"\xDC93 x");
}

TEST(CodePage, TellsWhatItLacks)
{
    const CodePage western;
    EXPECT_EQ(western.encode(L'\u00E9'), "\xE9");
    EXPECT_EQ(western.encode(L'\u0416'), std::nullopt);
    EXPECT_EQ(western.encode(wchar_t{0x81}), std::nullopt); // the byte 81 is not that character
    EXPECT_EQ(encoded(western, L"a\u0416b"), "a<lacks>b");
    const CodePage utf8 = CodePage::utf8();
    EXPECT_EQ(utf8.encode(L'\U0001F600'), "\xF0\x9F\x98\x80");
    EXPECT_EQ(utf8.encode(wchar_t{0xD800}), std::nullopt);
    EXPECT_EQ(utf8.encode(wchar_t{0xDC93}), "\x93");
}

TEST(CodePage, RecentDrawingsAreUtf8WhateverTheySay)
{
    EXPECT_EQ(CodePage::forDrawing("ANSI_1252", true).decode("\xC3\xA9"), L"\u00E9");
    EXPECT_EQ(CodePage::forDrawing("ANSI_1252", false).decode("\xC3\xA9"), L"\u00C3\u00A9");
    EXPECT_FALSE(CodePage::byNumber(12345));
}

} // namespace
} // namespace host
