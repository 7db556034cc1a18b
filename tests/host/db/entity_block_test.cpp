#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/dimension_kinds.h"
#include "host/db/dynamic_block.h"
#include "tests/support/drawing_text.h"

#include <numbers>

using host::DxfVersion;
using host::test::DrawingText;
using host::test::dxf;
using host::test::StrokeText;

namespace {

// A block of R12 with a line from its base point (1, 1) to (3, 1).
constexpr std::string_view kBlock =
    "0 BLOCK|8 0|2 B|70 0|10 1|20 1|0 LINE|8 0|10 1|20 1|11 3|21 1|0 ATTDEF|8 0|10 0|20 0|40 1|1 "
    "v|3 p|2 TAG|70 0|0 ENDBLK|8 0|";

ReadDrawing withBlocks(std::string_view blocks, std::string_view entities)
{
    return ReadDrawing(DrawingText{.version = DxfVersion::r12,
                                   .blocks = std::string(blocks),
                                   .entities = std::string(entities)}
                           .text());
}

std::string strokesOf(ReadDrawing& drawing, std::string_view handle)
{
    AcDbObjectPointer<AcDbEntity> entity(drawing.idOf(handle), AcDb::kForRead);
    StrokeText strokes;
    return entity && entity->strokes(strokes) ? strokes.text : "nothing";
}

} // namespace

TEST(BlockReference, DrawsItsBlockWhereItStands)
{
    const std::string block(kBlock.substr(0, kBlock.size() - 1));
    const std::pair<std::string, std::string> cases[] = {
        {"0 INSERT|5 A0|8 0|2 B|10 10|20 0", "line 10,0 12,0\n"},
        {"0 INSERT|5 A0|8 0|2 b|10 10|20 0|41 2|50 90", "line 10,0 10,4\n"},
        {"0 INSERT|5 A0|8 0|2 B|10 10|20 0|30 3|41 -1", "line 10,0,3 8,0,3\n"},
        {"0 INSERT|5 A0|8 0|2 B|10 10|20 0|210 0|220 0|230 -1", "line -10,0 -12,0\n"},
        {"0 INSERT|5 A0|8 0|2 B|10 0|20 0|70 2|71 2|44 5|45 3",
         "line 0,0 2,0\nline 5,0 7,0\nline 0,3 2,3\nline 5,3 7,3\n"},
        // rows and columns turn with the reference
        {"0 INSERT|5 A0|8 0|2 B|10 0|20 0|50 90|70 2|44 5", "line 0,0 0,2\nline 0,5 0,7\n"},
        {"0 INSERT|5 A0|8 0|2 UNKNOWN|10 0|20 0", ""},
    };
    for (const auto& [record, strokes] : cases) {
        SCOPED_TRACE(record);
        ReadDrawing drawing = withBlocks(block, record);
        EXPECT_EQ(strokesOf(drawing, "A0"), strokes);
    }
}

TEST(BlockReference, BlocksInBlocksEndEvenWhenTheyHoldThemselves)
{
    ReadDrawing drawing = withBlocks(
        "0 BLOCK|8 0|2 INNER|70 0|10 0|20 0|0 POINT|8 0|10 1|20 0|0 INSERT|8 0|2 OUTER|10 0|20 0|0 "
        "ENDBLK|8 0|0 BLOCK|8 0|2 OUTER|70 0|10 0|20 0|0 INSERT|8 0|2 INNER|10 5|20 0|0 INSERT|8 "
        "0|2 INNER|10 0|20 5|0 ENDBLK|8 0",
        "0 INSERT|5 A0|8 0|2 OUTER|10 100|20 0");
    EXPECT_EQ(strokesOf(drawing, "A0"), "point 106,0\npoint 101,5\n");
}

TEST(BlockReference, ShowsItsOwnAttributesAndTheBlocksConstantOnes)
{
    ReadDrawing drawing = withBlocks(
        "0 BLOCK|8 0|2 B|70 2|10 0|20 0|0 ATTDEF|8 0|10 0|20 0|40 1|1 no|3 p|2 TAG|70 0|0 ATTDEF|8 "
        "0|10 0|20 2|40 1|1 yes|3 p|2 FIXED|70 2|0 ENDBLK|8 0",
        "0 INSERT|5 A0|8 0|66 1|2 B|10 10|20 0|0 ATTRIB|5 A1|8 0|10 10|20 5|40 1|1 mine|2 TAG|70 "
        "0|0 ATTRIB|5 A2|8 0|10 10|20 9|40 1|1 hidden|2 SECRET|70 1|0 SEQEND|5 A3|8 0");
    const std::string drawn = strokesOf(drawing, "A0");
    EXPECT_EQ(std::count(drawn.begin(), drawn.end(), '\n'), 2) << drawn;
    EXPECT_NE(drawn.find("text 10,2 "), std::string::npos) << drawn;
    EXPECT_NE(drawn.find("text 10,5 "), std::string::npos) << drawn;

    AcDbObjectPointer<AcDbBlockReference> reference(drawing.idOf("A0"), AcDb::kForRead);
    std::vector<std::wstring> tags;
    for (const auto at = reference->attributeIterator(); !at->done(); at->step()) {
        AcDbObjectPointer<AcDbAttribute> attribute(at->objectId(), AcDb::kForRead);
        tags.push_back(attribute->tag());
    }
    EXPECT_EQ(tags, (std::vector<std::wstring>{L"TAG", L"SECRET"}));
}

TEST(BlockReference, SettersChangeTheirOwnTagsOnly)
{
    const std::string block(kBlock.substr(0, kBlock.size() - 1));
    ReadDrawing drawing = withBlocks(block, "0 INSERT|5 A0|8 0|2 B|10 10|20 0|41 2|42 2|43 2");
    AcDbObjectPointer<AcDbBlockReference> reference(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(reference.openStatus(), Acad::eOk);
    EXPECT_EQ(reference->setScaleFactors(AcGeScale3d(2.0)), Acad::eOk);
    EXPECT_EQ(reference->setRotation(0.0), Acad::eOk);
    EXPECT_EQ(reference->setBlockTableRecord(reference->blockTableRecord()), Acad::eOk);
    EXPECT_FALSE(reference->isModified());
    EXPECT_EQ(reference->setScaleFactors({1.0, 0.0, 1.0}), Acad::eInvalidInput);
    EXPECT_EQ(reference->setBlockTableRecord(drawing.idOf("A0")), Acad::eInvalidInput);
    EXPECT_EQ(reference->setScaleFactors({2.0, 2.0, 5.0}), Acad::eOk);
    EXPECT_EQ(reference->setRotation(std::numbers::pi / 2), Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf("0 INSERT|5 A0|8 0|2 B|10 10|20 0|41 2|42 2|43 5.0|50 90.0"));
}

TEST(DynamicBlock, AnonymousBlocksReportTheirDefinition)
{
    const std::string tables =
        "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 3|0 BLOCK_RECORD|5 20|330 1|100 "
        "AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 Door|340 0|0 BLOCK_RECORD|5 21|330 1|100 "
        "AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 *U7|340 0|1001 AcDbBlockRepBTag|1070 "
        "1|1005 20|0 BLOCK_RECORD|5 22|330 1|100 AcDbSymbolTableRecord|100 "
        "AcDbBlockTableRecord|2 *U8|340 0|0 BLOCK_RECORD|5 23|330 1|100 "
        "AcDbSymbolTableRecord|100 AcDbBlockTableRecord|2 Plain|340 0|0 ENDTAB";
    const std::string objects =
        "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|0 DICTIONARY|5 40|330 A1|100 "
        "AcDbDictionary|280 1|281 1|3 AcDbBlockRepresentation|360 41|0 DICTIONARY|5 41|330 40|100 "
        "AcDbDictionary|280 1|281 1|3 AcDbRepData|360 42|0 ACDB_BLOCKREPRESENTATION_DATA|5 42|330 "
        "41|100 AcDbBlockRepresentationData|70 1|340 20";
    const std::string entities =
        "0 INSERT|5 A0|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *U7|10 0|20 0|30 0|0 INSERT|5 "
        "A1|102 {ACAD_XDICTIONARY|360 40|102 }|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *U8|10 "
        "0|20 0|30 0|0 INSERT|5 A2|100 AcDbEntity|8 0|100 AcDbBlockReference|2 Plain|10 0|20 0|30 "
        "0|0 INSERT|5 A3|100 AcDbEntity|8 0|100 AcDbBlockReference|2 *U8|10 0|20 0|30 0";
    ReadDrawing drawing(
        DrawingText{.tables = tables, .entities = entities, .objects = objects}.text());
    struct Case {
        std::string_view handle;
        bool dynamic;
        std::string_view block;
    };
    const Case cases[] = {
        {"A0", true, "20"},  // by the extended data of the anonymous block
        {"A1", true, "20"},  // by the reference's dictionary
        {"A2", false, "23"}, // no dynamic block
        {"A3", false, "22"}, // anonymous, of no definition
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.handle);
        const AcDbDynBlockReference reference(drawing.idOf(row.handle));
        EXPECT_EQ(reference.isDynamicBlock(), row.dynamic);
        EXPECT_EQ(reference.dynamicBlockTableRecord(), drawing.idOf(row.block));
    }
}

TEST(Dimension, DrawsItsBlockInTheWorldAndFindsItsStyle)
{
    ReadDrawing drawing(
        DrawingText{.version = DxfVersion::r12,
                    .tables = "0 TABLE|2 DIMSTYLE|70 1|0 DIMSTYLE|2 Mine|70 0|0 ENDTAB",
                    .blocks = "0 BLOCK|8 0|2 *D1|70 1|10 0|20 0|0 LINE|8 0|10 1|20 1|11 3|21 1|0 "
                              "ENDBLK|8 0",
                    .entities = "0 DIMENSION|5 A0|8 0|2 *D1|10 5|20 5|11 1|21 2|70 1|3 MINE|13 "
                                "1|23 1|14 3|24 1|0 DIMENSION|5 A1|8 0|10 5|20 5|70 0|50 30"}
            .text());
    EXPECT_EQ(strokesOf(drawing, "A0"), "line 1,1 3,1\n");
    EXPECT_EQ(strokesOf(drawing, "A1"), "nothing");
    AcDbObjectPointer<AcDbAlignedDimension> aligned(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(aligned.openStatus(), Acad::eOk);
    EXPECT_FALSE(aligned->dimensionStyle().isNull());
    EXPECT_EQ(aligned->xLine2Point(), AcGePoint3d(3, 1, 0));
    EXPECT_EQ(aligned->setDimensionStyle(AcDbObjectId()), Acad::eInvalidInput);
    EXPECT_EQ(aligned->setDimensionStyle(aligned->dimensionStyle()), Acad::eOk);
    EXPECT_FALSE(aligned->isModified());
    AcDbObjectPointer<AcDbRotatedDimension> rotated(drawing.idOf("A1"), AcDb::kForRead);
    ASSERT_EQ(rotated.openStatus(), Acad::eOk);
    EXPECT_NEAR(rotated->rotation(), std::numbers::pi / 6, 1e-15);
    EXPECT_EQ(rotated->dimensionStyleName(), L"STANDARD");
}
