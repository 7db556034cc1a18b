#include "objects/entity_objects.h"

#include "description/stored_table.h"
#include "objects/validation.h"
#include "store/od_tables.h"
#include "store/record_writing.h"
#include "tests/support/described_drawing.h"

#include <limits>
#include <random>

namespace {

class EntityObjects : public DescribedTest {
protected:
    // What asking for every object in turn gives.
    std::vector<const ObjectDef*> plainWalk(StoredTables& tables,
                                            const std::vector<OdRecord>& records)
    {
        std::vector<const ObjectDef*> valid;
        for (const auto& [name, object] : description.objects)
            if (validateObject(description, tables, records, name, Values::any, Fields::all))
                valid.push_back(&object);
        return valid;
    }
    static std::vector<const ObjectDef*> walk(const ValidObjects& objects,
                                              const std::vector<OdRecord>& records)
    {
        std::vector<const ObjectDef*> valid;
        for (const ObjectDef* object = objects.next(records); object;
             object = objects.next(records, object))
            valid.push_back(object);
        return valid;
    }
    static OdRecord row(const wchar_t* table, std::initializer_list<OdValue> values)
    {
        OdRecord record;
        record.name = table;
        for (const OdValue& value : values)
            record.fields.emplace_back(L"F").value.become(value);
        return record;
    }
};

} // namespace

// Records in memory reach what no command writes: other types, short rows, foreign tables.
TEST_F(EntityObjects, AreThoseOfAPlainWalkWhateverTheRecords)
{
    open(DxfDrawing());
    describe("obj_name|Bare|1|9\nobj_type|Line\n" // no tables: any record will do
             "obj_name|12|1|-4\nobj_type|Line\nod_name|T\nod_key|K\n"
             "obj_name|Wall|1|3\nobj_type|Line\nod_name|T\nod_key|K\nod_name|U\nod_key|K\n"
             "obj_name|Gate|1|5\nobj_type|Line\nod_name|U\nod_key|K\n"
             "obj_name|Hut|1|2\nobj_type|Line\nod_name|V\nod_key|K\n"
             "obj_name|Road|1|5\nobj_type|Line\nod_name|W\nod_fld|A|a|character|x\nod_key|K\n");
    for (const auto& [name, object] : description.objects)
        for (const TableDef& table : object.props.tables)
            ensureTable(table, storeId());
    // a table without a key makes nothing an object
    description.objects[L"hut"].props.tables[0].fields[0].kind = FieldKind::defaultOnly;
    StoredTables tables(storeId());
    const ValidObjects objects(description, tables);

    const OdValue values[] = {OdValue(L"Wall"),
                              OdValue(L"wall"),
                              OdValue(L"Gate"),
                              OdValue(L"12"),
                              OdValue(12),
                              OdValue(12.0),
                              OdValue(0),
                              OdValue(),
                              OdValue(L"Road"),
                              OdValue(L"Hut"),
                              OdValue(AcGePoint3d())};
    const wchar_t* const names[] = {L"T", L"U", L"V", L"W", L"t", L"Foreign"};
    std::mt19937 random(4);
    const auto any = [&](std::size_t count) {
        return std::uniform_int_distribution<std::size_t>(0, count - 1)(random);
    };
    std::size_t found = 0;
    for (int round = 0; round < 4000; ++round) {
        std::vector<OdRecord> records(any(4));
        for (OdRecord& record : records) {
            record = row(names[any(std::size(names))], {});
            for (std::size_t fields = any(3); fields > 0; --fields)
                record.fields.emplace_back(L"F").value.become(values[any(std::size(values))]);
        }
        const std::vector<const ObjectDef*> expected = plainWalk(tables, records);
        ASSERT_EQ(walk(objects, records), expected) << "round " << round;
        std::int32_t highest = std::numeric_limits<std::int32_t>::min();
        for (const ObjectDef* object : expected)
            highest = std::max(highest, object->priority);
        ASSERT_EQ(objects.highestPriority(records), highest) << "round " << round;
        found += expected.size();
    }
    EXPECT_GT(found, 2000u) << "the draw is worth little if hardly any object is ever valid";
}

TEST_F(EntityObjects, OfRecordsStandOnceInTheOrderOfTheirNames)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    open(drawing);
    describe("obj_name|b|1|1\nobj_type|Line\nod_name|T\nod_key|K\n"
             "obj_name|A|1|1\nobj_type|Line\nod_name|T\nod_key|K\n");
    for (const wchar_t* name : {L"b", L"A", L"B"})
        classify(idOf(line), name);
    StoredTables tables(storeId());
    std::wstring names;
    for (const ObjectDef* object :
         objectsOfRecords(description, tables, tables.recordsOf(idOf(line))))
        names += object->props.name;
    EXPECT_EQ(names, L"Ab");
}
