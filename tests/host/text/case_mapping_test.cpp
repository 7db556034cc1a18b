#include "host/text/case_mapping.h"

#include <gtest/gtest.h>

#include <set>

namespace host {
namespace {

TEST(CaseMapping, FoldsSimplePairsOfEveryScript)
{
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"ABC xyz [@`{ 09", L"abc xyz [@`{ 09"},
        {L"\u00C4\u00D6\u00DC\u00D7\u00DE\u00DF\u00F7",
         L"\u00E4\u00F6\u00FC\u00D7\u00FE\u00DF\u00F7"},
        {L"\u0100\u0101\u0139\u013A\u0178\u017D",
         L"\u0101\u0101\u013A\u013A\u00FF\u017E"},                              // extended
        {L"\u0391\u03A9\u0386\u03A3\u03C2", L"\u03B1\u03C9\u03AC\u03C3\u03C2"}, // Greek
        {L"\u0410\u042F\u0401\u0490", L"\u0430\u044F\u0451\u0491"},             // Cyrillic
        {L"\u0531\u0556", L"\u0561\u0586"},                                     // Armenian
        {L"\u10A0\u1C90", L"\u2D00\u10D0"},                                     // Georgian
        {L"\uFF21\uFF3A", L"\uFF41\uFF5A"},                                     // full width
        {L"\u1E9E\u212A\u0130", L"\u00DFki"},
        {L"\U00010400\u65E5\xDC80", L"\U00010428\u65E5\xDC80"},
    };
    for (const auto& [text, lower] : cases)
        EXPECT_EQ(lowerCased(text), lower);
}

TEST(CaseMapping, RaisesWhatHasOnePartner)
{
    EXPECT_EQ(upperCased(L"az\u00E9\u00FF\u00DF\u03C2\u0451\u01C6\u1F80"),
              L"AZ\u00C9\u0178\u00DF\u03A3\u0401\u01C4\u1F88");
}

// The two tables come from different columns of Unicode, so they can check each other.
TEST(CaseMapping, LowerCasingUndoesUpperCasing)
{
    // Two small letters share a capital, or the capital's partner is another letter.
    const std::set<wchar_t> oneWay = {0xB5,   0x131,  0x17F,  0x1C5,  0x1C8,  0x1CB,  0x1F2,
                                      0x345,  0x3C2,  0x3D0,  0x3D1,  0x3D5,  0x3D6,  0x3F0,
                                      0x3F1,  0x3F5,  0x1C80, 0x1C81, 0x1C82, 0x1C83, 0x1C84,
                                      0x1C85, 0x1C86, 0x1C87, 0x1C88, 0x1E9B, 0x1FBE};
    for (wchar_t character = 0; character < 0x20000; ++character) {
        const wchar_t upper = toUpper(character);
        if (upper != character && !oneWay.contains(character)) {
            ASSERT_EQ(toLower(upper), character) << std::hex << static_cast<int>(character);
        }
        ASSERT_EQ(toLower(toLower(character)), toLower(character));
    }
}

TEST(CaseMapping, ComparesByLowerCase)
{
    EXPECT_TRUE(
        equalNoCase(L"\u0421\u0422\u0415\u041D\u0410 1", L"\u0441\u0442\u0435\u043D\u0430 1"));
    EXPECT_FALSE(equalNoCase(L"wall", L"walls"));
    const NoCaseLess less;
    EXPECT_FALSE(less(L"ABC", L"abc"));
    EXPECT_TRUE(less(L"_", L"A")); // "_" stands between the capitals and the small letters
    EXPECT_TRUE(less(L"ab", L"ABC"));
    EXPECT_EQ(NoCaseHash()(L"\u00C4b"), NoCaseHash()(L"\u00E4B"));
}

} // namespace
} // namespace host
