#include "text/text_splitting.h"

#include <gtest/gtest.h>

namespace {

using Pieces = std::vector<std::wstring>;

} // namespace

TEST(TextSplitting, DropsEmptyPieces)
{
    EXPECT_EQ(splitText(L",,a,,b c,", L","), (Pieces{L"a", L"b c"}));
    EXPECT_EQ(splitText(L"a:b,c", L":,"), (Pieces{L"a", L"b", L"c"}));
    EXPECT_EQ(splitText(L"", L","), Pieces{});
    EXPECT_EQ(splitText(L"\t\t", L"\t"), Pieces{});
}

TEST(TextSplitting, ABackslashBeforeASeparatorJoins)
{
    const struct {
        std::wstring text;
        Pieces pieces;
    } cases[] = {
        {L"a\\\tb", {L"a\tb"}},
        {L"a\\\tb\\\tc\td", {L"a\tb\tc", L"d"}},
        {L"\\\tb", {L"\tb"}},
        // A separator may be repeated: the pieces join all the same.
        {L"a\\\t\tb", {L"a\tb"}},
        // The last piece has nothing to join.
        {L"a\tb\\", {L"a", L"b\\"}},
        {L"a\\\t", {L"a\\"}},
        // An earlier backslash lends the character behind itself, once.
        {L"c:\\x\\\ty", {L"c:\\xxy"}},
        {L"c:\\x\\\ty\\\tz\\\tw", {L"c:\\xxy\tz\tw"}},
        {L"a\\\\\tb", {L"a\\\\b"}},
        // A backslash that was lent is used up with the one before it.
        {L"p\\\\q\\\tr\\\ts", {L"p\\\\q\\r\ts"}},
        {L"c:\\x\ta\\\tb", {L"c:\\x", L"axb"}},
    };
    for (const auto& [text, pieces] : cases) {
        SCOPED_TRACE(text);
        EXPECT_EQ(splitWithEscape(text, L"\t"), pieces);
    }
}

TEST(TextSplitting, TrimsItems)
{
    EXPECT_EQ(trimmedItem(L" \ta b \t\r\n"), L"a b");
    EXPECT_EQ(trimmedItem(L"\r\na"), L"\r\na"); // line ends go off the right alone
    EXPECT_EQ(trimmedItem(L" \t \n"), L"");
}
