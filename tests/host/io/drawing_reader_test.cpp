#include "tests/host/io/drawing_bench.h"

using namespace host;
using namespace host::test;

namespace {

const std::string kStart = lines(header("AC1015"));
const std::string kEnd = lines("0 EOF");

std::string entities(std::string_view script)
{
    return kStart + lines(section("ENTITIES", script)) + kEnd;
}

struct Refusal {
    std::string name;
    std::string bytes;
    std::wstring message;
    Acad::ErrorStatus status = Acad::eBadDxfFile;
};

} // namespace

TEST(DrawingReader, RefusesWhatItCannotFollowAndNamesTheLine)
{
    // the header takes 14 lines, so ENTITIES begins in line 15 and its first record in line 19
    const std::string line = "0 LINE;5 30;8 0;";
    const Refusal cases[] = {
        {"empty", "", L"plan.dxf is no drawing"},
        {"a letter", "Dear Sir,\nplease find\n", L"plan.dxf is no drawing"},
        {"a number", "  7\nx\n", L"plan.dxf is no drawing"},
        {"comments alone", lines("999 nothing else"), L"plan.dxf is no drawing"},
        {"DWG", std::string("AC1024\0\0\0\0", 10),
         L"plan.dxf is a DWG of AutoCAD 2010 (AC1024); only DXF can be read",
         Acad::eInvalidDwgVersion},
        {"DWG to come", "AC1099....",
         L"plan.dxf is a DWG of an unknown version (AC1099); only DXF can be read",
         Acad::eInvalidDwgVersion},
        {"no EOF", kStart, L"plan.dxf, line 14: the file ends without EOF", Acad::eEndOfFile},
        {"cut behind a code", kStart + "  0\n", L"plan.dxf, line 15: the file ends inside a group",
         Acad::eEndOfFile},
        {"cut inside a code", kStart + "  ", L"plan.dxf, line 15: the file ends inside a group",
         Acad::eEndOfFile},
        {"code with a letter", entities(line + "1O 1.0"),
         L"plan.dxf, line 25: ' 1O' is no group code"},
        {"empty code", kStart + "\nSECTION\n" + kEnd, L"plan.dxf, line 15: '' is no group code"},
        {"code too great", entities(line + "40000 1.0"),
         L"plan.dxf, line 25: '40000' is no group code"},
        {"no real", entities(line + "10 abc"),
         L"plan.dxf, line 26: 'abc' is no number, but group code 10 wants one"},
        {"no integer", entities(line + "62 1.5"),
         L"plan.dxf, line 26: '1.5' is no whole number, but group code 62 wants one"},
        {"infinite", entities(line + "40 1e999"),
         L"plan.dxf, line 26: '1e999' is no number, but group code 40 wants one"},
        {"handle", entities("0 LINE;8 0;5 3G"),
         L"plan.dxf, line 19: the handle of this LINE is no hexadecimal number",
         Acad::eBadDxfSequence},
        {"nested section", entities("0 SECTION;2 OBJECTS"),
         L"plan.dxf, line 19: a section begins inside SECTION ENTITIES", Acad::eBadDxfSequence},
        {"EOF too early", entities("0 EOF"), L"plan.dxf, line 19: EOF inside SECTION ENTITIES",
         Acad::eBadDxfSequence},
        {"entity alone", kStart + lines(line) + kEnd,
         L"plan.dxf, line 15: LINE stands outside of any section", Acad::eBadDxfSequence},
        {"open table", kStart + lines(section("TABLES", "0 TABLE;2 LAYER")) + kEnd,
         L"plan.dxf, line 23: a section ends inside a table", Acad::eBadDxfSequence},
        {"nested table", kStart + lines(section("TABLES", "0 TABLE;2 LAYER;0 TABLE")) + kEnd,
         L"plan.dxf, line 23: a table begins inside a table", Acad::eBadDxfSequence},
        {"entry alone", kStart + lines(section("TABLES", "0 LAYER;2 a")) + kEnd,
         L"plan.dxf, line 19: LAYER stands outside of any table", Acad::eBadDxfSequence},
        {"open block", kStart + lines(section("BLOCKS", "0 BLOCK;2 a")) + kEnd,
         L"plan.dxf, line 23: a section ends inside a block", Acad::eBadDxfSequence},
        {"nested block", kStart + lines(section("BLOCKS", "0 BLOCK;0 BLOCK")) + kEnd,
         L"plan.dxf, line 21: a block begins inside a block", Acad::eBadDxfSequence},
        {"entity between blocks", kStart + lines(section("BLOCKS", line)) + kEnd,
         L"plan.dxf, line 19: LINE stands outside of any block", Acad::eBadDxfSequence},
        {"the first trouble counts", entities("0 EOF;10 abc"),
         L"plan.dxf, line 19: EOF inside SECTION ENTITIES", Acad::eBadDxfSequence},
    };
    for (const Refusal& refusal : cases) {
        SCOPED_TRACE(refusal.name);
        OpenDrawing opened(refusal.bytes);
        EXPECT_EQ(toUtf8(opened.outcome().message), toUtf8(refusal.message));
        EXPECT_EQ(opened.outcome().status, refusal.status);
    }
}

TEST(DrawingReader, KeepsEveryByteOfAnUnchangedDrawing)
{
    const std::string plain = modernDrawing("0 LINE;5 30;330 1F;100 AcDbEntity;8 0;100 AcDbLine;"
                                            "10 0.0;20 0;11 +1.;21 -.5E+3");
    const std::pair<std::string, std::string> cases[] = {
        {"LF", lines(plain)},
        {"CR LF", lines(plain, "\r\n")},
        {"byte order mark", "\xEF\xBB\xBF" + lines(plain)},
        {"comments anywhere",
         lines("999 first;" + replaced(plain, "8 0;100 AcDbLine", "999 0;8 0;999 x;100 AcDbLine"))},
        {"no last line end", lines(plain).substr(0, lines(plain).size() - 1)},
        {"bytes behind EOF", lines(plain) + std::string("\x1A\0 more\n", 8)},
        {"mixed ends", replaced(lines(plain), "AcDbLine\n 10\n", "AcDbLine\r\n 10\r\n")},
        {"a value that reads 0",
         lines(replaced(plain, "100 AcDbLine;", "100 AcDbLine;1 0;1 EOF;"))},
        {"wide codes", replaced(lines(plain), " 11\n", "   11\n")},
    };
    for (const auto& [name, bytes] : cases) {
        SCOPED_TRACE(name);
        OpenDrawing opened(bytes);
        ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
        EXPECT_EQ(opened.saved(), bytes);
        const Stub& line = opened.stub(0x30);
        EXPECT_EQ(opened.drawing().index.types().name(line.type), "LINE");
        EXPECT_EQ(opened.drawing().blocks[opened.drawing().modelSpace].entities.size(), 1u);
    }
}

TEST(DrawingReader, AcceptsEverySpellingOfNumbers)
{
    const std::pair<std::string, bool> reals[] = {
        {"0", true},
        {"-0.0", true},
        {"1.", true},
        {".5", true},
        {"-.5", true},
        {"+2", true},
        {"  3.5", true},
        {"3.5  ", true},
        {"1e5", true},
        {"1.5E-300", true},
        {"", false},
        {".", false},
        {"-", false},
        {"-.", false},
        {"1.2.3", false},
        {"1-2", false},
        {"e5", false},
        {"1e", false},
        {"inf", false},
        {"nan", false},
        {"0x10", false},
        {"1,5", false},
        {"1e400", false},
        {"1 2", false},
        {"123456789012345.6", true},
        {"12345678901234567.", true},
        {"123456789012345678901234567890123.4567890123", true},
        {"1234567890123456.7890.1", false},
        {"--1", false},
        {"1-", false},
    };
    for (const auto& [value, accepted] : reals) {
        SCOPED_TRACE(value);
        OpenDrawing opened(entities("0 LINE;5 30;8 0;40 " + value + ";8 behind"));
        EXPECT_EQ(opened.outcome().status == Acad::eOk, accepted);
    }
    const std::pair<std::string, bool> integers[] = {
        {"0", true},
        {"     7", true},
        {"-1", true},
        {"+1", true},
        {"7  ", true},
        {"", false},
        {"   ", false},
        {"1.0", false},
        {"1e3", false},
        {"7 7", false},
        {"-", false},
        {"0x1", false},
        {"99999999999999999999999", false},
        {"               7", true},
        {"                    7", true},
    };
    for (const auto& [value, accepted] : integers) {
        SCOPED_TRACE(value);
        OpenDrawing opened(entities("0 LINE;5 30;8 0;70 " + value + ";8 behind"));
        EXPECT_EQ(opened.outcome().status == Acad::eOk, accepted);
    }
}

TEST(DrawingReader, FindsHandleOwnerAndLayerWhereTheyCount)
{
    OpenDrawing opened(lines(modernDrawing(
        "0 LINE;5 30;102 {ACAD_REACTORS;330 99;102 };102 {ACAD_XDICTIONARY;360 98;102 };330 1F;"
        "100 AcDbEntity;67 0;8 walls;100 AcDbLine;330 98;8 not this;"
        "0 LINE;5 31;102 {ACAD_XDICTIONARY;360 97;102 };102 {ACAD_REACTORS;330 99;102 };330 1B;"
        "100 AcDbEntity;67 1;8 paper;100 AcDbLine;"
        "0 MTEXT;5 32;330 1F;100 AcDbEntity;8 text;100 AcDbMText;1 a;101 Embedded Object;"
        "100 AcDbEntity;8 inside;5 77;"
        "0 LINE;5 33;330 1F;100 AcDbEntity;8 last;100 AcDbLine;1001 APP;1003 x;8 data",
        {}, "0 XRECORD;5 40;330 C;100 AcDbXrecord;280 1;102 {ACAD_XDICTIONARY;5 41;330 1F;102 }")));
    ASSERT_EQ(opened.outcome().status, Acad::eOk);
    Drawing& drawing = opened.drawing();
    const auto layerOf = [&](std::uint64_t handle) {
        return std::string(drawing.index.layers().name(opened.stub(handle).layer));
    };
    EXPECT_EQ(layerOf(0x30), "walls");
    EXPECT_EQ(layerOf(0x31), "paper");
    EXPECT_EQ(layerOf(0x32), "text");
    EXPECT_EQ(layerOf(0x33), "last");
    const std::uint16_t groups = kHasDictionary | kHasReactors;
    EXPECT_EQ(opened.stub(0x30).flags & groups, groups);
    EXPECT_EQ(opened.stub(0x31).flags & groups, groups);
    EXPECT_EQ(opened.stub(0x40).flags & groups, 0) << "a payload is no head";
    EXPECT_EQ(drawing.index[opened.stub(0x30).owner].handle, 0x1Fu);
    EXPECT_EQ(drawing.index[opened.stub(0x31).owner].handle, 0x1Bu);
    EXPECT_EQ(drawing.index[opened.stub(0x40).owner].handle, 0xCu);
    EXPECT_EQ(drawing.index.findHandle(0x77), 0u);
    EXPECT_EQ(drawing.index.findHandle(0x41), 0u);
    EXPECT_EQ(drawing.blocks[drawing.modelSpace].entities.size(), 3u);
    EXPECT_EQ(drawing.blocks[drawing.paperSpace].entities.size(), 1u);
    EXPECT_TRUE(drawing.warnings.empty());
}

TEST(DrawingReader, HangsSequencesOnTheirParents)
{
    OpenDrawing opened(lines(header("AC1009") +
                             section("BLOCKS", "0 BLOCK;8 0;2 door;70 0;0 LINE;5 20;8 0;"
                                               "0 ENDBLK;8 0") +
                             section("ENTITIES", "0 POLYLINE;5 30;8 a;66 1;0 VERTEX;5 31;8 a;"
                                                 "0 VERTEX;8 a;5 32;0 SEQEND;5 33;8 a;"
                                                 "0 INSERT;5 34;8 a;66 1;2 door;"
                                                 "0 ATTRIB;5 35;8 a;0 SEQEND;5 36;8 a;"
                                                 "0 LINE;5 37;67 1;8 a;0 VERTEX;5 38;8 a") +
                             "0 EOF"));
    ASSERT_EQ(opened.outcome().status, Acad::eOk);
    Drawing& drawing = opened.drawing();
    const auto childrenOf = [&](std::uint64_t handle) {
        std::vector<std::uint64_t> found;
        for (const std::uint32_t child : drawing.children(drawing.index.findHandle(handle), true))
            found.push_back(drawing.index[child].handle);
        return found;
    };
    EXPECT_EQ(childrenOf(0x30), (std::vector<std::uint64_t>{0x31, 0x32, 0x33}));
    EXPECT_EQ(childrenOf(0x34), (std::vector<std::uint64_t>{0x35, 0x36}));
    EXPECT_EQ(childrenOf(0x37), std::vector<std::uint64_t>{}); // what follows is a part of nothing
    EXPECT_EQ(drawing.blocks[drawing.modelSpace].entities.size(), 2u);
    EXPECT_EQ(drawing.blocks[drawing.paperSpace].entities.size(), 1u);
    EXPECT_EQ(drawing.blocks.size(), 3u);
    EXPECT_EQ(drawing.warnings,
              (std::vector<std::wstring>{
                  L"1 VERTEX, ATTRIB or SEQEND that follows no POLYLINE or INSERT"}));
}

TEST(DrawingReader, GivesHandlesAboveTheSeedInFileOrder)
{
    const std::string bytes =
        lines(header("AC1015", "50") +
              section("ENTITIES", "0 LINE;5 60;8 0;0 LINE;8 0;0 LINE;5 60;8 1;0 LINE;5;8 2;"
                                  "0 LINE;5 FFFFFFFFFFFFFFFF;8 3;0 ENDTAB") +
              section("OBJECTS", "0 DICTIONARY;5 C;330 D0;100 AcDbDictionary") + "0 ENDSEC;0 EOF");
    OpenDrawing opened(bytes);
    ASSERT_EQ(opened.outcome().status, Acad::eOk);
    Drawing& drawing = opened.drawing();
    std::vector<std::uint64_t> handles;
    for (const std::uint32_t entity : drawing.blocks[drawing.modelSpace].entities)
        handles.push_back(drawing.index[entity].handle);
    EXPECT_EQ(handles, (std::vector<std::uint64_t>{0x60, 0x61, 0x62, 0x63, 0x64}));
    EXPECT_EQ(drawing.warnings, (std::vector<std::wstring>{
                                    L"2 ends of sections or tables that never began",
                                    L"1 record without a handle; it was given one",
                                    L"1 record with an empty handle; it was given one",
                                    L"2 records with the handle of another; they were given new "
                                    L"ones",
                                    L"1 record whose owner is not in the drawing"}));
    EXPECT_EQ(opened.saved(), bytes);
}

TEST(DrawingReader, TakesTheHandleOfADimensionStyleFromItsOwnCode)
{
    OpenDrawing opened(lines(header("AC1012") +
                             section("TABLES", "0 TABLE;2 DIMSTYLE;5 A;70 2;"
                                               "0 DIMSTYLE;105 27;100 AcDbSymbolTableRecord;2 a;5;"
                                               "0 DIMSTYLE;105 28;2 b;5 DOT;0 ENDTAB") +
                             "0 EOF"));
    ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
    EXPECT_EQ(opened.drawing().index.types().name(opened.stub(0x27).type), "DIMSTYLE");
    EXPECT_EQ(opened.drawing().index.types().name(opened.stub(0x28).type), "DIMSTYLE");
    EXPECT_TRUE(opened.drawing().warnings.empty());
}

// From 4 MiB on two threads share the work; the outcome must be that of a plain walk over the
// lines.
TEST(DrawingReader, ReadsGreatFilesAsASimpleWalkWould)
{
    std::string text = lines(header("AC1015", "FFFFF") + "0 SECTION;2 ENTITIES");
    unsigned random = 12345;
    const auto next = [&] { return random = random * 1103515245u + 12345u, random >> 16; };
    std::size_t written = 0;
    while (text.size() < (std::size_t{5} << 20)) {
        const unsigned kind = next() % 3;
        text += lines("0 " + std::string(kind == 0 ? "LINE" : kind == 1 ? "TEXT" : "CIRCLE"));
        char head[64];
        std::snprintf(head, sizeof head, "  5\n%zX\n  8\nlayer %u\n", ++written, next() % 40);
        text += head;
        for (unsigned i = next() % 12; i-- > 0;)
            text += next() % 3 ? "  1\n0\n" : " 70\n0\n";
        if (next() % 7 == 0)
            text += "  1\nsome text\n999\n  0\n";
    }
    text += lines("0 ENDSEC;0 EOF");

    OpenDrawing opened(text);
    ASSERT_EQ(opened.outcome().status, Acad::eOk) << toUtf8(opened.outcome().message);
    const RecordIndex& index = opened.drawing().index;
    std::uint32_t number = 0;
    std::size_t at = 0;
    std::string layer, type;
    std::size_t start = 0;
    const auto checkLast = [&](std::size_t end) {
        if (number == 0)
            return true;
        const Stub& stub = index[number];
        return stub.offset == start && stub.length == end - start &&
               index.types().name(stub.type).starts_with(type) &&
               index.layers().name(stub.layer) == layer;
    };
    while (at < text.size()) {
        const std::size_t codeEnd = text.find('\n', at);
        const std::size_t valueEnd = text.find('\n', codeEnd + 1);
        const int code = std::stoi(text.substr(at, codeEnd - at));
        const std::string value = text.substr(codeEnd + 1, valueEnd - codeEnd - 1);
        if (code == 0) {
            ASSERT_TRUE(checkLast(at)) << "record " << number;
            ++number;
            start = at;
            type = value;
            layer.clear();
        } else if (code == 8) {
            layer = value;
        }
        at = valueEnd + 1;
    }
    ASSERT_TRUE(checkLast(text.size()));
    EXPECT_EQ(opened.drawing().fileRecords, number);

    // and damage in either half is told with its line
    for (const double part : {0.1, 0.6, 0.99}) {
        std::string damaged = text;
        const std::size_t code =
            damaged.find("\n 70\n", static_cast<std::size_t>(part * double(text.size())));
        damaged[code + 1] = 'x';
        const auto line = 2 + std::count(text.begin(), text.begin() + std::ptrdiff_t(code), '\n');
        OpenDrawing refused(damaged);
        EXPECT_EQ(toUtf8(refused.outcome().message),
                  "plan.dxf, line " + std::to_string(line) + ": 'x70' is no group code");
    }
}
