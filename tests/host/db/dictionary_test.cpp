#include "host/db/dictionary.h"

#include "host/db/object_pointer.h"
#include "host/db/xrecord.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

std::string dictionaryText(const std::string& entries)
{
    return "0\nDICTIONARY\n5\n400\n330\nC\n100\nAcDbDictionary\n" + entries;
}

std::string recordText(const char* handle)
{
    return std::string("0\nXRECORD\n5\n") + handle + "\n330\n400\n100\nAcDbXrecord\n280\n1\n1\n" +
           handle + "\n";
}

// A dictionary 400 with these entries and xrecords 401 to 403.
std::string drawingWith(const std::string& entries)
{
    DxfDrawing drawing;
    drawing.rootEntry("LIST", "400");
    drawing.object(dictionaryText(entries));
    for (const char* handle : {"401", "402", "403"})
        drawing.object(recordText(handle));
    return drawing.text();
}

const std::string kEntries =
    "281\n1\n3\nFirst\n360\n401\n3\nsecond\n350\n402\n3\nthird\n350\n403\n";

Acad::ErrorStatus addXrecord(ReadDrawing& read, const wchar_t* name, AcDbObjectId& id)
{
    AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForWrite);
    AcDbObjectPointer<AcDbXrecord> record;
    record.create();
    return list.openStatus() == Acad::eOk ? list->setAt(name, record.object(), id)
                                          : list.openStatus();
}

TEST(Dictionary, FindsKeysWithoutCaseAndTheFirstOfAKey)
{
    ReadDrawing read(drawingWith("3\nStra\xC3\x9F"
                                 "e\n350\n401\n3\nDOUBLE\n350\n402\n3\ndouble\n350\n403\n"
                                 "3\nnowhere\n350\nABC\n3\nbare\n"));
    AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForRead);
    ASSERT_EQ(list.openStatus(), Acad::eOk);
    const std::pair<const wchar_t*, const char*> rows[] = {
        {L"Double", "402"}, {L"doublE", "402"}, {L"nowhere", ""},
        {L"bare", ""},      {L"", ""},          {L"other", ""},
    };
    for (const auto& [name, handle] : rows) {
        SCOPED_TRACE(host::toUtf8(name));
        AcDbObjectId id;
        EXPECT_EQ(list->getAt(name, id), *handle ? Acad::eOk : Acad::eKeyNotFound);
        EXPECT_EQ(id, read.idOf(handle));
    }
    EXPECT_EQ(list->numEntries(), 3u);
    EXPECT_EQ(list->entries().size(), 5u);
}

TEST(Dictionary, CodeOfANewEntryFollowsTheFlagAndTheNeighbours)
{
    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"hard by the flag", "280\n1\n281\n1\n", "360"},
        {"hard by the flag though the neighbours say soft", "280\n1\n3\nA\n350\n401\n", "360"},
        {"soft without the flag", "281\n1\n", "350"},
        {"soft by the flag", "280\n0\n3\nA\n350\n401\n", "350"},
        {"hard by the neighbours", "3\nA\n360\n401\n", "360"},
    };
    for (const auto& [name, entries, code] : rows) {
        SCOPED_TRACE(name);
        ReadDrawing read(drawingWith(entries));
        AcDbObjectId id;
        ASSERT_EQ(addXrecord(read, L"New", id), Acad::eOk);
        const std::string record = read.record(read.idOf("400"));
        EXPECT_TRUE(record.find("New\n" + std::string(code) + "\n" + handleText(id) + "\n") !=
                    std::string::npos)
            << record;
    }
}

TEST(Dictionary, NewXrecordIsWrittenWithReactorOwnerAndFlag)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectId id;
    ASSERT_EQ(addXrecord(read, L"New", id), Acad::eOk);
    EXPECT_EQ(read.record(id),
              "0\nXRECORD\n5\n" + handleText(id) +
                  "\n102\n{ACAD_REACTORS\n330\n400\n102\n}\n330\n400\n100\nAcDbXrecord\n280\n1\n");
}

TEST(Dictionary, NewDictionaryIsWrittenWithItsFlags)
{
    for (const bool hard : {false, true}) {
        SCOPED_TRACE(hard);
        ReadDrawing read(drawingWith(kEntries));
        AcDbObjectId id;
        {
            AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForWrite);
            AcDbObjectPointer<AcDbDictionary> made;
            made.create();
            if (hard)
                made->setTreatElementsAsHard(true);
            ASSERT_EQ(list->setAt(L"New", made.object(), id), Acad::eOk);
        }
        EXPECT_EQ(read.record(id),
                  "0\nDICTIONARY\n5\n" + handleText(id) +
                      std::string("\n102\n{ACAD_REACTORS\n330\n400\n102\n}\n330\n400\n"
                                  "100\nAcDbDictionary\n") +
                      (hard ? "280\n1\n" : "") + "281\n1\n");
    }
}

TEST(Dictionary, ReplacingKeepsKeyAndPlaceAndErasesTheOldObject)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectId id;
    ASSERT_EQ(addXrecord(read, L"SECOND", id), Acad::eOk);
    EXPECT_TRUE(read.idOf("402").isErased());
    EXPECT_EQ(read.record(read.idOf("400")),
              dictionaryText("281\n1\n3\nFirst\n360\n401\n3\nsecond\n350\n" + handleText(id) +
                             "\n3\nthird\n350\n403\n"));
    const std::string written = read.written();
    EXPECT_EQ(written.find("5\n402\n"), std::string::npos);
}

TEST(Dictionary, ReplacingFailsWhileTheOldObjectIsOpen)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectPointer<AcDbXrecord> reader(read.idOf("402"), AcDb::kForRead);
    AcDbObjectId id;
    EXPECT_EQ(addXrecord(read, L"second", id), Acad::eWasOpenForRead);
    EXPECT_EQ(read.written(), drawingWith(kEntries));
}

TEST(Dictionary, RefusesNamesAndObjects)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectId id;
    EXPECT_EQ(addXrecord(read, L"", id), Acad::eInvalidKey);
    AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForRead);
    AcDbObjectPointer<AcDbXrecord> record;
    record.create();
    EXPECT_EQ(list->setAt(L"New", record.object(), id), Acad::eNotOpenForWrite);
    EXPECT_EQ(list->remove(L"First"), Acad::eNotOpenForWrite);
    list.close();
    list.open(read.idOf("400"), AcDb::kForWrite);
    AcDbObjectPointer<AcDbXrecord> known(read.idOf("401"), AcDb::kForRead);
    EXPECT_EQ(list->setAt(L"New", known.object(), id), Acad::eAlreadyInDb);
    EXPECT_EQ(list->setName(L"First", L"THIRD"), Acad::eDuplicateKey);
    EXPECT_EQ(list->setName(L"other", L"x"), Acad::eKeyNotFound);
    EXPECT_EQ(list->remove(L"other"), Acad::eKeyNotFound);
    list.close();
    EXPECT_EQ(read.written(), drawingWith(kEntries));
}

TEST(Dictionary, RenamesAndRemovesOneEntry)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForWrite);
    EXPECT_EQ(list->setName(L"FIRST", L"first"), Acad::eOk); // its own key in other letters
    EXPECT_EQ(list->setName(L"second", L"Zweiter"), Acad::eOk);
    EXPECT_EQ(list->remove(read.idOf("403")), Acad::eOk);
    AcDbObjectId id;
    EXPECT_EQ(list->getAt(L"zweiter", id), Acad::eOk);
    EXPECT_EQ(list->getAt(L"third", id), Acad::eKeyNotFound);
    list.close();
    EXPECT_FALSE(read.idOf("403").isErased());
    EXPECT_EQ(read.record(read.idOf("400")),
              dictionaryText("281\n1\n3\nfirst\n360\n401\n3\nZweiter\n350\n402\n"));
}

TEST(Dictionary, ErasingTakesTheEntriesAlongAndUndoBringsThemBack)
{
    ReadDrawing read(drawingWith(kEntries));
    read.drawing().undo.beginGroup(L"ERASE");
    {
        AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForWrite);
        ASSERT_EQ(list->erase(), Acad::eOk);
    }
    read.drawing().undo.endGroup(read.drawing());
    for (const char* handle : {"400", "401", "402", "403"})
        EXPECT_TRUE(read.idOf(handle).isErased()) << handle;
    AcDbObjectId id;
    {
        AcDbObjectPointer<AcDbDictionary> root(read.database().namedObjectsDictionaryId(),
                                               AcDb::kForRead);
        EXPECT_EQ(root->getAt(L"LIST", id), Acad::eKeyNotFound);
    }
    EXPECT_EQ(read.drawing().undo.undo(read.drawing()), L"ERASE");
    EXPECT_EQ(read.written(), drawingWith(kEntries));
}

TEST(Dictionary, UndoTakesANewEntryBackAndRedoBringsIt)
{
    ReadDrawing read(drawingWith(kEntries));
    AcDbObjectId id;
    read.drawing().undo.beginGroup(L"ADD");
    ASSERT_EQ(addXrecord(read, L"New", id), Acad::eOk);
    read.drawing().undo.endGroup(read.drawing());
    read.drawing().undo.undo(read.drawing());
    EXPECT_TRUE(
        host::dictionaryEntry(read.drawing(), read.idOf("400").stubNumber(), L"New").isNull());
    EXPECT_EQ(read.written(), drawingWith(kEntries));
    read.drawing().undo.redo(read.drawing());
    AcDbObjectPointer<AcDbDictionary> list(read.idOf("400"), AcDb::kForRead);
    AcDbObjectId again;
    EXPECT_EQ(list->getAt(L"new", again), Acad::eOk);
    EXPECT_EQ(again, id);
}

TEST(Dictionary, ErasedObjectsLeaveItDanglingEntriesStay)
{
    ReadDrawing read(drawingWith("3\nA\n350\n401\n3\nB\n350\nABC\n3\nC\n350\n402\n"));
    host::Drawing& drawing = read.drawing();
    drawing.undo.beginGroup(L"erase");
    AcDbObjectPointer<AcDbXrecord>(read.idOf("401"), AcDb::kForWrite)->erase();
    drawing.undo.endGroup(drawing);
    const std::uint32_t list = read.idOf("400").stubNumber();
    const auto keys = [&] {
        std::string found;
        const std::shared_ptr<const host::TagList> tags = drawing.tagsOf(list);
        for (const host::Tag& tag : *tags)
            if (tag.code == 3)
                found += tag.bytes();
        return found;
    };
    EXPECT_EQ(keys(), "BC");
    drawing.undo.undo(drawing);
    EXPECT_EQ(keys(), "ABC");
}

TEST(Dictionary, StandardDictionaryIsMadeOnce)
{
    ReadDrawing read(drawingWith(kEntries));
    const AcDbObjectId made = host::standardDictionary(read.drawing(), L"ACAD_GROUP");
    ASSERT_FALSE(made.isNull());
    EXPECT_EQ(host::standardDictionary(read.drawing(), L"acad_group"), made);
    EXPECT_EQ(host::standardDictionary(read.drawing(), L"LIST"), read.idOf("400"));
    EXPECT_EQ(host::dictionaryKey(read.drawing(), read.drawing().rootDictionary, made.stubNumber()),
              L"ACAD_GROUP");
}

} // namespace
