#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "objects/block_definition.h"
#include "objects/validation.h"
#include "tests/support/lettered_test.h"

namespace {

const char* const kDescription = "obj_name|Wall|1|5\n"
                                 "obj_type|Line\n"
                                 "obj_prop|layer|walls|walls,old\n"
                                 "obj_prop|color|1\n"
                                 "od_name|WALLS\n"
                                 "od_key|NAME\n"
                                 "obj_name|Gate|1|9\n"
                                 "obj_type|Line\n"
                                 "obj_prop|color|4\n"
                                 "od_name|GATES\n"
                                 "od_key|NAME\n"
                                 "obj_name|Arch|1|9\n"
                                 "obj_type|Line\n"
                                 "obj_prop|color|6\n"
                                 "od_name|ARCHES\n"
                                 "od_key|NAME\n"
                                 "obj_name|Lost|1|1\n"
                                 "obj_type|Line\n"
                                 "obj_prop|layer|nowhere\n"
                                 "od_name|LOSTS\n"
                                 "od_key|NAME\n";

// Lines: A a wall on an allowed layer, B a wall on a wrong one, C without records, L a wall on a
// locked layer.
class RestoreTest : public LetteredTest {
protected:
    RestoreTest()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Old");
        drawing.layer("Locked", 4);
        lettered = {{'A', drawing.line("Old")},
                    {'B', drawing.line("0")},
                    {'C', drawing.line("Old")},
                    {'L', drawing.line("Locked")}};
        open(drawing);
        const std::wstring printed = load(kDescription);
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
        for (const char wall : {'A', 'B', 'L'})
            classify(wall, L"Wall");
    }
};

} // namespace

TEST_F(RestoreTest, ByNameWithAllowedValuesOrWithTheDefaults)
{
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n0\nall\n\n"),
                      L"Object: Wall\nMode [0 (all)/1 (default)]<0>: 0\nSelect objects: all\n"));
    EXPECT_EQ(look('A'), "Old 1");
    EXPECT_EQ(look('B'), "Walls 1");
    EXPECT_EQ(look('C'), "Old 256");
    EXPECT_EQ(look('L'), "Locked 256");

    EXPECT_TRUE(tells(transcript(L"kelmaro_restore wall\n1\nall\n\n"), L"Completed: 2/3\n"));
    EXPECT_EQ(look('A'), "Walls 1");
    EXPECT_EQ(look('C'), "Old 256");
}

TEST_F(RestoreTest, TheModeIsKeptAndReadAsANumber)
{
    select("A");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n7\n"), L"<0>: 7\n"));
    EXPECT_EQ(look('A'), "Walls 1");
    select("A");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n\n"), L"<1>: \n"));
    select("A");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\nyes\n"), L"<1>: yes\n"));
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n\x3"), L"<0>: "));
}

TEST_F(RestoreTest, WithoutANameEachEntityGetsTheLookOfItsOwnForemostObject)
{
    classify('B', L"Gate");
    classify('B', L"Arch"); // as high as the gate, and before it by name
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore\n\n1\n\n"), L"Completed: 2/3\n"));
    EXPECT_EQ(look('A'), "Walls 1");
    EXPECT_EQ(look('B'), "0 6");
    EXPECT_EQ(look('C'), "Old 256");
    EXPECT_EQ(look('L'), "Locked 256");
}

TEST_F(RestoreTest, TheLeastPriorityButOneDoesNotCount)
{
    const std::pair<const char*, const wchar_t*> cases[] = {{"-2147483647", L"Completed: 0/1\n"},
                                                            {"-2147483646", L"Completed: 1/1\n"}};
    for (const auto& [priority, told] : cases) {
        load(std::string("obj_name|Low|1|") + priority +
             "\nobj_type|Line\nobj_prop|color|3\nod_name|LOWS\nod_key|NAME\n");
        classify('C', L"Low");
        select("C");
        EXPECT_TRUE(tells(transcript(L"kelmaro_restore\n\n0\n"), told)) << priority;
    }
    EXPECT_EQ(look('C'), "Old 3");
}

TEST_F(RestoreTest, NothingToWorkOn)
{
    const std::wstring none = L"Error: no objects selected.\n";
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n0\n\n"), none));
    select("L"); // leaves nothing after the layers are looked at
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Wall\n0\n"), L"Completed: 0/0\n"));
    select("L");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore\n\n0\n"), L"Completed: 0/0\n"));
    open(DxfDrawing(), "empty.dxf");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore\n\n0\n\n"), L"Completed: 0/0\n"));
}

TEST_F(RestoreTest, NamesThatAreNoneAndDependenciesThatAreMissing)
{
    select("A");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore nobody\n0\n"), L"Error: object not found.\n"));
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Lost\n0\n"),
                      L"Error: unable to load object dependencies.\n"));
    ::session().description.reset();
    const std::wstring printed = transcript(L"kelmaro_restore\n");
    EXPECT_TRUE(tells(printed, L"Error: no file loaded.\n"));
    EXPECT_FALSE(tells(printed, L"Object: "));
}

TEST_F(RestoreTest, CancelAtAnyPromptChangesNothing)
{
    for (const wchar_t* typed : {L"kelmaro_restore\n\x3", L"kelmaro_restore Wall\n\x3",
                                 L"kelmaro_restore Wall\n1\n\x3", L"kelmaro_restore\n\n1\n\x3"}) {
        SCOPED_TRACE(host::toUtf8(typed));
        host::setPickFirst({});
        const std::wstring printed = transcript(typed);
        EXPECT_FALSE(tells(printed, L"Completed"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(look('B'), "0 256");
    }
}

TEST_F(RestoreTest, OneUndoTakesItAllBack)
{
    type(L"kelmaro_restore\n\n1\n\n");
    type(L"u\n");
    EXPECT_EQ(look('A'), "Old 256");
    EXPECT_EQ(look('B'), "0 256");
}

namespace {

const std::string kReference = "10\n3.0\n20\n4.0\n30\n0.0\n41\n2.0\n42\n2.0\n43\n2.0\n50\n90.0\n";

std::string definition(const char* handle, const char* tag, const char* value, int flags)
{
    return std::string("0\nATTDEF\n5\n") + handle +
           "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n1.0\n20\n0.0\n30\n0.0\n40\n0.5\n1\n" +
           value + "\n100\nAcDbAttributeDefinition\n3\n" + tag + "?\n2\n" + tag + "\n70\n" +
           std::to_string(flags) + "\n";
}

// A reference to the block Old that is a Door.
class RestoreBlockTest : public PluginTest {
protected:
    void prepare(int uniform, const wchar_t* currentLayer = L"0")
    {
        DxfDrawing drawing;
        drawing.layer("Doors");
        drawing.layer("Locked", 4);
        drawing.block("Old", 6);
        const std::string scaling = "280\n1\n281\n" + std::to_string(uniform) + "\n";
        drawing.block("New", 6,
                      definition("E10", "NUMBER", "12", 0) + definition("E11", "MAKER", "ACME", 4) +
                          definition("E12", "FIXED", "oak", 2),
                      scaling);
        const std::string handle = drawing.entity("INSERT", "AcDbBlockReference",
                                                  "2\nOld\n" + kReference, "Doors", "62\n5\n");
        drawing.line("Doors");
        open(drawing);
        old = idOf(handle);
        EXPECT_FALSE(tells(load("obj_name|Door|1|5\nobj_type|BlockReference\n"
                                "obj_prop|blockname|new\nobj_prop|blockscale|3|1:9\n"
                                "od_name|DOORS\nod_key|NAME\n"),
                           L"rror"));
        classifyAs(*::session().description, storeId(), old, L"Door");
        type(std::wstring(L"clayer\n") + currentLayer + L"\n");
        host::setPickFirst({old});
    }
    AcDbObjectId lastReference()
    {
        AcDbObjectId found;
        for (const AcDbObjectId id : entities())
            if (AcDbObjectPointer<AcDbBlockReference>(id, AcDb::kForRead))
                found = id;
        return found;
    }

    AcDbObjectId old;
};

} // namespace

TEST_F(RestoreBlockTest, AnotherBlockIsInsertedInPlaceOfTheReference)
{
    for (const int uniform : {0, 1}) {
        SCOPED_TRACE(uniform);
        prepare(uniform);
        const std::wstring printed = transcript(L"kelmaro_restore Door\n0\n");
        EXPECT_TRUE(tells(printed, L"Completed: 1/1\n")) << host::toUtf8(printed);
        EXPECT_FALSE(tells(printed, L"insertion point"));
        EXPECT_TRUE(old.isErased());

        const AcDbObjectId id = lastReference();
        const AcDbObjectPointer<AcDbBlockReference> made(id, AcDb::kForRead);
        ASSERT_TRUE(made);
        EXPECT_EQ(blockDefinitionName(*made), L"New");
        EXPECT_EQ(made->position(), AcGePoint3d(3, 4, 0));
        EXPECT_EQ(made->scaleFactors(), AcGeScale3d(2, 2, 2)); // within 1:9
        EXPECT_NEAR(made->rotation(), 1.5707963267948966, 1e-12);
        EXPECT_EQ(made->layer(), L"Doors");
        EXPECT_EQ(made->colorIndex(), 5);
        std::vector<std::wstring> values;
        for (const AcDbObjectId each : made->attributes())
            if (const AcDbObjectPointer<AcDbAttribute> one(each, AcDb::kForRead); one)
                values.push_back(one->tag() + L"=" + one->textString());
        EXPECT_EQ(values, (std::vector<std::wstring>{L"NUMBER=12", L"MAKER=ACME"}));
        StoredTables tables(storeId());
        EXPECT_TRUE(validateObject(*::session().description, tables, id, L"Door", Values::any,
                                   Fields::all));
    }
}

TEST_F(RestoreBlockTest, ForceSetsTheScaleToo)
{
    prepare(0);
    type(L"kelmaro_restore Door\n1\n");
    const AcDbObjectPointer<AcDbBlockReference> made(lastReference(), AcDb::kForRead);
    EXPECT_EQ(made->scaleFactors(), AcGeScale3d(3, 3, 3));
}

TEST_F(RestoreBlockTest, ALockedCurrentLayerIsNoObstacle)
{
    prepare(0, L"Locked");
    EXPECT_TRUE(tells(transcript(L"kelmaro_restore Door\n0\n"), L"Completed: 1/1\n"));
    const AcDbObjectPointer<AcDbBlockReference> made(lastReference(), AcDb::kForRead);
    ASSERT_TRUE(made);
    EXPECT_EQ(made->layer(), L"Doors");
    resbuf layer;
    acedGetVar(L"CLAYER", layer);
    EXPECT_EQ(layer.resval.rstring, L"Locked");
}

TEST_F(RestoreBlockTest, UndoBringsTheOldReferenceBack)
{
    prepare(0);
    type(L"kelmaro_restore Door\n0\n");
    type(L"u\n");
    EXPECT_FALSE(old.isErased());
    EXPECT_EQ(lastReference(), old);
}

// The attributes that are verified take more answers than are given: the user is asked.
TEST_F(RestoreBlockTest, ACancelInsideTheInsertKeepsTheReference)
{
    DxfDrawing drawing;
    drawing.block("Old");
    std::string definitions;
    for (int i = 0; i < 6; ++i)
        definitions += definition(("E1" + std::to_string(i)).c_str(),
                                  ("T" + std::to_string(i)).c_str(), "v", 4);
    drawing.block("New", 0, definitions);
    const std::string handle =
        drawing.entity("INSERT", "AcDbBlockReference", "2\nOld\n" + kReference);
    const std::string line = drawing.line();
    open(drawing);
    load("obj_name|Door|1|5\nobj_type|BlockReference\nobj_prop|blockname|new\n"
         "od_name|DOORS\nod_key|NAME\n");
    old = idOf(handle);
    classifyAs(*::session().description, storeId(), old, L"Door");

    host::setPickFirst({old});
    std::wstring printed = transcript(L"kelmaro_restore Door\n0\n");
    EXPECT_TRUE(printed.ends_with(L"T3? <v>: ")) << host::toUtf8(printed);
    printed = transcript(L"\x3");
    EXPECT_TRUE(tells(printed, L"Completed: 1/1\n")) << host::toUtf8(printed);
    EXPECT_FALSE(old.isErased());
    EXPECT_FALSE(idOf(line).isErased());
    const AcDbObjectPointer<AcDbBlockReference> kept(old, AcDb::kForRead);
    ASSERT_TRUE(kept);
    EXPECT_EQ(blockDefinitionName(*kept), L"New");
    EXPECT_EQ(lastReference(), old);
}
