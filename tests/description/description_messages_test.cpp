#include "tests/description/description_test.h"

namespace {

const std::wstring kRoad = L"obj_name\tRoad\t1\t10\nobj_type\tLine\n"; // an object in two lines
const std::wstring kTable = kRoad + L"od_name\tObjects\n";             // with an open table
const std::wstring kKeyed = kTable + L"od_key\tId\n";

std::wstring ofLength(std::size_t length)
{
    return std::wstring(length, L'n');
}

class DescriptionMessages : public DescriptionTest {
protected:
    void expectErrors(std::initializer_list<SourceAndMessages> cases)
    {
        for (const auto& [source, messages] : cases) {
            SCOPED_TRACE(host::toUtf8(source));
            EXPECT_EQ(messagesOf(source), messages);
            EXPECT_TRUE(isEmpty());
        }
    }
    // Warnings leave the model; `objects` is the count of them.
    void expectRead(std::initializer_list<SourceAndMessages> cases, std::size_t objects)
    {
        for (const auto& [source, messages] : cases) {
            SCOPED_TRACE(host::toUtf8(source));
            EXPECT_EQ(messagesOf(source), messages);
            EXPECT_EQ(description_.objects.size(), objects);
            EXPECT_FALSE(description_.filePath.empty());
        }
    }
};

} // namespace

TEST_F(DescriptionMessages, UnknownDirectives)
{
    expectErrors({
        {L"# towns\nfoo\tbar\n", L"2: error: invalid syntax: 'foo'\n"},
        {L"\n\t\t\n  \t  \n FOO \n", L"4: error: invalid syntax: 'foo'\n"},
        {L"obj_name \tRoad\t1\t1\n", L"1: error: invalid syntax: 'obj_name '\n"},
        {L"autoconst\n", L"1: error: invalid syntax: 'autoconst'\n"},
        {L"AutoConst\t1\t2\n", L"1: error: invalid syntax: 'autoconst'\n"},
        // A blank token gives way to the next one, which was not folded.
        {L"   \tClass\ta\t1\n", L"1: error: invalid syntax: 'Class'\n"},
        // The second piece of a long line is a line of its own.
        {L"#" + std::wstring(10238, L' ') + L"x\nfoo\n", L"2: error: invalid syntax: 'x'\n"},
    });
}

TEST_F(DescriptionMessages, ResourcesTakeOnePattern)
{
    expectErrors({
        {L"blockreference\n", L"1: error: invalid 'blockreference' definition\n"},
        {L"blockreferencefile\ta\tb\n", L"1: error: invalid 'blockreferencefile' definition\n"},
        {L"dimension\n", L"1: error: invalid 'dimension' definition\n"},
        {L"font\n", L"1: error: invalid 'font' definition\n"},
        {L"layout\n", L"1: error: invalid 'layout' definition\n"},
        {L"layer\ta\tb\n", L"1: error: invalid 'layer' definition\n"},
        {L"linetype\n", L"1: error: invalid 'linetype' definition\n"},
        {L"mleader\n", L"1: error: invalid 'mleader' definition\n"},
        {L"mline\n", L"1: error: invalid 'mline' definition\n"},
        {L"pattern\n", L"1: error: invalid 'pattern' definition\n"},
        {L"textstyle\n", L"1: error: invalid 'textstyle' definition\n"},
        {L"Layer\t#a.dwg\n", L"1: error: invalid 'layer' definition\n"},
    });
}

TEST_F(DescriptionMessages, Classes)
{
    expectErrors({
        {L"class\tRoads\n", L"1: error: invalid 'class' definition\n"},
        {L"class\tRoads\t1\ticon\tmore\n", L"1: error: invalid 'class' definition\n"},
        {L"/class\tRoads\n", L"1: error: invalid 'class' definition\n"},
        {L"/class\n", L"1: error: invalid 'class' definition\n"},
        {L"class\ta\t1\n/class\n/class\n", L"3: error: invalid 'class' definition\n"},
        {L"class\troads\t1\n/class\nclass\t roads \t1\n", L"3: error: redefinition of 'roads'\n"},
        {L"class\tROADS\t1\nclass\troads\t1\n", L"2: error: redefinition of 'roads'\n"},
        {L"class\ta\t1\n", L"error: invalid class definition\n"},
        {L"class\ta\t1\nclass\tb\t1\n/class\n", L"error: invalid class definition\n"},
        // An unclosed class is told before the open object is looked at.
        {L"class\ta\t1\nobj_name\tx\t1\t1\n", L"error: invalid class definition\n"},
    });
    expectRead({{L"class\troads\t1\n/class\nclass\tRoads\t1\n/class\n", L""},
                {L"class\tRoads\t1\n/class\nclass\tRoads\t1\n/class\n", L""}},
               0);
}

TEST_F(DescriptionMessages, Macros)
{
    expectErrors({
        {L"define\tx\n", L"1: error: invalid definition\n"},
        {L"define\tx\t1\t2\n", L"1: error: invalid definition\n"},
        {L"define\tx\t$(x)y\n$(x)\n",
         L"1: warning: recursive definition\n2: error: invalid syntax: '$(x)'\n"},
        {L"define\tx\t$(y)\ndefine\ty\t$(x)\nfoo\n",
         L"2: warning: recursive definition\n3: error: invalid syntax: 'foo'\n"},
        // The keyword is expanded too, and then compared with case.
        {L"define\tword\tCLASS\n$(word)\ta\t1\n", L"2: error: invalid syntax: 'CLASS'\n"},
    });
    expectRead(
        {
            {L"define\tA\t1\ndefine\ta\t2\n", L"2: warning: redefinition of 'a'\n"},
            {L"define\tx\t1\ndefine\tx\t$(x)1\n", L"2: warning: redefinition of 'x'\n"},
            {L"define\tObj_Name\t1\n", L"1: error: invalid definition\n"},
            {L"define\ta b\t1\ndefine\tA B\t2\n",
             L"1: error: invalid definition\n2: error: invalid definition\n"
             L"2: warning: redefinition of 'A B'\n"},
            {L"define\tword\tclass\n$(word)\ta\t1\n/$(WORD)\n", L""},
        },
        0);
}

TEST_F(DescriptionMessages, Objects)
{
    expectErrors({
        {L"obj_name\tRoad\t1\n", L"1: error: invalid 'obj_name' definition\n"},
        {L"obj_name\tRoad\t1\t1\ticon\tx\n", L"1: error: invalid 'obj_name' definition\n"},
        {L"obj_name\t" + ofLength(133) + L"\t1\t1\n", L"1: error: invalid 'obj_name' definition\n"},
        {L"obj_name\tRoad\t1\t1\nobj_name\tRail\t1\t1\n", L"2: error: invalid object definition\n"},
        {L"obj_name\tRoad\t1\t1\n\n", L"2: error: invalid object definition\n"},
        {L"obj_name\tRoad\t1\t1\nobj_type\t?\n", L"2: error: invalid object definition\n"},
        {kRoad + L"obj_name\tROAD\t1\t1\nobj_type\tArc\nobj_name\tx\t1\t1\n",
         L"5: error: redefinition of 'ROAD'\n"},
        // At the end of the file the object that stands is named.
        {kRoad + L"obj_name\tROAD\t1\t1\nobj_type\tArc\n", L"4: error: redefinition of 'Road'\n"},
        // A faulty line still finishes the object before it.
        {kRoad + L"obj_name\tRoad\t1\t1\nobj_type\tArc\nobj_name\n",
         L"5: error: redefinition of 'Road'\n"},
        {L"obj_type\tLine\n", L"1: error: 'obj_name' undefined\n"},
        {L"obj_type\n", L"1: error: 'obj_name' undefined\n"},
        {kRoad + L"obj_type\n", L"3: error: invalid 'obj_type' definition\n"},
        {kRoad + L"obj_type\tLine\tArc\n", L"3: error: invalid 'obj_type' definition\n"},
        {kRoad + L"obj_type\tLine, ,Arc\n", L"3: error: invalid 'obj_type' definition\n"},
        {kRoad + L"obj_type\t,\n", L"3: error: invalid 'obj_type' definition\n"},
        {kRoad + L"obj_type\t\x01\n", L"3: error: invalid 'obj_type' definition\n"},
        {L"obj_prop\tlayer\ta\n", L"1: error: 'obj_name' undefined\n"},
        {L"obj_name\tRoad\t1\t1\nobj_prop\tlayer\ta\n", L"2: error: 'obj_type' undefined\n"},
        {L"obj_name\tRoad\t1\t1\nobj_prop\n", L"2: error: 'obj_type' undefined\n"},
        {L"obj_name\tRoad\t1\t1\nobj_type\t\xFFFF\nobj_prop\tlayer\ta\n",
         L"3: error: 'obj_type' undefined\n"},
    });
    expectRead(
        {
            {kRoad, L""},
            {L"obj_name\t" + ofLength(132) + L"\t1\t1\nobj_type\tLine\n", L""},
            {kRoad + L"obj_prop\tlayer\nobj_prop\n", L""},
            {kRoad + L"obj_prop\tlayer\ta\tb\tc\n", L"3: warning: invalid 'obj_prop' definition\n"},
            {kRoad + L"obj_prop\tcolor\tred\nobj_prop\tangle\t5\tx\n",
             L"3: warning: invalid 'obj_prop' definition\n"
             L"4: warning: invalid 'obj_prop' definition\n"},
        },
        1);
}

TEST_F(DescriptionMessages, Tables)
{
    expectErrors({
        {L"od_name\tObjects\n", L"1: error: 'obj_name' undefined\n"},
        {kRoad + L"od_name\n", L"3: error: invalid 'od_name' definition\n"},
        {kRoad + L"od_name\t" + ofLength(26) + L"\n", L"3: error: invalid 'od_name' definition\n"},
        {kRoad + L"od_name\tA.B\n", L"3: error: invalid 'od_name' definition\n"},
        {kRoad + L"od_key\tId\n", L"3: error: 'od_name' undefined\n"},
        {kRoad + L"od_fld\ta\td\treal\n", L"3: error: 'od_name' undefined\n"},
        {kTable + L"od_key\n", L"4: error: invalid 'od_key' definition\n"},
        {kTable + L"od_key\t" + ofLength(32) + L"\n", L"4: error: invalid 'od_key' definition\n"},
        {kTable + L"od_key\tI d\n", L"4: error: invalid 'od_key' definition\n"},
        {kTable + L"od_fld\ta\td\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\treal\t1\t2\t3\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\t" + ofLength(32) + L"\td\treal\n",
         L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta-b?\td\treal\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\treal const\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\t \tx\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\tpoint\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\treal\t1\t:2\n", L"4: error: invalid 'od_fld' definition\n"},
        {kTable + L"od_fld\ta\td\treal\t1\t1:2,3\n", L"4: error: invalid 'od_fld' definition\n"},
        {kKeyed + L"od_fld\tID\td\treal\n", L"5: error: redefinition of od_fld 'Id'\n"},
        {kKeyed + L"od_fld\ta\td\treal\nod_fld\tA\td\treal\n",
         L"6: error: redefinition of od_fld 'a'\n"},
        // A second variant of another shape, told when it ends.
        {kKeyed + L"obj_name\tRail\t1\t1\nobj_type\tLine\nod_name\tOBJECTS\nod_key\tName\n",
         L"8: error: conflicting definitions for table 'OBJECTS'\n"},
        {kKeyed + L"od_name\tPipes\nod_key\tId\nod_name\tObjects\nod_key\tId\nod_fld\ta\td\treal\n"
                  L"od_name\tx\n",
         L"10: error: conflicting definitions for table 'Objects'\n"},
        // ... against every variant before it, not the last alone.
        {kKeyed + L"obj_name\tRail\t1\t1\nobj_type\tLine\nod_name\tobjects\nod_key\tID\n"
                  L"od_name\tPipes\nod_key\tId\n"
                  L"obj_name\tPath\t1\t1\nobj_type\tLine\nod_name\tOBJECTS\nod_key\tName\n",
         L"14: error: conflicting definitions for table 'OBJECTS'\n"},
        // An ill-formed table is held against the others all the same.
        {kKeyed + L"od_name\tObjects\nod_fld\ta\td\treal\nobj_name\tx\t1\t1\n",
         L"7: warning: table 'Objects' ill-formed\n"
         L"7: error: conflicting definitions for table 'Objects'\n"},
    });
}

TEST_F(DescriptionMessages, IllFormedTablesAreKept)
{
    expectRead(
        {
            {kTable, L"3: warning: table 'Objects' ill-formed\n"},
            {kRoad + L"od_name\tTwo\nod_key\tId\nod_key\tId\nod_name\tOk\nod_key\tId\n",
             L"6: warning: table 'Two' ill-formed\n"},
            {kRoad + L"od_name\tOut\nod_key\tId\nod_fld\ta\td\tinteger\t0\t1:5\n",
             L"5: warning: table 'Out' ill-formed\n"},
            {kRoad + L"od_name\t" + ofLength(25) + L"\nod_key\t" + ofLength(31) + L"\n", L""},
            // The last word decides, whatever stands before it.
            {kRoad + L"od_name\tWords\nod_key\tId\nod_fld\ta\td\tstrange Real\n", L""},
            // Two colons make a list of three.
            {kRoad + L"od_name\tThree\nod_key\tId\nod_fld\ta\td\tinteger\t5\t1:5:10\n", L""},
        },
        1);
}

TEST_F(DescriptionMessages, TablesThatDifferFromTheDrawings)
{
    expectRead({{kKeyed + L"od_fld\tWidth\td\treal\n", L""}}, 1);
    expectErrors({
        {kKeyed, L"4: error: table 'Objects' does not match existing definition\n"},
        {kRoad + L"od_name\tobjects\nod_key\tId\nod_fld\tWidth\td\tinteger\n"
                 L"obj_name\tx\t1\t1\n",
         L"6: error: table 'objects' does not match existing definition\n"},
    });
    expectRead(
        {{kRoad + L"od_name\tObjects\nod_key\tID\nod_fld\twidth\td\trequired real\t2\n", L""},
         // Ill-formed, so not compared.
         {kRoad + L"od_name\tObjects\nod_fld\tx\td\treal\n",
          L"4: warning: table 'Objects' ill-formed\n"}},
        1);
}

TEST_F(DescriptionMessages, Variables)
{
    expectErrors({
        {L"variable\tLUPREC\n", L"1: error: invalid 'variable' definition\n"},
        {L"variable\tLUPREC\t1\t2\n", L"1: error: invalid 'variable' definition\n"},
        {L"variable\tINSBASE\t1,2\n", L"1: error: invalid 'variable' definition\n"},
        {L"variable\tINSBASE\t1,2,3,4\n", L"1: error: invalid 'variable' definition\n"},
    });
    expectRead(
        {
            {L"variable\tNOSUCHNAME\t1\n", L"1: warning: invalid variable 'NOSUCHNAME'\n"},
            {L"variable\tINSBASE\t1, 2,,3\n", L""},
        },
        0);
}

TEST_F(DescriptionMessages, AnErrorInTheLastLineLeavesNothing)
{
    expectErrors(
        {{L"variable\tLUPREC\t2\n" + kKeyed + L"foo", L"6: error: invalid syntax: 'foo'\n"}});
    resbuf value;
    ASSERT_EQ(acedGetVar(L"LUPREC", value), RTNORM);
    EXPECT_NE(value.resval.rint, 2);
}
