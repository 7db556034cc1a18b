#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"
#include "host/db/sort_ents_table.h"
#include "tests/support/drawing_text.h"
#include "tests/support/dxf_drawing.h"

namespace {

using Space = AcDbObjectPointer<AcDbBlockTableRecord>;
using Table = AcDbObjectPointer<AcDbSortentsTable>;

// Four lines with the handles 100 to 103 in model space, one in a block.
class SortentsTable : public testing::Test {
protected:
    static std::string text()
    {
        DxfDrawing drawing;
        for (int line = 0; line < 4; ++line)
            drawing.line();
        drawing.block("B", 0,
                      "0\nLINE\n5\n200\n330\n104\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0.0\n20"
                      "\n0.0\n11\n1.0\n21\n0.0\n");
        return drawing.text();
    }

    Table openTable(AcDb::OpenMode mode = AcDb::kForWrite)
    {
        Space space(read_.database().modelSpaceId(), AcDb::kForWrite);
        AcDbSortentsTable* opened = nullptr;
        EXPECT_EQ(space->getSortentsTable(opened, mode, true), Acad::eOk);
        Table table;
        table.acquire(opened);
        return table;
    }
    std::vector<AcDbObjectId> ids(std::initializer_list<const char*> handles)
    {
        std::vector<AcDbObjectId> found;
        for (const char* handle : handles)
            found.push_back(read_.idOf(handle));
        return found;
    }
    void arrange(std::initializer_list<const char*> handles)
    {
        EXPECT_EQ(openTable()->setRelativeDrawOrder(ids(handles)), Acad::eOk);
    }
    std::string order()
    {
        std::string text;
        for (const AcDbObjectId id : openTable(AcDb::kForRead)->getFullDrawOrder())
            text += (text.empty() ? "" : " ") + handleText(id);
        return text;
    }
    std::string pairs()
    {
        const std::string record = read_.record(openTable(AcDb::kForRead)->objectId());
        return record.substr(record.find("100\nAcDbSortentsTable\n") + 22);
    }

    ReadDrawing read_{text()};
};

TEST_F(SortentsTable, IsMadeInTheBlocksExtensionDictionary)
{
    const AcDbObjectId spaceId = read_.database().modelSpaceId();
    AcDbSortentsTable* none = nullptr;
    EXPECT_EQ(Space(spaceId, AcDb::kForRead)->getSortentsTable(none, AcDb::kForRead, false),
              Acad::eKeyNotFound);
    EXPECT_TRUE(Space(spaceId, AcDb::kForRead)->extensionDictionary().isNull());

    const AcDbObjectId table = openTable()->objectId();
    EXPECT_EQ(openTable()->objectId(), table) << "made once";
    EXPECT_EQ(openTable()->blockId(), spaceId);
    const AcDbObjectId held = Space(spaceId, AcDb::kForRead)->extensionDictionary();
    AcDbObjectId found;
    EXPECT_EQ(
        AcDbObjectPointer<AcDbDictionary>(held, AcDb::kForRead)->getAt(L"ACAD_SORTENTS", found),
        Acad::eOk);
    EXPECT_EQ(found, table);
    EXPECT_EQ(pairs(), "330\n1F\n");
    EXPECT_EQ(order(), "100 101 102 103");
    EXPECT_NE(read_.written().find("0\nCLASS\n1\nSORTENTSTABLE\n2\nAcDbSortentsTable\n"),
              std::string::npos);
}

TEST_F(SortentsTable, DealsOutTheSortHandlesOfTheEntitiesGiven)
{
    arrange({"102", "100"});
    EXPECT_EQ(order(), "102 101 100 103");
    EXPECT_EQ(pairs(), "330\n1F\n331\n102\n5\n100\n331\n100\n5\n102\n");
    EXPECT_EQ(openTable()->getSortHandle(read_.idOf("100")), AcDbHandle(0x102));
    EXPECT_EQ(openTable()->getSortHandle(read_.idOf("103")), AcDbHandle(0x103));

    arrange({"103", "102", "101", "100"});
    EXPECT_EQ(order(), "103 102 101 100");
    arrange({"100", "103"}); // the lowest and the highest change places
    EXPECT_EQ(order(), "100 102 101 103");
}

TEST_F(SortentsTable, PassesOverWhatItDoesNotOrder)
{
    AcDbObjectPointer<AcDbObject>(read_.idOf("101"), AcDb::kForWrite)->erase();
    arrange({"103", "200", "101", "1F", "103", "100", "DEAD", "103"});
    EXPECT_EQ(order(), "103 102 100");
    EXPECT_EQ(pairs(), "330\n1F\n331\n103\n5\n100\n331\n100\n5\n103\n");
    EXPECT_EQ(openTable(AcDb::kForRead)->setRelativeDrawOrder(ids({"100", "103"})),
              Acad::eNotOpenForWrite);
}

TEST_F(SortentsTable, AnOrderThatStandsChangesNothing)
{
    arrange({"102", "100"});
    const std::string before = read_.written();
    arrange({"102", "101", "100", "103"});
    EXPECT_EQ(read_.written(), before);
}

TEST_F(SortentsTable, UndoBringsTheOrderBack)
{
    arrange({"102", "100"});
    read_.drawing().undo.beginGroup(L"ORDER");
    arrange({"103", "102", "101", "100"});
    read_.drawing().undo.endGroup(read_.drawing());
    ASSERT_EQ(order(), "103 102 101 100");
    read_.drawing().undo.undo(read_.drawing());
    EXPECT_EQ(order(), "102 101 100 103");
}

TEST(SortentsTableInFiles, IsReadAndLeftAsItStands)
{
    DxfDrawing drawing;
    const std::string inSpace = "102\n{ACAD_XDICTIONARY\n360\nF0\n102\n}\n";
    const std::string first = drawing.line();
    const std::string second = drawing.line();
    std::string text = drawing.text();
    text.insert(text.find("330\n1\n", text.find("0\nBLOCK_RECORD\n5\n1F\n")), inSpace);
    const std::string objects =
        "0\nDICTIONARY\n5\nF0\n330\n1F\n100\nAcDbDictionary\n281\n1\n3\nACAD_SORTENTS\n360\nF1\n"
        "0\nSORTENTSTABLE\n5\nF1\n330\nF0\n100\nAcDbSortentsTable\n330\n1F\n331\n" +
        second + "\n5\n" + first + "\n331\nDEAD\n5\n1\n331\n" + first + "\n5\n" + second + "\n";
    text.insert(text.rfind("0\nENDSEC\n"), objects);
    ReadDrawing read(text);
    AcDbSortentsTable* opened = nullptr;
    ASSERT_EQ(Space(read.database().modelSpaceId(), AcDb::kForRead)
                  ->getSortentsTable(opened, AcDb::kForRead, false),
              Acad::eOk);
    Table table;
    table.acquire(opened);
    EXPECT_EQ(table->getFullDrawOrder(),
              (std::vector<AcDbObjectId>{read.idOf(second), read.idOf(first)}));
    table.close();
    EXPECT_EQ(read.written(), text);
}

} // namespace
