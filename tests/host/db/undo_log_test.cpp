#include "host/db/undo_log.h"

#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "host/db/dictionary.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_tables.h"
#include "host/db/xrecord.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <set>

namespace {

using Circle = AcDbObjectPointer<AcDbCircle>;

// A drawing with the layers 0 and Roads and two circles of radius 1 and 2; steps that change it.
class UndoTest : public testing::Test {
protected:
    host::UndoLog& log() { return read_.drawing().undo; }
    void begin(const wchar_t* name = L"STEP") { log().beginGroup(name); }
    void end() { log().endGroup(read_.drawing()); }
    std::wstring undo() { return log().undo(read_.drawing()); }
    std::wstring redo() { return log().redo(read_.drawing()); }

    AcDbObjectId first() { return read_.idOf(first_); }
    AcDbObjectId second() { return read_.idOf(second_); }
    static void setRadius(AcDbObjectId id, double radius)
    {
        Circle circle(id, AcDb::kForWrite);
        ASSERT_EQ(circle.openStatus(), Acad::eOk);
        EXPECT_EQ(circle->setRadius(radius), Acad::eOk);
    }
    static double radius(AcDbObjectId id)
    {
        const Circle circle(id, AcDb::kForRead);
        return circle ? circle->radius() : -1;
    }
    static void erase(AcDbObjectId id)
    {
        EXPECT_EQ(AcDbObjectPointer<AcDbObject>(id, AcDb::kForWrite)->erase(), Acad::eOk);
    }
    AcDbObjectId add(double radius)
    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(read_.database().modelSpaceId(),
                                                      AcDb::kForWrite);
        Circle circle;
        circle.create();
        AcDbObjectId id;
        EXPECT_EQ(space->appendAcDbEntity(id, circle.object()), Acad::eOk);
        EXPECT_EQ(circle->setRadius(radius), Acad::eOk);
        return id;
    }
    // The radii of the circles that are there, in the order of the space.
    std::vector<double> radii()
    {
        std::vector<double> found;
        const AcDbObjectPointer<AcDbBlockTableRecord> space(read_.database().modelSpaceId(),
                                                            AcDb::kForRead);
        std::unique_ptr<AcDbBlockTableRecordIterator> each;
        EXPECT_EQ(space->newIterator(each), Acad::eOk);
        for (; !each->done(); each->step())
            found.push_back(radius(each->entityId()));
        return found;
    }
    using Radii = std::vector<double>;

    static std::string drawn(std::string& first, std::string& second)
    {
        DxfDrawing drawing;
        drawing.layer("Roads");
        first = drawing.circle(1.0);
        second = drawing.circle(2.0);
        return drawing.text();
    }
    std::string first_, second_;
    ReadDrawing read_{drawn(first_, second_)};
};

TEST_F(UndoTest, OneStepIsAllThatAGroupChanged)
{
    const std::string before = read_.written();
    begin(L"DRAW");
    setRadius(first(), 5);
    setRadius(first(), 6); // opened twice, taken once
    erase(second());
    const AcDbObjectId made = add(7);
    setRadius(made, 8);
    end();
    EXPECT_EQ(radii(), (Radii{6, 8}));
    EXPECT_EQ(log().nextUndoName(), L"DRAW");
    for (int round = 0; round < 2; ++round) {
        EXPECT_EQ(undo(), L"DRAW");
        EXPECT_EQ(radii(), (Radii{1, 2}));
        EXPECT_EQ(read_.written(), before);
        EXPECT_FALSE(read_.database().isModified());
        EXPECT_EQ(Circle(made, AcDb::kForRead, true).openStatus(), Acad::ePermanentlyErased);
        EXPECT_EQ(redo(), L"DRAW");
        EXPECT_EQ(radii(), (Radii{6, 8}));
        EXPECT_EQ(made.isErased(), false);
        EXPECT_TRUE(read_.database().isModified());
    }
}

TEST_F(UndoTest, StepsGoBackOneByOne)
{
    for (const double value : {10.0, 20.0, 30.0}) {
        begin(std::to_wstring(static_cast<int>(value)).c_str());
        setRadius(first(), value);
        end();
    }
    EXPECT_EQ(log().undoable(), 3u);
    EXPECT_EQ(undo(), L"30");
    EXPECT_EQ(undo(), L"20");
    EXPECT_EQ(radius(first()), 10);
    EXPECT_EQ(redo(), L"20");
    EXPECT_EQ(radius(first()), 20);
    EXPECT_EQ(log().redoable(), 1u);
    // something else ends what could be done again
    begin(L"other");
    setRadius(first(), 25);
    end();
    EXPECT_EQ(log().redoable(), 0u);
    EXPECT_EQ(redo(), L"");
    EXPECT_EQ(undo(), L"other");
    EXPECT_EQ(undo(), L"20");
    EXPECT_EQ(undo(), L"10");
    EXPECT_EQ(radius(first()), 1);
    EXPECT_EQ(undo(), L"");
    EXPECT_EQ(radius(first()), 1);
}

TEST_F(UndoTest, AGroupThatChangesNothingIsNoStep)
{
    begin();
    setRadius(first(), 5);
    end();
    undo();
    begin();
    setRadius(first(), 1); // as it is
    EXPECT_EQ(Circle(second(), AcDb::kForRead)->radius(), 2);
    const AcDbObjectId passing = add(7);
    erase(passing);
    end();
    EXPECT_EQ(Circle(passing, AcDb::kForRead, true).openStatus(), Acad::ePermanentlyErased);
    EXPECT_EQ(log().undoable(), 0u);
    EXPECT_EQ(log().redoable(), 1u) << "looking is no change";
}

TEST_F(UndoTest, NestedGroupsBelongToTheOuterOne)
{
    begin(L"OUTER");
    setRadius(first(), 5);
    begin(L"INNER");
    setRadius(second(), 6);
    end();
    EXPECT_TRUE(log().groupOpen());
    EXPECT_EQ(log().undoable(), 0u);
    setRadius(second(), 7);
    end();
    EXPECT_FALSE(log().groupOpen());
    EXPECT_EQ(undo(), L"OUTER");
    EXPECT_EQ(radii(), (Radii{1, 2}));
    end(); // one too many does nothing
    EXPECT_FALSE(log().groupOpen());
}

TEST_F(UndoTest, AFailedGroupGoesBackToItsStart)
{
    begin(L"KEPT");
    setRadius(first(), 5);
    end();
    begin(L"FAILED");
    setRadius(first(), 6);
    erase(second());
    const AcDbObjectId made = add(7);
    log().rollBack(read_.drawing());
    end();
    EXPECT_EQ(radii(), (Radii{5, 2}));
    EXPECT_TRUE(made.isErased());
    EXPECT_EQ(log().nextUndoName(), L"KEPT");
    undo();
    EXPECT_EQ(radii(), (Radii{1, 2}));
}

// What a command holds open when it fails, and goes on changing, is part of its step again.
TEST_F(UndoTest, RollingBackReachesObjectsThatAreOpen)
{
    const auto goesOn = [&](AcDbCircle& circle) {
        log().rollBack(read_.drawing());
        EXPECT_EQ(circle.radius(), 1);
        circle.setRadius(9);
    };
    begin();
    {
        Circle circle(first(), AcDb::kForWrite);
        circle->setRadius(5);
        goesOn(*circle);
    }
    EXPECT_EQ(radius(first()), 9);
    end();
    EXPECT_EQ(log().undoable(), 1u);
    undo();
    EXPECT_EQ(radius(first()), 1);
}

TEST_F(UndoTest, WithoutAGroupNothingIsKept)
{
    setRadius(first(), 5);
    log().rollBack(read_.drawing());
    EXPECT_EQ(radius(first()), 5);
    EXPECT_EQ(undo(), L"");
    EXPECT_EQ(radius(first()), 5);
}

TEST_F(UndoTest, NumbersAndHandlesAreNotGivenTwice)
{
    std::set<AcDbObjectId> ids;
    std::set<std::uint64_t> handles;
    for (int i = 0; i < 5; ++i) {
        begin();
        const AcDbObjectId made = add(3);
        end();
        EXPECT_TRUE(ids.insert(made).second);
        EXPECT_TRUE(handles.insert(made.handle().value()).second);
        EXPECT_EQ(read_.drawing().idOfHandle(made.handle().value()), made);
        if (i % 2 == 0)
            undo();
        else
            erase(made);
    }
    EXPECT_EQ(radii(), (Radii{1, 2}));
    EXPECT_GT(*handles.begin(), 0x200u);
}

TEST_F(UndoTest, LayersAndColoursComeBackWithTheirLookups)
{
    AcDbObjectId roads;
    AcDbObjectPointer<AcDbLayerTable>(read_.database().layerTableId(), AcDb::kForRead)
        ->getAt(L"Roads", roads);
    begin(L"MOVE");
    {
        const Circle circle(first(), AcDb::kForWrite);
        circle->setLayer(roads);
        circle->setColorIndex(5);
    }
    end();
    begin(L"LOCK");
    AcDbObjectPointer<AcDbLayerTableRecord>(roads, AcDb::kForWrite)->setIsLocked(true);
    end();
    EXPECT_EQ(Circle(first(), AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer);
    undo();
    EXPECT_EQ(Circle(first(), AcDb::kForWrite).openStatus(), Acad::eOk);
    redo();
    EXPECT_EQ(Circle(first(), AcDb::kForWrite).openStatus(), Acad::eOnLockedLayer);
    undo();
    undo();
    const Circle circle(first(), AcDb::kForRead);
    EXPECT_EQ(circle->layer(), L"0");
    EXPECT_EQ(circle->layerId(), read_.database().layerZero());
    EXPECT_EQ(circle->colorIndex(), 256);
}

TEST_F(UndoTest, RecordsOfTablesAreFoundOnlyWhileTheyAreThere)
{
    const auto has = [&](const wchar_t* name) {
        return AcDbObjectPointer<AcDbLayerTable>(read_.database().layerTableId(), AcDb::kForRead)
            ->has(name);
    };
    begin();
    {
        AcDbObjectPointer<AcDbLayerTable> table(read_.database().layerTableId(), AcDb::kForWrite);
        AcDbObjectPointer<AcDbLayerTableRecord> record;
        record.create();
        record->setName(L"Rivers");
        AcDbObjectId id;
        ASSERT_EQ(table->add(id, record.object()), Acad::eOk);
    }
    end();
    EXPECT_TRUE(has(L"rivers"));
    undo();
    EXPECT_FALSE(has(L"rivers"));
    redo();
    EXPECT_TRUE(has(L"rivers"));
}

TEST_F(UndoTest, ExtensionDictionariesComeAndGoWithTheirStep)
{
    const std::string before = read_.written();
    begin(L"ATTACH");
    AcDbObjectId dictionary, record;
    {
        const Circle circle(first(), AcDb::kForWrite);
        ASSERT_EQ(circle->createExtensionDictionary(), Acad::eOk);
        dictionary = circle->extensionDictionary();
        AcDbObjectPointer<AcDbDictionary> list(dictionary, AcDb::kForWrite);
        AcDbObjectPointer<AcDbXrecord> data;
        data.create();
        ASSERT_EQ(list->setAt(L"DATA", data.object(), record), Acad::eOk);
    }
    end();
    const std::string attached = read_.written();
    begin(L"ERASE");
    erase(first());
    end();
    EXPECT_TRUE(dictionary.isErased());
    EXPECT_TRUE(record.isErased());
    undo();
    EXPECT_FALSE(record.isErased());
    EXPECT_EQ(read_.written(), attached);
    undo();
    EXPECT_TRUE(dictionary.isErased());
    EXPECT_TRUE(Circle(first(), AcDb::kForRead)->extensionDictionary().isNull());
    EXPECT_EQ(read_.written(), before);
    redo();
    EXPECT_EQ(Circle(first(), AcDb::kForRead)->extensionDictionary(), dictionary);
    EXPECT_EQ(read_.written(), attached);
    redo();
    EXPECT_TRUE(first().isErased());
    EXPECT_TRUE(record.isErased());
}

// Reactors hear of it, also when nobody has looked at the object since the file was opened.
TEST_F(UndoTest, ReactorsHearWhatComesBack)
{
    class Listener : public AcDbDatabaseReactor {
    public:
        void objectUnAppended(const AcDbDatabase*, const AcDbObject*) override { calls += "-"; }
        void objectReAppended(const AcDbDatabase*, const AcDbObject*) override { calls += "+"; }
        void objectModified(const AcDbDatabase*, const AcDbObject*) override { calls += "m"; }
        void objectErased(const AcDbDatabase*, const AcDbObject*, bool erased) override
        {
            calls += erased ? "e" : "u";
        }
        std::string calls;
    } listener;
    begin();
    add(3);
    setRadius(first(), 5);
    setRadius(first(), 6);
    erase(second());
    end();
    read_.drawing().forget(second().stubNumber()); // as recycling would
    read_.database().addReactor(&listener);
    for (int round = 0; round < 2; ++round) {
        undo();
        EXPECT_EQ(std::exchange(listener.calls, {}), "um-") << "the last change goes back first";
        redo();
        EXPECT_EQ(std::exchange(listener.calls, {}), "+me");
    }
    read_.database().removeReactor(&listener);
}

TEST_F(UndoTest, AStepKeepsWhatItBeganWith)
{
    setRadius(first(), 4); // before any step
    begin();
    setRadius(first(), 5);
    end();
    begin();
    setRadius(first(), 6);
    end();
    undo();
    undo();
    EXPECT_EQ(radius(first()), 4);
    log().clear();
    EXPECT_EQ(log().redoable(), 0u);
    EXPECT_EQ(redo(), L"");
    EXPECT_EQ(radius(first()), 4);
}

} // namespace
