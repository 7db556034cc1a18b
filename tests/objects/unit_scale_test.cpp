#include "objects/unit_scale.h"

#include "host/db/block_reference.h"
#include "objects/block_definition.h"
#include "tests/support/opened_drawing.h"

using UnitScaleTest = DrawingTest;

TEST_F(UnitScaleTest, IsTheRatioOfTheUnits)
{
    struct Case {
        int blockUnits;
        int drawingUnits;
        double factor;
    };
    const Case cases[] = {
        {0, 6, 1.0},    // a unitless block
        {4, 6, 0.001},  // millimetres in metres
        {6, 4, 1000.0}, // and the other way round
        {2, 6, 0.305},  // feet
        {10, 6, 0.914}, // yards
        {1, 2, 0.0254 / 0.305},
        {7, 0, 1000.0}, // a unitless drawing counts as metres
        {21, 6, 1.0},   // a code that is none
        {20, 18, 3.086e16 / 149597870700.0},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(std::to_string(row.blockUnits) + " in " + std::to_string(row.drawingUnits));
        DxfDrawing drawing;
        drawing.insunits = row.drawingUnits;
        drawing.block("DOOR", row.blockUnits);
        const std::string handle =
            drawing.entity("INSERT", "AcDbBlockReference", "2\nDOOR\n10\n0.0\n20\n0.0\n30\n0.0\n");
        open(drawing,
             std::to_string(row.blockUnits) + "-" + std::to_string(row.drawingUnits) + ".dxf");
        const AcDbObjectPointer<AcDbBlockReference> reference(idOf(handle), AcDb::kForRead);
        ASSERT_TRUE(reference);
        EXPECT_DOUBLE_EQ(UnitScaleFactor(*reference), row.factor);
    }
}

TEST_F(UnitScaleTest, AReferenceWithoutItsBlockCountsAsOne)
{
    DxfDrawing drawing;
    const std::string handle =
        drawing.entity("INSERT", "AcDbBlockReference", "2\nGONE\n10\n0.0\n20\n0.0\n30\n0.0\n");
    open(drawing);
    const AcDbObjectPointer<AcDbBlockReference> reference(idOf(handle), AcDb::kForRead);
    ASSERT_TRUE(reference);
    EXPECT_EQ(UnitScaleFactor(*reference), 1.0);
    EXPECT_EQ(blockDefinitionName(*reference), L"");
}

TEST_F(UnitScaleTest, ADynamicReferenceCountsByItsDefinition)
{
    DxfDrawing drawing;
    const std::string definition = drawing.block("Gate", 4);
    drawing.block("*U1", 6, {}, "1001\nAcDbBlockRepBTag\n1070\n1\n1005\n" + definition + "\n");
    const std::string handle =
        drawing.entity("INSERT", "AcDbBlockReference", "2\n*U1\n10\n0.0\n20\n0.0\n30\n0.0\n");
    open(drawing);
    const AcDbObjectPointer<AcDbBlockReference> reference(idOf(handle), AcDb::kForRead);
    ASSERT_TRUE(reference);
    EXPECT_EQ(blockDefinitionName(*reference), L"Gate");
    EXPECT_DOUBLE_EQ(UnitScaleFactor(*reference), 0.001);
}

TEST_F(UnitScaleTest, ConstantAttributesAskForNothing)
{
    const auto attribute = [](const char* handle, const char* tag, const char* flags) {
        return std::string("0\nATTDEF\n5\n") + handle +
               "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n0.0\n20\n0.0\n30\n0.0\n40\n1.0\n1\nx\n"
               "100\nAcDbAttributeDefinition\n3\nask\n2\n" +
               tag + "\n70\n" + flags + "\n";
    };
    DxfDrawing drawing;
    drawing.block("DOOR", 0,
                  attribute("F01", "A", "0") + attribute("F02", "B", "2") +
                      attribute("F03", "C", "8"));
    const std::string handle =
        drawing.entity("INSERT", "AcDbBlockReference", "2\nDOOR\n10\n0.0\n20\n0.0\n30\n0.0\n");
    open(drawing);
    const AcDbObjectPointer<AcDbBlockReference> reference(idOf(handle), AcDb::kForRead);
    ASSERT_TRUE(reference);
    EXPECT_EQ(variableAttributeCount(blockDefinition(*reference)), 2);
}
