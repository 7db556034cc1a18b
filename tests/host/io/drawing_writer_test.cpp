#include "host/db/attribute.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/header_variables.h"
#include "host/db/line.h"
#include "host/db/symbol_tables.h"
#include "host/db/xrecord.h"
#include "tests/host/io/drawing_bench.h"

#include <filesystem>
#include <fstream>
#include <unistd.h>

using namespace host;
using namespace host::test;

namespace {

const std::string kLine = "0 LINE;5 30;330 1F;100 AcDbEntity;8 0;100 AcDbLine;10 0.0;20 0.0;30 0.0;"
                          "11 1.0;21 1.0;31 0.0";

AcDbObjectId addLine(OpenDrawing& opened, AcDbObjectId block)
{
    AcDbObjectPointer<AcDbBlockTableRecord> record(block, AcDb::kForWrite);
    auto* const line = new AcDbLine(AcGePoint3d(1, 2, 0), AcGePoint3d(3, 4, 0));
    AcDbObjectId id;
    EXPECT_EQ(record->appendAcDbEntity(id, line), Acad::eOk);
    line->close();
    EXPECT_FALSE(id.isNull());
    EXPECT_EQ(id.database(), &opened.database());
    return id;
}

void addLayer(OpenDrawing& opened, std::wstring_view name)
{
    AcDbLayerTable* table = nullptr;
    ASSERT_EQ(opened.database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
    AcDbObjectPointer<AcDbLayerTableRecord> record;
    record.create();
    record->setName(name);
    AcDbObjectId id;
    EXPECT_EQ(table->add(id, record.object()), Acad::eOk);
    table->close();
}

// How often `piece` stands in the text, and where first: the last section, table or block begun
// before it, "SECTION ENTITIES".
std::string placeOf(const std::string& text, const std::string& piece)
{
    const std::size_t at = text.find(piece);
    if (at == std::string::npos)
        return "nowhere";
    if (text.find(piece, at + 1) != std::string::npos)
        return "twice";
    std::string place;
    for (const std::string mark : {"SECTION\n  2\n", "TABLE\n  2\n"}) {
        const std::size_t found = text.rfind("  0\n" + mark, at);
        if (found == std::string::npos)
            continue;
        const std::size_t name = found + 4 + mark.size();
        if (mark.starts_with("SECTION") || text.find("ENDTAB\n", found) > at)
            place += mark.substr(0, mark.find('\n')) + " " +
                     text.substr(name, text.find('\n', name) - name) + " ";
    }
    return place.empty() ? place : place.substr(0, place.size() - 1);
}

std::string hex(std::uint64_t handle)
{
    char digits[32];
    std::snprintf(digits, sizeof digits, "%llX", static_cast<unsigned long long>(handle));
    return digits;
}

std::string seedOf(const std::string& text)
{
    const std::size_t at = text.find("$HANDSEED\n  5\n") + 14;
    return text.substr(at, text.find('\n', at) - at);
}

} // namespace

TEST(DrawingWriter, PutsNewEntitiesAtTheEndOfTheirSpaceAndMovesTheSeed)
{
    const std::string bytes = lines(modernDrawing(kLine));
    OpenDrawing opened(bytes);
    // handles of what is known in memory only come first
    const std::uint64_t handle = opened.drawing().nextHandle;
    EXPECT_GE(handle, 0x100u);
    addLine(opened, opened.database().modelSpaceId());
    const std::string added = lines("0 LINE;5 " + hex(handle) +
                                    ";330 1F;100 AcDbEntity;8 0;100 AcDbLine;10 1.0;20 2.0;30 0.0;"
                                    "11 3.0;21 4.0;31 0.0");
    const std::string behind = lines("0 ENDSEC;0 SECTION;2 OBJECTS");
    EXPECT_EQ(opened.saved(), replaced(withBefore(bytes, behind, added), "$HANDSEED\n  5\n100",
                                       "$HANDSEED\n  5\n" + hex(handle + 1)));
}

TEST(DrawingWriter, ChangesOneValueAndNothingElse)
{
    for (const char* const lineEnd : {"\n", "\r\n"}) {
        const std::string bytes =
            lines("999 a remark;" + modernDrawing(kLine + ";999 inside;8 odd"), lineEnd);
        OpenDrawing opened(bytes);
        opened.open<AcDbLine>(0x30)->setEndPoint(AcGePoint3d(1, 2.5, 0));
        EXPECT_EQ(opened.saved(), replaced(bytes, std::string("\n 21") + lineEnd + "1.0",
                                           std::string("\n 21") + lineEnd + "2.5"));
        opened.open<AcDbLine>(0x30)->setEndPoint(AcGePoint3d(1, 1, 0));
        EXPECT_EQ(opened.saved(), bytes) << "put back, it is the file again";
    }
}

TEST(DrawingWriter, DropsErasedRecordsWithTheirSequence)
{
    const std::string insert =
        "0 INSERT;5 40;330 1F;100 AcDbEntity;8 0;100 AcDbBlockReference;66 1;"
        "2 door;10 0.0;20 0.0;30 0.0;0 ATTRIB;5 41;330 40;100 AcDbEntity;8 0;"
        "100 AcDbText;1 x;100 AcDbAttribute;2 TAG;70 0;"
        "0 SEQEND;5 42;330 40;100 AcDbEntity;8 0;";
    OpenDrawing opened(lines(modernDrawing(insert + kLine)));
    opened.open<AcDbBlockReference>(0x40)->erase();
    EXPECT_EQ(opened.saved(), lines(modernDrawing(kLine)));
}

TEST(DrawingWriter, PutsAttributesBeforeTheEndOfTheirSequence)
{
    const std::string insert =
        "0 INSERT;5 40;330 1F;100 AcDbEntity;8 0;100 AcDbBlockReference;66 1;"
        "2 door;10 0.0;20 0.0;30 0.0;0 ATTRIB;5 41;330 40;100 AcDbEntity;8 0;"
        "100 AcDbText;1 x;100 AcDbAttribute;2 TAG;70 0;"
        "0 SEQEND;5 42;330 40;100 AcDbEntity;8 0;";
    OpenDrawing opened(lines(modernDrawing(insert + kLine)));
    {
        auto reference = opened.open<AcDbBlockReference>(0x40);
        auto* const attribute = new AcDbAttribute;
        attribute->setTag(L"NEXT");
        AcDbObjectId id;
        ASSERT_EQ(reference->appendAttribute(id, attribute), Acad::eOk);
        attribute->close();
    }
    const std::string text = opened.saved();
    const std::size_t added = text.find("NEXT");
    ASSERT_NE(added, std::string::npos);
    EXPECT_LT(text.find("TAG\n"), added);
    EXPECT_GT(text.find("SEQEND\n"), added);
    EXPECT_EQ(text.find("SEQEND\n"), text.rfind("SEQEND\n"));

    OpenDrawing again(text);
    ASSERT_EQ(again.outcome().status, Acad::eOk);
    EXPECT_EQ(again.drawing().children(again.drawing().index.findHandle(0x40)).size(), 2u);
}

TEST(DrawingWriter, GrowsTablesAndMakesThoseThatAreMissing)
{
    const std::string bytes = lines(modernDrawing(kLine));
    {
        OpenDrawing opened(bytes);
        addLayer(opened, L"walls");
        const std::string text = opened.saved();
        EXPECT_EQ(placeOf(text, "walls"), "SECTION TABLES TABLE LAYER");
        EXPECT_NE(text.find(lines("2 LAYER;5 2;330 0;100 AcDbSymbolTable;70 2;0 LAYER")),
                  std::string::npos);
    }
    // no APPID table: one stands between LAYER and BLOCK_RECORD then
    OpenDrawing opened(bytes);
    {
        AcDbRegAppTable* table = nullptr;
        ASSERT_EQ(opened.database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        AcDbObjectPointer<AcDbRegAppTableRecord> record;
        record.create();
        record->setName(L"SURVEY");
        AcDbObjectId id;
        EXPECT_EQ(table->add(id, record.object()), Acad::eOk);
        table->close();
    }
    const std::string text = opened.saved();
    EXPECT_EQ(placeOf(text, "SURVEY"), "SECTION TABLES TABLE APPID");
    EXPECT_LT(text.find("AcDbLayerTableRecord"), text.find("SURVEY"));
    EXPECT_GT(text.find("AcDbBlockTableRecord"), text.find("SURVEY"));
    OpenDrawing again(text);
    EXPECT_EQ(again.outcome().status, Acad::eOk) << toUtf8(again.outcome().message);
    EXPECT_TRUE(again.drawing().warnings.empty());
}

TEST(DrawingWriter, WritesImplicitRecordsOnceSomethingRefersToThem)
{
    // no TABLES, BLOCKS or OBJECTS at all, as simple programs write
    const std::string bytes =
        lines(header("AC1015") +
              section("ENTITIES", "0 LINE;5 30;100 AcDbEntity;8 wood;"
                                  "100 AcDbLine;10 0.0;20 0.0;11 1.0;21 0.0") +
              "0 EOF");
    OpenDrawing opened(bytes);
    ASSERT_EQ(opened.outcome().status, Acad::eOk);
    EXPECT_EQ(opened.saved(), bytes);
    opened.open<AcDbLine>(0x30)->setEndPoint(AcGePoint3d(2, 0, 0));
    EXPECT_EQ(opened.saved(), replaced(bytes, " 11\n1.0", " 11\n2.0"))
        << "a changed record takes nothing new along";

    addLine(opened, opened.database().modelSpaceId());
    const std::string text = opened.saved();
    EXPECT_NE(text.find("*Model_Space"), std::string::npos);
    EXPECT_EQ(text.find("*Paper_Space"), std::string::npos);
    EXPECT_LT(text.find("  2\nTABLES"), text.find("  2\nBLOCKS"));
    EXPECT_LT(text.find("  2\nBLOCKS"), text.find("  2\nENTITIES"));
    EXPECT_EQ(text.find("OBJECTS"), std::string::npos);
    OpenDrawing again(text);
    ASSERT_EQ(again.outcome().status, Acad::eOk) << toUtf8(again.outcome().message);
    Drawing& drawing = again.drawing();
    EXPECT_EQ(drawing.blocks[drawing.modelSpace].entities.size(), 2u);
    EXPECT_NE(drawing.blocks[drawing.modelSpace].begin, 0u);
}

TEST(DrawingWriter, WritesBlocksWithRecordAndContents)
{
    OpenDrawing opened(lines(modernDrawing(kLine)));
    AcDbObjectId id;
    {
        AcDbBlockTable* table = nullptr;
        ASSERT_EQ(opened.database().getSymbolTable(table, AcDb::kForWrite), Acad::eOk);
        AcDbObjectPointer<AcDbBlockTableRecord> record;
        record.create();
        record->setName(L"door");
        EXPECT_EQ(table->add(id, record.object()), Acad::eOk);
        table->close();
    }
    addLine(opened, id);
    const std::string text = opened.saved();
    OpenDrawing again(text);
    ASSERT_EQ(again.outcome().status, Acad::eOk) << toUtf8(again.outcome().message);
    EXPECT_TRUE(again.drawing().warnings.empty());
    AcDbBlockTable* table = nullptr;
    ASSERT_EQ(again.database().getSymbolTable(table, AcDb::kForRead), Acad::eOk);
    AcDbObjectId found;
    EXPECT_EQ(table->getAt(L"DOOR", found), Acad::eOk);
    table->close();
    const BlockPlace& block = again.drawing().blocks[found.stubNumber()];
    EXPECT_EQ(block.entities.size(), 1u);
    EXPECT_NE(block.begin, 0u);
    EXPECT_EQ(opened.saved(), text) << "saving changes nothing in the drawing";
}

TEST(DrawingWriter, KeepsObjectsInTheirSectionWithTheOwnersAboveThem)
{
    OpenDrawing opened(lines(modernDrawing(kLine)));
    const std::uint64_t next = opened.drawing().nextHandle;
    {
        auto line = opened.open<AcDbLine>(0x30);
        ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
        AcDbObjectPointer<AcDbDictionary> dictionary(line->extensionDictionary(), AcDb::kForWrite);
        AcDbObjectId id;
        AcDbObjectPointer<AcDbXrecord> record;
        record.create();
        ASSERT_EQ(dictionary->setAt(L"DATA", record.object(), id), Acad::eOk);
    }
    const std::string text = opened.saved();
    EXPECT_EQ(placeOf(text, "XRECORD"), "SECTION OBJECTS");
    EXPECT_EQ(placeOf(text, "{ACAD_XDICTIONARY"), "SECTION ENTITIES");
    EXPECT_EQ(seedOf(text), hex(next + 2));
    OpenDrawing again(text);
    EXPECT_TRUE(again.drawing().warnings.empty());
    EXPECT_EQ(again.saved(), text);
}

TEST(DrawingWriter, WritesHeaderVariablesAndLeavesTheSeedOfOldDrawings)
{
    const std::string bytes = lines(modernDrawing(kLine));
    OpenDrawing opened(bytes);
    resbuf value;
    value.restype = static_cast<short>(RTREAL);
    value.resval.rreal = 2.5;
    ASSERT_TRUE(setHeaderVariable(opened.drawing(), "LTSCALE", 40, value));
    EXPECT_EQ(opened.saved(), replaced(bytes, "  5\n100\n", "  5\n100\n  9\n$LTSCALE\n 40\n2.5\n"));
}

TEST(DrawingWriter, WritesR12WithoutWhatR12LacksAndGivesChangedRecordsTheirHandle)
{
    const std::string bytes = lines(
        header("AC1009", "20") +
        section("TABLES", "0 TABLE;2 LAYER;70 1;0 LAYER;2 0;70 0;62 7;6 CONTINUOUS;0 ENDTAB") +
        section("ENTITIES", "0 LINE;8 0;10 0.0;20 0.0;11 1.0;21 1.0") + "0 EOF");
    OpenDrawing opened(bytes);
    Drawing& drawing = opened.drawing();
    addLayer(opened, L"walls");
    addLine(opened, opened.database().modelSpaceId());
    const std::uint32_t first = drawing.blocks[drawing.modelSpace].entities.front();
    {
        AcDbObjectPointer<AcDbLine> line(drawing.id(first), AcDb::kForWrite);
        line->setEndPoint(AcGePoint3d(5, 1, 0));
    }
    const std::string text = opened.saved();
    for (const char* const later : {"100\n", "330\n", "102\n", "OBJECTS", "BLOCK_RECORD", "AcDb"})
        EXPECT_EQ(text.find("\n" + std::string(later)), std::string::npos) << later;
    EXPECT_NE(text.find(lines("0 TABLE;2 LAYER;70 2")), std::string::npos);
    EXPECT_NE(text.find(lines("0 LINE;5 " + hex(drawing.index[first].handle) + ";8 0")),
              std::string::npos);
    OpenDrawing again(text);
    ASSERT_EQ(again.outcome().status, Acad::eOk) << toUtf8(again.outcome().message);
    EXPECT_EQ(again.drawing().version, DxfVersion::r12);
    EXPECT_EQ(again.drawing().blocks[again.drawing().modelSpace].entities.size(), 2u);
}

TEST(DrawingWriter, LeavesAFileAloneThatAnotherProgramHasChanged)
{
    const std::filesystem::path folder =
        std::filesystem::temp_directory_path() / ("drawing_writer_" + std::to_string(::getpid()));
    std::filesystem::create_directories(folder);
    const std::filesystem::path path = folder / "plan.dxf";
    DxfFormat format;
    setDrawingFormat(&format);
    {
        // great enough to be mapped
        std::string script = modernDrawing("999 here");
        std::string text = lines(script);
        const std::size_t here = text.find("999\nhere\n");
        text.insert(here, [] {
            std::string filling;
            filling.reserve(FileImage::kMappedAbove + 100);
            while (filling.size() <= FileImage::kMappedAbove)
                filling += "999\n" + std::string(100000, 'x') + "\n";
            return filling;
        }());
        std::ofstream(path, std::ios::binary) << text;
        AcDbDatabase database(false);
        std::wstring message;
        ASSERT_EQ(database.readDwgFile(path, &message), Acad::eOk) << toUtf8(message);
        ASSERT_TRUE(database.drawing().source->image()->isMapped());
        EXPECT_EQ(format.save(database.drawing(), folder / "copy.dxf").status, Acad::eOk);
        EXPECT_EQ(std::filesystem::file_size(folder / "copy.dxf"), text.size());

        std::ofstream(path, std::ios::binary | std::ios::app) << "more";
        const FileOutcome outcome = format.save(database.drawing(), folder / "other.dxf");
        EXPECT_EQ(outcome.status, Acad::eFileAccessErr);
        EXPECT_NE(outcome.message.find(L"other.dxf is not saved"), std::wstring::npos);
        EXPECT_FALSE(std::filesystem::exists(folder / "other.dxf"));
    }
    setDrawingFormat(nullptr);
    std::filesystem::remove_all(folder);
}
