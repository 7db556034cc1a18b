#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "host/db/dictionary.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/id_mapping.h"
#include "host/db/layout.h"
#include "host/db/layout_manager.h"
#include "host/db/line.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/db/text.h"
#include "host/db/xrecord.h"
#include "host/io/new_drawing.h"
#include "tests/host/io/independent_proof.h"
#include "tests/support/drawing_text.h"

#include <algorithm>

using host::DxfVersion;
using host::test::DrawingText;
using host::test::proofAvailable;
using host::test::proofOf;

namespace {

std::string block(const std::string& name, const std::string& record, const std::string& entities)
{
    return "0 BLOCK|5 A" + record + "|330 " + record + "|100 AcDbEntity|8 Frames|100 " +
           "AcDbBlockBegin|2 " + name + "|70 0|10 1.0|20 2.0|30 0.0|3 " + name + "|1 |4 A " + name +
           entities + "|0 ENDBLK|5 B" + record + "|330 " + record +
           "|100 AcDbEntity|8 0|100 AcDbBlockEnd|";
}

std::string record(const std::string& type, const std::string& handle, const std::string& table,
                   const std::string& marker, const std::string& fields)
{
    return "0 " + type + (type == "DIMSTYLE" ? "|105 " : "|5 ") + handle + "|330 " + table +
           "|100 AcDbSymbolTableRecord|100 " + marker + "|" + fields + "|";
}

std::string table(const std::string& name, const std::string& handle, const std::string& records)
{
    return "0 TABLE|2 " + name + "|5 " + handle + "|330 0|100 AcDbSymbolTable|70 9|" + records +
           "0 ENDTAB|";
}

// A block "Tree" that needs a linetype, layers, a text style, a nested block with attributes, an
// associative hatch, a dimension with its block and style, and data of an application.
std::string garden(DxfVersion version)
{
    const std::string blockMarker = "AcDbBlockTableRecord";
    DrawingText text;
    text.version = version;
    text.tables = table("LTYPE", "5",
                        record("LTYPE", "50", "5", "AcDbLinetypeTableRecord",
                               "2 Dashes|70 0|3 |72 65|73 2|40 2.0|49 1.0|74 0|49 -1.0|74 0")) +
                  table("LAYER", "2",
                        record("LAYER", "51", "2", "AcDbLayerTableRecord",
                               "2 Trees|70 0|62 3|6 Dashes|370 -3") +
                            record("LAYER", "52", "2", "AcDbLayerTableRecord",
                                   "2 Unused|70 0|62 4|6 Continuous") +
                            record("LAYER", "53", "2", "AcDbLayerTableRecord",
                                   "2 Frames|70 0|62 5|6 Continuous")) +
                  table("STYLE", "3",
                        record("STYLE", "54", "3", "AcDbTextStyleTableRecord",
                               "2 Slim|70 0|40 0.0|41 0.5|50 0.0|71 0|42 2.5|3 txt|4 ")) +
                  table("APPID", "9",
                        record("APPID", "55", "9", "AcDbRegAppTableRecord", "2 GARDENER|70 0")) +
                  table("DIMSTYLE", "A",
                        record("DIMSTYLE", "56", "A", "AcDbDimStyleTableRecord",
                               "2 Small|70 0|41 1.5|340 54|342 62")) +
                  table("BLOCK_RECORD", "1",
                        record("BLOCK_RECORD", "1F", "1", blockMarker, "2 *Model_Space|340 0") +
                            record("BLOCK_RECORD", "1B", "1", blockMarker, "2 *Paper_Space|340 0") +
                            record("BLOCK_RECORD", "60", "1", blockMarker, "2 Tree|340 0") +
                            record("BLOCK_RECORD", "61", "1", blockMarker, "2 Leaf|340 0") +
                            record("BLOCK_RECORD", "62", "1", blockMarker, "2 Tick|340 0") +
                            record("BLOCK_RECORD", "63", "1", blockMarker, "2 *D7|340 0") +
                            record("BLOCK_RECORD", "64", "1", blockMarker, "2 Alone|340 0"));
    const std::string entity = "|100 AcDbEntity|8 ";
    const std::string line =
        "|0 LINE|5 C1|330 63" + entity + "0|100 AcDbLine|10 0.0|20 0.0|30 0.0|11 1.0|21 0.0|31 0.0";
    text.blocks =
        block("*Model_Space", "1F", "") + block("*Paper_Space", "1B", "") +
        block(
            "Tree", "60",
            "|0 CIRCLE|5 70|102 {ACAD_REACTORS|330 71|102 }|330 60" + entity +
                "Trees|100 AcDbCircle|10 0.0|20 0.0|30 0.0|40 3.0|1001 GARDENER|1000 oak|1003 "
                "Trees|1005 76"
                "|0 HATCH|5 71|330 60" +
                entity +
                "Trees|100 AcDbHatch|10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 "
                "1|91 1|92 1|93 1|72 2|10 0.0|20 0.0|40 3.0|50 0.0|51 360.0|73 1|97 2|330 70|330 "
                "90|75 0|76 1|98 0"
                "|0 INSERT|5 72|330 60" +
                entity +
                "Trees|100 AcDbBlockReference|66 1|2 Leaf|10 0.0|20 0.0|30 0.0"
                "|0 ATTRIB|5 73|330 72" +
                entity +
                "Trees|100 AcDbText|10 0.0|20 0.0|30 0.0|40 1.0|1 green|7 Slim|100 "
                "AcDbAttribute|280 0|2 COLOUR|70 0"
                "|0 SEQEND|5 74|330 72" +
                entity +
                "Trees"
                "|0 DIMENSION|5 75|330 60" +
                entity +
                "0|100 AcDbDimension|2 *D7|10 0.0|20 0.0|30 0.0|11 0.0|21 0.0|31 0.0|70 32|71 5|1 "
                "|3 Small|100 AcDbAlignedDimension|13 0.0|23 0.0|33 0.0|14 1.0|24 0.0|34 0.0|100 "
                "AcDbRotatedDimension"
                "|0 TEXT|5 76|102 {ACAD_XDICTIONARY|360 80|102 }|330 60" +
                entity +
                "0|6 Dashes|100 AcDbText|10 0.0|20 0.0|30 0.0|40 1.0|1 Oak|7 Slim|100 AcDbText") +
        block("Leaf", "61",
              "|0 ATTDEF|5 77|330 61" + entity +
                  "0|100 AcDbText|10 0.0|20 0.0|30 0.0|40 1.0|1 |7 Slim|100 "
                  "AcDbAttributeDefinition|280 0|3 Which?|2 COLOUR|70 0") +
        block("Tick", "62", "") + block("*D7", "63", line) + block("Alone", "64", "");
    text.entities = "0 POINT|5 90|330 1F" + entity +
                    "0|100 AcDbPoint|10 5.0|20 5.0|30 0.0|0 INSERT|5 91|330 1F" + entity +
                    "Trees|100 AcDbBlockReference|2 Tree|10 7.0|20 0.0|30 0.0";
    text.objects =
        "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|3 ACAD_MLINESTYLE|350 D0|3 "
        "ACAD_LAYOUT|350 D2"
        "|0 DICTIONARY|5 80|330 76|100 AcDbDictionary|280 1|281 1|3 DATA|360 81"
        "|0 XRECORD|5 81|102 {ACAD_REACTORS|330 80|102 }|330 80|100 AcDbXrecord|280 1|1 "
        "text|8 Unused|330 70|340 51|330 90|320 70"
        "|0 DICTIONARY|5 D0|330 C|100 AcDbDictionary|281 1|3 ROAD|350 D1"
        "|0 MLINESTYLE|5 D1|102 {ACAD_REACTORS|330 D0|102 }|330 D0|100 AcDbMlineStyle|2 ROAD|70 "
        "0|3 |62 256|51 90.0|52 90.0|71 2|49 0.5|62 256|6 Dashes|49 -0.5|62 256|6 BYLAYER"
        "|0 DICTIONARY|5 D2|330 C|100 AcDbDictionary|281 1|3 Model|350 D3|3 Sheet|350 D4"
        "|0 LAYOUT|5 D3|330 D2|100 AcDbPlotSettings|1 |70 1024|100 AcDbLayout|1 Model|70 1|71 "
        "0|330 1F"
        "|0 LAYOUT|5 D4|330 D2|100 AcDbPlotSettings|1 |70 0|100 AcDbLayout|1 Sheet|70 1|71 1|330 "
        "1B";
    return text.text();
}

std::string newDrawing(std::string_view version = "AC1032")
{
    std::string text = host::newDrawingText();
    return text.replace(text.find("AC1032"), 6, version);
}

template <class T> AcDbObjectPointer<T> openFor(AcDbObjectId id, AcDb::OpenMode mode)
{
    AcDbObjectPointer<T> object(id, mode);
    EXPECT_EQ(object.openStatus(), Acad::eOk);
    return object;
}

AcDbObjectId symbol(ReadDrawing& drawing, const char* table, std::wstring_view name)
{
    return host::findSymbol(drawing.drawing(), table, name);
}

AcDbObjectId addLayer(ReadDrawing& drawing, const wchar_t* name, int color)
{
    auto layers = openFor<AcDbLayerTable>(drawing.database().layerTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbLayerTableRecord> layer;
    layer.create();
    layer->setName(name);
    AcCmColor own;
    own.setColorIndex(static_cast<std::uint16_t>(color));
    layer->setColor(own);
    AcDbObjectId id;
    EXPECT_EQ(layers->add(id, layer.object()), Acad::eOk);
    return id;
}

AcDbObjectId addBlock(ReadDrawing& drawing, const wchar_t* name, int lines = 0)
{
    auto blocks = openFor<AcDbBlockTable>(drawing.database().blockTableId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTableRecord> made;
    made.create();
    made->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(blocks->add(id, made.object()), Acad::eOk);
    for (; lines > 0; --lines) {
        AcDbObjectPointer<AcDbLine> line;
        line.create();
        EXPECT_EQ(made->appendAcDbEntity(line.object()), Acad::eOk);
    }
    return id;
}

void addInsert(ReadDrawing& drawing, AcDbObjectId block)
{
    auto space = openFor<AcDbBlockTableRecord>(drawing.database().modelSpaceId(), AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockReference> reference;
    reference.create();
    reference->setBlockTableRecord(block);
    EXPECT_EQ(space->appendAcDbEntity(reference.object()), Acad::eOk);
}

int colorOf(AcDbObjectId layer)
{
    return openFor<AcDbLayerTableRecord>(layer, AcDb::kForRead)->color().colorIndex();
}

std::size_t entityCount(ReadDrawing& drawing, AcDbObjectId block)
{
    const std::vector<std::uint32_t>& all = drawing.drawing().blocks[block.stubNumber()].entities;
    return static_cast<std::size_t>(std::count_if(all.begin(), all.end(), [&](std::uint32_t stub) {
        return !drawing.drawing().id(stub).isErased();
    }));
}

void expectSound(ReadDrawing& drawing, const char* proof)
{
    const std::string bytes = drawing.written();
    ReadDrawing again(bytes);
    EXPECT_TRUE(again.database().warnings().empty());
    if (proofAvailable()) {
        EXPECT_EQ(proofOf(bytes), proof);
    }
}

class Cloning : public testing::Test {
protected:
    Acad::ErrorStatus clone(std::initializer_list<const char*> handles, AcDbObjectId owner,
                            AcDb::DuplicateRecordCloning rule = AcDb::kDrcIgnore)
    {
        std::vector<AcDbObjectId> ids;
        for (const char* handle : handles)
            ids.push_back(from_.idOf(handle));
        return to_.database().wblockCloneObjects(ids, owner, mapping_, rule);
    }
    AcDbObjectId copyOf(const char* handle) { return mapping_.valueOf(from_.idOf(handle)); }

    ReadDrawing from_{garden(DxfVersion::r2000)};
    ReadDrawing to_{newDrawing()};
    AcDbIdMapping mapping_;
};

TEST_F(Cloning, BlockBringsAllThatItNeedsAndNothingElse)
{
    addBlock(to_, L"*D");
    ASSERT_EQ(clone({"60"}, to_.database().blockTableId()), Acad::eOk);
    const AcDbObjectId tree = symbol(to_, "BLOCK_RECORD", L"tree");
    EXPECT_EQ(tree, copyOf("60"));
    EXPECT_EQ(entityCount(to_, tree), 5u);
    for (const auto& [table, name] : {std::pair{"LTYPE", L"Dashes"},
                                      {"LAYER", L"Trees"},
                                      {"LAYER", L"Frames"},
                                      {"STYLE", L"Slim"},
                                      {"APPID", L"GARDENER"},
                                      {"DIMSTYLE", L"Small"},
                                      {"BLOCK_RECORD", L"Leaf"},
                                      {"BLOCK_RECORD", L"Tick"},
                                      {"BLOCK_RECORD", L"*D2"}})
        EXPECT_FALSE(symbol(to_, table, name).isNull()) << host::toUtf8(name);
    EXPECT_TRUE(symbol(to_, "LAYER", L"Unused").isNull());
    EXPECT_TRUE(symbol(to_, "BLOCK_RECORD", L"Alone").isNull());

    const auto record = openFor<AcDbBlockTableRecord>(tree, AcDb::kForRead);
    EXPECT_EQ(record->origin(), AcGePoint3d(1, 2, 0));
    EXPECT_EQ(record->comments(), L"A Tree");
    EXPECT_EQ(entityCount(to_, to_.database().modelSpaceId()), 0u);

    addInsert(to_, tree);
    expectSound(to_, "AC1032 1 0 0\n");
}

TEST_F(Cloning, EveryReferenceLandsInTheDrawing)
{
    addBlock(to_, L"*D");
    ASSERT_EQ(clone({"60"}, to_.database().blockTableId()), Acad::eOk);
    for (const AcDbIdPair& pair : mapping_.pairs())
        EXPECT_TRUE(!pair.isCloned() || pair.value().database() == &to_.database());

    const auto hatch = openFor<AcDbHatch>(copyOf("71"), AcDb::kForRead);
    EXPECT_EQ(hatch->getAssocObjIds(), std::vector<AcDbObjectId>{copyOf("70")});
    ASSERT_EQ(hatch->loops().size(), 1u); // the point that stayed behind is no source any more
    EXPECT_EQ(hatch->loops()[0].sources.size(), 1u);
    const auto circle = openFor<AcDbCircle>(copyOf("70"), AcDb::kForRead);
    EXPECT_EQ(circle->persistentReactors(), std::vector<AcDbObjectId>{copyOf("71")});
    const ResbufChain data = circle->xData(L"GARDENER");
    ASSERT_EQ(data.size(), 4u);
    EXPECT_EQ(host::toUtf8(data[3].resval.rstring), handleText(copyOf("76")));
    const auto dimension = openFor<AcDbDimension>(copyOf("75"), AcDb::kForRead);
    EXPECT_EQ(dimension->dimBlockId(), copyOf("63"));
    EXPECT_EQ(dimension->dimensionStyle(), copyOf("56"));
    EXPECT_NE(to_.record(copyOf("56")).find("342\n" + handleText(copyOf("62")) + "\n"),
              std::string::npos);
    const auto insert = openFor<AcDbBlockReference>(copyOf("72"), AcDb::kForRead);
    EXPECT_EQ(insert->blockTableRecord(), copyOf("61"));
    const auto attribute = openFor<AcDbAttribute>(copyOf("73"), AcDb::kForRead);
    EXPECT_EQ(attribute->ownerId(), copyOf("72"));
    EXPECT_EQ(attribute->textString(), L"green");
    const auto text = openFor<AcDbText>(copyOf("76"), AcDb::kForRead);
    EXPECT_EQ(text->extensionDictionary(), copyOf("80"));

    ResbufChain chain;
    openFor<AcDbXrecord>(copyOf("81"), AcDb::kForRead)->rbChain(chain);
    ASSERT_EQ(chain.size(), 6u);
    const std::string values[] = {
        "text", "Unused", handleText(copyOf("70")), handleText(copyOf("51")), "0", "70"};
    for (std::size_t i = 0; i < chain.size(); ++i)
        EXPECT_EQ(host::toUtf8(chain[i].resval.rstring), values[i]) << i;
}

TEST_F(Cloning, RecordsOfTheSameNameAreTheDrawingsOwn)
{
    const AcDbObjectId trees = addLayer(to_, L"TREES", 1);
    const AcDbObjectId leaf = addBlock(to_, L"leaf", 3);
    ASSERT_EQ(clone({"60"}, to_.database().blockTableId()), Acad::eOk);
    EXPECT_EQ(copyOf("51"), trees);
    EXPECT_EQ(colorOf(trees), 1);
    EXPECT_EQ(entityCount(to_, leaf), 3u);
    AcDbIdPair pair(from_.idOf("51"), {}, true, true);
    ASSERT_TRUE(mapping_.compute(pair));
    EXPECT_FALSE(pair.isCloned());
    EXPECT_FALSE(pair.isPrimary());
    EXPECT_FALSE(symbol(to_, "LTYPE", L"Dashes").isNull()); // a text names it too
    EXPECT_EQ(openFor<AcDbBlockReference>(copyOf("72"), AcDb::kForRead)->blockTableRecord(), leaf);

    // once more: everything is there
    const std::size_t count = to_.drawing().index.count();
    ASSERT_EQ(clone({"60", "51", "53"}, to_.database().blockTableId()), Acad::eInvalidInput);
    ASSERT_EQ(clone({"60"}, to_.database().blockTableId()), Acad::eOk);
    ASSERT_EQ(clone({"51", "53"}, to_.database().layerTableId()), Acad::eOk);
    EXPECT_EQ(to_.drawing().index.count(), count);
    expectSound(to_, "AC1032 0 0 0\n");
}

TEST_F(Cloning, ReplacingTakesContentsOverAndKeepsTheRecord)
{
    const AcDbObjectId trees = addLayer(to_, L"TREES", 1);
    const AcDbObjectId leaf = addBlock(to_, L"leaf", 3);
    addInsert(to_, leaf);
    const std::string handle = handleText(leaf);
    ASSERT_EQ(clone({"60"}, to_.database().blockTableId(), AcDb::kDrcReplace), Acad::eOk);
    EXPECT_EQ(copyOf("61"), leaf);
    EXPECT_EQ(handleText(leaf), handle);
    EXPECT_EQ(colorOf(trees), 3);
    EXPECT_EQ(openFor<AcDbLayerTableRecord>(trees, AcDb::kForRead)->name(), L"TREES");
    EXPECT_EQ(entityCount(to_, leaf), 1u); // the attribute definition
    EXPECT_TRUE(openFor<AcDbBlockTableRecord>(leaf, AcDb::kForRead)->hasAttributeDefinitions());
    expectSound(to_, "AC1032 1 0 0\n");
}

TEST_F(Cloning, EntitiesGoIntoABlock)
{
    const AcDbObjectId garden = addBlock(to_, L"Garden");
    ASSERT_EQ(clone({"90", "91"}, garden, AcDb::kDrcReplace), Acad::eOk);
    EXPECT_EQ(entityCount(to_, garden), 2u);
    EXPECT_EQ(openFor<AcDbEntity>(copyOf("90"), AcDb::kForRead)->ownerId(), garden);
    EXPECT_EQ(openFor<AcDbBlockReference>(copyOf("91"), AcDb::kForRead)->blockTableRecord(),
              symbol(to_, "BLOCK_RECORD", L"Tree"));
    EXPECT_EQ(copyOf("1F"), garden); // what referred to the space refers to the block
    addInsert(to_, garden);
    expectSound(to_, "AC1032 1 0 0\n");
}

TEST_F(Cloning, EntriesOfDictionariesBringTheDictionary)
{
    const AcDbObjectId styles = host::standardDictionary(to_.drawing(), L"ACAD_MLINESTYLE");
    ASSERT_EQ(clone({"D1"}, styles), Acad::eOk);
    const auto dictionary = openFor<AcDbDictionary>(styles, AcDb::kForRead);
    AcDbObjectId road;
    ASSERT_EQ(dictionary->getAt(L"Road", road), Acad::eOk);
    EXPECT_EQ(road, copyOf("D1"));
    EXPECT_EQ(openFor<AcDbMlineStyle>(road, AcDb::kForRead)->persistentReactors(),
              std::vector<AcDbObjectId>{styles});
    EXPECT_FALSE(symbol(to_, "LTYPE", L"Dashes").isNull());
    expectSound(to_, "AC1032 0 0 0\n");
}

TEST_F(Cloning, LayoutsGetABlockAndATab)
{
    const AcDbObjectId layouts = to_.database().layoutDictionaryId();
    ASSERT_EQ(clone({"D3", "D4"}, layouts), Acad::eOk);
    const auto sheet = openFor<AcDbLayout>(copyOf("D4"), AcDb::kForRead);
    EXPECT_EQ(sheet->getLayoutName(), L"Sheet");
    EXPECT_EQ(sheet->getTabOrder(), 2);
    const auto space =
        openFor<AcDbBlockTableRecord>(sheet->getBlockTableRecordId(), AcDb::kForRead);
    EXPECT_EQ(space->name(), L"*Paper_Space0");
    AcDbIdPair model(from_.idOf("D3"), {}, true, false);
    ASSERT_TRUE(mapping_.compute(model));
    EXPECT_FALSE(model.isCloned());
    expectSound(to_, "AC1032 0 0 0\n");
}

TEST_F(Cloning, RefusesWhatHasNoPlaceAndChangesNothing)
{
    ReadDrawing third(newDrawing());
    const AcDbObjectId blocks = to_.database().blockTableId();
    const AcDbObjectId layers = to_.database().layerTableId();
    const AcDbObjectId space = to_.database().modelSpaceId();
    struct Row {
        const char* title;
        std::vector<AcDbObjectId> ids;
        AcDbObjectId owner;
        AcDb::DuplicateRecordCloning rule = AcDb::kDrcIgnore;
    };
    const Row rows[] = {
        {"a layer into the blocks", {from_.idOf("51")}, blocks},
        {"an entity into a table", {from_.idOf("90")}, layers},
        {"a layer into a space", {from_.idOf("51")}, space},
        {"an attribute by itself", {from_.idOf("73")}, space},
        {"a space", {from_.idOf("1F"), from_.idOf("1B")}, layers},
        {"an owner elsewhere", {from_.idOf("51")}, third.database().layerTableId()},
        {"objects of its own", {to_.database().layerZero()}, layers},
        {"objects of two drawings", {from_.idOf("51"), third.database().layerZero()}, layers},
        {"no owner", {from_.idOf("51")}, {}},
        {"another rule", {from_.idOf("51")}, layers, AcDb::kDrcNotApplicable},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.title);
        AcDbIdMapping mapping;
        EXPECT_EQ(to_.database().wblockCloneObjects(row.ids, row.owner, mapping, row.rule),
                  Acad::eInvalidInput);
    }
    const auto held = openFor<AcDbLayerTable>(layers, AcDb::kForRead);
    EXPECT_EQ(clone({"51"}, layers), Acad::eWasOpenForRead);
    EXPECT_FALSE(to_.database().isModified());
}

TEST(CloningAcrossVersions, KeepsDrawingsSound)
{
    if (!proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    constexpr DxfVersion kVersions[] = {DxfVersion::r14, DxfVersion::r2000, DxfVersion::r2007,
                                        DxfVersion::r2018};
    for (const DxfVersion source : kVersions)
        for (const char* const target : {"AC1015", "AC1024", "AC1032"}) {
            SCOPED_TRACE(std::to_string(static_cast<int>(source)) + " to " + target);
            ReadDrawing from(garden(source));
            ReadDrawing to(newDrawing(target));
            AcDbIdMapping mapping;
            ASSERT_EQ(to.database().wblockCloneObjects({from.idOf("60")},
                                                       to.database().blockTableId(), mapping,
                                                       AcDb::kDrcIgnore),
                      Acad::eOk);
            addInsert(to, mapping.valueOf(from.idOf("60")));
            expectSound(to, (target + std::string(" 1 0 0\n")).c_str());
        }
}

TEST(CloningAcrossVersions, WhatR12LacksRaisesTheDrawing)
{
    if (!proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    DrawingText plain;
    plain.version = DxfVersion::r12;
    plain.entities = "0 LINE|5 A0|8 0|10 0.0|20 0.0|11 1.0|21 0.0";
    ReadDrawing from(garden(DxfVersion::r2018));
    ReadDrawing to(plain.text());
    AcDbIdMapping mapping;
    ASSERT_EQ(to.database().wblockCloneObjects({from.idOf("60")}, to.database().blockTableId(),
                                               mapping, AcDb::kDrcIgnore),
              Acad::eOk);
    addInsert(to, mapping.valueOf(from.idOf("60")));
    const std::string bytes = to.written();
    EXPECT_EQ(proofOf(bytes), "AC1015 2 0 0\n");
    ReadDrawing raised(bytes);
    const AcDbObjectId tree = symbol(raised, "BLOCK_RECORD", L"Tree");
    ASSERT_EQ(entityCount(raised, tree), 5u);
    const auto hatch = openFor<AcDbHatch>(
        raised.drawing().id(raised.drawing().blocks[tree.stubNumber()].entities[1]),
        AcDb::kForRead);
    EXPECT_EQ(hatch->getAssocObjIds().size(), 1u);
}

TEST(CloningAcrossVersions, TypesThatNobodyMakesBringTheirClass)
{
    std::string text = garden(DxfVersion::r2018);
    text.insert(text.find("0\nSECTION\n2\nTABLES"),
                host::test::dxf("0 SECTION|2 CLASSES|0 CLASS|1 BUSH|2 GardenBush|3 "
                                "Gardener|90 0|91 1|280 0|281 1|0 ENDSEC"));
    text.insert(text.find("0\nCIRCLE"),
                host::test::dxf("0 BUSH|5 78|330 60|100 AcDbEntity|8 Trees|100 GardenBush|40 1.0"));
    for (const char* const version : {"AC1032", "AC1009"}) {
        SCOPED_TRACE(version);
        ReadDrawing from(text);
        DrawingText plain;
        plain.version = DxfVersion::r12;
        plain.entities = "0 LINE|5 A0|8 0|10 0.0|20 0.0|11 1.0|21 0.0";
        ReadDrawing to(version == std::string_view("AC1009") ? plain.text() : newDrawing());
        AcDbIdMapping mapping;
        ASSERT_EQ(to.database().wblockCloneObjects({from.idOf("60")}, to.database().blockTableId(),
                                                   mapping, AcDb::kDrcIgnore),
                  Acad::eOk);
        const std::string bytes = to.written();
        const std::size_t place = bytes.find("GardenBush\n");
        ASSERT_NE(place, std::string::npos);
        EXPECT_LT(place, bytes.find("TABLES\n"));
        EXPECT_NE(bytes.find("GardenBush\n", bytes.find("TABLES\n")), std::string::npos);
    }
}

TEST(CloningAcrossVersions, OldDrawingsGiveAndTake)
{
    if (!proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    DrawingText old;
    old.version = DxfVersion::r12;
    old.tables = "0 TABLE|2 LAYER|70 1|0 LAYER|2 Trees|70 0|62 3|6 CONTINUOUS|0 ENDTAB|"
                 "0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 Small|70 0|5 TICK|41 1.5|0 ENDTAB";
    old.blocks = "0 BLOCK|8 0|2 TICK|70 0|10 0.0|20 0.0|30 0.0|0 ENDBLK|8 0|"
                 "0 BLOCK|8 0|2 *D1|70 1|10 0.0|20 0.0|30 0.0|0 LINE|8 0|10 0.0|20 0.0|11 1.0|21 "
                 "0.0|0 ENDBLK|8 0|"
                 "0 BLOCK|8 0|2 TREE|70 2|10 0.0|20 0.0|30 0.0|"
                 "0 DIMENSION|8 Trees|2 *D1|3 Small|70 0|10 0.0|20 0.0|11 0.0|21 0.0|13 0.0|23 "
                 "0.0|14 1.0|24 0.0|"
                 "0 ATTDEF|8 Trees|10 0.0|20 0.0|40 1.0|1 |3 Which?|2 KIND|70 0|"
                 "0 POLYLINE|8 Trees|66 1|10 0.0|20 0.0|0 VERTEX|8 Trees|10 0.0|20 0.0|0 VERTEX|8 "
                 "Trees|10 1.0|20 0.0|0 SEQEND|8 Trees|0 ENDBLK|8 0";
    ReadDrawing from(old.text());
    ReadDrawing to(newDrawing());
    const AcDbObjectId tree = symbol(from, "BLOCK_RECORD", L"TREE");
    AcDbIdMapping mapping;
    ASSERT_EQ(to.database().wblockCloneObjects({tree}, to.database().blockTableId(), mapping,
                                               AcDb::kDrcIgnore),
              Acad::eOk);
    const AcDbObjectId copy = mapping.valueOf(tree);
    EXPECT_EQ(entityCount(to, copy), 3u);
    EXPECT_NE(to.record(symbol(to, "DIMSTYLE", L"Small"))
                  .find("342\n" + handleText(symbol(to, "BLOCK_RECORD", L"Tick"))),
              std::string::npos);
    addInsert(to, copy);
    expectSound(to, "AC1032 1 0 0\n");

    // and back into another old drawing
    DrawingText plain;
    plain.version = DxfVersion::r12;
    plain.entities = "0 LINE|8 0|10 0.0|20 0.0|11 1.0|21 0.0";
    ReadDrawing back(plain.text());
    AcDbIdMapping again;
    ASSERT_EQ(back.database().wblockCloneObjects({copy}, back.database().blockTableId(), again,
                                                 AcDb::kDrcIgnore),
              Acad::eOk);
    addInsert(back, again.valueOf(copy));
    const std::string style = back.record(symbol(back, "DIMSTYLE", L"Small"));
    EXPECT_NE(style.find("\n5\nTICK\n"), std::string::npos) << style;
    EXPECT_EQ(style.find("342\n"), std::string::npos) << style;
    // ezdxf drops a SEQEND that it makes itself for any polyline in a block of R12
    EXPECT_TRUE(proofOf(back.written()).starts_with("AC1009 2 0 "));
}

} // namespace
