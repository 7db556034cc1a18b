#include "host/db/xrecord.h"

#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <limits>

namespace {

std::string xrecordText(const std::string& behindMarker)
{
    return "0\nXRECORD\n5\n500\n102\n{ACAD_REACTORS\n330\nC\n102\n}\n330\nC\n100\nAcDbXrecord\n" +
           behindMarker;
}

std::string drawingWith(const std::string& behindMarker, std::string_view version = "AC1015")
{
    DxfDrawing drawing;
    drawing.rootEntry("DATA", "500");
    drawing.object(xrecordText(behindMarker));
    return inVersion(drawing.text(), version);
}

resbuf textItem(int code, const wchar_t* text)
{
    resbuf item;
    item.restype = static_cast<short>(code);
    item.resval.rstring = text;
    return item;
}

resbuf realItem(int code, double value)
{
    resbuf item;
    item.restype = static_cast<short>(code);
    item.resval.rreal = value;
    return item;
}

resbuf shortItem(int code, int value)
{
    resbuf item;
    item.restype = static_cast<short>(code);
    item.resval.rint = static_cast<std::int16_t>(value);
    return item;
}

resbuf pointItem(int code, ads_point point)
{
    resbuf item;
    item.restype = static_cast<short>(code);
    item.resval.rpoint = point;
    return item;
}

ResbufChain chainOf(ReadDrawing& read)
{
    AcDbObjectPointer<AcDbXrecord> record(read.idOf("500"), AcDb::kForRead);
    ResbufChain chain;
    if (record.openStatus() == Acad::eOk)
        record->rbChain(chain);
    else
        ADD_FAILURE() << "not open: " << record.openStatus();
    return chain;
}

Acad::ErrorStatus setChain(ReadDrawing& read, const ResbufChain& chain)
{
    AcDbObjectPointer<AcDbXrecord> record(read.idOf("500"), AcDb::kForWrite);
    return record.openStatus() == Acad::eOk ? record->setFromRbChain(chain) : record.openStatus();
}

TEST(Xrecord, PayloadBeginsBehindTheCloningFlagOrAtIt)
{
    struct Row {
        const char* version;
        const char* behindMarker;
        std::vector<int> codes;
    };
    const Row rows[] = {
        {"AC1015", "280\n1\n1\nA\n", {1}},
        {"AC1015", "1\nA\n280\n1\n", {1, 280}}, // written without the flag
        {"AC1015", "280\n1\n", {}},
        {"AC1015", "", {}},
        {"AC1012", "280\n1\n1\nA\n", {280, 1}},
        {"AC1014", "90\n5\n", {90}},
        // what ends other records' parts is payload here
        {"AC1032", "280\n1\n102\nX\n330\nC\n100\nY\n1000\nZ\n", {102, 330, 100, 1000}},
        {"AC1032", "280\n1\n101\nEmbedded Object\n70\n1\n", {101, 70}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(std::string(row.version) + " " + row.behindMarker);
        ReadDrawing read(drawingWith(row.behindMarker, row.version));
        std::vector<int> codes;
        for (const resbuf& item : chainOf(read))
            codes.push_back(item.restype);
        EXPECT_EQ(codes, row.codes);
    }
}

TEST(Xrecord, PointsAreOneItem)
{
    ReadDrawing read(drawingWith("280\n1\n10\n1.0\n20\n2.0\n30\n3.0\n11\n4.0\n21\n5.0\n"
                                 "10\n6.0\n40\n7.0\n30\n8.0\n"));
    const ResbufChain chain = chainOf(read);
    ASSERT_EQ(chain.size(), 5u);
    EXPECT_EQ(chain[0].resval.rpoint, (ads_point{1, 2, 3}));
    EXPECT_EQ(chain[1].restype, 11);
    EXPECT_EQ(chain[1].resval.rpoint, (ads_point{4, 5, 0})); // flat
    EXPECT_EQ(chain[2].resval.rpoint, (ads_point{6, 0, 0})); // its y is missing
    EXPECT_EQ(chain[3].resval.rreal, 7.0);
    EXPECT_EQ(chain[4].restype, 30); // a z without a point
    EXPECT_EQ(chain[4].resval.rreal, 8.0);
}

TEST(Xrecord, ValuesComeInTheTypeOfTheirCode)
{
    ReadDrawing read(drawingWith("280\n1\n  1\nGr\\U+00FCn ^ x\n70\n  -3\n90\n 70000\n"
                                 "160\n5000000000\n290\n1\n310\n00FF7A\n330\n0c\n"));
    const ResbufChain chain = chainOf(read);
    ASSERT_EQ(chain.size(), 7u);
    EXPECT_EQ(chain[0].resval.rstring, L"Gr\u00FCn ^x");
    EXPECT_EQ(chain[1].resval.rint, -3);
    EXPECT_EQ(chain[2].resval.rlong, 70000);
    EXPECT_EQ(chain[3].resval.mnInt64, 5000000000);
    EXPECT_EQ(chain[4].resval.rint, 1);
    EXPECT_EQ(chain[5].resval.rbinary, (std::vector<std::uint8_t>{0x00, 0xFF, 0x7A}));
    EXPECT_EQ(chain[6].resval.rstring, L"C");
}

// The numbers are written as no writer of ours would: what is set to an equal value must not show.
TEST(Xrecord, EqualItemsKeepTheirBytes)
{
    const std::string payload =
        "280\n1\n  1\nfirst\n 40\n1.500\n 10\n1\n 20\n2\n999\nremark\n 70\n   7\n  1\nlast\n";
    const ResbufChain same{textItem(1, L"first"), realItem(40, 1.5), pointItem(10, {1, 2, 0}),
                           shortItem(70, 7), textItem(1, L"last")};
    struct Row {
        const char* name;
        ResbufChain chain;
        std::string payload;
    };
    ResbufChain changed = same;
    changed[3] = shortItem(70, 8);
    ResbufChain longer = same;
    longer.insert(longer.begin() + 1, textItem(3, L"new"));
    ResbufChain shorter = same;
    shorter.erase(shorter.begin() + 2);
    ResbufChain swapped{same[1], same[0], same[2], same[3], same[4]};
    const Row rows[] = {
        {"same", same, payload},
        {"changed", changed,
         "280\n1\n  1\nfirst\n 40\n1.500\n 10\n1\n 20\n2\n999\nremark\n 70\n8\n  1\nlast\n"},
        {"longer", longer,
         "280\n1\n  1\nfirst\n  3\nnew\n 40\n1.500\n 10\n1\n 20\n2\n999\nremark\n 70\n   7\n  "
         "1\nlast\n"},
        {"shorter", shorter, "280\n1\n  1\nfirst\n 40\n1.500\n999\nremark\n 70\n   7\n  1\nlast\n"},
        {"swapped", swapped,
         "280\n1\n 40\n1.500\n  1\nfirst\n 10\n1\n 20\n2\n999\nremark\n 70\n   7\n  1\nlast\n"},
        {"empty", {}, "280\n1\n"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ReadDrawing read(drawingWith(payload));
        EXPECT_EQ(setChain(read, row.chain), Acad::eOk);
        std::string wanted = drawingWith(row.payload);
        std::string written = read.written();
        // widths of what is new follow the file; only what was there is compared byte for byte
        const auto squeezed = [](std::string text) {
            std::erase(text, ' ');
            return text;
        };
        if (std::string_view(row.name) == "same") {
            EXPECT_EQ(written, wanted);
            EXPECT_FALSE(read.database().isModified());
        } else {
            EXPECT_EQ(squeezed(written), squeezed(wanted));
            EXPECT_TRUE(read.database().isModified());
        }
    }
}

TEST(Xrecord, WritesAndReadsBackEveryKind)
{
    ReadDrawing read(drawingWith("280\n1\n"));
    const std::wstring longText(3000, L'\u00E4');
    resbuf binary;
    binary.restype = 310;
    binary.resval.rbinary = {1, 2, 255};
    resbuf large;
    large.restype = 160;
    large.resval.mnInt64 = -5000000000;
    const ResbufChain chain{textItem(1, longText.c_str()),
                            textItem(1, L"two\nlines\t^"),
                            textItem(2, L""),
                            realItem(40, 0.1),
                            pointItem(10, {1e-9, -2, 1e22}),
                            shortItem(280, 0),
                            shortItem(290, 1),
                            binary,
                            large,
                            textItem(330, L"1F"),
                            textItem(102, L"{X")};
    ASSERT_EQ(setChain(read, chain), Acad::eOk);
    ReadDrawing again(read.written());
    const ResbufChain back = chainOf(again);
    ASSERT_EQ(back.size(), chain.size());
    EXPECT_EQ(back[0].resval.rstring, longText);
    EXPECT_EQ(back[1].resval.rstring, L"two\nlines\t^");
    EXPECT_EQ(back[2].resval.rstring, L"");
    EXPECT_EQ(back[3].resval.rreal, 0.1);
    EXPECT_EQ(back[4].resval.rpoint, (ads_point{1e-9, -2, 1e22}));
    EXPECT_EQ(back[5].resval.rint, 0);
    EXPECT_EQ(back[7].resval.rbinary, binary.resval.rbinary);
    EXPECT_EQ(back[8].resval.mnInt64, -5000000000);
    EXPECT_EQ(back[9].resval.rstring, L"1F");
}

TEST(Xrecord, RefusesWhatWouldBreakTheFile)
{
    resbuf chunk;
    chunk.restype = 310;
    chunk.resval.rbinary.resize(128);
    const std::pair<const char*, resbuf> rows[] = {
        {"a record's beginning", textItem(0, L"LINE")},
        {"a comment", textItem(999, L"x")},
        {"a negative code", textItem(-3, L"x")},
        {"a code beyond all", textItem(1072, L"x")},
        {"no number", realItem(40, std::numeric_limits<double>::quiet_NaN())},
        {"no end", pointItem(10, {0, std::numeric_limits<double>::infinity(), 0})},
        {"no truth value", shortItem(290, 2)},
        {"no handle", textItem(330, L"1G")},
        {"an empty handle", textItem(330, L"")},
        {"a long chunk", chunk},
    };
    for (const auto& [name, item] : rows) {
        SCOPED_TRACE(name);
        ReadDrawing read(drawingWith("280\n1\n1\nA\n"));
        EXPECT_EQ(setChain(read, {textItem(1, L"B"), item}), Acad::eInvalidInput);
        EXPECT_EQ(read.written(), drawingWith("280\n1\n1\nA\n"));
    }
}

TEST(Xrecord, NewRecordHasTheFlagThatItsVersionKnows)
{
    const std::pair<const char*, bool> rows[] = {
        {"AC1012", false}, {"AC1014", false}, {"AC1015", true}, {"AC1032", true}};
    for (const auto& [version, flag] : rows) {
        SCOPED_TRACE(version);
        ReadDrawing read(drawingWith("280\n1\n", version));
        AcDbObjectId id;
        {
            AcDbObjectPointer<AcDbDictionary> root(read.database().namedObjectsDictionaryId(),
                                                   AcDb::kForWrite);
            AcDbObjectPointer<AcDbXrecord> record;
            record.create();
            ASSERT_EQ(record->setFromRbChain({shortItem(280, 5)}), Acad::eOk);
            ASSERT_EQ(root->setAt(L"NEW", record.object(), id), Acad::eOk);
        }
        const std::string text = read.record(id);
        EXPECT_NE(text.find("100\nAcDbXrecord\n"), std::string::npos);
        EXPECT_EQ(text.find("280\n") != text.rfind("280\n"), flag) << text;
        ReadDrawing again(read.written());
        AcDbObjectPointer<AcDbXrecord> record(
            again.drawing().id(again.drawing().index.findHandle(id.handle().value())),
            AcDb::kForRead);
        ASSERT_EQ(record.openStatus(), Acad::eOk);
        ResbufChain chain;
        record->rbChain(chain);
        ASSERT_EQ(chain.size(), 1u);
        EXPECT_EQ(chain[0].resval.rint, 5);
    }
}

} // namespace
