#include "host/db/block_table.h"
#include "host/db/line.h"
#include "host/edit/selection.h"
#include "tests/support/command_test.h"

namespace {

void drawLine()
{
    AcDbDatabase* const database = acdbHostApplicationServices()->workingDatabase();
    AcDbObjectPointer<AcDbLine> line;
    line.create();
    AcDbObjectPointer<AcDbBlockTableRecord> space(database->modelSpaceId(), AcDb::kForWrite);
    space->appendAcDbEntity(line.object());
}

class UndoCommands : public CommandTest {
protected:
    UndoCommands()
    {
        command(L"DRAW", drawLine);
        type(L"");
        printed();
    }
    std::size_t count() { return host::allEntities(database()).size(); }
};

TEST_F(UndoCommands, TakeBackAndDoAgainOneCommandEach)
{
    type(L"DRAW\nDRAW\n");
    EXPECT_EQ(transcript(L"U\n"), L"U\nDRAW\nCommand: ");
    EXPECT_EQ(count(), 1u);
    EXPECT_EQ(transcript(L"REDO\n"), L"REDO\nDRAW\nCommand: ");
    EXPECT_EQ(count(), 2u);
    EXPECT_EQ(transcript(L"REDO\n"), L"REDO\nNothing to redo.\nCommand: ");
    type(L"U\nU\n");
    EXPECT_EQ(count(), 0u);
    EXPECT_EQ(transcript(L"U\n"), L"U\nNothing to undo.\nCommand: ");
}

TEST_F(UndoCommands, TakeBackAsManyAsAsked)
{
    type(L"DRAW\nDRAW\nDRAW\nDRAW\n");
    printed();
    EXPECT_EQ(transcript(L"UNDO\n3\n"),
              L"UNDO\n"
              L"Enter the number of operations to undo or [BEgin/End/Mark/Back] <1>: 3\n"
              L"DRAW\nDRAW\nDRAW\n"
              L"Command: ");
    EXPECT_EQ(count(), 1u);
    type(L"UNDO\n\n");
    EXPECT_EQ(count(), 0u);
    type(L"REDO\nREDO\n");
    EXPECT_EQ(count(), 2u);
    EXPECT_NE(transcript(L"UNDO\n9\n").find(L"DRAW\nDRAW\nEverything has been undone.\n"),
              std::wstring::npos);
    EXPECT_EQ(count(), 0u);
}

TEST_F(UndoCommands, GoBackToAMark)
{
    type(L"DRAW\nUNDO\nMark\nDRAW\nDRAW\n");
    EXPECT_EQ(count(), 3u);
    EXPECT_NE(transcript(L"UNDO\n9\n").find(L"Mark encountered.\n"), std::wstring::npos);
    EXPECT_EQ(count(), 1u);
    type(L"DRAW\nUNDO\nBack\n");
    EXPECT_EQ(count(), 1u);
}

TEST_F(UndoCommands, AskBeforeEverythingIsTakenBack)
{
    type(L"DRAW\nDRAW\nUNDO\nBack\nNo\n");
    EXPECT_EQ(count(), 2u);
    EXPECT_NE(transcript(L"UNDO\nBack\n\n").find(L"This will undo everything. OK? [Yes/No] <Y>: "),
              std::wstring::npos);
    EXPECT_EQ(count(), 0u);
}

TEST_F(UndoCommands, TakeAGroupAsOneStep)
{
    type(L"DRAW\nUNDO\nBEgin\nDRAW\nDRAW\nUNDO\nEnd\nDRAW\n");
    EXPECT_EQ(count(), 4u);
    type(L"U\n");
    EXPECT_EQ(count(), 3u);
    type(L"U\n");
    EXPECT_EQ(count(), 1u);
    type(L"REDO\n");
    EXPECT_EQ(count(), 3u);
    EXPECT_NE(transcript(L"UNDO\nEnd\n").find(L"No group of commands was begun.\n"),
              std::wstring::npos);
}

TEST_F(UndoCommands, ForgetWhatCannotBeDoneAgain)
{
    type(L"DRAW\nDRAW\nU\nDRAW\n");
    EXPECT_EQ(count(), 2u);
    EXPECT_EQ(transcript(L"REDO\n"), L"REDO\nNothing to redo.\nCommand: ");
}

} // namespace
