#include "host/db/block_table.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/id_mapping.h"
#include "tests/host/io/independent_proof.h"
#include "tests/support/drawing_text.h"

using host::test::DrawingText;
using host::test::proofAvailable;
using host::test::proofOf;

namespace {

std::string blockRecord(const std::string& handle, const std::string& name)
{
    return "0 BLOCK_RECORD|5 " + handle + "|330 1|100 AcDbSymbolTableRecord|100 " +
           "AcDbBlockTableRecord|2 " + name + "|340 0|";
}

std::string block(const std::string& record, const std::string& name, const std::string& entities)
{
    return "0 BLOCK|5 A" + record + "|330 " + record + "|100 AcDbEntity|8 0|100 AcDbBlockBegin|2 " +
           name + "|70 0|10 0.0|20 0.0|30 0.0|3 " + name + "|1 |" + entities + "0 ENDBLK|5 B" +
           record + "|330 " + record + "|100 AcDbEntity|8 0|100 AcDbBlockEnd|";
}

// A boundary (60) and its hatch (61), a dimension (62) with a block, a polyline (63) of old, a
// picture (68) with its definition (80), a line (6A) with a record, in a group (90) with 60.
std::string drawingText()
{
    const std::string head = "|330 1F|100 AcDbEntity|8 0|100 ";
    DrawingText text{.version = host::DxfVersion::r2000};
    text.tables = "0 TABLE|2 BLOCK_RECORD|5 1|330 0|100 AcDbSymbolTable|70 3|" +
                  blockRecord("1F", "*Model_Space") + blockRecord("1B", "*Paper_Space") +
                  blockRecord("50", "*D7") + blockRecord("51", "House") + "0 ENDTAB";
    text.blocks = block("1F", "*Model_Space", "") + block("1B", "*Paper_Space", "") +
                  block("50", "*D7",
                        "0 LINE|5 52|330 50|100 AcDbEntity|8 0|100 AcDbLine|10 0|20 5|30 0|11 5|21 "
                        "5|31 0|") +
                  block("51", "House", "");
    text.blocks.pop_back();
    text.entities =
        "0 LWPOLYLINE|5 60|102 {ACAD_REACTORS|330 61|330 90|102 }" + head +
        "AcDbPolyline|90 3|70 1|43 0.0|10 0|20 0|10 4|20 0|10 4|20 3|"
        "0 HATCH|5 61" +
        head +
        "AcDbHatch|10 0.0|20 0.0|30 0.0|210 0.0|220 0.0|230 1.0|2 SOLID|70 1|71 1|91 1|92 3|72 "
        "0|73 1|93 3|10 0|20 0|10 4|20 0|10 4|20 3|97 1|330 60|75 0|76 1|98 0|"
        "0 DIMENSION|5 62" +
        head +
        "AcDbDimension|2 *D7|10 5.0|20 5.0|30 0.0|11 2.5|21 5.0|31 0.0|70 33|3 Standard|100 "
        "AcDbAlignedDimension|13 0|23 0|33 0|14 5|24 0|34 0|"
        "0 POLYLINE|5 63" +
        head +
        "AcDb3dPolyline|66 1|10 0|20 0|30 0|70 8|0 VERTEX|5 64|330 63|100 AcDbEntity|8 0|100 "
        "AcDbVertex|100 AcDb3dPolylineVertex|10 1|20 2|30 3|70 32|0 VERTEX|5 65|330 63|100 "
        "AcDbEntity|8 0|100 AcDbVertex|100 AcDb3dPolylineVertex|10 4|20 5|30 6|70 32|0 SEQEND|5 "
        "66|330 63|100 AcDbEntity|8 0|"
        "0 IMAGE|5 68" +
        head +
        "AcDbRasterImage|90 0|10 0|20 0|30 0|11 0.1|21 0|31 0|12 0|22 0.1|32 0|13 10|23 10|340 "
        "80|70 7|280 0|281 50|282 50|283 0|360 81|"
        "0 INSERT|5 69" +
        head +
        "AcDbBlockReference|2 House|10 0|20 0|30 0|"
        "0 LINE|5 6A|102 {ACAD_REACTORS|330 90|102 }|102 {ACAD_XDICTIONARY|360 82|102 }" +
        head + "AcDbLine|10 0|20 0|30 0|11 1|21 1|31 0";
    text.objects =
        "0 DICTIONARY|5 C|330 0|100 AcDbDictionary|281 1|3 ACAD_GROUP|350 D|3 ACAD_IMAGE_DICT|350 "
        "E|0 DICTIONARY|5 D|330 C|100 AcDbDictionary|281 1|3 G|350 90|0 DICTIONARY|5 E|330 C|100 "
        "AcDbDictionary|281 1|3 P|350 80|0 IMAGEDEF|5 80|102 {ACAD_REACTORS|330 E|330 81|102 "
        "}|330 E|100 AcDbRasterImageDef|90 0|1 p.png|10 10|20 10|11 1|21 1|280 1|281 0|0 "
        "IMAGEDEF_REACTOR|5 81|330 68|100 AcDbRasterImageDefReactor|90 2|330 68|0 DICTIONARY|5 "
        "82|330 6A|100 AcDbDictionary|280 1|281 1|3 NOTE|360 83|0 XRECORD|5 83|330 82|100 "
        "AcDbXrecord|280 1|1 hello|330 6A|330 60|0 GROUP|5 90|330 D|100 AcDbGroup|300 |70 0|71 "
        "1|340 60|340 6A";
    return text.text();
}

class DeepCloning : public testing::Test {
protected:
    Acad::ErrorStatus clone(std::initializer_list<const char*> handles)
    {
        std::vector<AcDbObjectId> ids;
        for (const char* handle : handles)
            ids.push_back(drawing_.idOf(handle));
        return drawing_.database().deepCloneObjects(ids, drawing_.database().modelSpaceId(),
                                                    mapping_);
    }
    std::string copyOf(const char* handle)
    {
        return handleText(mapping_.valueOf(drawing_.idOf(handle)));
    }
    std::string copiedRecord(const char* handle)
    {
        return drawing_.record(mapping_.valueOf(drawing_.idOf(handle)));
    }
    static bool has(const std::string& record, const std::string& tags)
    {
        return record.find(host::test::dxf(tags)) != std::string::npos;
    }
    void expectSound(int entities)
    {
        const std::string bytes = drawing_.written();
        EXPECT_TRUE(ReadDrawing(bytes).database().warnings().empty());
        if (proofAvailable()) {
            EXPECT_EQ(proofOf(bytes), "AC1015 " + std::to_string(entities) + " 0 0\n");
        }
    }

    ReadDrawing drawing_{drawingText()};
    AcDbIdMapping mapping_;
};

} // namespace

TEST_F(DeepCloning, ReferencesInsideTheSetLeadToTheCopies)
{
    ASSERT_EQ(clone({"60", "61"}), Acad::eOk);
    EXPECT_TRUE(has(copiedRecord("61"), "97 1|330 " + copyOf("60") + "|75 0"));
    EXPECT_TRUE(has(copiedRecord("60"), "102 {ACAD_REACTORS|330 " + copyOf("61") + "|102 }"))
        << copiedRecord("60"); // and the group has no copy
    EXPECT_TRUE(
        has(drawing_.record(drawing_.idOf("60")), "102 {ACAD_REACTORS|330 61|330 90|102 }"));
    expectSound(9);
}

TEST_F(DeepCloning, HatchWithoutItsBoundaryIsBoundToNothing)
{
    ASSERT_EQ(clone({"61"}), Acad::eOk);
    EXPECT_TRUE(has(copiedRecord("61"), "97 0|75 0"));
    AcDbObjectPointer<AcDbHatch> hatch(mapping_.valueOf(drawing_.idOf("61")), AcDb::kForRead);
    EXPECT_FALSE(hatch->associative());
    AcDbObjectPointer<AcDbHatch> original(drawing_.idOf("61"), AcDb::kForRead);
    EXPECT_TRUE(original->associative());
}

TEST_F(DeepCloning, WhatAnEntityOwnsComesAlongAndNothingElse)
{
    const std::size_t before = drawing_.drawing().index.count();
    ASSERT_EQ(clone({"62", "63", "68", "69", "6A"}), Acad::eOk);
    // five, the dimension's record, block, line and end, two vertices and their end, the image's
    // reactor, the dictionary and its record
    EXPECT_EQ(drawing_.drawing().index.count() - before, 5u + 4u + 3u + 1u + 2u);

    AcDbObjectPointer<AcDbDimension> dimension(mapping_.valueOf(drawing_.idOf("62")),
                                               AcDb::kForRead);
    EXPECT_EQ(dimension->dimBlockId(), mapping_.valueOf(drawing_.idOf("50")));
    EXPECT_NE(dimension->dimBlockId(), drawing_.idOf("50"));
    EXPECT_TRUE(has(copiedRecord("69"), "2 House"));
    EXPECT_TRUE(has(copiedRecord("68"), "340 80"));
    EXPECT_TRUE(has(copiedRecord("68"), "360 " + copyOf("81")));
    EXPECT_TRUE(has(drawing_.record(drawing_.idOf("80")), "330 81|330 " + copyOf("81")));
    EXPECT_TRUE(has(copiedRecord("83"), "330 " + copyOf("6A") + "|330 60"));
    EXPECT_EQ(copiedRecord("6A").find("ACAD_REACTORS"), std::string::npos);
    expectSound(12);
}

TEST_F(DeepCloning, RefusesWhatIsNoEntityAndNoBlock)
{
    EXPECT_EQ(clone({"80"}), Acad::eInvalidInput);
    EXPECT_EQ(clone({"64"}), Acad::eInvalidInput); // hangs on its polyline
    ReadDrawing other(drawingText());
    AcDbDatabase& database = drawing_.database();
    EXPECT_EQ(database.deepCloneObjects({other.idOf("60")}, database.modelSpaceId(), mapping_),
              Acad::eInvalidInput);
    EXPECT_EQ(database.deepCloneObjects({drawing_.idOf("60")}, drawing_.idOf("D"), mapping_),
              Acad::eInvalidInput);
    EXPECT_TRUE(mapping_.pairs().empty());
    EXPECT_EQ(drawing_.written(), drawingText());
}

// The shape is kept in a section of its own.
TEST(DeepCloningOfBodies, LeavesOutWhatHasItsShapeElsewhere)
{
    const std::string body = "|100 AcDbEntity|8 0|100 AcDbModelerGeometry|";
    std::string text = DrawingText{.entities = "0 3DSOLID|5 A0" + body +
                                               "290 1|2 {GUID}|100 AcDb3dSolid|350 0|0 "
                                               "3DSOLID|5 A1" +
                                               body + "70 1|1 shape|100 AcDb3dSolid|350 0"}
                           .text();
    text.insert(text.rfind("0\nEOF"), host::test::dxf("0 SECTION|2 ACDSDATA|70 2|71 0|0 ENDSEC"));
    ReadDrawing drawing(text);
    AcDbIdMapping mapping;
    AcDbDatabase& database = drawing.database();
    EXPECT_EQ(database.deepCloneObjects({drawing.idOf("A0"), drawing.idOf("A1")},
                                        database.modelSpaceId(), mapping),
              Acad::eNotApplicable);
    EXPECT_TRUE(mapping.valueOf(drawing.idOf("A0")).isNull());
    EXPECT_FALSE(mapping.valueOf(drawing.idOf("A1")).isNull());
}
