#include "classify/classify_command.h"

#include "host/db/block_reference.h"
#include "store/record_writing.h"
#include "tests/support/lettered_test.h"

namespace {

class Listener final : public SessionListener {
public:
    Listener() { ::session().addListener(this); }
    ~Listener() override { ::session().removeListener(this); }
    void entitiesClassified(const std::wstring& name) override { names += name + L";"; }
    std::wstring names;
};

// Lines A and B, a circle C, D a line on a locked layer, E a line that is a gate and a wall.
class ClassifyTest : public LetteredTest {
protected:
    ClassifyTest()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        lettered = {{'A', drawing.line("0")},
                    {'B', drawing.line("0")},
                    {'C', drawing.circle(5.0)},
                    {'D', drawing.line("Locked")},
                    {'E', drawing.line("0")}};
        open(drawing);
        const std::wstring printed = load("obj_name|Wall|1|5\nobj_type|Line\n"
                                          "obj_prop|layer|walls\nod_name|WALLS\nod_key|NAME\n"
                                          "obj_name|Gate|1|5\nobj_type|Line\n"
                                          "obj_prop|color|1\nod_name|GATES\nod_key|NAME\n"
                                          "obj_name|Pole|1|5\nobj_type|Line\n"
                                          "obj_prop|color|4\nod_name|POLES\nod_key|NAME\n"
                                          "obj_name|Lost|1|1\nobj_type|Line\n"
                                          "obj_prop|layer|nowhere\nod_name|LOSTS\nod_key|NAME\n");
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
        for (const wchar_t* const name : {L"Gate", L"Wall"})
            classify('E', name);
    }

    // Layer, colour, tables of its records.
    std::string state(char letter)
    {
        std::string text = look(letter);
        for (const std::wstring& table : entityTables(storeId(), id(letter)))
            text += " " + host::toUtf8(table);
        return text;
    }
};

} // namespace

TEST_F(ClassifyTest, ASelectionBecomesObjectsOfTheName)
{
    Listener listener;
    const std::wstring printed = transcript(L"kelmaro_classify wall\n1\n1\n0\nall\n\n");
    EXPECT_TRUE(tells(printed, L"Object: wall\nAssign graphical properties [0/1]<1>: 1\n"
                               L"Attach OD [0/1]<1>: 1\nChange object [0/1]<1>: 0\n"
                               L"Select objects: all\n"))
        << host::toUtf8(printed);
    EXPECT_TRUE(tells(printed, L"Completed: 3\n"));
    EXPECT_EQ(state('A'), "Walls 256 WALLS");
    EXPECT_EQ(state('B'), "Walls 256 WALLS");
    EXPECT_EQ(state('C'), "0 256");
    EXPECT_EQ(state('D'), "Locked 256");
    EXPECT_EQ(state('E'), "Walls 256 GATES WALLS"); // no second record of the same
    EXPECT_EQ(selected(), "ABE");
    EXPECT_EQ(listener.names, L"wall;");
}

TEST_F(ClassifyTest, WhatStaysSelectedIsWhatHasTheName)
{
    const struct {
        const wchar_t* dialog; // assign, attach, change
        const char* selection;
        int count;
        const char* left;
    } cases[] = {
        {L"1\n0\n", "AE", 2, "E"},     // only the look
        {L"0\n1\n0\n", "BE", 2, "BE"}, // only the records
        {L"0\n1\n0\n", "C", 0, ""},    // of another type
        {L"1\n1\n0\n", "CAC", 1, "A"},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.selection);
        select(row.selection);
        const std::wstring printed =
            transcript(L"kelmaro_classify Wall\n" + std::wstring(row.dialog));
        EXPECT_TRUE(tells(printed, L"Completed: " + std::to_wstring(row.count) + L"\n"));
        EXPECT_EQ(selected(), row.left);
    }
    EXPECT_EQ(state('B'), "0 256 WALLS");
}

TEST_F(ClassifyTest, WhatTheEntitiesWereIsListedAndTheChosenComesOff)
{
    const struct {
        const wchar_t* chosen;
        const char* left;
    } cases[] = {
        {L"1\n", "0 4 WALLS POLES"},
        {L"2\n", "0 4 POLES"},
        {L"\n", "0 4 POLES"},
    };
    select("AE");
    const std::wstring printed = transcript(L"kelmaro_classify Pole\n1\n1\n1\n1\n");
    EXPECT_TRUE(tells(printed, L"1 Gate\n2 Wall\nSelect [numbers/All]<none>: 1\n"))
        << host::toUtf8(printed);
    EXPECT_EQ(state('E'), cases[0].left);
    EXPECT_EQ(state('A'), "0 4 POLES");

    // the pole is listed now too, and comes off and on again
    select("E");
    EXPECT_TRUE(
        tells(transcript(L"kelmaro_classify Pole\n1\n1\n1\nAll\n"), L"1 Pole\n2 Wall\nSelect"));
    EXPECT_EQ(state('E'), "0 4 POLES");
    select("E");
    type(L"kelmaro_classify Wall\n1\n1\n1\n\n"); // nothing chosen, classified all the same
    EXPECT_EQ(state('E'), "Walls 4 POLES WALLS");
}

TEST_F(ClassifyTest, WithoutRecordsNothingIsListed)
{
    select("AB");
    const std::wstring printed = transcript(L"kelmaro_classify Wall\n1\n1\n1\n");
    EXPECT_FALSE(tells(printed, L"Select [numbers"));
    EXPECT_TRUE(tells(printed, L"Completed: 2\n"));
}

TEST_F(ClassifyTest, WithoutAttachingThereIsNoChange)
{
    select("E");
    type(L"kelmaro_classify Wall\n1\n0\n");
    EXPECT_EQ(state('E'), "Walls 256 GATES WALLS");
    select("E");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify Wall\n1\n1\n\n"),
                      L"Change object [0/1]<0>: \nCompleted: 1\n"));
}

TEST_F(ClassifyTest, CancelChangesNothing)
{
    const std::string before = state('E');
    for (const wchar_t* typed :
         {L"kelmaro_classify\n\x3", L"kelmaro_classify Pole\n\x3", L"kelmaro_classify Pole\n1\n\x3",
          L"kelmaro_classify Pole\n1\n1\n\x3", L"kelmaro_classify Pole\n1\n1\n1\n\x3",
          L"kelmaro_classify Pole\n0\n0\n"}) {
        SCOPED_TRACE(host::toUtf8(typed));
        select("E");
        const std::wstring printed = transcript(typed);
        EXPECT_FALSE(tells(printed, L"Completed"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(state('E'), before);
        EXPECT_EQ(selected(), "E");
    }
    select("");
    const std::wstring printed = transcript(L"kelmaro_classify Pole\n1\n1\n1\n\x3");
    EXPECT_TRUE(tells(printed, L"Select objects: "));
    EXPECT_FALSE(tells(printed, L"Completed"));
    EXPECT_FALSE(tells(printed, L"Error"));
}

TEST_F(ClassifyTest, WhatCannotBeDoneIsTold)
{
    const std::wstring none = L"Error: no objects selected.\n";
    select("A");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify nobody\n"), L"Error: object not found.\n"));
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify Lost\n"),
                      L"Error: unable to load object dependencies.\n"));
    select("");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify Wall\n1\n1\n1\n\n"), none));
    select("D");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify Wall\n1\n1\n1\n"), none));
    ::session().description.reset();
    const std::wstring printed = transcript(L"kelmaro_classify\n");
    EXPECT_TRUE(tells(printed, L"Error: no file loaded.\n"));
    EXPECT_FALSE(tells(printed, L"Object: "));
}

TEST_F(ClassifyTest, OneUndoTakesItBack)
{
    select("AE");
    type(L"kelmaro_classify Pole\n1\n1\n1\nAll\n");
    type(L"u\n");
    EXPECT_EQ(state('A'), "0 256");
    EXPECT_EQ(state('E'), "0 256 GATES WALLS");
}

namespace {

std::string attributed(const char* handle)
{
    return std::string("0\nATTDEF\n5\n") + handle +
           "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n0.0\n20\n0.0\n30\n0.0\n40\n1.0\n1\nx\n"
           "100\nAcDbAttributeDefinition\n3\nTag\n2\nTAG\n70\n0\n";
}

// References to blocks with attributes and without; none of them has attributes yet. One to the old
// block is never selected.
class ClassifyReferenceTest : public PluginTest {
protected:
    ClassifyReferenceTest()
    {
        DxfDrawing drawing;
        drawing.block("Old One", 0, attributed("E10"));
        drawing.block("Plain");
        drawing.block("New", 0, attributed("E11"));
        const auto reference = [&](const std::string& block) {
            return drawing.entity("INSERT", "AcDbBlockReference",
                                  "2\n" + block + "\n10\n1.0\n20\n2.0\n30\n0.0\n");
        };
        for (const char* const block : {"Old One", "Plain", "New", "OLD ONE"})
            handles.push_back(reference(block));
        other = reference("Old One");
        open(drawing);
        EXPECT_FALSE(tells(load("obj_name|Door|1|5\nobj_type|BlockReference\n"
                                "obj_prop|blockname|new\nod_name|DOORS\nod_key|NAME\n"),
                           L"rror"));
    }
    void selectAll()
    {
        std::vector<AcDbObjectId> ids;
        for (const std::string& handle : handles)
            ids.push_back(idOf(handle));
        host::setPickFirst(ids);
    }
    // The attributes that the reference which is not selected has by now.
    std::size_t attributesOfOther()
    {
        const AcDbObjectPointer<AcDbBlockReference> reference(idOf(other), AcDb::kForRead);
        return reference->attributes().size();
    }
    // How often blocks were synchronized.
    static int synchronizations(const std::wstring& printed)
    {
        int count = 0;
        for (std::size_t at = 0; (at = printed.find(kAsksBlock, at)) != std::wstring::npos; ++at)
            ++count;
        return count;
    }

    static constexpr std::wstring_view kAsksBlock = L"Enter block name to synchronize";
    std::vector<std::string> handles;
    std::string other;
};

} // namespace

TEST_F(ClassifyReferenceTest, TheBlocksThatWereLeftAreSynchronizedByName)
{
    selectAll();
    const std::wstring printed = transcript(L"kelmaro_classify Door\n1\n1\n1\n");
    EXPECT_TRUE(tells(printed, L"Completed: 4\n")) << host::toUtf8(printed);
    // once for both references, the plain block has no attributes, the new one was not left
    EXPECT_EQ(synchronizations(printed), 1);
    EXPECT_EQ(attributesOfOther(), 1u);
    EXPECT_LT(printed.find(kAsksBlock), printed.find(L"Regenerating model.\n"));
    EXPECT_EQ(host::currentPickFirst().size(), 4u);
    EXPECT_TRUE(idOf(handles[0]).isErased());
    EXPECT_FALSE(idOf(handles[2]).isErased());
    EXPECT_FALSE(tells(printed, L"Unknown"));
}

TEST_F(ClassifyReferenceTest, TheSameWhereTheRecordsTellTheObject)
{
    selectAll();
    type(L"kelmaro_classify Door\n0\n1\n1\n");
    selectAll();
    const std::wstring printed = transcript(L"kelmaro_classify_auto\n1\n0\n");
    EXPECT_TRUE(tells(printed, L"Completed: 4/4\n")) << host::toUtf8(printed);
    EXPECT_EQ(synchronizations(printed), 1);
    EXPECT_EQ(attributesOfOther(), 1u);
    EXPECT_FALSE(tells(printed, L"Regenerating"));
}

TEST_F(ClassifyReferenceTest, NothingIsSynchronizedWhereTheLookStays)
{
    selectAll();
    const std::wstring printed = transcript(L"kelmaro_classify Door\n0\n1\n1\n");
    EXPECT_TRUE(tells(printed, L"Completed: 4\n"));
    EXPECT_EQ(synchronizations(printed), 0);
    EXPECT_EQ(attributesOfOther(), 0u);
    EXPECT_FALSE(idOf(handles[0]).isErased());
}
