#include "draw/drawing_engine.h"

#include "host/db/point_entity.h"
#include "host/edit/command_call.h"
#include "tests/support/drawing_test.h"

#include <functional>
#include <stdexcept>

namespace {

// A wall of lines, a spot of points, an arch of arcs, whose command's end is never met.
const char* const kObjects = "obj_name|Wall|1|5\n"
                             "obj_type|Line\n"
                             "obj_prop|layer|walls\n"
                             "obj_prop|color|1\n"
                             "od_name|WALLS\n"
                             "od_key|NAME\n"
                             "variable|LUPREC|6\n"
                             "variable|TEXTSTYLE|Standard\n"
                             "obj_name|Spot|1|5\n"
                             "obj_type|Point\n"
                             "obj_prop|layer|walls\n"
                             "obj_prop|color|2\n"
                             "od_name|SPOTS\n"
                             "od_key|NAME\n"
                             "variable|LUPREC|3\n"
                             "obj_name|Arch|1|5\n"
                             "obj_type|Arc\n"
                             "obj_prop|color|3\n"
                             "variable|LUPREC|7\n"
                             "obj_name|Tank|1|5\n"
                             "obj_type|3DSolid\n";

const std::string kWall = "Line Walls 1 WALLS";
const std::string kSpot = "Point Walls 2 SPOTS";
const std::string kPlainLine = "Line 0 256";
const std::string kPlainPoint = "Point 0 256";

class EngineTest : public ObjectDrawingTest {
protected:
    EngineTest() { EXPECT_FALSE(tells(load(kObjects), L"rror")); }

    int luprec() { return host::integerVariable(L"LUPREC", -1); }
    bool asks(std::wstring_view prompt)
    {
        return session().engine().waiting().prompt.find(prompt) != std::wstring::npos;
    }
    bool atCommandPrompt() { return session().engine().waiting().kind == host::WaitKind::command; }
    // In the place of a native command.
    void replaceCommand(const wchar_t* name, void (*function)())
    {
        session().commands().removeCmd(L"NATIVE", name);
        command(name, function);
    }
};

void appendPoint()
{
    AcDbObjectPointer<AcDbPoint> point;
    point.create();
    const AcDbObjectPointer<AcDbBlockTableRecord> space(
        acdbHostApplicationServices()->workingDatabase()->modelSpaceId(), AcDb::kForWrite);
    space->appendAcDbEntity(point.object());
}

// Draws what it is asked for; fails at a place left of the origin.
void pointOrFailure()
{
    ads_point place{};
    if (acedGetPoint(nullptr, L"Place: ", place) != RTNORM)
        return;
    appendPoint();
    if (place[0] < 0.0)
        throw std::runtime_error("no place");
}

void endAtOnce()
{
}

} // namespace

TEST_F(EngineTest, AStartedScriptAsksAtOnceAndSetsTheVariables)
{
    type(L"kelmaro_draw Wall\n");
    EXPECT_TRUE(asks(L"Specify first point: "));
    EXPECT_EQ(luprec(), 6);
    EXPECT_EQ(drawn(), Looks());
}

TEST_F(EngineTest, EachPassIsFinishedAndTheCommandStartsAgain)
{
    type(L"kelmaro_draw spot\n1,1\n");
    EXPECT_EQ(drawn(), (Looks{kSpot}));
    EXPECT_TRUE(asks(L"Specify a point: "));
    EXPECT_EQ(luprec(), 3);
    type(L"2,2\n");
    EXPECT_EQ(drawn(), (Looks{kSpot, kSpot}));
    type(L"\x3");
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(luprec(), 4);
    EXPECT_EQ(drawn(), (Looks{kSpot, kSpot}));

    // what is drawn afterwards is nobody's
    type(L"point 3,3\nline 0,0 1,1\n\n");
    EXPECT_EQ(drawn(), (Looks{kSpot, kSpot, kPlainPoint, kPlainLine}));
}

TEST_F(EngineTest, ACancelledPassIsFinishedAsFarAsItCame)
{
    struct Row {
        const wchar_t* typed;
        std::size_t walls;
    };
    for (const Row& row :
         {Row{L"kelmaro_draw Wall\n\x3", 0}, Row{L"kelmaro_draw Wall\n0,0\n\x3", 0},
          Row{L"kelmaro_draw Wall\n0,0\n1,0\n2,0\n\x3", 2},
          Row{L"kelmaro_draw Wall\n0,0\n1,0\n\n5,5\n6,6\n\x3", 2},
          Row{L"kelmaro_draw Wall\n0,0\n1,0\n\n0,1\n1,1\n\n0,2\n1,2\n2,2\n\x3", 4},
          Row{L"kelmaro_draw Wall\n0,0\n1,0\nu\n\x3", 0}}) {
        SCOPED_TRACE(host::toUtf8(row.typed));
        openPlain();
        type(row.typed);
        EXPECT_TRUE(atCommandPrompt());
        EXPECT_EQ(drawn(), Looks(row.walls, kWall));
        EXPECT_EQ(luprec(), 4);
    }
}

TEST_F(EngineTest, AFailedCommandPutsTheVariablesBackAndFinishesNothing)
{
    replaceCommand(L"POINT", pointOrFailure);
    type(L"kelmaro_draw Spot\n1,1\n-1,1\n");
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(drawn(), (Looks{kSpot})); // the failed one is taken back by the host
    EXPECT_EQ(luprec(), 4);
    type(L"point 1,1\n");
    EXPECT_EQ(drawn(), (Looks{kSpot, kPlainPoint}));
}

TEST_F(EngineTest, OtherCommandsDoNotEndTheDrawing)
{
    type(L"kelmaro_draw Wall\n0,0\n'setvar insunits 4\n1,0\n");
    EXPECT_EQ(drawn(), (Looks{kPlainLine}));
    EXPECT_EQ(luprec(), 6);
    type(L"\n\x3");
    EXPECT_EQ(drawn(), (Looks{kWall}));
}

TEST_F(EngineTest, WhatTheCommandErasesAgainIsForgotten)
{
    type(L"kelmaro_draw Wall\n0,0\n1,0\nu\n0,1\n\n\x3");
    EXPECT_EQ(drawn(), (Looks{kWall}));
}

// The arcs wait for the end of another command.
TEST_F(EngineTest, AScriptStartedWhileAnotherWaitsTakesItsPlace)
{
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\n");
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(drawn(), (Looks{"Arc 0 256"}));
    EXPECT_EQ(luprec(), 7);
    type(L"kelmaro_draw Spot\n1,1\n\x3");
    EXPECT_EQ(drawn(), (Looks{"Arc 0 256", kSpot}));
    EXPECT_EQ(luprec(), 7); // 4 is lost, and 7 was there when the spot began
}

// Nothing is waited for any more: the arch would be finished as a tank.
TEST_F(EngineTest, AnObjectThatIsNotDrawnEndsTheWaitingToo)
{
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\n");
    EXPECT_TRUE(
        tells(transcript(L"kelmaro_draw Tank\n"), L"KELMARO message\nDrawing not supported.\n"));
    type(L"3dface\n");
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(drawn(), (Looks{"Arc 0 256"}));
    EXPECT_EQ(luprec(), 7);
}

// One who came between two draws hears of the end before the entities are finished.
TEST_F(EngineTest, ANewDrawListensBehindEverybody)
{
    struct Listener final : AcEditorReactor {
        void commandEnded(const wchar_t*) override { heard = look(); }
        std::function<Looks()> look;
        Looks heard;
    } listener;
    listener.look = [this] { return drawn(); };
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"kelmaro_draw Arch\n\x3"); // it goes on listening
    acedEditorPtr()->addReactor(&listener);
    type(L"kelmaro_draw Spot\n1,1\n");
    acedEditorPtr()->removeReactor(&listener);
    EXPECT_EQ(listener.heard, (Looks{kPlainPoint}));
    EXPECT_EQ(drawn(), (Looks{kSpot}));
}

TEST_F(EngineTest, TheEndThatAnArchWaitsForFinishesAllArches)
{
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\narc 5,5 6,6 7,5\n");
    EXPECT_EQ(drawn(), (Looks{"Arc 0 256", "Arc 0 256"}));
    type(L"3dface\n\x3");
    EXPECT_EQ(drawn(), (Looks{"Arc 0 3", "Arc 0 3"}));
}

// A command that ends without asking is queued again by its own end.
TEST_F(EngineTest, ADrawThatNeverAsksIsStopped)
{
    replaceCommand(L"POINT", endAtOnce);
    const std::wstring printed = transcript(L"kelmaro_draw Spot\n");
    EXPECT_TRUE(tells(printed, L"Queued commands ran 1,000 times without asking; stopped.\n"));
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(luprec(), 4);
    session().commands().removeCmd(L"TEST", L"POINT");
    command(L"POINT", appendPoint);
    type(L"point\n");
    EXPECT_EQ(drawn(), (Looks{kPlainPoint}));
}

TEST_F(EngineTest, TheEndOfTheInputCancelsTheDrawing)
{
    type(L"kelmaro_draw Spot\n1,1\n");
    endInput();
    EXPECT_EQ(drawn(), (Looks{kSpot}));
    EXPECT_EQ(luprec(), 4);
}

TEST_F(EngineTest, OneUndoTakesBackAPassWithItsRecords)
{
    type(L"kelmaro_draw Spot\n1,1\n2,2\n\x3");
    type(L"u\n"); // the cancelled pass
    type(L"u\n");
    EXPECT_EQ(drawn(), (Looks{kSpot}));
}

TEST_F(EngineTest, PostedCancelEndsTheDrawingBeforeTheNextOneBegins)
{
    type(L"kelmaro_draw Wall\n0,0\n1,0\n");
    acedPostCommand(L"CANCELCMD");
    AcApDocument* const document = session().documents().curDocument();
    session().documents().sendStringToExecute(document, L"kelmaro_draw spot\n", true, false, false);
    type(L"1,1\n");
    EXPECT_EQ(drawn(), (Looks{kWall, kSpot}));
    type(L"\x3");
    EXPECT_EQ(luprec(), 4);
}

// ---- what goes while a drawing is under way ----

TEST_F(EngineTest, TheDescriptionMayGo)
{
    type(L"kelmaro_draw Wall\n0,0\n1,0\n");
    ::session().description.reset();
    type(L"2,0\n\n\x3");
    EXPECT_EQ(drawn(), (Looks{kWall, kWall}));

    load(kObjects);
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\n");
    type(L"kelmaro_reload\n");
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"3dface\n\x3");
    EXPECT_EQ(drawn().back(), "Arc 0 3");
}

TEST_F(EngineTest, TheDrawingMayGo)
{
    openPlain("second.dxf");
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\n");
    session().documents().closeDocument(session().documents().curDocument());
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"3dface\n\x3");
    EXPECT_EQ(drawn(), Looks());
    type(L"kelmaro_draw Spot\n1,1\n\x3");
    EXPECT_EQ(drawn(), (Looks{kSpot}));
}

TEST_F(EngineTest, ADrawingLeftBehindIsStillHeard)
{
    type(L"kelmaro_draw Arch\n0,0\n1,1\n2,0\n");
    AcApDocument* const first = session().documents().curDocument();
    openPlain("second.dxf");
    replaceCommand(L"3DFACE", endAtOnce);
    type(L"3dface\n\x3");
    session().documents().setCurDocument(first);
    type(L"arc 5,5 6,6 7,5\n");
    EXPECT_EQ(drawn(), (Looks{"Arc 0 3", "Arc 0 256"}));
}

TEST_F(EngineTest, TheModuleMayGo)
{
    type(L"kelmaro_draw Wall\n0,0\n1,0\n");
    app.dispatch(AcRx::kUnloadAppMsg, nullptr);
    type(L"2,0\n\n");
    EXPECT_TRUE(atCommandPrompt());
    EXPECT_EQ(entities().size(), 2u);
    app.dispatch(AcRx::kInitAppMsg, nullptr);
    EXPECT_EQ(drawn(), (Looks{kPlainLine, kPlainLine}));
}

TEST_F(EngineTest, EverythingMayGoInTheMiddleOfAPass)
{
    type(L"kelmaro_draw Wall\n0,0\n1,0\n"); // the session ends here
}
