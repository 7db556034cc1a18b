#include "tests/classify/records_test.h"

#include "classify/removal.h"

TEST_F(RecordsTest, RemovesOneRecordOfEachTableAndCountsEntities)
{
    classify('A', "Wall");
    classify('B', "Wall");
    classify('B', "Gate");
    classify('C', "Gate");
    const std::wstring printed = printedBy("ABC", L"kelmaro_remove wall\n");
    EXPECT_TRUE(tells(printed, L"Object: "));
    EXPECT_TRUE(tells(printed, L"Completed: 2\n"));
    EXPECT_EQ(rows('A'), "");
    EXPECT_FALSE(hasDictionary('A'));
    EXPECT_EQ(rows('B'), "OWNERS(Gate,city)");
    EXPECT_EQ(rows('C'), "OWNERS(Gate,city)");
    EXPECT_EQ(selected(), "ABC");
}

TEST_F(RecordsTest, ASecondRecordStaysForTheNextRun)
{
    classify('A', "Gate");
    classify('A', "Gate");
    EXPECT_TRUE(tells(printedBy("A", L"kelmaro_remove Gate\n"), L"Completed: 1\n"));
    EXPECT_EQ(rows('A'), "OWNERS(Gate,city)");
    EXPECT_TRUE(tells(printedBy("A", L"kelmaro_remove Gate\n"), L"Completed: 1\n"));
    EXPECT_EQ(rows('A'), "");
    EXPECT_TRUE(tells(printedBy("A", L"kelmaro_remove Gate\n"), L"Completed: 0\n"));
}

TEST_F(RecordsTest, WhatDoesNotValidateStaysWhole)
{
    addRow('A', L"WALLS", {L"Wall", L"2"}); // lacks the second table
    addRow('B', L"WALLS", {L"wall", L"2"}); // the key is compared with case
    addRow('B', L"OWNERS", {L"Wall", L"city"});
    for (const wchar_t* name : {L"kelmaro_remove Wall\n", L"kelmaro_remove nobody\n"})
        EXPECT_TRUE(tells(printedBy("ABC", name), L"Completed: 0\n"));
    EXPECT_EQ(rows('A'), "WALLS(Wall,2.0)");
    EXPECT_EQ(rows('B'), "WALLS(wall,2.0) OWNERS(Wall,city)");
    EXPECT_FALSE(hasDictionary('C'));
}

TEST_F(RecordsTest, AClassMeansItsOwnObjectsOnly)
{
    for (const char* name : {"Wall", "Gate", "Road"})
        classify('A', name);
    classify('B', "Road");
    EXPECT_TRUE(tells(printedBy("AB", L"kelmaro_remove buildings\n"), L"Completed: 1\n"));
    EXPECT_EQ(rows('A'), "OWNERS(Road,city)");
    EXPECT_EQ(rows('B'), "OWNERS(Road,city)");
    EXPECT_TRUE(tells(printedBy("AB", L"kelmaro_remove Ways\n"), L"Completed: 2\n"));
    EXPECT_EQ(rows('A') + rows('B'), "");
}

TEST_F(RecordsTest, RemovalNamesItsOutcome)
{
    classify('A', "Gate");
    StoredTables tables(storeId());
    EXPECT_FALSE(removeObject(description(), tables, id('B'), L"Gate"));
    EXPECT_FALSE(removeObject(description(), tables, id('A'), L"nobody"));
    EXPECT_TRUE(removeObject(description(), tables, id('A'), L"BUILDINGS"));
    EXPECT_FALSE(removeObject(description(), tables, id('A'), L"BUILDINGS"));
}

TEST_F(RecordsTest, RemoveAsksForEntitiesAndNeverScans)
{
    classify('A', "Gate");
    std::wstring printed = printedBy("", L"kelmaro_remove Gate\n\n");
    EXPECT_TRUE(tells(printed, L"Error: no objects selected.\n"));
    EXPECT_FALSE(tells(printed, L"Completed"));
    EXPECT_NE(rows('A'), "");

    printed = printedBy("E", L"kelmaro_remove Gate\n"); // locked
    EXPECT_TRUE(tells(printed, L"Error: no objects selected.\n"));

    printed = printedBy("", L"kelmaro_remove Gate\n" + pick('A'));
    EXPECT_TRUE(tells(printed, L"Completed: 1\n"));
}

TEST_F(RecordsTest, RemoveAllCountsRecordsAndReleasesTheDictionary)
{
    classify('A', "Wall");
    classify('A', "Gate");
    classify('B', "Road");
    classify('C', "Gate");
    const std::wstring printed = printedBy("AB", L"kelmaro_remove_all\n");
    EXPECT_TRUE(tells(printed, L"Completed: 4\n"));
    EXPECT_EQ(rows('A') + rows('B'), "");
    EXPECT_FALSE(hasDictionary('A'));
    EXPECT_EQ(rows('C'), "OWNERS(Gate,city)");
    EXPECT_EQ(selected(), "AB");
    // Enter alone means the drawing
    EXPECT_TRUE(tells(printedBy("", L"kelmaro_remove_all\n\n"), L"Completed: 1\n"));
    type(L"u\n");
    EXPECT_EQ(rows('C'), "OWNERS(Gate,city)");
}

TEST_F(RecordsTest, RemoveAllLeavesWhatTheDescriptionDoesNotKnow)
{
    classify('A', "Gate");
    addRow('A', L"OWNERS", {L"Lamp", L"city"});
    addRow('A', L"OWNERS", {L"GATE", L"state"}); // found without regard to case
    addRow('A', L"OWNERS", {L"Lamp", L"state"});
    addRow('A', L"WALLS", {L"Lamp", L"1"});
    EXPECT_TRUE(tells(printedBy("A", L"kelmaro_remove_all\n"), L"Completed: 2\n"));
    EXPECT_EQ(rows('A'), "OWNERS(Lamp,city) OWNERS(Lamp,state) WALLS(Lamp,1.0)");
    EXPECT_TRUE(tells(printedBy("A", L"kelmaro_remove_all\n"), L"Completed: 0\n"));
}

TEST_F(RecordsTest, RemoveAllEndsSilentlyWithNothingUsable)
{
    const std::wstring printed = printedBy("E", L"kelmaro_remove_all\n");
    EXPECT_FALSE(tells(printed, L"Completed"));
    EXPECT_FALSE(tells(printed, L"Error"));
}

TEST_F(RecordsTest, CancelChangesNothing)
{
    classify('A', "Gate");
    classify('A', "Gate");
    for (const wchar_t* typed :
         {L"kelmaro_remove\n\x3", L"kelmaro_remove Gate\n\x3", L"kelmaro_remove_all\n\x3",
          L"kelmaro_sel_duplicates\n\x3", L"kelmaro_del_duplicates\n\x3",
          L"kelmaro_del_duplicates\n\n\x3", L"kelmaro_sort\n\x3", L"kelmaro_round\n\x3",
          L"kelmaro_type\n\x3", L"kelmaro_stat\n\x3"}) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        const std::wstring printed = printedBy("", typed);
        EXPECT_FALSE(tells(printed, L"Completed"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_FALSE(tells(printed, L"Objects:"));
        EXPECT_FALSE(tells(printed, L"Selected: "));
        EXPECT_EQ(rows('A'), "OWNERS(Gate,city) OWNERS(Gate,city)");
    }
}

TEST_F(RecordsTest, WithoutADescriptionNothingIsAsked)
{
    ::session().description.reset();
    for (const wchar_t* typed :
         {L"kelmaro_remove\n", L"kelmaro_remove_all\n", L"kelmaro_sel_duplicates\n",
          L"kelmaro_del_duplicates\n", L"kelmaro_sort\n", L"kelmaro_round\n", L"kelmaro_stat\n"}) {
        SCOPED_TRACE(std::string(typed, typed + std::wcslen(typed)));
        const std::wstring printed = printedBy("", typed);
        EXPECT_TRUE(tells(printed, L"Error: no file loaded.\n"));
        EXPECT_FALSE(tells(printed, L"Object: "));
        EXPECT_FALSE(tells(printed, L"Select objects: "));
    }
}
