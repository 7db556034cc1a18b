#include "host/db/symbol_tables.h"
#include "tests/support/opened_drawing.h"

namespace {

// What is asked about a layer after a command, in one line.
std::wstring stateOf(AcDbDatabase& database, const wchar_t* name)
{
    AcDbObjectPointer<AcDbLayerTable> table(database.layerTableId(), AcDb::kForRead);
    AcDbObjectId id;
    if (table->getAt(name, id) != Acad::eOk)
        return L"none";
    AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
    return std::wstring(layer->isOff() ? L"off" : L"on") + (layer->isFrozen() ? L" frozen" : L"") +
           (layer->isLocked() ? L" locked" : L"") + L" " +
           std::to_wstring(layer->color().colorIndex()) + L" " +
           std::to_wstring(layer->lineWeight());
}

std::wstring currentLayer()
{
    resbuf value;
    acedGetVar(L"CLAYER", value);
    return value.resval.rstring;
}

class LayerCommand : public DrawingTest {
protected:
    LayerCommand()
    {
        DxfDrawing drawing;
        drawing.layer("wall-a");
        drawing.layer("wall-b");
        drawing.layer("roof");
        drawing.line("roof");
        open(drawing);
        type(L"");
        printed();
    }
};

TEST_F(LayerCommand, AsksAsThePlatformDoes)
{
    EXPECT_EQ(
        transcript(L"-LAYER\nNew\nfloor\n\n"),
        L"-LAYER\n"
        L"Current layer:  \"0\"\n"
        L"Enter an option [?/Make/Set/New/ON/OFF/Color/Ltype/LWeight/Freeze/Thaw/LOck/Unlock]: "
        L"New\n"
        L"Enter name list for new layer(s): floor\n"
        L"Enter an option [?/Make/Set/New/ON/OFF/Color/Ltype/LWeight/Freeze/Thaw/LOck/Unlock]: \n"
        L"Command: ");
    EXPECT_EQ(stateOf(database(), L"floor"), L"on 7 -3");
}

TEST_F(LayerCommand, ChangesTheLayersOfNamesListsAndPatterns)
{
    const struct {
        const wchar_t* typed;
        const wchar_t* first;  // wall-a
        const wchar_t* second; // wall-b
        const wchar_t* third;  // roof
    } cases[] = {
        {L"-LAYER OFF wall-* \n", L"off 7 -3", L"off 7 -3", L"on 7 -3"},
        {L"_-LAYER _ON WALL-A,roof \n", L"on 7 -3", L"off 7 -3", L"on 7 -3"},
        {L"LAYER F * T roof,wall-a \n", L"on 7 -3", L"off frozen 7 -3", L"on 7 -3"},
        {L"-LAYER LO roof C red roof C 30 wall-? \n", L"on 30 -3", L"off frozen 30 -3",
         L"on locked 1 -3"},
        {L"-LAYER U * LW 0.26 * \n", L"on 30 25", L"off frozen 30 25", L"on 1 25"},
        {L"-LAYER LW Default roof LW 3 roof C 256 roof \n", L"on 30 25", L"off frozen 30 25",
         L"on 1 -3"},
    };
    for (const auto& row : cases) {
        type(row.typed);
        type(L"\x1b"); // what a refused value left open
        EXPECT_EQ(stateOf(database(), L"wall-a"), row.first) << row.typed;
        EXPECT_EQ(stateOf(database(), L"wall-b"), row.second);
        EXPECT_EQ(stateOf(database(), L"roof"), row.third);
    }
}

TEST_F(LayerCommand, MakesAndSetsTheCurrentLayer)
{
    type(L"-LAYER M \"two words\" \n");
    EXPECT_EQ(currentLayer(), L"two words");
    type(L"-LAYER S ROOF \n");
    EXPECT_EQ(currentLayer(), L"roof");
    type(L"-LAYER F wall-a S wall-a \n");
    EXPECT_EQ(currentLayer(), L"roof") << "a frozen layer cannot be the current one";
    EXPECT_NE(transcript(L"-LAYER S nowhere \n").find(L"Cannot find layer \"nowhere\".\n"),
              std::wstring::npos);
    EXPECT_EQ(currentLayer(), L"roof");
}

TEST_F(LayerCommand, KeepsTheCurrentLayerUsable)
{
    EXPECT_NE(transcript(L"-LAYER F 0 \n").find(L"Cannot freeze layer \"0\". It is the CURRENT"),
              std::wstring::npos);
    EXPECT_EQ(stateOf(database(), L"0"), L"on 7 -3");
    type(L"-LAYER OFF 0,roof N \n");
    EXPECT_EQ(stateOf(database(), L"0"), L"on 7 -3");
    EXPECT_EQ(stateOf(database(), L"roof"), L"off 7 -3");
    type(L"-LAYER OFF 0 Y \n");
    EXPECT_EQ(stateOf(database(), L"0"), L"off 7 -3");
}

TEST_F(LayerCommand, RefusesNamesThatNoLayerCanHave)
{
    EXPECT_NE(transcript(L"-LAYER N good,b|d,fine \n").find(L"Invalid layer name: b|d\n"),
              std::wstring::npos);
    EXPECT_EQ(stateOf(database(), L"b|d"), L"none");
    EXPECT_EQ(stateOf(database(), L"good"), L"on 7 -3");
    EXPECT_EQ(stateOf(database(), L"fine"), L"on 7 -3");
}

TEST_F(LayerCommand, TakesTheLayersOfSelectedEntities)
{
    type(L"-LAYER LOck\n\nALL\n\n\n");
    EXPECT_EQ(stateOf(database(), L"roof"), L"on locked 7 -3");
    EXPECT_EQ(stateOf(database(), L"wall-a"), L"on 7 -3");
}

TEST_F(LayerCommand, IsOneStepOfUndo)
{
    type(L"-LAYER N one,two OFF roof \nU\n");
    EXPECT_EQ(stateOf(database(), L"one"), L"none");
    EXPECT_EQ(stateOf(database(), L"roof"), L"on 7 -3");
    type(L"REDO\n");
    EXPECT_EQ(stateOf(database(), L"two"), L"on 7 -3");
    EXPECT_EQ(stateOf(database(), L"roof"), L"off 7 -3");
}

TEST_F(LayerCommand, ListsWhatMatches)
{
    const std::wstring told = transcript(L"-LAYER C 5 wall-a OFF wall-b ? wall* \n");
    EXPECT_NE(told.find(L"\"wall-a\"  on  5 (blue)  \"Continuous\"  Default\n"
                        L"\"wall-b\"  off  7 (white)  \"Continuous\"  Default\n"
                        L"Current layer: \"0\"\n"),
              std::wstring::npos)
        << std::string(told.begin(), told.end());
}

} // namespace
