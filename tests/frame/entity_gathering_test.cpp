#include "frame/entity_gathering.h"

#include "frame/entity_filter.h"
#include "frame/selection_result.h"
#include "host/db/entity.h"
#include "host/edit/pick_first.h"
#include "session/session.h"
#include "tests/support/opened_drawing.h"

namespace {

EntityList gathered;
Gathering outcome;
bool goesOn;

template <Fallback fallback> void gather()
{
    gathered.clear();
    pickFirstEntities(gathered);
    outcome = fillIfEmpty(gathered, fallback);
}

template <Fallback fallback> void gatherAndTell()
{
    gathered.clear();
    goesOn = gatherIfEmpty(gathered, fallback);
}

class GatheringTest : public DrawingTest {
protected:
    GatheringTest()
    {
        const int flags = ACRX_CMD_USEPICKSET;
        command(L"ASK", gather<Fallback::ask>, flags);
        command(L"SCAN", gather<Fallback::scan>, flags);
        command(L"ASKSCAN", gather<Fallback::askScan>, flags);
        command(L"TELLASK", gatherAndTell<Fallback::ask>, flags);
        command(L"TELLALL", gatherAndTell<Fallback::askScan>, flags);
    }
    void openThree()
    {
        DxfDrawing drawing;
        for (int i = 0; i < 3; ++i)
            handles.push_back(drawing.line());
        drawing.block("DOOR", 0,
                      "0\nLINE\n5\nF01\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0.0\n20\n0.0\n"
                      "30\n0.0\n11\n1.0\n21\n0.0\n31\n0.0\n");
        open(drawing);
    }
    std::vector<AcDbObjectId> ids(std::initializer_list<int> places)
    {
        std::vector<AcDbObjectId> found;
        for (const int place : places)
            found.push_back(idOf(handles.at(static_cast<std::size_t>(place))));
        return found;
    }

    std::vector<std::string> handles;
};

} // namespace

TEST_F(GatheringTest, WhatIsSelectedBeforeComesFirstInEveryOrder)
{
    openThree();
    for (const wchar_t* name : {L"ask\n", L"scan\n", L"askscan\n"}) {
        host::setPickFirst(ids({2, 0}));
        type(name);
        EXPECT_EQ(gathered.ids(), ids({2, 0}));
        EXPECT_EQ(outcome, Gathering::found);
    }
}

TEST_F(GatheringTest, TheFallbackOrders)
{
    openThree();
    const std::wstring second =
        L"(handent \"" + std::wstring(handles[1].begin(), handles[1].end()) + L"\")\n\n";
    struct Case {
        std::wstring typed;
        std::vector<AcDbObjectId> found;
        Gathering outcome;
    };
    const Case cases[] = {
        {L"ask\n" + second, ids({1}), Gathering::found},
        {L"ask\n\n", {}, Gathering::nothing},
        {L"ask\n\x3", {}, Gathering::cancelled},
        {L"scan\n", ids({0, 1, 2}), Gathering::found}, // model space alone
        {L"askscan\n" + second, ids({1}), Gathering::found},
        {L"askscan\n\n", ids({0, 1, 2}), Gathering::found},
        {L"askscan\n\x3", {}, Gathering::cancelled},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(std::string(row.typed.begin(), row.typed.end()));
        type(row.typed);
        EXPECT_EQ(gathered.ids(), row.found);
        EXPECT_EQ(outcome, row.outcome);
    }
}

TEST_F(GatheringTest, NothingIsToldAndCancelIsSilent)
{
    const std::wstring message = L"Error: no objects selected.\n";
    EXPECT_NE(transcript(L"tellask\n\n").find(message), std::wstring::npos);
    EXPECT_FALSE(goesOn);
    EXPECT_NE(transcript(L"tellall\n\n").find(message), std::wstring::npos); // an empty drawing
    EXPECT_FALSE(goesOn);
    EXPECT_EQ(transcript(L"tellall\n\x3").find(L"Error"), std::wstring::npos);
    EXPECT_FALSE(goesOn);
}

TEST_F(GatheringTest, LayersThatHideOrLockKeepTheirEntitiesOut)
{
    DxfDrawing drawing;
    drawing.layer("Free");
    drawing.layer("Frozen", 1);
    drawing.layer("Locked", 4);
    drawing.layer("Off", 0, -7);
    drawing.layer("FrozenForNewViewports", 2);
    for (const char* layer : {"Locked", "Free", "Frozen", "0", "Off", "FrozenForNewViewports"})
        handles.push_back(drawing.line(layer));
    open(drawing);

    EntityList entities(ids({0, 1, 2, 3, 4, 5}));
    filterUsableLayers(entities);
    EXPECT_EQ(entities.ids(), ids({5, 1, 3}));
}

TEST_F(GatheringTest, WhatCannotBeOpenedIsDropped)
{
    openThree();
    EntityList entities(ids({0, 1, 2}));
    const AcDbObjectPointer<AcDbEntity> held(ids({1})[0], AcDb::kForWrite);
    AcDbObjectPointer<AcDbEntity>(ids({0})[0], AcDb::kForWrite)->erase();
    EntityList again = entities;
    filterUsableLayers(entities);
    EXPECT_EQ(entities.ids(), ids({2}));
    filterOpenable(again);
    EXPECT_EQ(again.ids(), ids({2}));
}

TEST_F(GatheringTest, TheResultBecomesTheSelection)
{
    openThree();
    selectResult(EntityList(ids({2, 1})));
    EXPECT_EQ(host::currentPickFirst(), ids({2, 1}));
    selectResult(EntityList());
    EXPECT_TRUE(host::currentPickFirst().empty());
}
