#include "tests/store/record_test.h"

namespace {

class OdTablesTest : public RecordTest {
protected:
    // "Key=character/ Width=real/0.0", name, type and default of each field.
    std::wstring fieldsOf(std::wstring_view name)
    {
        static constexpr const wchar_t* kTypes[] = {L"none", L"integer", L"real", L"character",
                                                    L"point"};
        OdTable table;
        if (getTable(storeId(), name, table) != AcMap::kOk)
            return L"none";
        std::wstring text = table.name + L':';
        for (const OdField& field : table.fields)
            text += L' ' + field.getName() + L'=' + kTypes[static_cast<int>(field.getType())] +
                    L'/' + field.value.displayText();
        return text;
    }
};

} // namespace

TEST_F(OdTablesTest, ATableIsPairsOfNameAndDefault)
{
    addObjectsTable();
    EXPECT_EQ(chainIn(storeId(), L"Objects"), L"1=Key 1= 1=Width 40=0 1=Floors 90=0");
    EXPECT_EQ(fieldsOf(L"Objects"), L"Objects: Key=character/ Width=real/0.0 Floors=integer/0");
    addTable(L"Empty", {});
    EXPECT_EQ(chainIn(storeId(), L"Empty"), L"");
    EXPECT_EQ(fieldsOf(L"Empty"), L"Empty:");
}

TEST_F(OdTablesTest, AStoredTableIsNeverReplaced)
{
    addObjectsTable();
    const std::vector<OdField> other{OdField(L"X", OdType::integer)};
    EXPECT_EQ(createTable(storeId(), L"Objects", other), AcMap::kTableExists);
    EXPECT_EQ(createTable(storeId(), L"OBJECTS", other), AcMap::kTableExists);
    EXPECT_EQ(chainIn(storeId(), L"Objects"), L"1=Key 1= 1=Width 40=0 1=Floors 90=0");
    EXPECT_TRUE(hasTable(storeId(), L"objects")); // keys of dictionaries compare without case
    EXPECT_EQ(fieldsOf(L"objects"), fieldsOf(L"Objects"));
    EXPECT_FALSE(hasTable(storeId(), L"Object"));
    EXPECT_EQ(fieldsOf(L"Object"), L"none");
}

TEST_F(OdTablesTest, ReadsWhatOtherProgramsWrote)
{
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"1=At 10=1,2,3 1=N 90=7", L"T: At=point/1.000000,2.000000,3.000000 N=integer/7"},
        {L"1=A 70=3 1=B 40=1.5", L"T: B=real/1.5"}, // 70 is no type
        {L"1=A 1=x 1=a 90=1", L"T: A=character/x"}, // the first of a name wins
        {L"1=A 1=x 1=B", L"T: A=character/x"},      // a lone item ends the table
    };
    for (const auto& [chain, fields] : cases) {
        putChain(storeId(), L"T", chain);
        EXPECT_EQ(fieldsOf(L"T"), fields) << chain;
    }
}

TEST_F(OdTablesTest, ListsNamesOnlyWhenAskedForAll)
{
    std::vector<std::wstring> names;
    EXPECT_EQ(listTables(database(), names, kAllTables), AcMap::kOk);
    EXPECT_TRUE(existingStoreId(database()).isNull()); // listing makes no store
    addObjectsTable();
    addTable(L"Alpha", {});
    listTables(database(), names, 3);
    EXPECT_TRUE(names.empty());
    names.push_back(L"before");
    listTables(database(), names, kAllTables);
    std::sort(names.begin() + 1, names.end());
    EXPECT_EQ(names, (std::vector<std::wstring>{L"before", L"Alpha", L"Objects"}));
}

TEST_F(OdTablesTest, FieldsByNameAndByPosition)
{
    addObjectsTable();
    OdTable table;
    ASSERT_EQ(getTable(storeId(), L"Objects", table), AcMap::kOk);
    EXPECT_EQ(findField(table, L"WIDTH"), 1);
    EXPECT_EQ(findField(table, L"Wid"), -1);
    OdField field;
    EXPECT_EQ(getField(table, 2, field), AcMap::kOk);
    EXPECT_EQ(field.getName(), L"Floors");
    EXPECT_EQ(getField(table, 3, field), AcMap::kNotFound);
    EXPECT_EQ(field.getName(), L"Floors");
}
