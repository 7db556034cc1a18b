#include "host/db/block_table.h"

#include "host/db/entity.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

Acad::ErrorStatus addBlock(AcDbDatabase& database, const wchar_t* name, AcDbObjectId& id,
                           AcGePoint3d origin = {})
{
    AcDbBlockTable* opened = nullptr;
    const Acad::ErrorStatus status = database.getSymbolTable(opened, AcDb::kForWrite);
    AcDbObjectPointer<AcDbBlockTable> table;
    table.acquire(opened);
    if (status != Acad::eOk)
        return status;
    AcDbObjectPointer<AcDbBlockTableRecord> record;
    record.create();
    record->setName(name);
    record->setOrigin(origin);
    return table->add(id, record.object());
}

Acad::ErrorStatus addLine(AcDbObjectId block, AcDbObjectId& id)
{
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    if (record.openStatus() != Acad::eOk)
        return record.openStatus();
    AcDbObjectPointer<AcDbLine> line;
    line.create();
    return record->appendAcDbEntity(id, line.object());
}

std::vector<AcDbObjectId> walked(AcDbObjectId block, bool forward, bool skipDeleted = true)
{
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForRead);
    std::unique_ptr<AcDbBlockTableRecordIterator> walk;
    record->newIterator(walk, forward, skipDeleted);
    std::vector<AcDbObjectId> ids;
    for (; !walk->done(); walk->step(forward, skipDeleted))
        ids.push_back(walk->entityId());
    return ids;
}

TEST(BlockTable, NewBlockIsWholeInEveryVersion)
{
    for (const char* version : {"AC1009", "AC1012", "AC1015", "AC1032"}) {
        SCOPED_TRACE(version);
        ReadDrawing read(inVersion(DxfDrawing().text(), version));
        AcDbObjectId id;
        ASSERT_EQ(addBlock(read.database(), L"Tree", id, {1, 2, 3}), Acad::eOk);
        EXPECT_EQ(addBlock(read.database(), L"TREE", id), Acad::eDuplicateKey);
        AcDbObjectId line;
        ASSERT_EQ(addLine(host::findSymbol(read.drawing(), "BLOCK_RECORD", L"tree"), line),
                  Acad::eOk);
        ReadDrawing again(read.written());
        EXPECT_TRUE(again.database().warnings().empty());
        AcDbObjectPointer<AcDbBlockTableRecord> record(
            host::findSymbol(again.drawing(), "BLOCK_RECORD", L"tree"), AcDb::kForRead);
        ASSERT_EQ(record.openStatus(), Acad::eOk);
        EXPECT_EQ(record->origin(), AcGePoint3d(1, 2, 3));
        EXPECT_EQ(walked(record->objectId(), true).size(), 1u);
    }
}

TEST(BlockTable, AnonymousBlocksAreNumbered)
{
    DxfDrawing drawing;
    drawing.block("*U1");
    drawing.block("*u3");
    ReadDrawing read(drawing.text());
    AcDbObjectId id;
    for (const wchar_t* name : {L"*U2", L"*U4", L"*U5"}) {
        ASSERT_EQ(addBlock(read.database(), L"*U", id), Acad::eOk);
        AcDbObjectPointer<AcDbBlockTableRecord> record(id, AcDb::kForRead);
        EXPECT_EQ(record->name(), name);
        EXPECT_TRUE(record->isAnonymous());
    }
}

TEST(BlockTable, IteratorSkipsErasedOnesBothWaysAndMeetsNewOnes)
{
    DxfDrawing drawing;
    const std::string handles[] = {drawing.line(), drawing.line(), drawing.line(), drawing.line()};
    ReadDrawing read(drawing.text());
    const AcDbObjectId space = read.database().modelSpaceId();
    const AcDbObjectId a = read.idOf(handles[0]), b = read.idOf(handles[1]),
                       c = read.idOf(handles[2]), d = read.idOf(handles[3]);
    for (const AcDbObjectId id : {a, c})
        AcDbObjectPointer<AcDbEntity>(id, AcDb::kForWrite)->erase();
    EXPECT_EQ(walked(space, true), (std::vector<AcDbObjectId>{b, d}));
    EXPECT_EQ(walked(space, false), (std::vector<AcDbObjectId>{d, b}));
    EXPECT_EQ(walked(space, true, false), (std::vector<AcDbObjectId>{a, b, c, d}));

    AcDbBlockTableRecordIterator walk(read.drawing(), space.stubNumber(), true, true);
    walk.step();
    EXPECT_EQ(walk.entityId(), d);
    AcDbObjectId added;
    ASSERT_EQ(addLine(space, added), Acad::eOk);
    walk.step();
    EXPECT_EQ(walk.entityId(), added);
    walk.step();
    EXPECT_TRUE(walk.done());
    AcDbObjectId none = a;
    EXPECT_EQ(walk.getEntityId(none), Acad::eInvalidIndex);
}

TEST(BlockTable, EntityOfPaperSpaceSaysSo)
{
    ReadDrawing read(DxfDrawing().text());
    AcDbObjectId inPaper, inModel;
    ASSERT_EQ(addLine(read.database().paperSpaceId(), inPaper), Acad::eOk);
    ASSERT_EQ(addLine(read.database().modelSpaceId(), inModel), Acad::eOk);
    EXPECT_NE(read.record(inPaper).find("\n67\n1\n"), std::string::npos);
    EXPECT_EQ(read.record(inModel).find("\n67\n"), std::string::npos);
    ReadDrawing again(read.written());
    EXPECT_EQ(walked(again.database().paperSpaceId(), true).size(), 1u);
    EXPECT_EQ(walked(again.database().modelSpaceId(), true).size(), 1u);
}

TEST(BlockTable, UnitsComeFromTheRecordOrItsExtendedData)
{
    DxfDrawing drawing;
    const std::string data =
        "1001\nACAD\n1000\nDesignCenter Data\n1002\n{\n1070\n     1\n1070\n     6\n1002\n}\n";
    const std::string byData = drawing.block("ByData", 0, "", data);
    const std::string byRecord = drawing.block("ByRecord", 4);
    const std::string foreign =
        drawing.block("Foreign", 0, "", "1001\nACAD\n1000\nOther\n1070\n1\n1070\n6\n");
    std::string text = drawing.text();
    for (const char* name : {"ByData", "Foreign"}) {
        const std::string units = std::string(name) + "\n340\n0\n70\n0\n";
        text.replace(text.find(units), units.size(), std::string(name) + "\n340\n0\n");
    }
    ReadDrawing read(text);
    const std::pair<std::string, int> rows[] = {{byData, 6}, {byRecord, 4}, {foreign, 0}};
    for (const auto& [handle, units] : rows) {
        AcDbObjectPointer<AcDbBlockTableRecord> record(read.idOf(handle), AcDb::kForRead);
        EXPECT_EQ(record->blockInsertUnits(), units) << host::toUtf8(record->name());
    }
}

TEST(BlockTable, AnonymousBlockNamesTheDynamicOneItStandsFor)
{
    DxfDrawing drawing;
    const std::string dynamic =
        drawing.block("Look", 0, "", "", "102\n{ACAD_XDICTIONARY\n360\n700\n102\n}\n");
    const std::string variant =
        drawing.block("*U1", 0, "", "1001\nAcDbBlockRepBTag\n1070\n1\n1005\n" + dynamic + "\n");
    const std::string plain = drawing.block("*U2");
    drawing.object("0\nDICTIONARY\n5\n700\n330\n" + dynamic +
                   "\n100\nAcDbDictionary\n280\n1\n3\nACAD_ENHANCEDBLOCK\n360\n701\n"
                   "0\nACAD_EVALUATION_GRAPH\n5\n701\n330\n700\n100\nAcDbEvalGraph\n");
    ReadDrawing read(drawing.text());
    AcDbObjectPointer<AcDbBlockTableRecord> of(read.idOf(variant), AcDb::kForRead);
    EXPECT_EQ(of->dynamicDefinition(), read.idOf(dynamic));
    EXPECT_FALSE(of->isDynamicBlock());
    of.close();
    of.open(read.idOf(plain), AcDb::kForRead);
    EXPECT_TRUE(of->dynamicDefinition().isNull());
    of.close();
    of.open(read.idOf(dynamic), AcDb::kForRead);
    EXPECT_TRUE(of->isDynamicBlock());
}

TEST(BlockTable, TellsWhetherReferencesScaleByOneFactor)
{
    const std::pair<const char*, AcDbBlockTableRecord::BlockScaling> cases[] = {
        {"", AcDbBlockTableRecord::kAny},
        {"281\n0\n", AcDbBlockTableRecord::kAny},
        {"281\n1\n", AcDbBlockTableRecord::kUniform},
    };
    for (const auto& [tags, scaling] : cases) {
        SCOPED_TRACE(tags);
        DxfDrawing drawing;
        const std::string handle = drawing.block("Tree", 0, {}, tags);
        ReadDrawing read(drawing.text());
        AcDbObjectPointer<AcDbBlockTableRecord> block(read.idOf(handle), AcDb::kForWrite);
        EXPECT_EQ(block->blockScaling(), scaling);
        block->setBlockScaling(AcDbBlockTableRecord::kUniform);
        EXPECT_NE(read.record(read.idOf(handle)).find("281\n1\n"), std::string::npos);
    }
}

TEST(BlockTable, BlockMarksGoWithTheirRecordOnly)
{
    struct Case {
        const char* name;
        std::string text;
        const char* block; // its record; null where that is implicit
        const char* begin;
        const char* end;
    };
    DxfDrawing modern;
    modern.block("Tree"); // the handles are given from 100 on
    const Case cases[] = {
        {"with a record", modern.text(), "100", "101", "102"},
        {"R12",
         "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n0\nENDSEC\n0\nSECTION\n2\nBLOCKS\n0\n"
         "BLOCK\n5\n101\n8\n0\n2\nTree\n70\n0\n10\n0\n20\n0\n0\nENDBLK\n5\n102\n8\n0\n0\nENDSEC\n"
         "0\nEOF\n",
         nullptr, "101", "102"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        ReadDrawing read(row.text);
        for (const char* const mark : {row.begin, row.end}) {
            AcDbObjectPointer<AcDbEntity> entity(read.idOf(mark), AcDb::kForWrite);
            ASSERT_TRUE(entity);
            EXPECT_EQ(entity->erase(), Acad::eNotApplicable);
            EXPECT_FALSE(entity->isErased());
        }
        EXPECT_EQ(read.written(), row.text);
        if (!row.block)
            continue;
        AcDbObjectPointer<AcDbBlockTableRecord>(read.idOf(row.block), AcDb::kForWrite)->erase();
        EXPECT_TRUE(read.idOf(row.begin).isErased());
        EXPECT_TRUE(read.idOf(row.end).isErased());
    }
}

TEST(BlockTable, ErasedBlockTakesItsEntitiesAlongAndUndoBringsThem)
{
    DxfDrawing drawing;
    const std::string tree = drawing.block("Tree", 0, "0\nPOINT\n5\n300\n100\nAcDbEntity\n8\n0\n");
    ReadDrawing read(drawing.text());
    read.drawing().undo.beginGroup(L"PURGE");
    AcDbObjectPointer<AcDbBlockTableRecord>(read.idOf(tree), AcDb::kForWrite)->erase();
    read.drawing().undo.endGroup(read.drawing());
    EXPECT_TRUE(read.idOf("300").isErased());
    EXPECT_EQ(read.written().find("Tree"), std::string::npos);
    read.drawing().undo.undo(read.drawing());
    EXPECT_EQ(read.written(), drawing.text());
}

} // namespace
