#include "import/block_file.h"

#include "host/db/block_table.h"
#include "host/db/entity.h"
#include "host/db/symbol_tables.h"
#include "tests/support/opened_drawing.h"
#include "tests/support/resource_drawing.h"

namespace {

class BlockFileTest : public DrawingTest {
protected:
    bool hasBlock(std::wstring_view name)
    {
        const AcDbObjectPointer<AcDbBlockTable> table(database().blockTableId(), AcDb::kForRead);
        return table->has(name);
    }
    // The classes of a block's entities, apart by blanks.
    std::string entitiesOf(std::wstring_view name)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbBlockTable> table(database().blockTableId(), AcDb::kForRead);
        EXPECT_EQ(table->getAt(name, id), Acad::eOk);
        std::string classes;
        for (const AcDbObjectId entity : entities(id))
            classes += AcDbObjectPointer<AcDbEntity>(entity, AcDb::kForRead)->recordName() + " ";
        return classes;
    }
    int colorOfLayer(std::wstring_view name)
    {
        AcDbObjectId id;
        const AcDbObjectPointer<AcDbLayerTable> table(database().layerTableId(), AcDb::kForRead);
        if (table->getAt(name, id) != Acad::eOk)
            return -1;
        const AcDbObjectPointer<AcDbLayerTableRecord> layer(id, AcDb::kForRead);
        return layer->color().colorIndex();
    }
    static std::string reference(ResourceDrawing& drawing, std::string_view block)
    {
        return drawing.entity("INSERT", "AcDbBlockReference",
                              "2\n" + std::string(block) + "\n10\n0.0\n20\n0.0\n30\n0.0\n");
    }
};

} // namespace

TEST_F(BlockFileTest, MakesABlockOfTheModelSpace)
{
    ResourceDrawing valve;
    valve.layer("Pipes", 0, 3);
    valve.layer("Unused");
    valve.block("Handle", 0, valve.lineIn("0"));
    valve.line("Pipes");
    valve.circle(2.0);
    reference(valve, "Handle");
    const std::filesystem::path path = valve.write(folder(), "Valve.dwg");
    const std::wstring lowered = (folder() / "valve.dwg").wstring();
    ASSERT_TRUE(LoadBlockFile(lowered, L"Valve", database()));
    EXPECT_EQ(entitiesOf(L"VALVE"), "LINE CIRCLE INSERT ");
    EXPECT_EQ(entitiesOf(L"handle"), "LINE ");
    EXPECT_EQ(colorOfLayer(L"pipes"), 3);
    EXPECT_EQ(colorOfLayer(L"unused"), -1);

    std::filesystem::remove(path);
    EXPECT_TRUE(LoadBlockFile(lowered, L"valve", database())); // is there
    EXPECT_FALSE(LoadBlockFile(lowered, L"other", database()));
    EXPECT_FALSE(hasBlock(L"other"));
}

TEST_F(BlockFileTest, WhatTheFileNeedsTakesThePlaceOfTheDrawingsOwn)
{
    DxfDrawing working;
    working.layer("Pipes", 0, 1);
    open(working);
    ResourceDrawing valve;
    valve.layer("PIPES", 0, 3);
    valve.line("PIPES");
    ASSERT_TRUE(LoadBlockFile(valve.write(folder(), "valve.dwg").wstring(), L"valve", database()));
    EXPECT_EQ(colorOfLayer(L"pipes"), 3);
}

TEST_F(BlockFileTest, AnEmptyFileMakesNoBlock)
{
    const std::wstring path = ResourceDrawing().write(folder(), "empty.dwg").wstring();
    EXPECT_TRUE(LoadBlockFile(path, L"empty", database()));
    EXPECT_FALSE(hasBlock(L"empty"));
}

TEST_F(BlockFileTest, ABlockThatWouldHoldItselfIsRefused)
{
    ResourceDrawing direct;
    direct.block("Valve", 0, direct.lineIn("0"));
    reference(direct, "VALVE");
    ResourceDrawing deep;
    deep.block("Valve", 0, deep.lineIn("0"));
    deep.block("Middle", 0, deep.referenceIn("Valve"));
    deep.layer("Pipes");
    deep.line("Pipes");
    reference(deep, "Middle");
    ResourceDrawing endless;
    endless.block("Ring", 0, endless.referenceIn("Ring"));
    reference(endless, "Ring");
    for (const ResourceDrawing* file : {&direct, &deep, &endless}) {
        const std::wstring path = file->write(folder(), "valve.dwg").wstring();
        EXPECT_FALSE(LoadBlockFile(path, L"valve", database()));
        EXPECT_FALSE(hasBlock(L"valve"));
        EXPECT_FALSE(hasBlock(L"middle"));
        EXPECT_EQ(colorOfLayer(L"pipes"), -1);
    }
    // One that lies there unused is no part of the block.
    ResourceDrawing unused;
    unused.block("Valve", 0, unused.lineIn("0"));
    unused.line();
    EXPECT_TRUE(LoadBlockFile(unused.write(folder(), "valve.dwg").wstring(), L"valve", database()));
    EXPECT_EQ(entitiesOf(L"valve"), "LINE ");
}

TEST_F(BlockFileTest, ADamagedFileLeavesTheDrawingAsItWas)
{
    ResourceDrawing valve;
    valve.layer("Pipes");
    valve.line("Pipes");
    const std::string text = valve.text();
    std::ofstream(folder() / "valve.dwg") << text.substr(0, text.size() - 20);
    EXPECT_FALSE(LoadBlockFile((folder() / "valve.dwg").wstring(), L"valve", database()));
    EXPECT_FALSE(hasBlock(L"valve"));
    EXPECT_EQ(colorOfLayer(L"pipes"), -1);
}
