#include "host/db/block_table.h"
#include "host/db/line.h"
#include "host/io/new_drawing.h"
#include "tests/host/io/drawing_bench.h"
#include "tests/host/io/independent_proof.h"

using namespace host;
using namespace host::test;

TEST(NewDrawing, IsMetricAndComplete)
{
    OpenDrawing opened(newDrawingText());
    ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
    Drawing& drawing = opened.drawing();
    EXPECT_TRUE(drawing.warnings.empty());
    EXPECT_EQ(drawing.version, DxfVersion::r2018);
    EXPECT_EQ(opened.database().insunits(), 4); // millimetres
    EXPECT_EQ(opened.database().measurement(), 1);
    EXPECT_EQ(opened.database().luprec(), 4);
    EXPECT_EQ(drawing.blocks.size(), 2u);
    for (const auto& [name, table] : drawing.tables)
        EXPECT_LE(table.table, drawing.fileRecords) << name;
    EXPECT_LE(drawing.rootDictionary, drawing.fileRecords);
    // nothing had to be made in memory
    EXPECT_EQ(drawing.index.count(), drawing.fileRecords);
    EXPECT_EQ(drawing.nextHandle, drawing.fileSeed);
}

TEST(NewDrawing, SatisfiesAnotherProgram)
{
    if (!proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    EXPECT_EQ(proofOf(newDrawingText()), "AC1032 0 0 0\n");
    OpenDrawing opened(newDrawingText());
    AcDbObjectPointer<AcDbBlockTableRecord> space(opened.database().modelSpaceId(),
                                                  AcDb::kForWrite);
    auto* const line = new AcDbLine;
    AcDbObjectId id;
    ASSERT_EQ(space->appendAcDbEntity(id, line), Acad::eOk);
    line->setLineWeight(50);
    line->createExtensionDictionary();
    line->close();
    space.close();
    EXPECT_EQ(proofOf(opened.saved()), "AC1032 1 0 0\n");
}
