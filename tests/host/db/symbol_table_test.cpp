#include "host/db/symbol_tables.h"

#include "host/db/object_pointer.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

template <class Table>
std::unique_ptr<AcDbObjectPointer<Table>> tableOf(AcDbDatabase& database, AcDb::OpenMode mode)
{
    Table* table = nullptr;
    EXPECT_EQ(database.getSymbolTable(table, mode), Acad::eOk);
    auto pointer = std::make_unique<AcDbObjectPointer<Table>>();
    pointer->acquire(table);
    return pointer;
}

Acad::ErrorStatus addLayer(AcDbDatabase& database, const wchar_t* name, AcDbObjectId& id)
{
    const auto table = tableOf<AcDbLayerTable>(database, AcDb::kForWrite);
    AcDbObjectPointer<AcDbLayerTableRecord> layer;
    layer.create();
    if (*name)
        layer->setName(name);
    return (*table)->add(id, layer.object());
}

std::string threeLayers()
{
    DxfDrawing drawing;
    drawing.layer("Roads", 0, 1);  // 100
    drawing.layer("ROADS", 4, 2);  // 101
    drawing.layer("water", 5, -5); // 102
    drawing.line("water");
    drawing.line("roads");
    return drawing.text();
}

TEST(SymbolTable, FindsNamesWithoutCaseAndTheFirstOfAName)
{
    ReadDrawing read(threeLayers());
    const auto table = tableOf<AcDbLayerTable>(read.database(), AcDb::kForRead);
    const std::pair<const wchar_t*, const char*> rows[] = {{L"roads", "100"}, {L"Roads", "100"},
                                                           {L"WATER", "102"}, {L"0", "10"},
                                                           {L"", ""},         {L"rail", ""}};
    for (const auto& [name, handle] : rows) {
        SCOPED_TRACE(host::toUtf8(name));
        AcDbObjectId id;
        EXPECT_EQ((*table)->getAt(name, id), *handle ? Acad::eOk : Acad::eKeyNotFound);
        EXPECT_EQ(id, read.idOf(handle));
    }
    int count = 0;
    for (const auto walk = (*table)->newIterator(); !walk->done(); walk->step())
        ++count;
    EXPECT_EQ(count, 4); // the second "ROADS" is there, it only has no name of its own
}

TEST(SymbolTable, LayerStatesFollowTheRecordAndItsChanges)
{
    ReadDrawing read(threeLayers());
    host::Drawing& drawing = read.drawing();
    const auto stateOf = [&](const char* bytes) {
        return host::layerState(drawing, drawing.index.layers().number(bytes));
    };
    EXPECT_TRUE(stateOf("water").frozen && stateOf("water").locked && stateOf("water").off);
    EXPECT_FALSE(stateOf("roads").locked); // the first of the name counts
    EXPECT_TRUE(stateOf("roads").visible());
    EXPECT_EQ(host::layerName(drawing, drawing.index.layers().number("roads")), L"Roads");
    EXPECT_EQ(host::layerRecord(drawing, 0), read.database().layerZero());

    drawing.undo.beginGroup(L"LAYER");
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(read.idOf("102"), AcDb::kForWrite);
        layer->setIsLocked(false);
        EXPECT_FALSE(stateOf("water").locked); // while it is open
        layer->setIsOff(false);
        layer->setIsFrozen(false);
    }
    drawing.undo.endGroup(drawing);
    EXPECT_TRUE(stateOf("water").visible());
    EXPECT_FALSE(host::layerIsLocked(drawing, drawing.index.layers().number("water")));
    drawing.undo.undo(drawing);
    EXPECT_TRUE(stateOf("water").frozen && stateOf("water").locked && stateOf("water").off);
}

TEST(SymbolTable, ALayerThatIsOffKeepsItsColour)
{
    ReadDrawing read(threeLayers());
    AcDbObjectPointer<AcDbLayerTableRecord> layer(read.idOf("102"), AcDb::kForWrite);
    EXPECT_EQ(layer->color().colorIndex(), 5);
    AcCmColor green;
    green.setColorIndex(3);
    EXPECT_EQ(layer->setColor(green), Acad::eOk);
    EXPECT_TRUE(layer->isOff());
    AcCmColor orange;
    orange.setRGB(255, 127, 0);
    EXPECT_EQ(layer->setColor(orange), Acad::eOk);
    EXPECT_TRUE(layer->isOff());
    EXPECT_EQ(layer->color().colorIndex(), 30);
    EXPECT_TRUE(layer->color() == orange);
    EXPECT_EQ(layer->setColor(AcCmColor()), Acad::eInvalidInput); // by layer
    EXPECT_EQ(layer->setIsOff(false), Acad::eOk);
    EXPECT_EQ(layer->setColor(green), Acad::eOk);
    layer.close();
    const std::string text = read.record(read.idOf("102"));
    EXPECT_EQ(text.find("420"), std::string::npos);
    EXPECT_NE(text.find("62\n3\n"), std::string::npos);
}

TEST(SymbolTable, AddsACompleteRecordAndRefusesNames)
{
    ReadDrawing read(threeLayers());
    AcDbObjectId id;
    EXPECT_EQ(addLayer(read.database(), L"", id), Acad::eInvalidKey);
    EXPECT_EQ(addLayer(read.database(), L"rOADS", id), Acad::eDuplicateKey);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(read.written(), threeLayers());
    ASSERT_EQ(addLayer(read.database(), L"Rail", id), Acad::eOk);
    EXPECT_EQ(read.record(id),
              "0\nLAYER\n5\n" + handleText(id) +
                  "\n330\n2\n100\nAcDbSymbolTableRecord\n100\nAcDbLayerTableRecord\n"
                  "2\nRail\n70\n0\n62\n7\n6\nContinuous\n370\n-3\n");
    EXPECT_EQ(addLayer(read.database(), L"RAIL", id), Acad::eDuplicateKey);
    ReadDrawing again(read.written());
    EXPECT_FALSE(host::findSymbol(again.drawing(), "LAYER", L"rail").isNull());
}

TEST(SymbolTable, ARecordOfAnotherTableIsRefused)
{
    ReadDrawing read(threeLayers());
    const auto table = tableOf<AcDbLinetypeTable>(read.database(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbLayerTableRecord> layer;
    layer.create();
    layer->setName(L"Rail");
    AcDbObjectId id;
    EXPECT_EQ((*table)->add(id, layer.object()), Acad::eWrongObjectType);
}

TEST(SymbolTable, NamesFollowRenamingErasingAndUndo)
{
    ReadDrawing read(threeLayers());
    host::Drawing& drawing = read.drawing();
    const auto find = [&](const wchar_t* name) { return host::findSymbol(drawing, "LAYER", name); };
    drawing.undo.beginGroup(L"RENAME");
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(read.idOf("100"), AcDb::kForWrite);
        EXPECT_EQ(layer->setName(L"WATER"), Acad::eDuplicateKey);
        EXPECT_EQ(layer->setName(L""), Acad::eInvalidKey);
        EXPECT_EQ(layer->setName(L"Streets"), Acad::eOk);
    }
    {
        AcDbObjectPointer<AcDbLayerTableRecord> layer(read.idOf("102"), AcDb::kForWrite);
        EXPECT_EQ(layer->erase(), Acad::eOk);
    }
    drawing.undo.endGroup(drawing);
    EXPECT_EQ(find(L"streets"), read.idOf("100"));
    EXPECT_EQ(find(L"roads"), read.idOf("101")); // now the first of the name
    EXPECT_TRUE(find(L"water").isNull());
    drawing.undo.undo(drawing);
    EXPECT_EQ(find(L"roads"), read.idOf("100"));
    EXPECT_EQ(find(L"water"), read.idOf("102"));
    EXPECT_TRUE(find(L"streets").isNull());
    EXPECT_EQ(read.written(), threeLayers());
}

TEST(SymbolTable, RecordWithoutItsClassMarkerHasItsNameAllTheSame)
{
    std::string text = threeLayers();
    const std::string marker = "100\nAcDbLayerTableRecord\n2\nwater\n";
    text.replace(text.find(marker), marker.size(), "2\nwater\n");
    ReadDrawing read(text);
    EXPECT_EQ(host::findSymbol(read.drawing(), "LAYER", L"water"), read.idOf("102"));
    AcDbObjectPointer<AcDbLayerTableRecord> layer(read.idOf("102"), AcDb::kForRead);
    EXPECT_EQ(layer->name(), L"water");
}

} // namespace
