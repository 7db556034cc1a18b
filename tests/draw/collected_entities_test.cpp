#include "draw/drawing_engine.h"

#include "host/db/object_pointer.h"
#include "tests/support/lettered_test.h"

namespace {

std::vector<AcDbObjectId> finished;

void noteFinished(const ObjectDef&, AcDbObjectId entity)
{
    finished.push_back(entity);
}

// What the host tells the engine while a command runs, without a command. A to D are lines, P is a
// point, R a ring.
class CollectedTest : public LetteredTest {
protected:
    CollectedTest()
    {
        DxfDrawing drawing;
        for (const char line : {'A', 'B', 'C', 'D'})
            lettered[line] = drawing.line();
        lettered['P'] = drawing.entity("POINT", "AcDbPoint", "10\n0.0\n20\n0.0\n30\n0.0\n");
        lettered['R'] = drawing.circle(1.0);
        open(drawing);
        finished.clear();
        object->props.name = L"Wall";
        object->props.types = {L"Line", L"Point"};
    }

    void start(bool typeFilter = true, bool repeat = false)
    {
        drawingEngine().start({L"", L"line", typeFilter, repeat, noteFinished}, object, {});
    }
    // The entities that each letter stands for are appended; erased when it has a "-" before it.
    void tell(std::string_view events)
    {
        for (std::size_t at = 0; at < events.size(); ++at) {
            const bool erased = events[at] == '-';
            at += erased ? 1 : 0;
            const AcDbObjectPointer<AcDbObject> entity(id(events[at]), AcDb::kForRead);
            if (erased)
                drawingEngine().objectErased(&database(), entity.object(), true);
            else
                drawingEngine().objectAppended(&database(), entity.object());
        }
    }
    std::string finishedLetters()
    {
        host::setPickFirst(finished);
        finished.clear();
        return selected();
    }

    std::shared_ptr<ObjectDef> object = std::make_shared<ObjectDef>();
};

} // namespace

TEST_F(CollectedTest, TheLastTakesThePlaceOfAnErasedOne)
{
    const std::pair<const char*, const char*> cases[] = {
        {"ABCD", "ABCD"}, {"ABCD-A", "DBC"}, {"ABCD-B", "ADC"}, {"ABCD-D", "ABC"},
        {"ABAC-A", "CB"}, {"A-A", ""},       {"A-AAB-C", "AB"}, {"-A", ""}};
    for (const auto& [events, expected] : cases) {
        SCOPED_TRACE(events);
        start();
        tell(events);
        drawingEngine().commandEnded(L"LINE");
        EXPECT_EQ(finishedLetters(), expected);
    }
}

TEST_F(CollectedTest, AllTypesOfACompleteObjectAreCollected)
{
    struct Row {
        bool typeFilter;
        const wchar_t* firstType;
        const wchar_t* name;
        const char* collected;
    };
    for (const Row& row : {Row{true, L"Line", L"Wall", "AP"}, Row{true, L"lINE", L"Wall", "P"},
                           Row{false, L"Line", L"Wall", "APR"}, Row{true, L"Circle", L"Wall", "PR"},
                           Row{true, L"?", L"Wall", ""}, Row{true, L"Line", L"", ""},
                           Row{false, L"?", L"", "APR"}}) {
        object->props.types.front() = row.firstType;
        object->props.name = row.name;
        start(row.typeFilter);
        tell("APR");
        drawingEngine().commandEnded(L"LINE");
        EXPECT_EQ(finishedLetters(), row.collected);
    }
}

TEST_F(CollectedTest, EachEndOfTheCommand)
{
    using Told = void (detail::command::*)(const wchar_t*);
    struct Row {
        Told told;
        const wchar_t* name;
        bool repeat;
        const char* finished;
        const char* later; // appended and ended afterwards
    };
    constexpr Told kEnded = &detail::command::commandEnded;
    constexpr Told kCancelled = &detail::command::commandCancelled;
    constexpr Told kFailed = &detail::command::commandFailed;
    for (const Row& row :
         {Row{kEnded, L"LINE", true, "AB", "C"}, Row{kEnded, L"Line", false, "AB", ""},
          Row{kCancelled, L"LINE", true, "AB", ""}, Row{kFailed, L"LINE", true, "", ""},
          Row{kEnded, L"MLINE", true, "", "ABC"}, Row{kCancelled, L"POINT", true, "", "ABC"},
          Row{kFailed, L"", false, "", "ABC"}}) {
        SCOPED_TRACE(host::toUtf8(row.name));
        start(true, row.repeat);
        tell("AB");
        (drawingEngine().*row.told)(row.name);
        EXPECT_EQ(finishedLetters(), row.finished);
        tell("C");
        drawingEngine().commandEnded(L"LINE");
        EXPECT_EQ(finishedLetters(), row.later);
    }
}

TEST_F(CollectedTest, NothingIsHeardOfNothing)
{
    start();
    drawingEngine().objectAppended(&database(), nullptr);
    drawingEngine().objectErased(&database(), nullptr, true);
    {
        const AcDbObjectPointer<AcDbObject> line(id('A'), AcDb::kForRead);
        drawingEngine().objectAppended(nullptr, line.object());
        const AcDbObjectPointer<AcDbObject> layer(database().clayer(), AcDb::kForRead);
        drawingEngine().objectAppended(&database(), layer.object());
    }
    drawingEngine().commandEnded(L"LINE");
    EXPECT_EQ(finishedLetters(), "");
}
