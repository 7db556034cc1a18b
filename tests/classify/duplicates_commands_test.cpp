#include "tests/classify/records_test.h"

TEST_F(RecordsTest, ADuplicateHasMoreRecordsThanItsObjectHasTables)
{
    classify('A', "Wall"); // one row of each table
    classify('B', "Wall");
    addRow('B', L"OWNERS", {L"Wall", L"state"}); // three rows, two tables
    classify('C', "Gate");
    classify('C', "gate");
    addRow('D', L"WALLS", {L"Wall", L"1"}); // two rows of one of two tables
    addRow('D', L"WALLS", {L"Wall", L"1"});
    const std::wstring printed = printedBy("ABCD", L"kelmaro_sel_duplicates\n");
    EXPECT_TRUE(tells(printed, L"Selected: 2 ('Gate' 'Wall' )\nSelected: 2"));
    EXPECT_EQ(selected(), "BC");
}

TEST_F(RecordsTest, TheFirstDuplicatedObjectByNameIsNamed)
{
    classify('A', "Road");
    classify('A', "Road");
    classify('A', "Gate");
    classify('A', "Gate");
    EXPECT_TRUE(
        tells(printedBy("", L"kelmaro_sel_duplicates\n\n"), L"Selected: 1 ('Gate' )\nSelected: 1"));
}

TEST_F(RecordsTest, WithoutDuplicatesTheSelectionIsCleared)
{
    classify('A', "Wall");
    EXPECT_TRUE(
        tells(printedBy("AB", L"kelmaro_sel_duplicates\n"), L"Selected: 0 ()\nSelected: 0"));
    EXPECT_EQ(selected(), "");
    const std::wstring printed = printedBy("E", L"kelmaro_sel_duplicates\n"); // nothing usable
    EXPECT_TRUE(tells(printed, L"Selected: 0"));
    EXPECT_FALSE(tells(printed, L"("));
}

// The rows before, those after, and how many entities are told. Rows go from the start, whichever
// answer is given.
TEST_F(RecordsTest, RowsAtTheStartGoUntilTheSurplusHasGone)
{
    struct Row {
        const char* name;
        std::vector<std::pair<const wchar_t*, const wchar_t*>> before;
        const char* after;
        const wchar_t* told;
    };
    const Row cases[] = {
        {"three alike",
         {{L"Gate", L"1"}, {L"Gate", L"2"}, {L"Gate", L"3"}},
         "OWNERS(Gate,3)",
         L"Completed: 1\n"},
        {"another between",
         {{L"Gate", L"1"}, {L"Lamp", L"2"}, {L"Gate", L"3"}},
         "OWNERS(Lamp,2) OWNERS(Gate,3)",
         L"Completed: 1\n"},
        {"another in front",
         {{L"Lamp", L"1"}, {L"Gate", L"2"}, {L"Gate", L"3"}},
         "OWNERS(Gate,2) OWNERS(Gate,3)",
         L"Completed: 1\n"},
        {"alike but for case",
         {{L"GATE", L"1"}, {L"Gate", L"2"}},
         "OWNERS(Gate,2)",
         L"Completed: 1\n"},
        {"one row of the object",
         {{L"Gate", L"1"}, {L"Lamp", L"2"}},
         "OWNERS(Gate,1) OWNERS(Lamp,2)",
         L"Completed: 0\n"},
        {"no valid object",
         {{L"gate", L"1"}, {L"GATE", L"2"}},
         "OWNERS(gate,1) OWNERS(GATE,2)",
         L"Completed: 0\n"},
        {"the same twice in front of two objects",
         {{L"Gate", L"1"}, {L"Gate", L"2"}, {L"Road", L"3"}, {L"Road", L"4"}},
         "OWNERS(Road,3) OWNERS(Road,4)",
         L"Completed: 1\n"},
    };
    for (const wchar_t* answer : {L"", L"first", L"f", L"FI", L"l", L"la", L"last"}) {
        for (const Row& row : cases) {
            SCOPED_TRACE(row.name + std::string(" ") +
                         std::string(answer, answer + std::wcslen(answer)));
            for (const auto& [key, owner] : row.before)
                addRow('A', L"OWNERS", {key, owner});
            const std::wstring printed =
                printedBy("A", std::wstring(L"kelmaro_del_duplicates\n") + answer + L"\n");
            EXPECT_TRUE(tells(printed, L"Mode (First, Last)<First>: "));
            EXPECT_TRUE(tells(printed, row.told));
            EXPECT_EQ(rows('A'), row.after);
            EXPECT_EQ(selected(), std::wstring_view(row.told) == L"Completed: 1\n" ? "A" : "");
            clear('A');
        }
    }
}

TEST_F(RecordsTest, AnotherAnswerEndsSilently)
{
    classify('A', "Gate");
    classify('A', "Gate");
    for (const wchar_t* answer : {L"x", L"firsts", L"fl", L" f", L"st"}) {
        const std::wstring printed =
            printedBy("A", std::wstring(L"kelmaro_del_duplicates\n") + answer + L"\n");
        EXPECT_FALSE(tells(printed, L"Completed"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(rows('A'), "OWNERS(Gate,city) OWNERS(Gate,city)");
        EXPECT_EQ(selected(), "A");
    }
}

TEST_F(RecordsTest, WithNothingToCleanNoModeIsAsked)
{
    std::wstring printed = printedBy("E", L"kelmaro_del_duplicates\n");
    EXPECT_TRUE(tells(printed, L"Completed: 0\n"));
    EXPECT_FALSE(tells(printed, L"Mode"));
    open(DxfDrawing(), "empty.dxf");
    printed = transcript(L"kelmaro_del_duplicates\n\n");
    EXPECT_TRUE(tells(printed, L"Completed: 0\n"));
    EXPECT_FALSE(tells(printed, L"Mode"));
    EXPECT_FALSE(tells(printed, L"Error"));
}

TEST_F(RecordsTest, EveryTableOfAnObjectIsCleaned)
{
    classify('A', "Wall");
    classify('A', "Wall");
    classify('B', "Wall");
    EXPECT_TRUE(tells(printedBy("", L"kelmaro_del_duplicates\n\n\n"), L"Completed: 1\n"));
    EXPECT_EQ(rows('A'), "WALLS(Wall,2.0) OWNERS(Wall,city)");
    EXPECT_EQ(rows('B'), "WALLS(Wall,2.0) OWNERS(Wall,city)");
    EXPECT_EQ(selected(), "A");
    type(L"u\n");
    EXPECT_EQ(rows('A'), "WALLS(Wall,2.0) WALLS(Wall,2.0) OWNERS(Wall,city) OWNERS(Wall,city)");
}
