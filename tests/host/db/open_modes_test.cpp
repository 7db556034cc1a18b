#include "host/db/circle.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_tables.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

namespace {

using Pointer = AcDbObjectPointer<AcDbObject>;

// How many have a line open already, and what the next one gets.
TEST(OpenModes, AnyReadersOrOneWriter)
{
    struct Case {
        const char* name;
        int readers;
        bool writer;
        AcDb::OpenMode mode;
        Acad::ErrorStatus status;
    };
    const Case cases[] = {
        {"the first reader", 0, false, AcDb::kForRead, Acad::eOk},
        {"the first writer", 0, false, AcDb::kForWrite, Acad::eOk},
        {"a second reader", 1, false, AcDb::kForRead, Acad::eOk},
        {"a tenth reader", 9, false, AcDb::kForRead, Acad::eOk},
        {"a writer beside a reader", 1, false, AcDb::kForWrite, Acad::eWasOpenForRead},
        {"a reader beside the writer", 0, true, AcDb::kForRead, Acad::eWasOpenForWrite},
        {"a second writer", 0, true, AcDb::kForWrite, Acad::eWasOpenForWrite},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        DxfDrawing drawing;
        const std::string line = drawing.line();
        ReadDrawing read(drawing.text());
        std::vector<Pointer> held;
        for (int i = 0; i < row.readers; ++i)
            held.emplace_back(read.idOf(line), AcDb::kForRead);
        if (row.writer)
            held.emplace_back(read.idOf(line), AcDb::kForWrite);
        {
            const Pointer next(read.idOf(line), row.mode);
            EXPECT_EQ(next.openStatus(), row.status);
            EXPECT_EQ(static_cast<bool>(next), row.status == Acad::eOk);
        }
        held.clear();
        EXPECT_EQ(Pointer(read.idOf(line), AcDb::kForWrite).openStatus(), Acad::eOk)
            << "something stayed open";
        EXPECT_TRUE(read.drawing().openObjects.empty());
    }
}

TEST(OpenModes, UpgradingTakesTheOnlyReader)
{
    DxfDrawing drawing;
    drawing.layer("Locked", 4);
    const std::string line = drawing.line();
    const std::string locked = drawing.line("Locked");
    ReadDrawing read(drawing.text());

    Pointer one(read.idOf(line), AcDb::kForRead);
    Pointer two(read.idOf(line), AcDb::kForRead);
    EXPECT_EQ(one->upgradeOpen(), Acad::eWasOpenForRead);
    EXPECT_FALSE(one->isWriteEnabled());
    two.close();
    EXPECT_EQ(one->upgradeOpen(), Acad::eOk);
    EXPECT_TRUE(one->isWriteEnabled());
    EXPECT_EQ(Pointer(read.idOf(line), AcDb::kForRead).openStatus(), Acad::eWasOpenForWrite);
    EXPECT_EQ(one->downgradeOpen(), Acad::eOk);
    EXPECT_FALSE(one->isWriteEnabled());
    EXPECT_EQ(one->downgradeOpen(), Acad::eNotOpenForWrite);
    EXPECT_EQ(Pointer(read.idOf(line), AcDb::kForRead).openStatus(), Acad::eOk);
    one.close();

    Pointer onLocked(read.idOf(locked), AcDb::kForRead);
    EXPECT_EQ(onLocked->upgradeOpen(), Acad::eOnLockedLayer);
    EXPECT_FALSE(onLocked->isWriteEnabled());
}

TEST(OpenModes, ErasedObjectsOpenOnDemandOnly)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    ReadDrawing read(drawing.text());
    const AcDbObjectId id = read.idOf(line);
    ASSERT_EQ(Pointer(id, AcDb::kForWrite)->erase(), Acad::eOk);
    EXPECT_TRUE(id.isErased());
    EXPECT_EQ(Pointer(id, AcDb::kForRead).openStatus(), Acad::eWasErased);
    EXPECT_EQ(Pointer(id, AcDb::kForWrite).openStatus(), Acad::eWasErased);
    Pointer erased(id, AcDb::kForRead, true);
    ASSERT_EQ(erased.openStatus(), Acad::eOk);
    EXPECT_TRUE(erased->isErased());
    EXPECT_EQ(erased->erase(false), Acad::eNotOpenForWrite);
    erased.close();
    EXPECT_EQ(Pointer(id, AcDb::kForWrite, true)->erase(false), Acad::eOk);
    EXPECT_EQ(Pointer(id, AcDb::kForRead).openStatus(), Acad::eOk);
}

TEST(OpenModes, LockedLayersRefuseWriting)
{
    DxfDrawing drawing;
    drawing.layer("Locked", 4);
    drawing.layer("Frozen", 1);
    drawing.layer("Both", 5);
    const std::tuple<const char*, Acad::ErrorStatus> rows[] = {
        {"0", Acad::eOk},      {"Locked", Acad::eOnLockedLayer}, {"LOCKED", Acad::eOnLockedLayer},
        {"Frozen", Acad::eOk}, {"Both", Acad::eOnLockedLayer},   {"missing", Acad::eOk},
    };
    std::vector<std::string> handles;
    for (const auto& [layer, status] : rows)
        handles.push_back(drawing.line(layer));
    ReadDrawing read(drawing.text());
    for (std::size_t i = 0; i < handles.size(); ++i) {
        SCOPED_TRACE(std::get<0>(rows[i]));
        EXPECT_EQ(Pointer(read.idOf(handles[i]), AcDb::kForRead).openStatus(), Acad::eOk);
        EXPECT_EQ(Pointer(read.idOf(handles[i]), AcDb::kForWrite).openStatus(),
                  std::get<1>(rows[i]));
    }
    // unlocking counts at once, and so does locking
    for (const bool locked : {false, true}) {
        AcDbObjectId layer;
        AcDbObjectPointer<AcDbLayerTable> table(read.database().layerTableId(), AcDb::kForRead);
        ASSERT_EQ(table->getAt(L"Locked", layer), Acad::eOk);
        AcDbObjectPointer<AcDbLayerTableRecord>(layer, AcDb::kForWrite)->setIsLocked(locked);
        EXPECT_EQ(Pointer(read.idOf(handles[1]), AcDb::kForWrite).openStatus(),
                  locked ? Acad::eOnLockedLayer : Acad::eOk);
    }
}

TEST(OpenModes, IdsThatNameNothingAreRefused)
{
    AcDbObjectId closed;
    {
        DxfDrawing drawing;
        const std::string line = drawing.line();
        ReadDrawing read(drawing.text());
        closed = read.idOf(line);
        ASSERT_EQ(Pointer(closed, AcDb::kForRead).openStatus(), Acad::eOk);
    }
    ReadDrawing read(DxfDrawing().text());
    const std::uint32_t number = read.drawing().number;
    const std::tuple<const char*, AcDbObjectId, Acad::ErrorStatus> rows[] = {
        {"null", AcDbObjectId(), Acad::eNullObjectId},
        {"of a closed database", closed, Acad::eNoDatabase},
        {"behind the last object", AcDbObjectId(number, read.drawing().index.count() + 1),
         Acad::eUnknownHandle},
        {"no object's number", AcDbObjectId(number, 0), Acad::eUnknownHandle},
        {"a section", read.drawing().id(1), Acad::eWrongObjectType},
    };
    for (const auto& [name, id, status] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Pointer(id, AcDb::kForRead).openStatus(), status);
        EXPECT_EQ(Pointer(id, AcDb::kForWrite).openStatus(), status);
    }
    EXPECT_FALSE(closed.isValid());
    EXPECT_TRUE(closed.isErased());
    EXPECT_TRUE(closed.handle().isNull());
    EXPECT_EQ(closed.objectClass(), nullptr);
    EXPECT_TRUE(read.drawing().openObjects.empty());
}

TEST(OpenModes, AnObjectOfAnotherClassIsClosedAgain)
{
    DxfDrawing drawing;
    const std::string line = drawing.line();
    ReadDrawing read(drawing.text());
    const AcDbObjectPointer<AcDbCircle> circle(read.idOf(line), AcDb::kForWrite);
    EXPECT_EQ(circle.openStatus(), Acad::eNotThatKindOfClass);
    EXPECT_EQ(AcDbObjectPointer<AcDbLine>(read.idOf(line), AcDb::kForWrite).openStatus(),
              Acad::eOk);
}

TEST(OpenModes, SettersNeedAWriter)
{
    DxfDrawing drawing;
    const std::string handle = drawing.circle(2.0);
    ReadDrawing read(drawing.text());
    const AcDbObjectId id = read.idOf(handle);
    const std::string before = read.record(id);
    const AcDbObjectPointer<AcDbCircle> circle(id, AcDb::kForRead);
    EXPECT_EQ(circle->setRadius(3.0), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->setColorIndex(1), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->setLayer(L"0"), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->erase(), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->createExtensionDictionary(), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->addPersistentReactor(id), Acad::eNotOpenForWrite);
    EXPECT_EQ(circle->setXData(ResbufChain(1)), Acad::eNotOpenForWrite);
    EXPECT_EQ(read.record(id), before);
    EXPECT_FALSE(read.database().isModified());
}

TEST(OpenModes, ObjectsOutsideOfADatabaseStayTheirMakers)
{
    ReadDrawing read(DxfDrawing().text()); // gives the form of what is made
    AcDbCircle circle({1, 2, 0}, AcGeVector3d::kZAxis, 5);
    EXPECT_TRUE(circle.isWriteEnabled());
    EXPECT_EQ(circle.close(), Acad::eNotInDatabase);
    EXPECT_EQ(circle.erase(), Acad::eNotInDatabase);
    EXPECT_EQ(circle.createExtensionDictionary(), Acad::eNotInDatabase);
    EXPECT_TRUE(circle.objectId().isNull());
    EXPECT_EQ(circle.setRadius(6.0), Acad::eOk);
    EXPECT_EQ(circle.radius(), 6.0);
}

TEST(OpenModes, WhatACommandLeavesOpenIsClosed)
{
    DxfDrawing drawing;
    const std::string first = drawing.line();
    const std::string second = drawing.circle(1.0);
    ReadDrawing read(drawing.text());
    AcDbObject* object = nullptr;
    for (int i = 0; i < 3; ++i)
        ASSERT_EQ(acdbOpenAcDbObject(object, read.idOf(first), AcDb::kForRead), Acad::eOk);
    AcDbCircle* circle = nullptr;
    ASSERT_EQ(acdbOpenObject(circle, read.idOf(second), AcDb::kForWrite), Acad::eOk);
    circle->setRadius(4.0);
    EXPECT_EQ(read.drawing().closeAllOpen(), 4);
    EXPECT_EQ(read.drawing().closeAllOpen(), 0);
    EXPECT_EQ(Pointer(read.idOf(first), AcDb::kForWrite).openStatus(), Acad::eOk);
    EXPECT_EQ(AcDbObjectPointer<AcDbCircle>(read.idOf(second), AcDb::kForRead)->radius(), 4.0);
}

// 120,000 lines hold more than what is kept of closed objects, whichever way they are visited.
TEST(OpenModes, ClosedObjectsAreGivenBackWhenTheyAreMany)
{
    constexpr std::uint32_t kLines = 120000;
    DxfDrawing drawing;
    for (std::uint32_t i = 0; i < kLines; ++i)
        drawing.line();
    ReadDrawing read(drawing.text());
    host::RecordIndex& index = read.drawing().index;
    const auto lines = [&] {
        std::vector<std::uint32_t> stubs;
        for (std::uint32_t stub = 1; stub <= index.count(); ++stub)
            if ((index[stub].flags & host::kEntity) != 0)
                stubs.push_back(stub);
        return stubs;
    }();
    ASSERT_EQ(lines.size(), kLines);
    const auto kept = [&] {
        return std::count_if(lines.begin(), lines.end(),
                             [&](std::uint32_t stub) { return index[stub].object != nullptr; });
    };
    const auto visit = [&](bool asking) {
        for (const std::uint32_t stub : lines) {
            const AcDbObjectPointer<AcDbLine> line(read.drawing().id(stub), AcDb::kForRead);
            if (asking) {
                ASSERT_EQ(line->endPoint(), AcGePoint3d(1, 0, 0));
            }
        }
    };

    // one is changed, one is open, one has somebody who listens: these three stay
    AcDbObjectPointer<AcDbLine>(read.drawing().id(lines[0]), AcDb::kForWrite)
        ->setEndPoint({1, 0, 7});
    AcDbObjectPointer<AcDbLine>(read.drawing().id(lines[0]), AcDb::kForWrite)
        ->setEndPoint({1, 0, 0});
    const AcDbObjectPointer<AcDbLine> open(read.drawing().id(lines[1]), AcDb::kForRead);
    AcDbObjectReactor listener;
    AcDbObjectPointer<AcDbLine>(read.drawing().id(lines[2]), AcDb::kForRead)->addReactor(&listener);

    visit(false);
    visit(true);
    // 32 MiB and a line of 12 tags: some 60,000 of them
    EXPECT_LT(kept(), 80000);
    EXPECT_GT(kept(), 1000) << "nothing is kept at all";
    EXPECT_NE(index[lines[0]].object, nullptr);
    EXPECT_EQ(index[lines[1]].object, open.object());
    EXPECT_NE(index[lines[2]].object, nullptr);
    visit(true);
    EXPECT_LT(kept(), 80000);
    AcDbObjectPointer<AcDbLine>(read.drawing().id(lines[2]), AcDb::kForRead)
        ->removeReactor(&listener);
}

} // namespace
