#include "host/db/implicit_objects.h"

#include "host/db/block_table.h"
#include "host/db/entity.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_tables.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

std::string entity(const char* type, const char* layer, const char* more = "")
{
    return std::string("0\n") + type + "\n8\n" + layer + "\n" + more;
}

std::string section(const char* name, const std::string& body)
{
    return std::string("0\nSECTION\n2\n") + name + "\n" + body + "0\nENDSEC\n";
}

std::string r12(const std::string& body)
{
    return section("HEADER", "9\n$ACADVER\n1\nAC1009\n") + body + "0\nEOF\n";
}

std::string block(const char* name, const std::string& body)
{
    return std::string("0\nBLOCK\n8\n0\n2\n") + name + "\n70\n0\n10\n1.0\n20\n2.0\n30\n3.0\n" +
           body + "0\nENDBLK\n8\n0\n";
}

// "LINE CIRCLE" of a block's entities, in order.
std::string typesIn(host::Drawing& drawing, std::uint32_t record)
{
    std::string types;
    for (const std::uint32_t stub : drawing.blocks[record].entities)
        types += (types.empty() ? "" : " ") +
                 std::string(drawing.index.types().name(drawing.index[stub].type));
    return types;
}

std::uint32_t blockNamed(ReadDrawing& read, const wchar_t* name)
{
    return host::findSymbol(read.drawing(), "BLOCK_RECORD", name).stubNumber();
}

TEST(ImplicitObjects, BareFileHasAllThatCallersNeed)
{
    const std::string texts[] = {"0\nEOF\n",
                                 section("ENTITIES", entity("LINE", "Roads")) + "0\nEOF\n",
                                 r12(section("ENTITIES", entity("LINE", "Roads")))};
    for (const std::string& text : texts) {
        SCOPED_TRACE(text);
        ReadDrawing read(text);
        AcDbDatabase& database = read.database();
        for (const AcDbObjectId id :
             {database.blockTableId(), database.layerTableId(), database.linetypeTableId(),
              database.textStyleTableId(), database.dimStyleTableId(), database.regAppTableId(),
              database.ucsTableId(), database.viewTableId(), database.viewportTableId(),
              database.namedObjectsDictionaryId(), database.modelSpaceId(), database.paperSpaceId(),
              database.layerZero(), database.byLayerLinetype(), database.byBlockLinetype(),
              database.continuousLinetype()}) {
            AcDbObjectPointer<AcDbObject> object(id, AcDb::kForRead);
            ASSERT_EQ(object.openStatus(), Acad::eOk);
            EXPECT_FALSE(object->handle().isNull());
        }
        EXPECT_FALSE(host::findSymbol(read.drawing(), "STYLE", L"standard").isNull());
        EXPECT_FALSE(host::findSymbol(read.drawing(), "DIMSTYLE", L"standard").isNull());
        EXPECT_FALSE(database.isModified());
        EXPECT_EQ(read.written(), text);
    }
}

TEST(ImplicitObjects, LayersThatEntitiesNameHaveRecords)
{
    ReadDrawing read(r12(section("TABLES", "0\nTABLE\n2\nLAYER\n70\n1\n0\nLAYER\n2\nRoads\n70\n4\n6"
                                           "2\n1\n6\nCONTINUOUS\n0\nENDTAB\n") +
                         section("ENTITIES", entity("LINE", "ROADS") + entity("LINE", "Water") +
                                                 entity("LINE", "WATER"))));
    const AcDbObjectId water = host::findSymbol(read.drawing(), "LAYER", L"water");
    AcDbObjectPointer<AcDbLayerTableRecord> layer(water, AcDb::kForRead);
    ASSERT_EQ(layer.openStatus(), Acad::eOk);
    EXPECT_EQ(layer->name(), L"Water");
    EXPECT_EQ(layer->color().colorIndex(), 7);
    EXPECT_FALSE(layer->isLocked());
    // 0, Roads and one Water
    EXPECT_EQ(read.drawing().tables["LAYER"].records.size(), 3u);
    const AcDbObjectId first =
        read.drawing().id(read.drawing().blocks[read.drawing().modelSpace].entities[0]);
    AcDbObjectPointer<AcDbEntity> locked(first, AcDb::kForWrite);
    EXPECT_EQ(locked.openStatus(), Acad::eOnLockedLayer);
}

TEST(ImplicitObjects, R12BlocksHaveRecordsAndSpaces)
{
    const std::string text = r12(
        section("BLOCKS", block("$MODEL_SPACE", "") + block("$PAPER_SPACE", "") +
                              block("Tree", entity("CIRCLE", "0") + entity("ATTDEF", "0")) +
                              block("tree", entity("POINT", "0")) + block("*U1", "")) +
        section("ENTITIES", entity("LINE", "0") + entity("ARC", "0", "67\n1\n") +
                                entity("INSERT", "0", "66\n1\n2\nTree\n") + entity("ATTRIB", "0") +
                                entity("SEQEND", "0") + entity("TEXT", "0")));
    ReadDrawing read(text);
    host::Drawing& drawing = read.drawing();
    EXPECT_EQ(drawing.blocks.size(), 5u);
    EXPECT_EQ(typesIn(drawing, drawing.modelSpace), "LINE INSERT TEXT");
    EXPECT_EQ(typesIn(drawing, drawing.paperSpace), "ARC");
    EXPECT_EQ(typesIn(drawing, blockNamed(read, L"TREE")),
              "CIRCLE ATTDEF"); // the first of the name
    EXPECT_EQ(blockNamed(read, L"*model_space"), drawing.modelSpace);
    EXPECT_EQ(blockNamed(read, L"$Model_Space"), drawing.modelSpace);

    const std::uint32_t insert = drawing.blocks[drawing.modelSpace].entities[1];
    for (const std::uint32_t child : drawing.children(insert, true)) {
        EXPECT_EQ(drawing.index[child].owner, insert);
        EXPECT_EQ(drawing.blockOf(child), drawing.modelSpace);
    }
    AcDbObjectPointer<AcDbBlockTableRecord> tree(drawing.id(blockNamed(read, L"Tree")),
                                                 AcDb::kForRead);
    ASSERT_EQ(tree.openStatus(), Acad::eOk);
    EXPECT_EQ(tree->name(), L"Tree");
    EXPECT_EQ(tree->origin(), AcGePoint3d(1, 2, 3));
    EXPECT_TRUE(tree->hasAttributeDefinitions());
    EXPECT_FALSE(tree->isAnonymous());
    EXPECT_FALSE(tree->isLayout());
    EXPECT_EQ(tree->blockInsertUnits(), 0);
    AcDbObjectPointer<AcDbBlockTableRecord> space(drawing.id(drawing.modelSpace), AcDb::kForRead);
    EXPECT_EQ(space->name(), L"*Model_Space");
    EXPECT_TRUE(space->isLayout());
    EXPECT_EQ(read.written(), text);
}

TEST(ImplicitObjects, OwnersDecideInEntitiesTheFileInBlocks)
{
    DxfDrawing drawing;
    const std::string tree =
        drawing.block("Tree", 0, "0\nPOINT\n5\n300\n330\n1F\n100\nAcDbEntity\n8\n0\n");
    drawing.line();                                       // owned by model space
    drawing.entity("RAY", "AcDbRay", "", "0", "67\n1\n"); // says paper, owned by model space
    std::string text = drawing.text();
    const std::string own = "330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n";
    text.replace(text.find(own), own.size(), "330\n1B\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n");
    ReadDrawing read(text);
    EXPECT_EQ(typesIn(read.drawing(), read.drawing().paperSpace), "LINE");
    EXPECT_EQ(typesIn(read.drawing(), read.drawing().modelSpace), "RAY");
    EXPECT_EQ(typesIn(read.drawing(), read.idOf(tree).stubNumber()), "POINT");
    EXPECT_EQ(read.drawing().index[read.idOf("300").stubNumber()].owner,
              read.idOf(tree).stubNumber());
}

TEST(ImplicitObjects, BrokenFilesOpenAndStayAsTheyAre)
{
    DxfDrawing drawing;
    drawing.block("Tree", 4, "0\nPOINT\n5\n300\n100\nAcDbEntity\n8\n0\n");
    drawing.line("0");
    drawing.rootEntry("ACAD_LAYOUT", "DEAD");
    const std::string whole = drawing.text();
    struct Row {
        const char* name;
        std::string from, to;
    };
    const Row rows[] = {
        {"root dictionary owned by nothing there", "0\nDICTIONARY\n5\nC\n330\n0\n",
         "0\nDICTIONARY\n5\nC\n330\nDEAD\n"},
        {"no root dictionary", "0\nDICTIONARY\n5\nC\n330\n0\n", "0\nXRECORD\n5\nC\n330\n0\n"},
        {"space without a BLOCK", "100\nAcDbBlockBegin\n2\n*Paper_Space\n",
         "100\nAcDbBlockBegin\n2\nLost\n"},
        {"block without a name", "100\nAcDbBlockBegin\n2\nTree\n", "100\nAcDbBlockBegin\n"},
        {"block owned by nothing there", "0\nBLOCK\n5\n101\n330\n100\n",
         "0\nBLOCK\n5\n101\n330\nDEAD\n"},
        {"layer without a name", "2\n0\n70\n0\n62\n7\n", "70\n0\n62\n7\n"},
        {"line of no block", "330\n1F\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n",
         "330\nDEAD\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n"},
        {"no model space", "100\nAcDbBlockTableRecord\n2\n*Model_Space\n",
         "100\nAcDbBlockTableRecord\n2\n*Mobel_Space\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        std::string text = whole;
        const std::size_t at = text.find(row.from);
        ASSERT_NE(at, std::string::npos);
        text.replace(at, row.from.size(), row.to);
        ReadDrawing read(text);
        host::Drawing& read1 = read.drawing();
        AcDbObjectPointer<AcDbObject> root(read.database().namedObjectsDictionaryId(),
                                           AcDb::kForRead);
        EXPECT_EQ(root.openStatus(), Acad::eOk);
        EXPECT_FALSE(read.database().modelSpaceId().isNull());
        EXPECT_FALSE(read.database().layerZero().isNull());
        // wherever the line and the point have come to, each is in one block
        std::size_t count = 0;
        for (const auto& [record, place] : read1.blocks)
            count += place.entities.size();
        EXPECT_EQ(count, 2u);
        EXPECT_EQ(read.written(), text);
    }
}

// Seen in a file whose model space was called "*U".
TEST(ImplicitObjects, SpaceWithoutItsNameIsToldByItsEntities)
{
    DxfDrawing drawing;
    drawing.block("Tree");
    drawing.line();
    std::string text = drawing.text();
    for (std::size_t at = 0; (at = text.find("*Model_Space")) != std::string::npos;)
        text.replace(at, 12, "*U");
    ReadDrawing read(text);
    EXPECT_EQ(read.database().modelSpaceId(), read.idOf("1F"));
    EXPECT_EQ(typesIn(read.drawing(), read.drawing().modelSpace), "LINE");
    EXPECT_EQ(blockNamed(read, L"*Model_Space"), read.drawing().modelSpace);
    AcDbObjectPointer<AcDbBlockTableRecord> space(read.database().modelSpaceId(), AcDb::kForRead);
    EXPECT_TRUE(space->isLayout());
    EXPECT_FALSE(space->isAnonymous());
    EXPECT_EQ(read.written(), text);
}

TEST(ImplicitObjects, HandlesLieAboveAllOthersAndAreTheSameAtEachOpening)
{
    const std::string text = section("HEADER", "9\n$HANDSEED\n5\n50\n") +
                             section("ENTITIES", "0\nLINE\n5\n80\n8\nRoads\n") + "0\nEOF\n";
    ReadDrawing first(text);
    ReadDrawing second(text);
    std::uint64_t greatest = 0;
    for (std::uint32_t stub = first.drawing().fileRecords + 1;
         stub <= first.drawing().index.count(); ++stub) {
        const std::uint64_t handle = first.drawing().index[stub].handle;
        EXPECT_EQ(handle, second.drawing().index[stub].handle);
        if (handle == 0)
            continue; // the header has none
        EXPECT_GT(handle, 0x80u);
        EXPECT_GT(handle, greatest); // so none twice
        greatest = handle;
    }
    EXPECT_GT(greatest, 0x80u);
}

} // namespace
