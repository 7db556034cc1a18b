#include "objects/validation.h"

#include "tests/support/described_drawing.h"

namespace {

FieldDef fieldOf(FieldKind kind, const wchar_t* value, std::vector<std::wstring> values = {})
{
    FieldDef field;
    field.name = L"F";
    field.kind = kind;
    field.defaultValue = value;
    field.values = std::move(values);
    return field;
}

constexpr const char* kDescription = "class|Buildings|1\n"
                                     "obj_name|Wall|1|5\n"
                                     "obj_type|Line\n"
                                     "od_name|WALLS\n"
                                     "od_key|NAME\n"
                                     "od_fld|MATERIAL|m|character|brick|brick,stone\n"
                                     "od_fld|FLOORS|f|required integer|2|1:9\n"
                                     "od_fld|NOTE|n|notempty character|none\n"
                                     "obj_name|Gate|1|5\n"
                                     "obj_type|Line\n"
                                     "od_name|WALLS\n"
                                     "od_key|NAME\n"
                                     "od_fld|MATERIAL|m|character|iron|iron\n"
                                     "od_fld|FLOORS|f|integer|0\n"
                                     "od_fld|NOTE|n|character|none\n"
                                     "od_name|GATES\n"
                                     "od_key|NAME\n"
                                     "/class\n";

class ValidationTest : public DescribedTest {
protected:
    ValidationTest()
    {
        DxfDrawing drawing;
        const std::string handle = drawing.line();
        open(drawing);
        line = idOf(handle);
        describe(kDescription);
    }
    bool validates(const wchar_t* name, Values values = Values::any, Fields fields = Fields::all)
    {
        StoredTables tables(storeId());
        return validateObject(description, tables, line, name, values, fields);
    }
    void change(const wchar_t* field, const OdValue& value, int row = 0)
    {
        setField(storeId(), line, field, value, row);
    }

    AcDbObjectId line;
};

} // namespace

using ValueAccepted = CommandTest;

TEST_F(ValueAccepted, ByKindAndType)
{
    ObjectDef wall;
    wall.props.name = L"Wall";
    const OdValue none;
    const auto text = [](const wchar_t* value) { return OdValue(value); };
    const auto point = [](double x, double y, double z) { return OdValue(AcGePoint3d{x, y, z}); };
    const FieldDef noDefault = fieldOf(FieldKind::noDefault, L"");
    const FieldDef key = fieldOf(FieldKind::key, L"$(obj_name)");
    const FieldDef list = fieldOf(FieldKind::list, L"", {L"Brick", L"$(obj_name)", L"7"});
    const FieldDef reals = fieldOf(FieldKind::list, L"", {L"1.5", L"2.5"});
    const FieldDef places = fieldOf(FieldKind::list, L"", {L"1,2,3"});
    const FieldDef range = fieldOf(FieldKind::range, L"", {L"2", L"10"});
    const FieldDef words = fieldOf(FieldKind::range, L"", {L"b", L"M"});
    const FieldDef box = fieldOf(FieldKind::range, L"", {L"0,0,0", L"1,2,3"});
    const FieldDef only = fieldOf(FieldKind::defaultOnly, L"$(obj_name)");
    const FieldDef five = fieldOf(FieldKind::defaultOnly, L"5");

    const std::tuple<const char*, const FieldDef&, OdValue, bool> cases[] = {
        {"no default", noDefault, text(L"x"), true},
        {"nothing at all", noDefault, none, true},
        {"key without case", key, text(L"WALL"), true},
        {"another key", key, text(L"Gate"), false},
        {"listed text", list, text(L"bRICK"), true},
        {"listed macro", list, text(L"wall"), true},
        {"unlisted text", list, text(L"wood"), false},
        {"listed integer", list, OdValue(7), true},
        {"a word reads as 0", list, OdValue(0), true},
        {"unlisted integer", list, OdValue(8), false},
        {"listed real", reals, OdValue(2.5), true},
        {"no tolerance", reals, OdValue(2.50001), false},
        {"listed point", places, point(1, 2, 3), true},
        {"unlisted point", places, point(1, 2, 4), false},
        {"nothing is never listed", list, none, false},
        {"lower bound", range, OdValue(2), true},
        {"upper bound", range, OdValue(10), true},
        {"below", range, OdValue(1), false},
        {"real inside", range, OdValue(9.99), true},
        {"real just above", range, OdValue(10.0001), false},
        {"texts are no numbers", range, text(L"5"), false},
        {"word inside", words, text(L"Door"), true},
        {"word at the bound", words, text(L"m"), true},
        {"word beyond", words, text(L"mat"), false},
        {"point inside", box, point(1, 1, 1), true},
        {"one axis outside", box, point(1, 2.5, 1), false},
        {"nothing is in no range", range, none, false},
        {"default without case", only, text(L"WALL"), true},
        {"not the default", only, text(L"Walls"), false},
        {"default integer", five, OdValue(5), true},
        {"default real", five, OdValue(5.5), false},
        {"nothing is no default", five, none, false},
    };
    for (const auto& [name, field, value, accepted] : cases) {
        SCOPED_TRACE(name);
        EXPECT_EQ(valueAccepted(field, wall, value), accepted);
    }
    EXPECT_THROW(valueAccepted(key, wall, none), AcMap::EErrCode);
    EXPECT_FALSE(valueAccepted(fieldOf(static_cast<FieldKind>(9), L""), wall, text(L"x")));
}

TEST_F(ValidationTest, NothingAttachedIsNoObject)
{
    EXPECT_FALSE(validates(L"Wall"));
    EXPECT_FALSE(validates(L"Buildings"));
    EXPECT_FALSE(validates(L"nobody"));
}

TEST_F(ValidationTest, ARecordInEachTableWithTheKey)
{
    classify(line, L"Wall");
    EXPECT_TRUE(validates(L"Wall"));
    EXPECT_TRUE(validates(L"WALL"));
    EXPECT_FALSE(validates(L"Gate"));
    EXPECT_TRUE(validates(L"buildings"));
    EXPECT_FALSE(validates(L"nobody"));

    // the key of a gate in one table of two
    change(L"NAME", OdValue(L"Gate"));
    EXPECT_FALSE(validates(L"Wall"));
    EXPECT_FALSE(validates(L"Gate"));
    EXPECT_FALSE(validates(L"Buildings"));
}

TEST_F(ValidationTest, AnObjectOfTwoTables)
{
    classify(line, L"Gate");
    EXPECT_TRUE(validates(L"Gate", Values::legal));
    EXPECT_FALSE(validates(L"Wall"));
}

TEST_F(ValidationTest, TheKeyIsComparedWithCase)
{
    classify(line, L"Wall");
    change(L"NAME", OdValue(L"WALL"));
    EXPECT_FALSE(validates(L"Wall"));
}

TEST_F(ValidationTest, ValuesCountWhenAskedFor)
{
    classify(line, L"Wall");
    EXPECT_TRUE(validates(L"Wall", Values::legal));

    change(L"MATERIAL", OdValue(L"wood"));
    EXPECT_TRUE(validates(L"Wall"));
    EXPECT_FALSE(validates(L"Wall", Values::legal));
    EXPECT_TRUE(validates(L"Wall", Values::legal, Fields::required));
    EXPECT_TRUE(validates(L"Buildings", Values::legal)); // of a class only the key is asked

    change(L"FLOORS", OdValue(10));
    EXPECT_FALSE(validates(L"Wall", Values::legal, Fields::required));
}

TEST_F(ValidationTest, AnEmptyTextWhereNoneMayBe)
{
    classify(line, L"Wall");
    change(L"NOTE", OdValue(L"anything"));
    EXPECT_TRUE(validates(L"Wall", Values::legal)); // a default only, so anything goes
    change(L"NOTE", OdValue(L""));
    EXPECT_FALSE(validates(L"Wall", Values::legal));
}

TEST_F(ValidationTest, OneLegalRecordOfSeveralIsEnough)
{
    classify(line, L"Wall");
    change(L"MATERIAL", OdValue(L"wood"));
    classify(line, L"Wall");
    EXPECT_TRUE(validates(L"Wall", Values::legal));
    change(L"FLOORS", OdValue(99), 1);
    EXPECT_FALSE(validates(L"Wall", Values::legal));
}

TEST_F(ValidationTest, AFieldThatTheStoredTableLacksIsIllegal)
{
    classify(line, L"Wall");
    FieldDef extra = fieldOf(FieldKind::noDefault, L"");
    extra.name = L"EXTRA";
    description.objects[L"wall"].props.tables[0].fields.push_back(extra);
    EXPECT_TRUE(validates(L"Wall"));
    EXPECT_FALSE(validates(L"Wall", Values::legal));
    EXPECT_TRUE(validates(L"Wall", Values::legal, Fields::required));
}

TEST_F(ValidationTest, ATableWithoutAKeyNeverQualifies)
{
    classify(line, L"Wall");
    description.objects[L"wall"].props.tables[0].fields[0].kind = FieldKind::noDefault;
    EXPECT_FALSE(validates(L"Wall"));
}
