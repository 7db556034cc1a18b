#include "host/geom/text_strokes.h"

#include <string>

#include <gtest/gtest.h>

namespace {

using host::textWidth;

TEST(TextWidth, GrowsWithHeightAndFactor)
{
    const double one = textWidth(L"Pipe 300", 1.0, 1.0);
    EXPECT_GT(one, 4.0); // eight characters of a plain font
    EXPECT_LT(one, 8.0);
    EXPECT_DOUBLE_EQ(textWidth(L"Pipe 300", 2.5, 1.0), 2.5 * one);
    EXPECT_DOUBLE_EQ(textWidth(L"Pipe 300", 2.5, 0.8), 2.0 * one);
    EXPECT_EQ(textWidth(L"", 2.5, 1.0), 0.0);
}

TEST(TextWidth, KnowsNarrowAndWideCharacters)
{
    EXPECT_LT(textWidth(L"i", 1, 1), textWidth(L"n", 1, 1));
    EXPECT_LT(textWidth(L"n", 1, 1), textWidth(L"W", 1, 1));
    EXPECT_LT(textWidth(L"~", 1, 1), 1.0); // last of the table
    EXPECT_GT(textWidth(L"\u6C34", 1, 1), 1.0);
    EXPECT_GT(textWidth(L"\u0416", 1, 1), textWidth(L"\u0436", 1, 1));
    EXPECT_EQ(textWidth(L"e\u0301", 1, 1), textWidth(L"e", 1, 1));
}

TEST(TextWidth, ReadsControlCodesAsWhatTheyDraw)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"45%%d", L"45\u00B0"}, {L"45%%D", L"45\u00B0"},  {L"%%c20", L"\u220520"},
        {L"%%p1", L"\u00B11"},   {L"%%uName%%u", L"Name"}, {L"100%%%", L"100%"},
        {L"%%065BC", L"ABC"},    {L"50%", L"50%"},
    };
    for (const auto& [code, plain] : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(code)));
        EXPECT_DOUBLE_EQ(textWidth(code, 1, 1), textWidth(plain, 1, 1));
    }
    // What is no control code is drawn as it stands.
    const double percent = textWidth(L"%", 1, 1);
    EXPECT_DOUBLE_EQ(textWidth(L"%%", 1, 1), 2 * percent);
    EXPECT_DOUBLE_EQ(textWidth(L"%%6", 1, 1), 2 * percent + textWidth(L"6", 1, 1));
}

} // namespace
