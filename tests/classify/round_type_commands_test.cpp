#include "tests/classify/records_test.h"

#include <cmath>

namespace {

class RoundTest : public RecordsTest {
protected:
    // What stands in the field of the entity's first row after rounding with this field definition.
    double rounded(const std::string& field, double stored)
    {
        EXPECT_EQ(
            load("obj_name|Mast|1|1\nobj_type|Line\nod_name|MASTS\nod_key|NAME\nod_fld|SIZE|s|" +
                 field + "\n")
                .find(L"rror"),
            std::wstring::npos);
        clear('A');
        classify('A', "Mast");
        setField(storeId(), id('A'), L"SIZE", OdValue(stored));
        EXPECT_TRUE(tells(printedBy("A", L"kelmaro_round\n"), L"Completed\n"));
        return valueOf('A', L"SIZE").asReal();
    }
    OdValue valueOf(char letter, const wchar_t* field, int row = 0)
    {
        OdRecordIterator walk = newIterator(storeId());
        OdRecord record;
        walk.open(id(letter));
        for (int at = 0; !walk.isDone(); walk.next(), ++at) {
            walk.readRecord(record);
            if (const int position = findField(record, field); at == row && position >= 0)
                return record.fields[static_cast<std::size_t>(position)].value;
        }
        ADD_FAILURE() << "no such row or field";
        return OdValue(0);
    }
};

} // namespace

TEST_F(RoundTest, TheDescriptionsWayOfWritingIsThePrecision)
{
    struct Row {
        const char* field;
        double stored;
        double after;
    };
    const Row cases[] = {
        {"real|1.25|1.5,2.125", 3.14159, 3.142},
        {"real|0", 2.6, 3.0},
        {"real", 2.4, 2.0},
        {"real|1.50", 3.14159, 3.14},
        {"real|0|0.5:9", 3.14159, 3.1},
        {"real|2.", 2.6, 3.0},
        {"real|0|-9:9.000", -1.23456, -1.235},
    };
    for (const Row& row : cases) {
        SCOPED_TRACE(row.field);
        EXPECT_NEAR(rounded(row.field, row.stored), row.after, 1e-12);
    }
}

TEST_F(RoundTest, EveryRowOfTheObjectIsRoundedWhateverItsLetterCase)
{
    classify('A', "Wall");
    addRow('A', L"WALLS", {L"wALL", L"1"});
    addRow('A', L"WALLS", {L"Lamp", L"1"});
    for (int row = 0; row < 3; ++row) // WALLS comes first in the dictionary
        setField(storeId(), id('A'), L"HEIGHT", OdValue(3.14159), row);
    addRow('B', L"WALLS", {L"Wall", L"1"}); // no Wall without the second table
    setField(storeId(), id('B'), L"HEIGHT", OdValue(3.14159));
    EXPECT_TRUE(tells(printedBy("AB", L"kelmaro_round\n"), L"Completed\n"));
    EXPECT_EQ(valueOf('A', L"HEIGHT", 0).asReal(), 3.142);
    EXPECT_EQ(valueOf('A', L"HEIGHT", 1).asReal(), 3.142);
    EXPECT_EQ(valueOf('A', L"HEIGHT", 2).asReal(), 3.14159);
    EXPECT_EQ(valueOf('B', L"HEIGHT").asReal(), 3.14159);
    EXPECT_EQ(selected(), "AB");
    type(L"u\n");
    EXPECT_EQ(valueOf('A', L"HEIGHT", 0).asReal(), 3.14159);
}

TEST_F(RoundTest, ObjectsOfOneTableEachRoundTheirOwn)
{
    EXPECT_EQ(load("obj_name|Mast|1|1\nobj_type|Line\nod_name|SIZES\nod_key|NAME\n"
                   "od_fld|SIZE|s|real|1.25\n"
                   "obj_name|Pole|1|1\nobj_type|Line\nod_name|SIZES\nod_key|NAME\n"
                   "od_fld|SIZE|s|real|1\n")
                  .find(L"rror"),
              std::wstring::npos);
    classify('A', "Mast");
    classify('A', "Pole");
    for (int row = 0; row < 2; ++row)
        setField(storeId(), id('A'), L"SIZE", OdValue(2.71828), row);
    printedBy("", L"kelmaro_round\n\n");
    EXPECT_EQ(valueOf('A', L"SIZE", 0).asReal(), 2.72);
    EXPECT_EQ(valueOf('A', L"SIZE", 1).asReal(), 3.0);
}

// The stored table decides the type: a description that came later may say real of a text.
TEST_F(RoundTest, StoredTextsAndIntegersKeepTheirType)
{
    classify('A', "Wall");
    const auto wall = description().objects.find(L"wall");
    ASSERT_NE(wall, description().objects.end());
    FieldDef owner = wall->second.props.tables[1].fields[1];
    ASSERT_EQ(owner.name, L"OWNER");
    setField(storeId(), id('A'), L"OWNER", OdValue(L"2.46 m"), 1);
    FieldDef& told = ::session().description->objects[L"wall"].props.tables[1].fields[1];
    told.type = OdType::real;
    told.defaultValue = L"0.5";
    printedBy("A", L"kelmaro_round\n");
    EXPECT_EQ(valueOf('A', L"OWNER", 1).getType(), OdType::character);
    EXPECT_EQ(valueOf('A', L"OWNER", 1).asText(), L"2.500000");
}

TEST_F(RoundTest, NothingUsableIsToldAsNothingSelected)
{
    const std::wstring printed = printedBy("E", L"kelmaro_round\n");
    EXPECT_TRUE(tells(printed, L"Error: no objects selected.\n"));
    EXPECT_FALSE(tells(printed, L"Completed"));
}

TEST_F(RecordsTest, TypesAreToldOnceEachInOrder)
{
    DxfDrawing drawing;
    drawing.layer("Locked", 4);
    drawing.line();
    drawing.circle(1.0);
    drawing.line();
    drawing.entity("POINT", "AcDbPoint", "10\n0.0\n20\n0.0\n30\n0.0\n", "Locked");
    open(drawing, "types.dxf");
    ::session().description.reset(); // none is needed
    std::wstring printed = transcript(L"kelmaro_type\nall\n\n");
    EXPECT_TRUE(tells(printed, L"\nCircle\nLine\n"));
    EXPECT_FALSE(tells(printed, L"Point"));
    printed = transcript(L"kelmaro_type\n\n"); // the drawing is not scanned
    EXPECT_TRUE(tells(printed, L"Error: no objects selected.\n"));
    EXPECT_FALSE(tells(printed, L"Line\n"));
    type(L"pselect all\n\n");
    printed = transcript(L"kelmaro_type\n");
    EXPECT_TRUE(tells(printed, L"Circle\nLine\n"));
    EXPECT_EQ(host::currentPickFirst().size(), 4u);
}
