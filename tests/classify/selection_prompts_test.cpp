#include "tests/classify/selection_test.h"

TEST_F(SelectionTest, TwoZerosEndSilentlyBeforeTheMatchIsAsked)
{
    for (const wchar_t* typed : {L"kelmaro_sel_ext Wall\n0 0\n", L"kelmaro_sel_all 0 0\n"}) {
        select("A");
        const std::wstring printed = transcript(typed);
        EXPECT_TRUE(tells(printed, L"Use objects? [0/1]<1>: "));
        EXPECT_FALSE(tells(printed, L"Match"));
        EXPECT_FALSE(tells(printed, L"Selected"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(selected(), "A");
        // both answers are kept all the same
        EXPECT_TRUE(tells(
            transcript(typed[12] == L'e' ? L"kelmaro_sel_ext Wall\n\x3" : L"kelmaro_sel_all\n\x3"),
            L"Use properties? [0/1]<0>: "));
    }
}

TEST_F(SelectionTest, TheMatchPromptShowsOneWhateverIsKept)
{
    type(L"kelmaro_sel_ext Wall\n1 1 0\n\n");
    select("");
    const std::wstring printed = transcript(L"kelmaro_sel_ext Wall\n\n\n\n\n");
    EXPECT_TRUE(tells(printed, L"Match [0/1]<1>: "));
    EXPECT_EQ(selected(), "DCB"); // Enter kept the 0
}

TEST_F(SelectionTest, EachCommandRemembersItsOwnAnswers)
{
    type(L"kelmaro_sel_ext Wall\n1 0 0\n\n");
    type(L"kelmaro_assert 1\n\n");
    EXPECT_TRUE(tells(transcript(L"kelmaro_sel_all\n\x3"), L"Use properties? [0/1]<1>: "));
    EXPECT_TRUE(tells(transcript(L"kelmaro_sel_all\n\n\x3"), L"Use objects? [0/1]<1>: "));
    EXPECT_TRUE(tells(transcript(L"kelmaro_sel_ext Wall\n\n\x3"), L"Use objects? [0/1]<0>: "));
    EXPECT_TRUE(
        tells(transcript(L"kelmaro_sel_null\n\x3"), L"Check non-required fields [0/1]<0>: "));
    EXPECT_TRUE(tells(transcript(L"kelmaro_assert\n\x3"), L"Check non-required fields [0/1]<1>: "));
    EXPECT_EQ(selectedBy(L"kelmaro_sel_classified\n\n\n"), "AFBD"); // Enter kept the 1
}

TEST_F(SelectionTest, CancelAtAnyPromptChangesNoSelection)
{
    const wchar_t* const cases[] = {
        L"kelmaro_sel\n\x3",
        L"kelmaro_sel_class\n\x3",
        L"kelmaro_sel_ext\n\x3",
        L"kelmaro_sel_ext Wall\n\x3",
        L"kelmaro_sel_ext Wall\n1\n\x3",
        L"kelmaro_sel_ext Wall\n1 1\n\x3",
        L"kelmaro_sel_all\n\x3",
        L"kelmaro_sel_all 1\n\x3",
        L"kelmaro_sel_all 1 1\n\x3",
        L"kelmaro_sel_null\n\x3",
        L"kelmaro_assert\n\x3",
        L"kelmaro_sel_classified\n\x3",
    };
    for (const wchar_t* typed : cases) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        select("BA");
        const std::wstring printed = transcript(typed);
        EXPECT_FALSE(tells(printed, L"Selected"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(selected(), "BA");
    }
    // at the selection prompt
    for (const wchar_t* typed :
         {L"kelmaro_sel_ext Wall\n1 1 1\n\x3", L"kelmaro_sel_all 1 1 1\n\x3",
          L"kelmaro_sel_null 1\n\x3", L"kelmaro_assert 1\n\x3", L"kelmaro_sel_classified 1\n\x3"}) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        select("");
        const std::wstring printed = transcript(typed);
        EXPECT_TRUE(tells(printed, L"Select objects: "));
        EXPECT_FALSE(tells(printed, L"Selected"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(selected(), "");
    }
}

TEST_F(SelectionTest, WithoutADescriptionNothingIsAsked)
{
    ::session().description.reset();
    for (const wchar_t* name :
         {L"kelmaro_sel\n", L"kelmaro_sel_class\n", L"kelmaro_sel_ext\n", L"kelmaro_sel_all\n",
          L"kelmaro_sel_null\n", L"kelmaro_assert\n", L"kelmaro_sel_classified\n"}) {
        SCOPED_TRACE(std::string(name, name + std::wcslen(name)));
        const std::wstring printed = transcript(name);
        EXPECT_TRUE(tells(printed, L"Error: no file loaded.\n"));
        EXPECT_FALSE(tells(printed, L"[0/1]"));
        EXPECT_FALSE(tells(printed, L"Object: "));
    }
}
