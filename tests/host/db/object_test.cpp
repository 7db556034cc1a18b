#include "host/db/object.h"

#include "host/db/block_table.h"
#include "host/db/circle.h"
#include "host/db/filers.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "tests/support/drawing_text.h"
#include "tests/support/dxf_drawing.h"

#include <functional>

namespace {

using Circle = AcDbObjectPointer<AcDbCircle>;

// ---- reactors ----

// Counts its calls by name; `inside` runs in each.
class Listener : public AcDbObjectReactor {
public:
    void openedForModify(const AcDbObject*) override { heard("openedForModify "); }
    void modified(const AcDbObject*) override { heard("modified "); }
    void erased(const AcDbObject*, bool erasing) override
    {
        heard(erasing ? "erased " : "unerased ");
    }
    void goodbye(const AcDbObject*) override { heard("goodbye "); }
    void objectClosed(AcDbObject*) override { heard("objectClosed "); }

    std::string calls;
    std::function<void()> inside;

private:
    void heard(const char* call)
    {
        calls += call;
        if (inside)
            inside();
    }
};

class DatabaseListener : public AcDbDatabaseReactor {
public:
    void objectAppended(const AcDbDatabase*, const AcDbObject* o) override { heard("appended", o); }
    void objectUnAppended(const AcDbDatabase*, const AcDbObject* o) override
    {
        heard("unappended", o);
    }
    void objectReAppended(const AcDbDatabase*, const AcDbObject* o) override
    {
        heard("reappended", o);
    }
    void objectOpenedForModify(const AcDbDatabase*, const AcDbObject* o) override
    {
        heard("opened", o);
    }
    void objectModified(const AcDbDatabase*, const AcDbObject* o) override { heard("modified", o); }
    void objectErased(const AcDbDatabase*, const AcDbObject* o, bool erased) override
    {
        heard(erased ? "erased" : "unerased", o);
    }
    void goodbye(const AcDbDatabase*) override { calls += "goodbye "; }

    std::string calls;
    std::function<void(const AcDbObject*)> inside;

private:
    void heard(const char* call, const AcDbObject* object)
    {
        calls += std::string(call) + " ";
        if (inside)
            inside(object);
    }
};

TEST(ObjectReactors, EachNoticeComesOnce)
{
    DxfDrawing drawing;
    const std::string handle = drawing.circle(1.0);
    Listener listener;
    {
        ReadDrawing read(drawing.text());
        const AcDbObjectId id = read.idOf(handle);
        Circle(id, AcDb::kForRead)->addReactor(&listener);
        Circle(id, AcDb::kForRead)->addReactor(&listener); // the same one counts once
        listener.calls.clear();

        const std::pair<std::function<void(AcDbCircle&)>, const char*> rows[] = {
            {[](AcDbCircle& c) { c.setRadius(1.0); }, "objectClosed "},
            {[](AcDbCircle& c) { c.setRadius(2.0), c.setRadius(3.0), c.setColorIndex(1); },
             "openedForModify modified objectClosed "},
            {[](AcDbCircle& c) { c.erase(), c.erase(); }, "erased objectClosed "},
            {[](AcDbCircle& c) { c.erase(false); }, "unerased objectClosed "},
            {[](AcDbCircle& c) { c.setRadius(4.0), c.downgradeOpen(); },
             "openedForModify modified objectClosed "},
        };
        for (const auto& [change, calls] : rows) {
            Circle circle(id, AcDb::kForWrite, true);
            ASSERT_EQ(circle.openStatus(), Acad::eOk);
            change(*circle);
            circle.close();
            EXPECT_EQ(std::exchange(listener.calls, {}), calls);
        }
    }
    EXPECT_EQ(listener.calls, "goodbye ");
}

TEST(ObjectReactors, ComeAndGoInsideACall)
{
    DxfDrawing drawing;
    const std::string handle = drawing.circle(1.0);
    ReadDrawing read(drawing.text());
    const AcDbObjectId id = read.idOf(handle);
    AcDbCircle* circle = nullptr;
    ASSERT_EQ(acdbOpenObject(circle, id, AcDb::kForWrite), Acad::eOk);

    Listener removesItself, removesTheNext, removed, addsOne, added;
    removesItself.inside = [&] { circle->removeReactor(&removesItself); };
    removesTheNext.inside = [&] { circle->removeReactor(&removed); };
    addsOne.inside = [&] { circle->addReactor(&added); };
    for (Listener* listener : {&removesItself, &removesTheNext, &removed, &addsOne})
        circle->addReactor(listener);
    circle->setRadius(2.0);
    EXPECT_EQ(removesItself.calls, "openedForModify ");
    EXPECT_EQ(removesTheNext.calls, "openedForModify ");
    EXPECT_EQ(removed.calls, "") << "it was gone when its turn came";
    EXPECT_EQ(added.calls, "") << "it came when the call was under way";
    circle->close();
    EXPECT_EQ(removesItself.calls, "openedForModify ");
    EXPECT_EQ(added.calls, "modified objectClosed ");
    for (Listener* listener : {&removesTheNext, &addsOne, &added})
        Circle(id, AcDb::kForRead)->removeReactor(listener);
}

TEST(DatabaseReactors, EachNoticeComesOnceAndReadsTheObject)
{
    DxfDrawing drawing;
    const std::string handle = drawing.circle(1.0);
    ReadDrawing read(drawing.text());
    const AcDbObjectId id = read.idOf(handle);
    DatabaseListener listener;
    DatabaseListener leaving;
    read.database().addReactor(&leaving);
    read.database().addReactor(&listener);
    leaving.inside = [&](const AcDbObject*) { read.database().removeReactor(&leaving); };
    double radius = 0;
    listener.inside = [&](const AcDbObject* object) {
        const AcDbCircle* const circle = AcDbCircle::cast(object);
        ASSERT_NE(circle, nullptr);
        radius = circle->radius();
        EXPECT_EQ(Circle(object->objectId(), AcDb::kForWrite).openStatus(), Acad::eWasOpenForWrite);
    };
    Circle(id, AcDb::kForWrite)->setRadius(2.0);
    EXPECT_EQ(listener.calls, "opened modified ");
    EXPECT_EQ(radius, 2.0);
    EXPECT_EQ(leaving.calls, "opened ");

    listener.calls.clear();
    Circle(id, AcDb::kForWrite)->setRadius(2.0);
    EXPECT_EQ(listener.calls, "") << "nothing was changed";

    {
        AcDbObjectPointer<AcDbBlockTableRecord> space(read.database().modelSpaceId(),
                                                      AcDb::kForWrite);
        Circle made;
        made.create();
        made->setRadius(5.0);
        listener.calls.clear();
        listener.inside = nullptr;
        ASSERT_EQ(space->appendAcDbEntity(made.object()), Acad::eOk);
        made->setRadius(6.0);
    }
    EXPECT_EQ(listener.calls, "appended ");
    read.database().removeReactor(&listener);
}

// ---- handles that the file lacks ----

// A record that is written anew gets its handle; positions of fields hold meanwhile.
TEST(GivenHandles, AreWrittenWithTheFirstChange)
{
    using host::test::dxf;
    const std::string text =
        dxf("0 SECTION|2 ENTITIES|0 CIRCLE|8 A|10 1.0|20 2.0|40 3.0|0 CIRCLE|5 A1|8 A|10 1.0|"
            "20 2.0|40 3.0|0 CIRCLE|5 A1|8 B|10 1.0|20 2.0|40 3.0|0 ENDSEC|0 EOF");
    const std::tuple<const char*, std::function<void(AcDbCircle&)>, std::string> rows[] = {
        {"a value", [](AcDbCircle& c) { c.setRadius(4.0); }, "8 A|10 1.0|20 2.0|40 4.0"},
        {"a coordinate",
         [](AcDbCircle& c) {
             c.setCenter({1, 7, 0});
         },
         "8 A|10 1.0|20 7.0|40 3.0"},
        {"a height",
         [](AcDbCircle& c) {
             c.setCenter({1, 2, 5});
         },
         "8 A|10 1.0|20 2.0|30 5.0|40 3.0"},
        {"a new field", [](AcDbCircle& c) { c.setThickness(2.0); },
         "8 A|39 2.0|10 1.0|20 2.0|40 3.0"},
        {"a colour", [](AcDbCircle& c) { c.setColorIndex(3); }, "8 A|62 3|10 1.0|20 2.0|40 3.0"},
    };
    for (const auto& [name, change, fields] : rows) {
        SCOPED_TRACE(name);
        ReadDrawing read(text);
        const std::uint32_t bare = 2, holder = 3, second = 4; // stubs in file order
        for (const std::uint32_t stub : {bare, second}) {
            const AcDbObjectId id = read.drawing().id(stub);
            Circle circle(id, AcDb::kForWrite);
            ASSERT_EQ(circle.openStatus(), Acad::eOk);
            change(*circle);
            circle.close();
            std::string expected = fields;
            if (stub == second)
                expected.replace(expected.find("8 A"), 3, "8 B");
            std::string written = read.record(id);
            std::erase(written, ' '); // the width of codes and integers is the file's matter
            EXPECT_EQ(written, dxf("0 CIRCLE|5 " + handleText(id) + "|" + expected));
        }
        EXPECT_EQ(read.idOf("A1"), read.drawing().id(holder));
        EXPECT_NE(read.drawing().id(bare).handle(), read.drawing().id(second).handle());
    }
}

// ---- extended data, persistent reactors ----

resbuf item(short code, const wchar_t* text)
{
    resbuf one;
    one.restype = code;
    one.resval.rstring = text;
    return one;
}
resbuf item(short code, double value)
{
    resbuf one;
    one.restype = code;
    one.resval.rreal = value;
    return one;
}

TEST(ExtendedData, BelongsToItsApplication)
{
    DxfDrawing drawing;
    const std::string plain = drawing.line();
    const std::string handle = drawing.entity(
        "LINE", "AcDbLine",
        "10\n0.0\n20\n0.0\n11\n1.0\n21\n0.0\n1001\nONE\n1040\n1.50\n1001\nTwo\n1000\nText\n");
    const AcDbHandle none;
    struct Case {
        const char* name;
        ResbufChain data;
        const char* after; // behind the line's own tags
    };
    const std::string both = "1001\nONE\n1040\n1.50\n1001\nTwo\n1000\nText\n";
    const Case cases[] = {
        {"the same in other letters", {item(1001, L"ONE"), item(1040, 1.5)}, both.c_str()},
        {"another value, at its place",
         {item(1001, L"one"), item(1040, 2.5)},
         "1001\none\n1040\n2.5\n1001\nTwo\n1000\nText\n"},
        {"more items",
         {item(1001, L"TWO"), item(1000, L"a"), item(1000, L"b")},
         "1001\nONE\n1040\n1.50\n1001\nTWO\n1000\na\n1000\nb\n"},
        {"another application",
         {item(1001, L"Three"), item(1000, L"c")},
         "1001\nONE\n1040\n1.50\n1001\nTwo\n1000\nText\n1001\nThree\n1000\nc\n"},
        {"taken away", {item(1001, L"ONE")}, "1001\nTwo\n1000\nText\n"},
        {"one that is not there", {item(1001, L"Four")}, both.c_str()},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        ReadDrawing read(drawing.text());
        AcDbObjectPointer<AcDbLine> line(read.idOf(handle), AcDb::kForWrite);
        EXPECT_EQ(line->setXData(row.data), Acad::eOk);
        line.close();
        const std::string record = read.record(read.idOf(handle));
        EXPECT_EQ(record.substr(record.find("1001\n")), row.after);
        EXPECT_EQ(read.database().isModified(), row.after != both);
    }
    ReadDrawing read(drawing.text());
    AcDbObjectPointer<AcDbLine> line(read.idOf(handle), AcDb::kForWrite);
    EXPECT_EQ(line->xData().size(), 4u);
    EXPECT_EQ(line->xData(L"two").size(), 2u);
    EXPECT_EQ(line->xData(L"two").at(1).resval.rstring, L"Text");
    EXPECT_TRUE(line->xData(L"other").empty());
    EXPECT_EQ(line->setXData({}), Acad::eInvalidInput);
    EXPECT_EQ(line->setXData({item(1000, L"no name")}), Acad::eInvalidInput);
}

TEST(PersistentReactors, StandInTheirGroup)
{
    DxfDrawing drawing;
    const std::string bare = drawing.line();
    const std::string full = drawing.line("0", {},
                                          "102\n{ACAD_XDICTIONARY\n360\nFE\n102\n}\n"
                                          "102\n{ACAD_REACTORS\n330\nC\n102\n}\n");
    ReadDrawing read(drawing.text());
    const AcDbObjectId root = read.database().namedObjectsDictionaryId();
    const AcDbObjectId other = read.idOf(bare);
    const auto head = [&](const std::string& handle) {
        const std::string record = read.record(read.idOf(handle));
        return record.substr(0, record.find("100\nAcDbEntity"));
    };
    const std::string before = head(bare);
    {
        AcDbObjectPointer<AcDbLine> line(read.idOf(bare), AcDb::kForWrite);
        EXPECT_EQ(line->addPersistentReactor(root), Acad::eOk);
        EXPECT_EQ(line->addPersistentReactor(root), Acad::eOk); // once
        EXPECT_EQ(line->persistentReactors(), std::vector<AcDbObjectId>{root});
    }
    EXPECT_EQ(head(bare),
              "0\nLINE\n5\n" + bare + "\n102\n{ACAD_REACTORS\n330\nC\n102\n}\n330\n1F\n");
    {
        AcDbObjectPointer<AcDbLine> line(read.idOf(bare), AcDb::kForWrite);
        EXPECT_EQ(line->removePersistentReactor(other), Acad::eKeyNotFound);
        EXPECT_EQ(line->removePersistentReactor(root), Acad::eOk);
    }
    EXPECT_EQ(head(bare), before) << "an empty group goes";
    {
        AcDbObjectPointer<AcDbLine> line(read.idOf(full), AcDb::kForWrite);
        EXPECT_EQ(line->persistentReactors(), std::vector<AcDbObjectId>{root});
        EXPECT_EQ(line->addPersistentReactor(other), Acad::eOk);
        EXPECT_EQ(line->removePersistentReactor(root), Acad::eOk);
    }
    EXPECT_EQ(head(full),
              "0\nLINE\n5\n" + full +
                  "\n102\n{ACAD_XDICTIONARY\n360\nFE\n102\n}\n102\n{ACAD_REACTORS\n330\n" + bare +
                  "\n102\n}\n330\n1F\n");
}

// ---- copies ----

// Everything that is filed out, in the notation of `dxf` without values.
class Codes : public AcDbDxfFiler {
public:
    std::string codes;

    Acad::ErrorStatus writeString(int code, std::wstring_view value) override
    {
        add(code);
        if (code == 100)
            codes.append(value.begin(), value.end()).append(" ");
        return Acad::eOk;
    }
    Acad::ErrorStatus writeDouble(int code, double) override { return add(code); }
    Acad::ErrorStatus writePoint3d(int code, const AcGePoint3d&) override { return add(code); }
    Acad::ErrorStatus writeInt16(int code, std::int16_t) override { return add(code); }
    Acad::ErrorStatus writeInt32(int code, std::int32_t) override { return add(code); }
    Acad::ErrorStatus writeInt64(int code, std::int64_t) override { return add(code); }
    Acad::ErrorStatus writeBoolean(int code, bool) override { return add(code); }
    Acad::ErrorStatus writeHandle(int code, AcDbHandle) override { return add(code); }
    Acad::ErrorStatus writeBChunk(int code, std::span<const std::uint8_t>) override
    {
        return add(code);
    }

private:
    Acad::ErrorStatus add(int code)
    {
        codes += std::to_string(code) + " ";
        return Acad::eOk;
    }
};

std::string codesOf(const AcDbObject& object)
{
    Codes filer;
    EXPECT_EQ(object.dxfOutFields(&filer), Acad::eOk);
    return filer.codes;
}

TEST(Clone, HasTheContentsAndNoPlace)
{
    DxfDrawing drawing;
    const std::string handle = drawing.entity(
        "CIRCLE", "AcDbCircle", "10\n1.0\n20\n2.0\n30\n3.0\n40\n4.0\n1001\nAPP\n1000\nkept\n", "0",
        "62\n3\n",
        "102\n{ACAD_XDICTIONARY\n360\nFE\n102\n}\n102\n{ACAD_REACTORS\n330\nC\n102\n}\n");
    ReadDrawing read(drawing.text());
    std::unique_ptr<AcDbObject> copy;
    {
        const Circle circle(read.idOf(handle), AcDb::kForRead);
        copy = circle->clone();
    }
    AcDbCircle* const circle = AcDbCircle::cast(copy.get());
    ASSERT_NE(circle, nullptr);
    EXPECT_TRUE(circle->objectId().isNull());
    EXPECT_EQ(circle->database(), nullptr);
    EXPECT_TRUE(circle->persistentReactors().empty());
    EXPECT_TRUE(circle->extensionDictionary().isNull());
    EXPECT_EQ(circle->center(), AcGePoint3d(1, 2, 3));
    EXPECT_EQ(circle->colorIndex(), 3);
    EXPECT_EQ(circle->xData(L"app").size(), 2u);
    EXPECT_EQ(codesOf(*circle), "0 100 AcDbEntity 8 62 100 AcDbCircle 10 40 1001 1000 ");
    circle->setRadius(9.0); // the original keeps its own
    EXPECT_EQ(Circle(read.idOf(handle), AcDb::kForRead)->radius(), 4.0);
    EXPECT_FALSE(read.database().isModified());
}

TEST(Clone, OfAnOldRecordGetsMarkers)
{
    using host::test::openText;
    const std::tuple<const char*, const char*> rows[] = {
        {"handle first", "0 CIRCLE|5 A1|8 A|62 3|10 1.0|20 2.0|40 4.0|1001 APP|1000 kept"},
        {"layer before the handle",
         "0 CIRCLE|8 A|5 A1|62 3|10 1.0|20 2.0|40 4.0|1001 APP|1000 kept"},
        {"colour at the end", "0 CIRCLE|5 A1|8 A|10 1.0|20 2.0|40 4.0|62 3|1001 APP|1000 kept"},
        {"no handle", "0 CIRCLE|8 A|62 3|10 1.0|20 2.0|40 4.0|1001 APP|1000 kept"},
    };
    for (const auto& [name, record] : rows) {
        SCOPED_TRACE(name);
        ReadDrawing old = openText(record, host::DxfVersion::r12);
        const bool handle = std::string_view(record).find("A1") != std::string_view::npos;
        const AcDbObjectId id = old.drawing().id(4); // behind SECTION and ENDSEC of HEADER, SECTION
        Circle circle(id, AcDb::kForRead);
        ASSERT_EQ(circle.openStatus(), Acad::eOk);
        const std::string fields = "100 AcDbEntity 8 62 100 AcDbCircle 10 40 1001 1000 ";
        EXPECT_EQ(codesOf(*circle), (handle ? "0 5 " : "0 ") + fields);
        const std::unique_ptr<AcDbObject> copy = circle->clone();
        EXPECT_EQ(codesOf(*copy), "0 " + fields);
        EXPECT_EQ(AcDbCircle::cast(copy.get())->radius(), 4.0);
    }
}

} // namespace
