#include "objects/record_object.h"

#include "objects/entity_objects.h"
#include "tests/support/described_drawing.h"

namespace {

class RecordObjectTest : public DescribedTest {
protected:
    RecordObjectTest()
    {
        DxfDrawing drawing;
        const std::string handle = drawing.line();
        open(drawing);
        line = idOf(handle);
        describe("obj_name|Wall|1|5\n"
                 "obj_type|Line\n"
                 "od_name|THINGS\n"
                 "od_key|NAME\n"
                 "od_fld|WIDTH|w|real|2.75\n"
                 "od_fld|COUNT|c|integer|abc\n"
                 "od_fld|NOTE|n|character|for $(obj_name)\n"
                 "obj_name|Gate|1|5\n"
                 "obj_type|Line\n"
                 "od_name|Things\n"
                 "od_key|NAME\n"
                 "od_fld|WIDTH|w|real\n"
                 "od_fld|COUNT|c|integer\n"
                 "od_fld|NOTE|n|character\n");
    }
    std::vector<OdRecord> records()
    {
        StoredTables tables(storeId());
        return tables.recordsOf(line);
    }
    const ObjectDef* objectOf(const OdRecord& record)
    {
        StoredTables tables(storeId());
        return objectOfRecord(description, record, tables);
    }

    AcDbObjectId line;
};

} // namespace

TEST_F(RecordObjectTest, AttachingWritesTheDefaultsExpanded)
{
    classify(line, L"Wall");
    const std::vector<OdRecord> found = records();
    ASSERT_EQ(found.size(), 1u);
    ASSERT_EQ(found[0].fields.size(), 4u);
    EXPECT_EQ(found[0].fields[0].value.asText(), L"Wall");
    EXPECT_EQ(found[0].fields[1].value.asReal(), 2.0); // the first writing drops the fraction
    EXPECT_EQ(found[0].fields[2].value.asInteger(), 0);
    EXPECT_EQ(found[0].fields[3].value.asText(), L"for Wall");
}

TEST_F(RecordObjectTest, AttachingPassesOverFieldsThatTheTableLacks)
{
    TableDef table = description.objects[L"wall"].props.tables[0];
    table.fields.erase(table.fields.begin() + 1, table.fields.begin() + 3);
    FieldDef extra;
    extra.name = L"EXTRA";
    extra.type = OdType::character;
    extra.defaultValue = L"lost";
    table.fields.push_back(extra);
    ASSERT_TRUE(attachRecord(table, line, description.objects[L"wall"], storeId()));
    const std::vector<OdRecord> found = records();
    ASSERT_EQ(found.size(), 1u);
    ASSERT_EQ(found[0].fields.size(), 4u);
    EXPECT_EQ(found[0].fields[1].value.asReal(), 0.0);
    EXPECT_EQ(found[0].fields[3].value.asText(), L"for Wall");
}

TEST_F(RecordObjectTest, TheKeyLeadsToTheObject)
{
    classify(line, L"Wall");
    OdRecord record = records().at(0);
    ASSERT_NE(objectOf(record), nullptr);
    EXPECT_EQ(objectOf(record)->props.name, L"Wall");

    record.fields[0].value = OdValue(L"GATE"); // without case, unlike validation
    ASSERT_NE(objectOf(record), nullptr);
    EXPECT_EQ(objectOf(record)->props.name, L"Gate");

    record.fields[0].value = OdValue(L"Roof");
    EXPECT_EQ(objectOf(record), nullptr);
    record.fields[0].value = OdValue(L"Wall");
    record.name = L"OTHER";
    EXPECT_EQ(objectOf(record), nullptr);
    record.name = L"things";
    EXPECT_NE(objectOf(record), nullptr);
    record.fields.clear();
    EXPECT_EQ(objectOf(record), nullptr);
}

TEST_F(RecordObjectTest, ATableThatDiffersFromTheDrawingsHidesTheObject)
{
    classify(line, L"Wall");
    const OdRecord record = records().at(0);
    description.objects[L"wall"].props.tables[0].fields[1].type = OdType::integer;
    EXPECT_EQ(objectOf(record), nullptr);
    ASSERT_NE(objectOfRecordUnchecked(description, record), nullptr);
    EXPECT_EQ(objectOfRecordUnchecked(description, record)->props.name, L"Wall");
}

TEST_F(RecordObjectTest, ObjectsOfAnEntityComeOnceInOrderOfTheirNames)
{
    classify(line, L"Wall");
    classify(line, L"Gate");
    classify(line, L"Wall");
    StoredTables tables(storeId());
    const std::vector<const ObjectDef*> objects =
        objectsOfRecords(description, tables, tables.recordsOf(line));
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0]->props.name, L"Gate");
    EXPECT_EQ(objects[1]->props.name, L"Wall");
}
