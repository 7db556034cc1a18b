#include "store/od_record_iterator.h"

#include "tests/store/record_test.h"

namespace {

class OdRecordIteratorTest : public RecordTest {
protected:
    OdRecordIteratorTest()
    {
        addObjectsTable();
        addTable(L"Pipes", {{L"Pipe", OdType::character}});
    }

    static std::wstring shown(const OdRecord& record)
    {
        std::wstring text = record.name;
        for (const OdField& field : record.fields)
            text += L' ' + field.getName() + L'=' +
                    (field.getType() == OdType::none ? L"?" : field.value.displayText());
        return text;
    }

    // All records of a walk, each followed by ";". A walk that would never end is cut.
    std::wstring walk(OdRecordIterator iterator, AcDbObjectId entity)
    {
        std::wstring text;
        OdRecord record;
        int steps = 0;
        for (iterator.open(entity); !iterator.isDone() && ++steps < 20; iterator.next())
            text += (iterator.readRecord(record) == AcMap::kOk ? shown(record) : L"unread") + L';';
        return text;
    }
    std::wstring walk(AcDbObjectId entity) { return walk(newIterator(storeId()), entity); }
};

} // namespace

TEST_F(OdRecordIteratorTest, WalksRowsInOrderWithTypesAsStored)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"1=Wall 40=2.5 90=3", L"Objects Key=Wall Width=2.5 Floors=3;"},
        {L"1=a 40=1 90=1 1=b 40=2 90=2",
         L"Objects Key=a Width=1.0 Floors=1;Objects Key=b Width=2.0 Floors=2;"},
        // The entity's items say the types, not the table.
        {L"90=1 10=1,2,3 1=x", L"Objects Key=1 Width=1.000000,2.000000,3.000000 Floors=x;"},
        {L"1=a 70=1 90=1", L"Objects Key=a Width=? Floors=1;"},
        // What is left of a last row is a row.
        {L"1=a 40=1 90=1 1=b", L"Objects Key=a Width=1.0 Floors=1;Objects Key=b Width=? Floors=?;"},
        {L"", L""},
    };
    for (const auto& [chain, records] : cases) {
        const AcDbObjectId line = addLine();
        putRows(line, L"Objects", chain);
        EXPECT_EQ(walk(line), records) << chain;
    }
}

TEST_F(OdRecordIteratorTest, EntriesWithoutRowsArePassedOver)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Objects", L"");
    putRows(line, L"Pipes", L"1=p 1=q");
    EXPECT_EQ(walk(line), L"Pipes Pipe=p;Pipes Pipe=q;");
    const AcDbObjectId other = addLine();
    putRows(other, L"Objects", L"");
    OdRecordIterator records = newIterator(storeId());
    EXPECT_EQ(records.open(other), AcMap::kOk);
    OdRecord record;
    EXPECT_EQ(records.readRecord(record), AcMap::kNotFound);
    EXPECT_TRUE(records.isDone());
}

TEST_F(OdRecordIteratorTest, ForeignEntriesAreSkippedAtTheStartAlone)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"OTHERS", L"1=x");
    OdRecordIterator records = newIterator(storeId());
    EXPECT_EQ(records.open(line), AcMap::kNotFound);
    EXPECT_TRUE(records.isDone());

    putRows(line, L"Objects", L"1=a 40=1 90=1");
    putRows(line, L"STRANGE", L"1=x 1=y");
    // The walk ends whatever an entry behind the first record holds, and leaves it alone.
    EXPECT_EQ(walk(line), L"Objects Key=a Width=1.0 Floors=1;STRANGE;");
    EXPECT_EQ(rowsOf(line, L"STRANGE"), L"1=x 1=y");
}

TEST_F(OdRecordIteratorTest, AnEntryThatIsNoXrecordCannotBeRead)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"1=p");
    {
        const AcDbObjectPointer<AcDbDictionary> dictionary(extensionOf(line), AcDb::kForWrite);
        AcDbObjectPointer<AcDbDictionary> inner;
        inner.create();
        AcDbObjectId id;
        ASSERT_EQ(dictionary->setAt(L"Objects", inner.object(), id), Acad::eOk);
    }
    EXPECT_EQ(walk(line), L"Pipes Pipe=p;unread;");
}

TEST_F(OdRecordIteratorTest, OpeningTellsWhatIsMissing)
{
    const AcDbObjectId line = addLine();
    OdRecordIterator records = newIterator(storeId());
    EXPECT_EQ(records.open(line), AcMap::kNotFound);
    EXPECT_TRUE(records.isDone());
    AcDbObjectPointer<AcDbObject>(line, AcDb::kForWrite)->erase();
    EXPECT_EQ(records.open(line), AcMap::kEntityNotOpened);
    EXPECT_TRUE(records.isDone());
}

TEST_F(OdRecordIteratorTest, AFilterKeepsToOneTable)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"1=p");
    OdTable objects;
    ASSERT_EQ(getTable(storeId(), L"Objects", objects), AcMap::kOk);
    OdRecordIterator records = newIterator(objects);
    EXPECT_EQ(records.open(line), AcMap::kOk); // the entity has a record, if none of this table
    EXPECT_TRUE(records.isDone());
    putRows(line, L"Objects", L"1=a 40=1 90=1");
    EXPECT_EQ(walk(newIterator(objects), line), L"Objects Key=a Width=1.0 Floors=1;");
    objects.name = L"OBJECTS";
    EXPECT_EQ(walk(newIterator(objects), line), L""); // exactly
}

TEST_F(OdRecordIteratorTest, NextMovesByWhatWasRead)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"1=p 1=q");
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    records.open(line);
    records.next();
    records.next(); // nothing was read: the walk stands still
    EXPECT_EQ(records.readRecord(record), AcMap::kOk);
    EXPECT_EQ(shown(record), L"Pipes Pipe=p");
    EXPECT_FALSE(records.isDone());
    EXPECT_FALSE(records.isDone()); // asking twice moves nothing
    records.next();
    records.readRecord(record);
    EXPECT_EQ(shown(record), L"Pipes Pipe=q");
    EXPECT_FALSE(records.isDone());
    records.next();
    EXPECT_TRUE(records.isDone());
}

TEST_F(OdRecordIteratorTest, OneIteratorServesManyEntitiesAndDrawings)
{
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    for (const wchar_t* name : {L"p", L"q"}) {
        const AcDbObjectId line = addLine();
        putRows(line, L"Pipes", std::wstring(L"1=") + name);
        EXPECT_EQ(records.open(line), AcMap::kOk);
        records.readRecord(record);
        EXPECT_EQ(shown(record), std::wstring(L"Pipes Pipe=") + name);
    }
    session().documents().newDocument();
    addTable(L"Pipes", {{L"Number", OdType::integer}});
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"90=4");
    EXPECT_EQ(records.open(line), AcMap::kOk);
    records.readRecord(record);
    EXPECT_EQ(shown(record), L"Pipes Number=4");
}

TEST_F(OdRecordIteratorTest, UpdatingKeepsGroupCodesAndFractions)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Objects", L"1=a 40=1 90=1 1=b 40=2 90=2 1=c");
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    records.open(line);
    records.readRecord(record);
    records.next();
    records.readRecord(record);
    record.fields[0].setText(L"B");
    record.fields[1].setReal(2.75);
    record.fields[2].setInteger(-5);
    EXPECT_EQ(records.updateRecord(record), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Objects"), L"1=a 40=1 90=1 1=B 40=2.75 90=-5 1=c");

    // A field of another type than the stored one leaves its item alone.
    record.fields[0] = OdField(L"Key", OdType::integer);
    record.fields[1] = OdField(L"Width");
    EXPECT_EQ(records.updateRecord(record), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Objects"), L"1=a 40=1 90=1 1=B 40=2.75 90=-5 1=c");

    records.next();
    records.readRecord(record);
    record.fields[0].setText(L"C");
    record.fields[1].setText(L"lost"); // behind the end of the chain
    EXPECT_EQ(records.updateRecord(record), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Objects"), L"1=a 40=1 90=1 1=B 40=2.75 90=-5 1=C");
    records.next();
    EXPECT_TRUE(records.isDone());
    EXPECT_EQ(records.updateRecord(record), AcMap::kNotFound);
}

TEST_F(OdRecordIteratorTest, RemovingARowMovesTheNextOneIntoItsPlace)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"1=a 1=b 1=c");
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    records.open(line);
    records.readRecord(record);
    records.next();
    records.readRecord(record);
    EXPECT_EQ(records.removeRecord(), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Pipes"), L"1=a 1=c");
    EXPECT_FALSE(records.isDone());
    records.readRecord(record);
    EXPECT_EQ(shown(record), L"Pipes Pipe=c");
    EXPECT_EQ(records.removeRecord(), AcMap::kOk);
    EXPECT_EQ(rowsOf(line, L"Pipes"), L"1=a");
    EXPECT_TRUE(records.isDone());
}

// The walk of a command that removes every record it knows: a removal does not step.
TEST_F(OdRecordIteratorTest, RemovingAllGoesOnWithTheNextEntry)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Objects", L"1=a 40=1 90=1 1=b 40=2 90=2");
    putRows(line, L"Pipes", L"1=p 1=q");
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    std::wstring removed;
    for (records.open(line); !records.isDone();) {
        ASSERT_EQ(records.readRecord(record), AcMap::kOk);
        removed += record.fields[0].value.asText();
        ASSERT_EQ(records.removeRecord(), AcMap::kOk);
    }
    EXPECT_EQ(removed.size(), 4U);
    EXPECT_TRUE(extensionOf(line).isNull()); // released with its last entry
}

TEST_F(OdRecordIteratorTest, ADictionaryWithOtherEntriesStays)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"OTHERS", L"70=5");
    putRows(line, L"Pipes", L"1=p");
    OdRecordIterator records = newIterator(storeId());
    records.open(line);
    EXPECT_EQ(records.removeRecord(), AcMap::kOk); // without reading: the first row
    EXPECT_EQ(rowsOf(line, L"Pipes"), L"none");
    EXPECT_EQ(rowsOf(line, L"OTHERS"), L"70=5");
}

TEST_F(OdRecordIteratorTest, RemovesNothingOfAForeignEntry)
{
    const AcDbObjectId line = addLine();
    putRows(line, L"Pipes", L"1=p");
    putRows(line, L"STRANGE", L"1=x");
    OdRecordIterator records = newIterator(storeId());
    OdRecord record;
    for (records.open(line); !records.isDone(); records.next()) {
        records.readRecord(record);
        if (record.name == L"STRANGE") {
            EXPECT_EQ(records.removeRecord(), AcMap::kNotFound);
        }
    }
    EXPECT_EQ(rowsOf(line, L"STRANGE"), L"1=x");
}
