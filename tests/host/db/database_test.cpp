#include "host/db/database.h"

#include "host/db/dictionary.h"
#include "host/db/header_variables.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_tables.h"
#include "tests/host/files/temporary_folder.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <fstream>
#include <set>

namespace {

class DatabaseFiles : public TemporaryFolder {};

TEST(Database, IdOfAClosedDatabaseIsRefusedAndItsAddressNotGivenAgain)
{
    std::set<const void*> addresses;
    AcDbObjectId old;
    for (int i = 0; i < 20; ++i) {
        ReadDrawing read(DxfDrawing().text());
        EXPECT_TRUE(addresses.insert(&read.database()).second);
        AcDbObject* object = nullptr;
        if (!old.isNull()) {
            EXPECT_EQ(old.database(), nullptr);
            EXPECT_FALSE(old.isValid());
            EXPECT_NE(acdbOpenAcDbObject(object, old, AcDb::kForRead), Acad::eOk);
        }
        old = read.database().modelSpaceId();
    }
}

TEST(Database, FindsLivingObjectsByHandle)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    ReadDrawing read(drawing.text());
    const AcDbHandle handle(std::strtoull(line.c_str(), nullptr, 16));
    AcDbObjectId id;
    EXPECT_EQ(read.database().getAcDbObjectId(id, handle), Acad::eOk);
    EXPECT_EQ(id, read.idOf(line));
    AcDbObjectPointer<AcDbObject>(id, AcDb::kForWrite)->erase();
    EXPECT_EQ(read.database().getAcDbObjectId(id, handle), Acad::eUnknownHandle);
    EXPECT_TRUE(id.isNull());
    EXPECT_EQ(read.database().getAcDbObjectId(id, AcDbHandle()), Acad::eUnknownHandle);
    EXPECT_EQ(read.database().getAcDbObjectId(id, AcDbHandle(0xDEAD)), Acad::eUnknownHandle);
}

TEST(Database, CurrentLayerIsTheHeadersOrLayerZero)
{
    DxfDrawing drawing;
    drawing.layer("Roads");
    const std::pair<const char*, const char*> rows[] = {
        {"", "10"}, {"9\n$CLAYER\n8\nROADS\n", "100"}, {"9\n$CLAYER\n8\nnone\n", "10"}};
    for (const auto& [variable, handle] : rows) {
        SCOPED_TRACE(variable);
        std::string text = drawing.text();
        text.insert(text.find("9\n$LUPREC"), variable);
        ReadDrawing read(text);
        EXPECT_EQ(read.database().clayer(), read.idOf(handle));
    }
}

TEST_F(DatabaseFiles, IsModifiedComparesWithTheFileAndTheLastSaving)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    ReadDrawing read(drawing.text());
    AcDbDatabase& database = read.database();
    host::UndoLog& undo = read.drawing().undo;
    const auto setLuprec = [&](int digits) {
        resbuf value;
        value.restype = static_cast<short>(RTSHORT);
        value.resval.rint = static_cast<std::int16_t>(digits);
        undo.beginGroup(L"SETVAR");
        host::setHeaderVariable(read.drawing(), "LUPREC", 70, value);
        undo.endGroup(read.drawing());
    };
    EXPECT_FALSE(database.isModified());
    AcDbObjectPointer<AcDbObject>(read.idOf(line), AcDb::kForWrite).close(); // opened, not changed
    EXPECT_FALSE(database.isModified());
    setLuprec(6);
    EXPECT_TRUE(database.isModified());
    undo.undo(read.drawing());
    EXPECT_FALSE(database.isModified());

    setLuprec(6);
    EXPECT_EQ(database.saveAs(folder_ / "saved.dxf"), Acad::eOk);
    EXPECT_FALSE(database.isModified());
    undo.undo(read.drawing());
    EXPECT_TRUE(database.isModified()); // the file says 6 now
    undo.redo(read.drawing());
    EXPECT_FALSE(database.isModified());

    undo.beginGroup(L"ERASE");
    AcDbObjectPointer<AcDbObject>(read.idOf(line), AcDb::kForWrite)->erase();
    undo.endGroup(read.drawing());
    EXPECT_TRUE(database.isModified());
    undo.undo(read.drawing());
    EXPECT_FALSE(database.isModified());
}

TEST_F(DatabaseFiles, ReadsIntoAnEmptyOneOnlyAndIsEmptyAfterAFailure)
{
    std::ofstream(folder_ / "good.dxf") << DxfDrawing().text();
    std::ofstream(folder_ / "bad.dxf") << "0\nSECTION\n";
    ReadDrawing format(DxfDrawing().text());
    const std::unique_ptr<AcDbDatabase> database(new AcDbDatabase(false));
    std::wstring message;
    EXPECT_NE(database->readDwgFile(folder_ / "bad.dxf", &message), Acad::eOk);
    EXPECT_FALSE(message.empty());
    EXPECT_NE(database->readDwgFile(folder_ / "none.dxf"), Acad::eOk);
    EXPECT_EQ(database->getFilename(), L"");
    EXPECT_EQ(database->readDwgFile(folder_ / "good.dxf"), Acad::eOk);
    EXPECT_EQ(database->getFilename(), host::fromUtf8((folder_ / "good.dxf").string()));
    EXPECT_EQ(database->readDwgFile(folder_ / "good.dxf"), Acad::eInvalidInput);
    EXPECT_FALSE(database->isModified());
}

TEST(Database, ReactorsMayLeaveInsideACall)
{
    struct Leaver : AcDbDatabaseReactor {
        AcDbDatabase* database = nullptr;
        AcDbDatabaseReactor* other = nullptr;
        int heard = 0;
        void headerSysVarChanged(const AcDbDatabase*, const wchar_t*, bool) override
        {
            ++heard;
            database->removeReactor(this);
            database->removeReactor(other);
        }
    } first, second;
    ReadDrawing read(DxfDrawing().text());
    first.database = second.database = &read.database();
    first.other = &second;
    second.other = &first;
    read.database().addReactor(&first);
    read.database().addReactor(&second);
    resbuf value;
    value.restype = static_cast<short>(RTSHORT);
    for (const std::int16_t digits : {std::int16_t{1}, std::int16_t{2}}) {
        value.resval.rint = digits;
        host::setHeaderVariable(read.drawing(), "LUPREC", 70, value);
    }
    EXPECT_EQ(first.heard, 1);
    EXPECT_EQ(second.heard, 0); // it was taken off the list before its turn
}

} // namespace
