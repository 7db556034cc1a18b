#include "store/record_writing.h"

#include "tests/store/record_test.h"

namespace {

class RecordWritingTest : public RecordTest {
protected:
    RecordWritingTest()
    {
        addObjectsTable();
        EXPECT_EQ(getTable(storeId(), L"Objects", table_), AcMap::kOk);
        initRecord(table_, record_);
    }

    OdTable table_;
    OdRecord record_;
};

} // namespace

TEST_F(RecordWritingTest, TheFirstWritingOfARealDropsItsFraction)
{
    const AcDbObjectId line = addLine();
    record_.fields[0].setText(L"Wall");
    record_.fields[2].setInteger(3);
    for (const auto& [value, stored] : {std::pair(12.75, L"1=Wall 40=12 90=3"),
                                        std::pair(0.9, L"1=Wall 40=12 90=3 1=Wall 40=0 90=3"),
                                        std::pair(-2.9, L"1=Wall 40=12 90=3 1=Wall 40=0 90=3 "
                                                        L"1=Wall 40=-2 90=3")}) {
        record_.fields[1].setReal(value);
        EXPECT_EQ(addRecord(table_, record_, line), AcMap::kOk);
        EXPECT_EQ(rowsOf(line, L"Objects"), stored);
    }
    EXPECT_EQ(entityTables(storeId(), line),
              (std::vector<std::wstring>{L"Objects", L"Objects", L"Objects"}));
}

TEST_F(RecordWritingTest, ARecordWithoutFieldsTakesTheTablesDefaults)
{
    const AcDbObjectId line = addLine();
    EXPECT_TRUE(entityTables(storeId(), line).empty());
    EXPECT_EQ(addRecord(table_, OdRecord(), line), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Objects"), L"1= 40=0 90=0");
}

TEST_F(RecordWritingTest, RowsGoBehindWhatOthersKeepOnTheEntity)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"OTHERS", L"70=5");
    putRows(line, L"Objects", L"1=Old 40=1.5 90=1 1=rest");
    EXPECT_EQ(addRecord(table_, record_, line), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Objects"), L"1=Old 40=1.5 90=1 1=rest 1= 40=0 90=0");
    EXPECT_EQ(rowsOf(line, L"OTHERS"), L"70=5");
}

TEST_F(RecordWritingTest, RefusesWhatCannotBeOpened)
{
    const AcDbObjectId line = addLine();
    {
        const AcDbObjectPointer<AcDbObject> open(line, AcDb::kForRead);
        EXPECT_EQ(addRecord(table_, record_, line), AcMap::kEntityNotOpened);
    }
    AcDbObjectPointer<AcDbObject>(line, AcDb::kForWrite)->erase();
    EXPECT_EQ(addRecord(table_, record_, line), AcMap::kEntityNotOpened);
    EXPECT_EQ(addRecord(table_, record_, AcDbObjectId::kNull), AcMap::kEntityNotOpened);
}
