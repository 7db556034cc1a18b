#include "host/db/dictionary.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "host/db/xrecord.h"
#include "tests/support/drawing_text.h"
#include "tests/support/dxf_drawing.h"

namespace {

using Line = AcDbObjectPointer<AcDbLine>;
using Dictionary = AcDbObjectPointer<AcDbDictionary>;

// A drawing with one line, and steps that tests take with it.
class ExtensionDictionary : public testing::Test {
protected:
    AcDbObjectId lineId() { return read_.idOf(handle_); }
    std::string line() { return read_.record(lineId()); }

    AcDbObjectId create()
    {
        Line line(lineId(), AcDb::kForWrite);
        EXPECT_EQ(line->createExtensionDictionary(), Acad::eOk);
        return line->extensionDictionary();
    }
    AcDbObjectId addRecord(AcDbObjectId dictionary, const wchar_t* key)
    {
        Dictionary list(dictionary, AcDb::kForWrite);
        AcDbObjectPointer<AcDbXrecord> record;
        record.create();
        AcDbObjectId id;
        EXPECT_EQ(list->setAt(key, record.object(), id), Acad::eOk);
        return id;
    }
    void erase(AcDbObjectId id, bool erasing = true)
    {
        AcDbObjectPointer<AcDbObject> object(id, AcDb::kForWrite, true);
        ASSERT_EQ(object.openStatus(), Acad::eOk);
        EXPECT_EQ(object->erase(erasing), Acad::eOk);
    }
    static std::string drawn(std::string& handle)
    {
        DxfDrawing drawing;
        handle = drawing.line();
        return drawing.text();
    }

    std::string handle_;
    ReadDrawing read_{drawn(handle_)};
};

TEST_F(ExtensionDictionary, IsMadeOnceAndNamedBehindTheHandle)
{
    EXPECT_TRUE(Line(lineId(), AcDb::kForRead)->extensionDictionary().isNull());
    const std::string before = line();
    const AcDbObjectId id = create();
    ASSERT_FALSE(id.isNull());
    std::string expected = before;
    expected.insert(expected.find("330\n"),
                    "102\n{ACAD_XDICTIONARY\n360\n" + handleText(id) + "\n102\n}\n");
    EXPECT_EQ(line(), expected);
    EXPECT_EQ(read_.record(id), "0\nDICTIONARY\n5\n" + handleText(id) + "\n330\n" + handle_ +
                                    "\n100\nAcDbDictionary\n280\n1\n281\n1\n");
    Line line(lineId(), AcDb::kForWrite);
    EXPECT_EQ(line->createExtensionDictionary(), Acad::eAlreadyInDb);
    EXPECT_EQ(line->extensionDictionary(), id);
    EXPECT_EQ(Dictionary(id, AcDb::kForRead)->ownerId(), lineId());
}

TEST_F(ExtensionDictionary, IsReleasedOnlyWhenEmpty)
{
    const std::string before = line();
    EXPECT_EQ(Line(lineId(), AcDb::kForWrite)->releaseExtensionDictionary(), Acad::eKeyNotFound);
    const AcDbObjectId id = create();
    const AcDbObjectId record = addRecord(id, L"DATA");
    EXPECT_EQ(Line(lineId(), AcDb::kForRead)->releaseExtensionDictionary(), Acad::eNotOpenForWrite);
    EXPECT_EQ(Line(lineId(), AcDb::kForWrite)->releaseExtensionDictionary(),
              Acad::eContainerNotEmpty);
    erase(record);
    {
        const Dictionary reading(id, AcDb::kForRead);
        EXPECT_EQ(Line(lineId(), AcDb::kForWrite)->releaseExtensionDictionary(),
                  Acad::eWasOpenForRead);
    }
    EXPECT_EQ(Line(lineId(), AcDb::kForWrite)->releaseExtensionDictionary(), Acad::eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(line(), before);
    const AcDbObjectId another = create();
    EXPECT_NE(another, id) << "a number is not given twice";
    EXPECT_NE(another.handle(), id.handle());
}

TEST_F(ExtensionDictionary, GoesAndComesWithItsEntity)
{
    const AcDbObjectId id = create();
    const AcDbObjectId record = addRecord(id, L"DATA");
    const AcDbObjectId gone = addRecord(id, L"GONE");
    erase(gone);
    for (int round = 0; round < 2; ++round) {
        erase(lineId());
        EXPECT_TRUE(id.isErased());
        EXPECT_TRUE(record.isErased());
        erase(lineId(), false);
        EXPECT_FALSE(id.isErased());
        EXPECT_FALSE(record.isErased());
        EXPECT_TRUE(gone.isErased()) << "it was erased for itself";
    }
    EXPECT_EQ(Line(lineId(), AcDb::kForRead)->extensionDictionary(), id);
    AcDbObjectId found;
    EXPECT_EQ(Dictionary(id, AcDb::kForRead)->getAt(L"data", found), Acad::eOk);
    EXPECT_EQ(found, record);
}

TEST_F(ExtensionDictionary, AnOpenOneKeepsItsEntityWhole)
{
    const AcDbObjectId dictionary = create();
    const AcDbObjectId record = addRecord(dictionary, L"DATA");
    const std::string before = read_.written();
    const std::tuple<AcDbObjectId, AcDb::OpenMode, Acad::ErrorStatus> cases[] = {
        {dictionary, AcDb::kForRead, Acad::eWasOpenForRead},
        {dictionary, AcDb::kForWrite, Acad::eWasOpenForWrite},
        {record, AcDb::kForRead, Acad::eWasOpenForRead},
    };
    for (const auto& [id, mode, status] : cases) {
        const AcDbObjectPointer<AcDbObject> open(id, mode);
        Line line(lineId(), AcDb::kForWrite);
        EXPECT_EQ(line->erase(), status);
        EXPECT_FALSE(line->isErased());
    }
    EXPECT_EQ(read_.written(), before);
    erase(lineId());
    EXPECT_TRUE(record.isErased());
}

TEST_F(ExtensionDictionary, AnErasedOneIsNoneAndIsReplaced)
{
    const AcDbObjectId first = create();
    erase(first);
    EXPECT_TRUE(Line(lineId(), AcDb::kForRead)->extensionDictionary().isNull());
    const AcDbObjectId second = create();
    EXPECT_NE(second, first);
    const std::string record = line();
    const std::size_t group = record.find("{ACAD_XDICTIONARY");
    ASSERT_NE(group, std::string::npos);
    EXPECT_EQ(record.find("{ACAD_XDICTIONARY", group + 1), std::string::npos) << record;
    EXPECT_EQ(record.substr(group, 40).find(handleText(second)), 22u) << record;
}

// Heads as files have them; the dictionary FE is in OBJECTS, FD is not.
TEST(ExtensionDictionaryInFiles, IsFoundWhereverTheHeadHasIt)
{
    const std::string group = "102\n{ACAD_XDICTIONARY\n360\nFE\n102\n}\n";
    const std::string reactors = "102\n{ACAD_REACTORS\n330\nC\n102\n}\n";
    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"alone", group, "FE"},
        {"before the reactors", group + reactors, "FE"},
        {"behind the reactors", reactors + group, "FE"},
        {"as a soft owner", "102\n{ACAD_XDICTIONARY\n350\nFE\n102\n}\n", "FE"},
        {"one that is not in the file", "102\n{ACAD_XDICTIONARY\n360\nFD\n102\n}\n", ""},
        {"an empty group", "102\n{ACAD_XDICTIONARY\n102\n}\n", ""},
        {"reactors only", reactors, ""},
    };
    for (const auto& [name, head, handle] : rows) {
        SCOPED_TRACE(name);
        DxfDrawing drawing;
        const std::string line = drawing.line("0", {}, head);
        drawing.object("0\nDICTIONARY\n5\nFE\n330\n" + line + "\n100\nAcDbDictionary\n281\n1\n");
        ReadDrawing read(drawing.text());
        EXPECT_EQ(Line(read.idOf(line), AcDb::kForRead)->extensionDictionary(), read.idOf(handle));
        // what names nothing makes room for a real one
        Line open(read.idOf(line), AcDb::kForWrite);
        EXPECT_EQ(open->createExtensionDictionary(), *handle ? Acad::eAlreadyInDb : Acad::eOk);
        EXPECT_FALSE(open->extensionDictionary().isNull());
    }
}

// R12 has no such groups, but the drawing in memory does; some write the layer first.
TEST(ExtensionDictionaryInFiles, OldRecordsTakeOneToo)
{
    const std::pair<const char*, const char*> rows[] = {
        {"handle first", "0 LINE|5 A1|8 A|10 1.0|20 2.0|11 3.0|21 4.0"},
        {"layer before the handle", "0 LINE|8 A|5 A1|10 1.0|20 2.0|11 3.0|21 4.0"},
    };
    for (const auto& [name, record] : rows) {
        SCOPED_TRACE(name);
        ReadDrawing read = host::test::openText(record, host::DxfVersion::r12);
        Line line(read.idOf("A1"), AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        ASSERT_EQ(line->createExtensionDictionary(), Acad::eOk);
        ASSERT_EQ(line->addPersistentReactor(read.database().namedObjectsDictionaryId()),
                  Acad::eOk);
        EXPECT_EQ(line->setColorIndex(3), Acad::eOk);
        line.close();
        line.open(read.idOf("A1"), AcDb::kForRead);
        EXPECT_FALSE(line->extensionDictionary().isNull());
        EXPECT_EQ(line->persistentReactors().size(), 1u);
        EXPECT_EQ(line->layer(), L"A");
        EXPECT_EQ(line->colorIndex(), 3);
        EXPECT_EQ(line->endPoint(), AcGePoint3d(3, 4, 0));
        EXPECT_EQ(line->handle(), AcDbHandle(0xA1));
    }
}

} // namespace
