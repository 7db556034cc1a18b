#include "description/macro_defines.h"

#include <gtest/gtest.h>

using Outcome = MacroDefines::Outcome;

TEST(MacroDefines, ReplacesKnownMacrosWhereverTheyStand)
{
    MacroDefines defines;
    defines.define(L"Dir", L"C:\\maps");
    defines.define(L"file", L"$(dir)\\a.dwg"); // as a redefinition could leave it
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"$(dir)\\x", L"C:\\maps\\x"},
        {L"$(DIR)$(dir)", L"C:\\mapsC:\\maps"},
        {L"$(file)", L"C:\\maps\\a.dwg"},
        {L"$(none) $(dir)", L"$(none) C:\\maps"},
        {L"$(dir", L"$(dir"},
        {L"$()", L"$()"},
        {L"$(a$(dir)", L"$(a$(dir)"}, // the text up to ")" is one unknown macro
        // ... unless the inner one is met again behind it: then all its places are filled.
        {L"$(a$(dir) $(dir)", L"$(aC:\\maps C:\\maps"},
        {L"no macro", L"no macro"},
    };
    for (const auto& [text, expanded] : cases)
        EXPECT_EQ(defines.expand(text), expanded) << text;
}

TEST(MacroDefines, RefusesAValueThatNamesItsOwnMacro)
{
    MacroDefines defines;
    EXPECT_EQ(defines.define(L"x", L"$(X)y"), Outcome::recursive);
    EXPECT_EQ(defines.expand(L"$(x)"), L"$(x)");
    EXPECT_EQ(defines.define(L"x", L"1"), Outcome::defined);
    EXPECT_EQ(defines.define(L"X", L"2"), Outcome::replaced);
    EXPECT_EQ(defines.expand(L"$(x)"), L"2");
}

TEST(MacroDefines, AnExpansionThatFeedsItselfEnds)
{
    MacroDefines defines;
    defines.define(L"q", L"$(p)q)");
    defines.define(L"p", L"$(");
    EXPECT_EQ(defines.expand(L"$(q)"), L"$(q)");

    MacroDefines growing;
    growing.define(L"q", L"$(p)q)$(p)q)");
    growing.define(L"p", L"$(");
    EXPECT_LT(growing.expand(L"$(q)").size(), std::size_t{1} << 26);
}

// Each macro holds the one before it twice: forty of them would be a trillion characters.
TEST(MacroDefines, ValuesDoNotGrowWithoutEnd)
{
    MacroDefines defines;
    defines.define(L"m0", L"xx");
    for (int i = 1; i <= 40; ++i) {
        const std::wstring former = L"$(m" + std::to_wstring(i - 1) + L')';
        defines.define(L"m" + std::to_wstring(i), defines.expand(former + former));
    }
    EXPECT_EQ(defines.expand(L"$(m10)").size(), std::size_t{2048});
    EXPECT_LE(defines.expand(L"$(m40)").size(), std::size_t{1} << 21);
}

TEST(MacroDefines, ForbiddenCharacters)
{
    for (const wchar_t character : std::wstring(L"`~!@#$%^&*()=+[]{};:'\"\\|,<.>/? \t"))
        EXPECT_TRUE(hasForbiddenCharacter(std::wstring(L"a") + character)) << int{character};
    EXPECT_FALSE(hasForbiddenCharacter(L"Field_1-\u00e9"));
}
