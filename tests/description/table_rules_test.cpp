#include "description/field_rules.h"
#include "description/stored_table.h"
#include "description/table_rules.h"
#include "store/od_tables.h"
#include "tests/description/description_test.h"

namespace {

FieldDef field(const wchar_t* name, OdType type, FieldKind kind = FieldKind::noDefault,
               const wchar_t* defaultValue = L"", std::vector<std::wstring> values = {})
{
    FieldDef result;
    result.name = name;
    result.type = type;
    result.kind = kind;
    result.defaultValue = defaultValue;
    result.values = std::move(values);
    return result;
}

FieldDef keyField(const wchar_t* name)
{
    return field(name, OdType::character, FieldKind::key, L"$(obj_name)");
}

} // namespace

TEST(TableRules, ATableHasOneKeyAndDefaultsThatFit)
{
    using enum FieldKind;
    const struct {
        const char* name;
        std::vector<FieldDef> fields;
        bool wellFormed;
    } cases[] = {
        {"nothing", {}, false},
        {"no key", {field(L"a", OdType::real)}, false},
        {"a key", {keyField(L"k")}, true},
        {"two keys", {keyField(L"k"), keyField(L"m")}, false},
        {"a text of the list",
         {keyField(L"k"), field(L"a", OdType::character, list, L"OAK", {L"elm", L"Oak"})},
         true},
        {"no text of the list",
         {keyField(L"k"), field(L"a", OdType::character, list, L"ash", {L"elm"})},
         false},
        {"an empty list", {keyField(L"k"), field(L"a", OdType::integer, list, L"1", {})}, false},
        {"a number in other words",
         {keyField(L"k"), field(L"a", OdType::real, list, L"1.50", {L"1.5"})},
         true},
        {"an integer is read as one",
         {keyField(L"k"), field(L"a", OdType::integer, list, L"0", {L"x"})},
         true},
        {"in the range",
         {keyField(L"k"), field(L"a", OdType::integer, range, L"10", {L"9", L"10"})},
         true},
        {"below it",
         {keyField(L"k"), field(L"a", OdType::real, range, L"0.9", {L"1", L"2"})},
         false},
        {"texts in order",
         {keyField(L"k"), field(L"a", OdType::character, range, L"M", {L"a", L"Z"})},
         true},
        {"texts out of order",
         {keyField(L"k"), field(L"a", OdType::character, range, L"9", {L"a", L"z"})},
         false},
        {"any default alone",
         {keyField(L"k"), field(L"a", OdType::integer, defaultOnly, L"x")},
         true},
    };
    for (const auto& [name, fields, wellFormed] : cases)
        EXPECT_EQ(isWellFormed({L"T", fields}), wellFormed) << name;
}

TEST(FieldRules, PointsLieBetweenPointsAlone)
{
    const OdValue point(AcGePoint3d(1.0, 2.0, 3.0));
    EXPECT_TRUE(inRange(point, L"1,2,3", L"1,2,3"));
    EXPECT_FALSE(inRange(point, L"0,0,0", L"9,1.9,9"));
    EXPECT_FALSE(inRange(point, L"0,0", L"9,9,9"));
    EXPECT_TRUE(inList(point, std::vector<std::wstring>{L"0,0,0", L"1,2,3"}));
    EXPECT_FALSE(inList(OdValue(), std::vector<std::wstring>{L""}));
    EXPECT_FALSE(inRange(OdValue(), L"", L""));
}

TEST(TableRules, VariantsShareFieldsAndTheirOrder)
{
    const TableDef table{L"Objects", {keyField(L"Id"), field(L"Width", OdType::real)}};
    const struct {
        const char* name;
        TableDef other;
        bool compatible;
        bool same;
    } cases[] = {
        {"itself", table, true, true},
        {"another case",
         {L"OBJECTS", {keyField(L"ID"), field(L"width", OdType::real)}},
         true,
         false},
        {"another default",
         {L"Objects",
          {keyField(L"Id"), field(L"Width", OdType::real, FieldKind::defaultOnly, L"1")}},
         true,
         false},
        {"another order",
         {L"Objects", {field(L"Width", OdType::real), keyField(L"Id")}},
         false,
         false},
        {"another type",
         {L"Objects", {keyField(L"Id"), field(L"Width", OdType::integer)}},
         false,
         false},
        {"a field less", {L"Objects", {keyField(L"Id")}}, false, false},
        {"another table", {L"Pipes", {keyField(L"Id")}}, true, false},
    };
    for (const auto& [name, other, compatible, same] : cases) {
        EXPECT_EQ(isCompatible(table, other), compatible) << name;
        EXPECT_EQ(isCompatible(other, table), compatible) << name;
        EXPECT_EQ(sameTable(table, other), same) << name;
    }
    TableDef described = table;
    described.fields[1].description = L"in metres";
    EXPECT_TRUE(sameTable(table, described));
}

class StoredTable : public DescriptionTest {};

TEST_F(StoredTable, IsMadeOnceAndKeepsToItsFields)
{
    const TableDef table{
        L"Objects",
        {keyField(L"Id"), field(L"Width", OdType::real), field(L"ID", OdType::integer)}};
    EXPECT_TRUE(tableMatches(table, storeId()));
    EXPECT_EQ(ensureTable(table, storeId()), EnsuredTable::created);
    EXPECT_EQ(ensureTable(table, storeId()), EnsuredTable::existed);
    EXPECT_EQ(ensureTable(table, AcDbObjectId::kNull), EnsuredTable::failed);

    OdTable stored;
    ASSERT_EQ(getTable(storeId(), L"Objects", stored), AcMap::kOk);
    EXPECT_EQ(stored.fields.size(), 2U); // a repeated name is dropped
    EXPECT_FALSE(tableMatches(table, storeId()));
    const std::pair<TableDef, bool> cases[] = {
        {{L"objects", {keyField(L"ID"), field(L"WIDTH", OdType::real)}}, true},
        {{L"Objects", {keyField(L"Id"), field(L"Width", OdType::integer)}}, false},
        {{L"Objects", {field(L"Width", OdType::real), keyField(L"Id")}}, false},
        {{L"Objects", {keyField(L"Id")}}, false},
        {{L"Pipes", {}}, true},
    };
    for (const auto& [other, matches] : cases)
        EXPECT_EQ(tableMatches(other, storeId()), matches);
    EXPECT_EQ(findField(table, L"WIDTH"), 1);
    EXPECT_EQ(findField(table, L"none"), -1);
}

TEST_F(StoredTable, APointOfAnotherProgramMatchesNoDescription)
{
    const std::vector<OdField> fields{OdField(L"Id", OdType::character),
                                      OdField(L"At", OdType::point)};
    ASSERT_EQ(createTable(storeId(), L"Places", fields), AcMap::kOk);
    for (const OdType type : {OdType::integer, OdType::real, OdType::character})
        EXPECT_FALSE(tableMatches({L"Places", {keyField(L"Id"), field(L"At", type)}}, storeId()));
}
