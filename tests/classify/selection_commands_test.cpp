#include "tests/classify/selection_test.h"

// The lists begin as A E B C D F; the locked E goes first and F takes its place.
TEST_F(SelectionTest, EachCommandSelectsInTheOrderOfRemoval)
{
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"kelmaro_sel Wall\n", "AFB"},
        {L"kelmaro_sel gate\n", "D"},
        {L"kelmaro_sel Buildings\n", "AFBD"},
        {L"kelmaro_sel nobody\n", ""},
        {L"kelmaro_sel_class buildings\n", "AFBD"},
        {L"kelmaro_sel_class Openings\n", "D"},
        {L"kelmaro_sel_class Wall\n", ""},

        {L"kelmaro_sel_ext Wall\n1 0 1\n\n", "AFC"},
        {L"kelmaro_sel_ext Wall\n1 0 0\n\n", "DB"},
        {L"kelmaro_sel_ext Wall\n1 1 1\n\n", "AF"},
        {L"kelmaro_sel_ext Wall\n1 1 0\n\n", "DCB"},
        {L"kelmaro_sel_ext Wall\n0 1 1\n\n", "AFB"},
        {L"kelmaro_sel_ext Wall\n0 1 0\n\n", "DC"},
        {L"kelmaro_sel_ext Openings\n1 1 1\n\n", "D"},
        {L"kelmaro_sel_ext nobody\n1 1 0\n\n", "AFBCD"},

        {L"kelmaro_sel_all 1 0 1\n\n", "AFD"},
        {L"kelmaro_sel_all 1 0 0\n\n", "CB"},
        {L"kelmaro_sel_all 1 1 1\n\n", "AFD"},
        {L"kelmaro_sel_all 1 1 0\n\n", "CB"},
        {L"kelmaro_sel_all 0 1 1\n\n", "AFBD"},
        {L"kelmaro_sel_all 0 1 0\n\n", "C"},

        {L"kelmaro_sel_classified 1\n\n", "AFBD"},
        {L"kelmaro_sel_classified 0\n\n", "C"},
        {L"kelmaro_assert 1\n\n", "BF"},
        {L"kelmaro_assert 0\n\n", "B"},
        {L"kelmaro_sel_null 1\n\n", "D"},
        {L"kelmaro_sel_null 0\n\n", "D"},
    };
    for (const auto& [typed, letters] : cases) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        EXPECT_EQ(selectedBy(typed), letters);
    }
}

TEST_F(SelectionTest, ASelectionIsNarrowed)
{
    select("FCA");
    type(L"kelmaro_sel_all 1 1 1\n");
    EXPECT_EQ(selected(), "FA");
    type(L"kelmaro_sel_classified 0\n");
    EXPECT_EQ(selected(), "");
}

TEST_F(SelectionTest, OnlyRequiredFieldsCountForNullWithZero)
{
    setField(storeId(), id('D'), L"TAG", OdValue(L"G1"));
    EXPECT_EQ(selectedBy(L"kelmaro_sel_null 0\n\n"), "");
    EXPECT_EQ(selectedBy(L"kelmaro_sel_null 1\n\n"), "D");
    setField(storeId(), id('D'), L"NOTE", OdValue(L"wide"));
    EXPECT_EQ(selectedBy(L"kelmaro_sel_null 1\n\n"), "");
}

TEST_F(SelectionTest, ATableThatNoLongerMatchesIsNeverNormal)
{
    ::session().description->objects[L"wall"].props.tables[0].fields[1].type = OdType::integer;
    EXPECT_EQ(selectedBy(L"kelmaro_sel_all 1 1 1\n\n"), "D");
    EXPECT_EQ(selectedBy(L"kelmaro_sel_all 1 1 0\n\n"), "AFBC");
    EXPECT_EQ(selectedBy(L"kelmaro_sel_all 0 1 1\n\n"), "D");
}

TEST_F(SelectionTest, AnEntityWithRecordsOfTwoObjectsPassesByOne)
{
    classifyAs(description(), storeId(), id('D'), L"Wall");
    EXPECT_EQ(selectedBy(L"kelmaro_sel_all 1 1 1\n\n"), "AFD");
    EXPECT_EQ(selectedBy(L"kelmaro_sel Wall\n"), "AFBD");
}

TEST_F(SelectionTest, NothingUsableIsTold)
{
    const std::wstring selectedNone = L"Selected: 0";
    for (const wchar_t* typed :
         {L"kelmaro_sel Wall\n", L"kelmaro_sel_class Buildings\n", L"kelmaro_sel_ext Wall\n1 1 1\n",
          L"kelmaro_sel_all 1 1 1\n", L"kelmaro_assert 1\n", L"kelmaro_sel_classified 1\n"}) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        select("E");
        EXPECT_TRUE(tells(transcript(typed), selectedNone));
    }
    select("E");
    EXPECT_FALSE(tells(transcript(L"kelmaro_sel_null 1\n"), L"Selected"));
}

TEST_F(SelectionTest, AnEmptyDrawingHasNoObjects)
{
    open(DxfDrawing(), "empty.dxf");
    const std::wstring message = L"Error: no objects selected.\n";
    for (const wchar_t* typed :
         {L"kelmaro_sel Wall\n", L"kelmaro_sel_class Wall\n", L"kelmaro_sel_ext Wall\n1 1 1\n\n",
          L"kelmaro_sel_all 1 1 1\n\n", L"kelmaro_sel_null 1\n\n", L"kelmaro_assert 1\n\n",
          L"kelmaro_sel_classified 1\n\n"}) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        const std::wstring printed = transcript(typed);
        EXPECT_TRUE(tells(printed, message));
        EXPECT_FALSE(tells(printed, L"Selected: "));
    }
}
