#include "description/class_def.h"
#include "store/od_tables.h"
#include "tests/description/description_test.h"

namespace {

class DescriptionReader : public DescriptionTest {
protected:
    // Reads a source that must give no message.
    const Description& read(std::wstring_view source)
    {
        EXPECT_EQ(messagesOf(source), L"");
        return description_;
    }

    // "Roads+(main) {Streets-() {}}": name, whether drawable, objects, children.
    static std::wstring tree(const ClassDef& classDef)
    {
        std::wstring text = classDef.name + (classDef.drawable ? L'+' : L'-') + L'(';
        for (const std::wstring& object : classDef.objects)
            text += (text.back() == L'(' ? L"" : L" ") + object;
        text += L')';
        for (const ClassDef& child : classDef.children)
            text += L" {" + tree(child) + L'}';
        return text;
    }

    const FieldDef& onlyField(const std::wstring& fieldLine, const std::wstring& before = {})
    {
        read(before + L"obj_name\tRoad\t1\t1\nobj_type\tLine\nod_name\tT" +
             std::to_wstring(++tables_) + L"\nod_key\tId\n" + fieldLine);
        return description_.findObject(L"ROAD")->props.tables.at(0).fields.at(1);
    }

    int tables_ = 0;
};

} // namespace

TEST_F(DescriptionReader, EmptyAndMissingFilesKeepTheirPath)
{
    EXPECT_TRUE(read(L"").objects.empty());
    EXPECT_EQ(description_.filePath, (folder() / "description.txt").wstring());
    EXPECT_TRUE(read(L"# only\n\n\t\n").objects.empty());
    EXPECT_FALSE(description_.filePath.empty());

    ListSink sink;
    const std::wstring none = (folder() / "none.txt").wstring();
    EXPECT_EQ(readDescription(none, sink, store_).filePath, none);
    EXPECT_EQ(sink.text, L"");
}

TEST_F(DescriptionReader, ObjectsKeepTheirWrittenNames)
{
    read(L"OBJ_NAME\tZebra Crossing\t-2\t70x\tIcons/z.png \r\n"
         L"\tobj_type\t Line, POLYLINE ,a\\,b\r\n"
         L"\tobj_prop\tlinetype\tContinuous\t# as drawn\r\n"
         L"obj_name\tapple\t0\t-3\nobj_type\tPoint\n");
    ASSERT_EQ(description_.objects.size(), 2U);
    EXPECT_EQ(description_.objects.begin()->first, L"apple");
    const ObjectDef& zebra = *description_.findObject(L"ZEBRA crossing");
    EXPECT_EQ(zebra.props.name, L"Zebra Crossing");
    EXPECT_TRUE(zebra.drawable);
    EXPECT_EQ(zebra.priority, 70);
    EXPECT_EQ(zebra.icon, L"Icons/z.png");
    EXPECT_EQ(zebra.objectIndex, -1);
    EXPECT_EQ(zebra.props.types, (std::vector<std::wstring>{L"Line", L"POLYLINE", L"a,b"}));
    EXPECT_EQ(zebra.props.linetype.value, L"continuous");
    EXPECT_FALSE(description_.findObject(L"apple")->drawable);
    EXPECT_EQ(description_.findObject(L"apple")->priority, -3);
    EXPECT_EQ(description_.findProps(L"pear"), nullptr);
}

TEST_F(DescriptionReader, ClassesTakeInTheObjectThatIsOpenWhenTheyEnd)
{
    read(L"obj_name\tfirst\t1\t1\nobj_type\tLine\n" // open when the class begins: outside it
         L"class\tRoads\t1\ticon.png\n"
         L"obj_name\tA\t1\t1\nobj_type\tLine\n"
         L"class\tStreets\t0\n"
         L"obj_name\tB\t1\t1\nobj_type\tLine\n"
         L"/class\n"
         L"obj_prop\tlinetype\tcontinuous\n" // still B, which belongs to Streets
         L"obj_name\tC\t1\t1\nobj_type\tLine\n"
         L"/class\n"
         L"class\tOff\t-5\n"
         L"obj_name\tD\t1\t1\nobj_type\tLine\n"
         L"class\tInner\t7\n/class\n"
         L"obj_name\tE\t1\t1\nobj_type\tLine\n"
         L"/class\n"
         L"obj_name\tlast\t1\t1\nobj_type\tLine\n");
    EXPECT_EQ(tree(description_.rootClass),
              L"-(first last) {Roads+(a c) {Streets-(b)}} {Off-(d e) {Inner+()}}");
    EXPECT_EQ(description_.rootClass.children[0].icon, L"icon.png");
    EXPECT_EQ(description_.findObject(L"b")->props.linetype.value, L"continuous");
    EXPECT_FALSE(description_.findObject(L"b")->drawable);
    EXPECT_TRUE(description_.findObject(L"c")->drawable);
    EXPECT_FALSE(description_.findObject(L"d")->drawable);
    EXPECT_TRUE(description_.findObject(L"e")->drawable); // behind the end of a nested class

    EXPECT_EQ(CountObjects(description_.rootClass), 7U);
    EXPECT_EQ(findClass(description_.rootClass, L"streets"),
              &description_.rootClass.children[0].children[0]);
    EXPECT_EQ(findClass(description_.rootClass, L"paths"), nullptr);
}

TEST_F(DescriptionReader, ASecondTypeWipesTheFirstButAnOpenTableStays)
{
    read(L"obj_name\tRoad\t1\t1\nobj_type\tLine\nobj_prop\tlayer\ta\n"
         L"od_name\tGone\nod_key\tId\nod_name\tKept\nod_key\tId\nobj_type\tArc\n");
    const GraphicProps& props = *description_.findProps(L"road");
    EXPECT_EQ(props.name, L"Road");
    EXPECT_EQ(props.types, std::vector<std::wstring>{L"Arc"});
    EXPECT_FALSE(props.layer.isGiven());
    ASSERT_EQ(props.tables.size(), 1U);
    EXPECT_EQ(props.tables[0].name, L"Kept");
}

TEST_F(DescriptionReader, Fields)
{
    const FieldDef& plain = onlyField(L"od_fld\tWidth\t wide \\\tand high  \tREAL\n");
    EXPECT_EQ(plain.description, L"wide \tand high");
    EXPECT_EQ(plain.kind, FieldKind::noDefault);
    EXPECT_EQ(plain.type, OdType::real);
    EXPECT_EQ(plain.flags, 0U);
    const FieldDef& key = description_.findObject(L"road")->props.tables[0].fields[0];
    EXPECT_EQ(key.kind, FieldKind::key);
    EXPECT_EQ(key.defaultValue, L"$(obj_name)");
    EXPECT_EQ(key.type, OdType::character);

    const struct {
        const wchar_t* line;
        FieldKind kind;
        std::uint32_t flags;
        std::vector<std::wstring> values;
    } cases[] = {
        {L"od_fld\ta\td\tRequired  notempty const required character\tx",
         FieldKind::defaultOnly,
         7,
         {}},
        {L"od_fld\ta\td\tinteger\t5\t1:10", FieldKind::range, 0, {L"1", L"10"}},
        {L"od_fld\ta\td\tinteger\t5\t1:5:10", FieldKind::list, 0, {L"1", L"5", L"10"}},
        {L"od_fld\ta\td\tcharacter\tb\ta\\:b:c", FieldKind::range, 0, {L"a:b", L"c"}},
        {L"od_fld\ta\td\tcharacter\ta,b\ta\\,b, c ", FieldKind::list, 0, {L"a,b", L"c"}},
        {L"od_fld\ta\td\tinteger\t5\t5", FieldKind::list, 0, {L"5"}},
    };
    for (const auto& [line, kind, flags, values] : cases) {
        const FieldDef& field = onlyField(line);
        EXPECT_EQ(field.kind, kind) << line;
        EXPECT_EQ(field.flags, flags) << line;
        EXPECT_EQ(field.values, values) << line;
    }
}

TEST_F(DescriptionReader, ALoneValueThatIsTheDefaultIsConstant)
{
    const struct {
        const wchar_t* before;
        const wchar_t* line;
        bool isConst;
    } cases[] = {
        {L"autoconst\t1\n", L"od_fld\ta\td\tcharacter\tx\tx", true},
        {L"autoconst\t1\n", L"od_fld\ta\td\tcharacter\t x \tx ", true},
        {L"autoconst\t1\n", L"od_fld\ta\td\tcharacter\tX\tx", false},
        {L"autoconst\t1\n", L"od_fld\ta\td\tcharacter\tx\tx,x", false},
        {L"autoconst\t1\n", L"od_fld\ta\td\tcharacter\tx", false},
        {L"autoconst\t2\nautoconst\t0\n", L"od_fld\ta\td\tcharacter\tx\tx", false},
        {L"autoconst\t-1\n", L"od_fld\ta\td\tcharacter\tx\tx", false},
        {L"define\tm\tx\nautoconst\t1\n", L"od_fld\ta\td\tcharacter\t$(m)\tx", true},
    };
    for (const auto& [before, line, isConst] : cases)
        EXPECT_EQ(onlyField(line, before).hasFlag(kConstField), isConst) << before << line;
}

TEST_F(DescriptionReader, UnknownMacrosStayForTheRecords)
{
    EXPECT_EQ(onlyField(L"od_fld\ta\td\tcharacter\t$(YEAR)-$(m)\n", L"define\tM\t$(obj_name)\n")
                  .defaultValue,
              L"$(YEAR)-$(obj_name)");
}

TEST_F(DescriptionReader, TablesComeIntoTheDrawing)
{
    read(L"obj_name\tb\t1\t1\nobj_type\tLine\n"
         L"od_name\tObjects\nod_key\tId\nod_fld\tW\td\treal\t2.5\n"
         L"od_name\tPipes\nod_key\tPipe\n"
         L"obj_name\ta\t1\t1\nobj_type\tLine\n"
         L"od_name\tOBJECTS\nod_key\tID\nod_fld\tw\td\tconst real\t7\n");
    EXPECT_EQ(description_.findProps(L"b")->tables.size(), 2U);
    ASSERT_EQ(description_.tables.size(), 2U);
    // Objects are visited by name: the drawing's table has the words of the first.
    const TableUse& use = description_.tables.at(L"objects");
    EXPECT_EQ(use.definition.name, L"OBJECTS");
    ASSERT_EQ(use.definition.fields.size(), 2U);
    EXPECT_EQ(use.definition.fields[1].getName(), L"w");
    EXPECT_EQ(use.definition.fields[1].value.asReal(), 0.0); // defaults are the description's own
    EXPECT_EQ(use.keyFields, std::vector<std::wstring>{L"id"});
    EXPECT_EQ(description_.tables.at(L"pipes").keyFields, std::vector<std::wstring>{L"pipe"});
    EXPECT_TRUE(hasTable(storeId(), L"Objects"));
    EXPECT_TRUE(hasTable(storeId(), L"Pipes"));
}

TEST_F(DescriptionReader, ATableWithoutAKeyHasAnEmptyKeyName)
{
    EXPECT_EQ(messagesOf(L"obj_name\ta\t1\t1\nobj_type\tLine\nod_name\tBare\nod_fld\tx\td\treal\n"),
              L"4: warning: table 'Bare' ill-formed\n");
    EXPECT_EQ(description_.tables.at(L"bare").keyFields, std::vector<std::wstring>{L""});
    EXPECT_EQ(description_.tables.at(L"bare").definition.fields.size(), 1U);
}

TEST_F(DescriptionReader, VariablesBelongToTheFileUntilAnObjectOpens)
{
    read(L"variable\tluprec\t6\n"
         L"variable\tINSBASE\t1, 2.5e1 ,3\n"
         L"obj_name\ta\t1\t1\nobj_type\tLine\nvariable\tLUPREC\t70000\n");
    ASSERT_EQ(description_.variables.size(), 2U);
    EXPECT_EQ(description_.variables[0].name, L"luprec");
    EXPECT_EQ(description_.variables[0].type, HostVariableType::shortInteger);
    EXPECT_EQ(description_.variables[1].type, HostVariableType::point3d);
    EXPECT_EQ(description_.variables[1].reals, (std::array{1.0, 25.0, 3.0}));
    resbuf value;
    ASSERT_EQ(acedGetVar(L"LUPREC", value), RTNORM);
    EXPECT_EQ(value.resval.rint, 6); // set at the end of loading
    const std::vector<HostVariable>& own = description_.findObject(L"a")->variables;
    ASSERT_EQ(own.size(), 1U);
    EXPECT_EQ(own[0].integer, 4464); // 70000 in 16 bits
}

TEST_F(DescriptionReader, ByteOrderMarksAndGreekLettersAreRead)
{
    read(L"\uFEFFobj_name\t\u03A3\u03A4\u039F\u0391\t1\t1\nobj_type\tLine\n");
    EXPECT_NE(description_.findObject(L"\u03C3\u03C4\u03BF\u03B1"), nullptr);
}
