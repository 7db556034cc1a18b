#include "classify/auto_command.h"

#include "store/record_writing.h"
#include "tests/support/lettered_test.h"

#include <limits>

namespace {

// Lines by their colour; the objects that accept it follow from the description below.
class AutoTest : public LetteredTest {
protected:
    AutoTest()
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        lettered = {{'A', drawing.line("Walls", "62\n1\n")},
                    {'B', drawing.line("Walls")},
                    {'C', drawing.line("0", "62\n1\n")},
                    {'D', drawing.line("Locked")},
                    {'E', drawing.circle(5.0)},
                    {'F', drawing.line("0", "62\n6\n")}};
        open(drawing);
        const std::wstring printed =
            load(object("Wall", 1, 5, "layer|walls") + object("Red", 1, 7, "color|1") +
                 object("Rouge", 1, 7, "color|1") + object("Hidden", 0, 9, "color|6") +
                 object("Pink", 1, 2, "color|6"));
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
    }

    static std::string object(const std::string& name, int drawable, int priority,
                              const std::string& property)
    {
        return "obj_name|" + name + "|" + std::to_string(drawable) + "|" +
               std::to_string(priority) + "\nobj_type|Line\nobj_prop|" + property + "\nod_name|" +
               name + "\nod_key|NAME\n";
    }
    std::string tables(char letter)
    {
        std::string text;
        for (const std::wstring& table : entityTables(storeId(), id(letter)))
            text += host::toUtf8(table) + ";";
        return text;
    }
};

} // namespace

TEST_F(AutoTest, ByLookTheForemostObjectGivesItsRecords)
{
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n0\n0\n\n"),
                      L"Mode [0 (properties)/1 (classes)]<0>: 0\nUndrawable [0/1]<0>: 0\n"
                      L"Select objects: \nCompleted: 4/5\n"));
    EXPECT_EQ(tables('A'), "Red;"); // higher than the wall, and before the other red one
    EXPECT_EQ(tables('B'), "Wall;");
    EXPECT_EQ(tables('C'), "Red;");
    EXPECT_EQ(tables('D'), "");
    EXPECT_EQ(tables('E'), "");
    EXPECT_EQ(tables('F'), "Pink;"); // the undrawable one is passed over
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n\n\n\n"), L"Completed: 0/5\n"));
    EXPECT_EQ(tables('A'), "Red;");
    EXPECT_TRUE(host::currentPickFirst().empty());

    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n0\n1\n\n"), L"Completed: 1/5\n"));
    EXPECT_EQ(tables('F'), "Pink;Hidden;");
}

TEST_F(AutoTest, ByRecordsTheForemostObjectGivesItsLook)
{
    classify('B', L"Wall");
    classify('B', L"Rouge");
    classify('B', L"Red"); // as high, but later among the records
    classify('C', L"Hidden");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n1\n0\n\n"), L"Completed: 1/5\n"));
    EXPECT_EQ(look('B'), "Walls 1");
    EXPECT_EQ(look('C'), "0 1");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n\n1\n\n"), L"Completed: 2/5\n"));
    EXPECT_EQ(look('C'), "0 6");
    EXPECT_EQ(tables('C'), "Hidden;");
}

TEST_F(AutoTest, ByRecordsWhatFailsLeavesTheList)
{
    classify('B', L"Wall");
    classify('E', L"Red"); // a circle that says it is a line
    const std::wstring printed = transcript(L"kelmaro_classify_auto\n1\n0\n\n");
    EXPECT_TRUE(tells(printed, L"Completed: 1/4\n")) << host::toUtf8(printed);
    EXPECT_EQ(look('E'), "0 256");
}

// By look every priority counts but the least, by records the one above it does not either.
TEST_F(AutoTest, TheLeastPrioritiesNeverCount)
{
    constexpr int kLeast = std::numeric_limits<int>::min();
    const struct {
        char letter;
        int priority;
        const wchar_t* byLook;
        const wchar_t* byRecords;
    } cases[] = {
        {'A', kLeast, L"Completed: 0/1\n", L"Completed: 0/1\n"},
        {'B', kLeast + 1, L"Completed: 1/1\n", L"Completed: 0/1\n"},
        {'C', kLeast + 2, L"Completed: 1/1\n", L"Completed: 1/1\n"},
    };
    for (const auto& [letter, priority, byLook, byRecords] : cases) {
        SCOPED_TRACE(letter);
        load(object("Low", 1, priority, "layer|*"));
        select({&letter, 1});
        EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n0\n0\n"), byLook));
        classify(letter, L"Low");
        select({&letter, 1});
        EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n1\n0\n"), byRecords));
    }
}

TEST_F(AutoTest, AnswersAreClampedAndKept)
{
    host::setPickFirst({id('A')});
    type(L"kelmaro_classify_auto\n5\n-3\n");
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n\n\x3"),
                      L"Mode [0 (properties)/1 (classes)]<1>: \nUndrawable [0/1]<0>: "));
}

TEST_F(AutoTest, CancelAndNothingUsableEndSilently)
{
    for (const wchar_t* typed : {L"kelmaro_classify_auto\n\x3", L"kelmaro_classify_auto\n0\n\x3",
                                 L"kelmaro_classify_auto\n0\n0\n\x3"}) {
        SCOPED_TRACE(host::toUtf8(typed));
        const std::wstring printed = transcript(typed);
        EXPECT_FALSE(tells(printed, L"Completed"));
        EXPECT_FALSE(tells(printed, L"Error"));
        EXPECT_EQ(tables('A'), "");
    }
    host::setPickFirst({id('D')});
    EXPECT_FALSE(tells(transcript(L"kelmaro_classify_auto\n0\n0\n"), L"Completed"));
    ::session().description.reset();
    EXPECT_TRUE(tells(transcript(L"kelmaro_classify_auto\n"), L"Error: no file loaded.\n"));
}

TEST_F(AutoTest, MissingDependenciesAreToldForEachEntity)
{
    load("obj_name|Gone|1|9\nobj_type|Line\nobj_prop|textstyle|nowhere\nod_name|Gone\n"
         "od_key|NAME\n");
    host::setPickFirst({id('A'), id('B')});
    const std::wstring printed = transcript(L"kelmaro_classify_auto\n0\n0\n");
    const std::wstring message = L"error: unable to load dependecies for object 'Gone'\n";
    EXPECT_TRUE(tells(printed, message + message + L"Completed: 0/2\n")) << host::toUtf8(printed);
}
