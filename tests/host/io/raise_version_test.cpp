#include "host/db/block_table.h"
#include "host/db/dictionary.h"
#include "host/db/line.h"
#include "host/db/xrecord.h"
#include "tests/host/io/drawing_bench.h"
#include "tests/host/io/independent_proof.h"

#include <functional>

using namespace host;
using namespace host::test;

namespace {

// One of nearly everything that R12 has.
std::string olderDrawing()
{
    return section("HEADER", "9 $ACADVER;1 AC1009;9 $HANDLING;70 1;9 $HANDSEED;5 60;"
                             "9 $LTSCALE;40 1.0") +
           section("TABLES",
                   "0 TABLE;2 LTYPE;70 1;0 LTYPE;2 DASHED;70 0;3 - -;72 65;73 2;40 0.75;49 0.5;"
                   "49 -0.25;0 ENDTAB;"
                   "0 TABLE;2 LAYER;70 1;0 LAYER;2 0;70 0;62 7;6 CONTINUOUS;0 ENDTAB;"
                   "0 TABLE;2 STYLE;70 1;0 STYLE;2 STANDARD;70 0;40 0.0;41 1.0;50 0.0;71 0;42 0.2;"
                   "3 txt;4;0 ENDTAB;"
                   "0 TABLE;2 DIMSTYLE;70 1;0 DIMSTYLE;2 ARROWS;70 0;3;4;5 TICK;6;7;40 1.0;"
                   "0 ENDTAB") +
           section("BLOCKS",
                   "0 BLOCK;8 0;2 $MODEL_SPACE;70 0;10 0.0;20 0.0;30 0.0;3 $MODEL_SPACE;"
                   "0 ENDBLK;5 10;8 0;"
                   "0 BLOCK;5 11;8 0;2 TICK;70 2;10 0.0;20 0.0;30 0.0;3 TICK;"
                   "0 LINE;5 12;8 0;10 0.0;20 0.0;30 0.0;11 1.0;21 1.0;31 0.0;"
                   "0 ATTDEF;5 13;8 0;10 0.0;20 0.0;30 0.0;40 1.0;1 x;3 Number;2 NO;70 0;72 1;"
                   "11 0.0;21 0.0;31 0.0;0 ENDBLK;5 14;8 0") +
           section(
               "ENTITIES",
               "0 LINE;8 0;5 20;62 1;10 0.0;20 0.0;30 0.0;11 1.0;21 0.0;31 0.0;"
               "0 ARC;5 21;8 0;10 0.0;20 0.0;30 0.0;40 2.0;50 0.0;51 90.0;"
               "0 TEXT;5 22;8 0;10 0.0;20 0.0;30 0.0;40 1.0;1 words;73 2;"
               "11 0.0;21 0.0;31 0.0;"
               "0 POLYLINE;5 23;8 0;66 1;10 0.0;20 0.0;30 0.0;70 8;"
               "0 VERTEX;5 24;8 0;10 0.0;20 0.0;30 1.0;70 32;"
               "0 VERTEX;5 25;8 0;10 1.0;20 0.0;30 1.0;70 32;0 SEQEND;5 26;8 0;"
               "0 INSERT;5 27;8 0;66 1;2 TICK;10 0.0;20 0.0;30 0.0;"
               "0 ATTRIB;5 28;8 0;10 0.0;20 0.0;30 0.0;40 1.0;1 7;2 NO;70 0;0 SEQEND;5 29;8 0;"
               "0 LINE;5 2A;8 0;67 1;10 0.0;20 0.0;30 0.0;11 1.0;21 0.0;31 0.0;"
               "0 SOLID;5 2B;8 0;10 0.0;20 0.0;30 0.0;11 1.0;21 0.0;31 0.0;12 0.0;22 1.0;32 0.0;"
               "13 1.0;23 1.0;33 0.0;1001 ACAD;1070 1") +
           "0 EOF;";
}

void changeLine(OpenDrawing& opened, const std::function<void(AcDbLine&)>& change)
{
    change(*opened.open<AcDbLine>(0x20));
}

void addRecord(AcDbLine& line)
{
    ASSERT_EQ(line.createExtensionDictionary(), Acad::eOk);
    AcDbObjectPointer<AcDbDictionary> dictionary(line.extensionDictionary(), AcDb::kForWrite);
    AcDbObjectId id;
    AcDbObjectPointer<AcDbXrecord> record;
    record.create();
    ASSERT_EQ(dictionary->setAt(L"DATA", record.object(), id), Acad::eOk);
}

void setTrueColor(AcDbLine& line)
{
    AcCmColor color;
    color.setRGB(10, 200, 30);
    line.setColor(color);
}

// The tags of the record with this handle, as lines.
std::string recordOf(const std::string& text, const std::string& handle)
{
    const std::size_t at = text.find("\n  5\n" + handle + "\n");
    if (at == std::string::npos)
        return "none";
    const std::size_t begin = text.rfind("  0\n", at);
    return text.substr(begin, text.find("\n  0\n", at) + 1 - begin);
}

} // namespace

TEST(RaiseVersion, HappensForWhatR12CannotHold)
{
    struct Case {
        const char* name;
        std::function<void(AcDbLine&)> change;
        DxfVersion version;
        std::wstring message;
    };
    const Case cases[] = {
        {"a plain change", [](AcDbLine& line) { line.setEndPoint(AcGePoint3d(9, 9, 0)); },
         DxfVersion::r12, L""},
        {"an empty dictionary", [](AcDbLine& line) { line.createExtensionDictionary(); },
         DxfVersion::r12, L""},
        {"the usual line weight", [](AcDbLine& line) { line.setLineWeight(AcDb::kLnWtByLayer); },
         DxfVersion::r12, L""},
        {"a line weight", [](AcDbLine& line) { line.setLineWeight(50); }, DxfVersion::r2000,
         L"the drawing is raised from R12 to AutoCAD 2000 (AC1015), since R12 cannot hold line "
         L"weights"},
        {"a record", addRecord, DxfVersion::r2000,
         L"the drawing is raised from R12 to AutoCAD 2000 (AC1015), since R12 cannot hold data in "
         L"dictionaries"},
        {"a true colour", setTrueColor, DxfVersion::r2004,
         L"the drawing is raised from R12 to AutoCAD 2004 (AC1018), since R12 cannot hold true "
         L"colors"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        OpenDrawing opened(lines(olderDrawing()));
        ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
        changeLine(opened, c.change);
        std::wstring message;
        const std::string text = opened.saved(&message);
        EXPECT_EQ(toUtf8(message), toUtf8(c.message));
        OpenDrawing again(text);
        ASSERT_EQ(again.outcome().status, Acad::eOk) << toUtf8(again.outcome().message);
        EXPECT_EQ(again.drawing().version, c.version);
        EXPECT_TRUE(again.drawing().warnings.empty());
        EXPECT_EQ(again.saved(), text);
        EXPECT_EQ(opened.drawing().version, DxfVersion::r12) << "the open drawing stays";
    }
}

TEST(RaiseVersion, TellsWhatIsLeftOut)
{
    const std::wstring raised =
        L"the drawing is raised from R12 to AutoCAD 2000 (AC1015), since R12 cannot hold line "
        L"weights";
    const std::string stray = "0 VERTEX;5 50;8 0;10 1.0;20 0.0;30 0.0;70 0;";
    struct Case {
        const char* name;
        std::string strays;
        std::string sections;
        std::wstring told;
    };
    const Case cases[] = {
        {"one child", stray, "",
         L"; 1 VERTEX, ATTRIB or SEQEND that follows no POLYLINE or INSERT is left out"},
        {"several",
         stray + "0 SEQEND;5 51;8 0;0 ATTRIB;5 52;8 0;10 0.0;20 0.0;40 1.0;1 x;2 T;70 0;", "",
         L"; 3 VERTEX, ATTRIB or SEQEND that follow no POLYLINE or INSERT are left out"},
        {"an empty section", "", section("OBJECTS", ""), L""},
        {"a picture", "", section("THUMBNAILIMAGE", "90 2;310 00FF"),
         L"; 1 record of a section that R12 does not have is left out"},
        {"objects", "", section("OBJECTS", "0 DICTIONARY;5 53;0 XRECORD;5 54"),
         L"; 2 records of sections that R12 does not have are left out"},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.name);
        std::string script = withBefore(olderDrawing(), "0 LINE;8 0;5 20;", c.strays);
        OpenDrawing opened(lines(withBefore(std::move(script), "0 EOF;", c.sections)));
        ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
        changeLine(opened, [](AcDbLine& line) { line.setLineWeight(50); });
        std::wstring message;
        const std::string text = opened.saved(&message);
        EXPECT_EQ(toUtf8(message), toUtf8(raised + c.told));
        EXPECT_TRUE(OpenDrawing(text).drawing().warnings.empty());
    }
}

TEST(RaiseVersion, GivesEveryRecordItsOwnerAndMarkers)
{
    OpenDrawing opened(lines(olderDrawing()));
    changeLine(opened, addRecord);
    const std::string text = opened.saved();
    const std::string model = [&] {
        const std::string line = recordOf(text, "21");
        const std::size_t at = line.find("330\n") + 4;
        return line.substr(at, line.find('\n', at) - at);
    }();
    const std::pair<const char*, std::string> cases[] = {
        {"21", "0 ARC;5 21;330 " + model +
                   ";100 AcDbEntity;8 0;100 AcDbCircle;10 0.0;20 0.0;30 0.0;40 2.0;100 AcDbArc;"
                   "50 0.0;51 90.0"},
        {"22", "0 TEXT;5 22;330 " + model +
                   ";100 AcDbEntity;8 0;100 AcDbText;10 0.0;20 0.0;30 0.0;40 1.0;1 words;"
                   "11 0.0;21 0.0;31 0.0;100 AcDbText;73 2"},
        {"25", "0 VERTEX;5 25;330 23;100 AcDbEntity;8 0;100 AcDbVertex;100 AcDb3dPolylineVertex;"
               "10 1.0;20 0.0;30 1.0;70 32"},
        {"26", "0 SEQEND;5 26;330 23;100 AcDbEntity;8 0"},
        {"28", "0 ATTRIB;5 28;330 27;100 AcDbEntity;8 0;100 AcDbText;10 0.0;20 0.0;30 0.0;40 1.0;"
               "1 7;100 AcDbAttribute;2 NO;70 0"},
        {"2B", "0 SOLID;5 2B;330 " + model +
                   ";100 AcDbEntity;8 0;100 AcDbTrace;10 0.0;20 0.0;30 0.0;11 1.0;21 0.0;31 0.0;"
                   "12 0.0;22 1.0;32 0.0;13 1.0;23 1.0;33 0.0;1001 ACAD;1070 1"},
    };
    for (const auto& [handle, script] : cases)
        EXPECT_EQ(recordOf(text, handle), lines(script));
    EXPECT_EQ(text.find("$MODEL_SPACE"), std::string::npos);
    EXPECT_EQ(text.find("$HANDLING"), std::string::npos);
    const std::string line = recordOf(text, "20");
    EXPECT_TRUE(line.starts_with("  0\nLINE\n  5\n20\n102\n{ACAD_XDICTIONARY\n")) << line;
    // the arrow block is named by its record
    OpenDrawing again(text);
    const std::size_t style = text.find("ARROWS");
    const std::size_t arrow = text.find("342\n", style) + 4;
    const std::uint64_t record = std::stoull(text.substr(arrow, 16), nullptr, 16);
    EXPECT_EQ(again.drawing().index.types().name(again.stub(record).type), "BLOCK_RECORD");
    EXPECT_EQ(again.drawing().blocks[again.drawing().index.findHandle(record)].entities.size(), 2u);
    EXPECT_EQ(again.drawing().blocks[again.drawing().modelSpace].entities.size(), 6u);
    EXPECT_EQ(again.drawing().blocks[again.drawing().paperSpace].entities.size(), 1u);
}

TEST(RaiseVersion, SatisfiesAnotherProgram)
{
    if (!proofAvailable())
        GTEST_SKIP() << "ezdxf is not installed";
    for (const char* const lineEnd : {"\n", "\r\n"}) {
        OpenDrawing opened(lines(olderDrawing(), lineEnd));
        changeLine(opened, addRecord);
        EXPECT_EQ(proofOf(opened.saved()), "AC1015 6 0 0\n");
        changeLine(opened, setTrueColor);
        EXPECT_EQ(proofOf(opened.saved()), "AC1018 6 0 0\n");
    }
}
