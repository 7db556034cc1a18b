#include "host/db/circle.h"
#include "host/db/line.h"
#include "host/db/object_pointer.h"
#include "host/db/symbol_tables.h"
#include "tests/support/drawing_text.h"
#include "tests/support/dxf_drawing.h"

#include <functional>

namespace {

using Line = AcDbObjectPointer<AcDbLine>;

AcCmColor indexed(std::uint16_t index)
{
    AcCmColor color;
    color.setColorIndex(index);
    return color;
}
AcCmColor trueColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue)
{
    AcCmColor color;
    color.setRGB(red, green, blue);
    return color;
}

// What stands between the layer of a line and the class's own marker.
std::string commonTags(ReadDrawing& read, const std::string& handle)
{
    const std::string record = read.record(read.idOf(handle));
    const std::size_t first = record.find("100\nAcDbEntity\n") + 15;
    return record.substr(first, record.find("100\nAcDbLine\n") - first);
}

// Common tags before, a change, common tags after; the same text means that nothing is changed.
struct Change {
    const char* name;
    std::string before;
    std::function<Acad::ErrorStatus(AcDbEntity&)> change;
    std::string after;
    Acad::ErrorStatus status = Acad::eOk;
};

void check(const Change& row)
{
    using host::test::dxf;
    SCOPED_TRACE(row.name);
    DxfDrawing drawing;
    drawing.layer("Roads");
    drawing.linetype("Dashed");
    const std::string handle = drawing.line("0", dxf(row.before));
    ReadDrawing read(drawing.text());
    Line line(read.idOf(handle), AcDb::kForWrite);
    EXPECT_EQ(row.change(*line), row.status);
    line.close();
    EXPECT_EQ(commonTags(read, handle), dxf("8 0") + dxf(row.after));
    EXPECT_EQ(read.database().isModified(), row.before != row.after);
}

TEST(EntityColor, WritesIndexAndTrueColour)
{
    const auto set = [](AcCmColor color) {
        return [color](AcDbEntity& entity) { return entity.setColor(color); };
    };
    const Change rows[] = {
        {"by layer where nothing is said", "", set(indexed(256)), ""},
        {"an index", "", set(indexed(3)), "62 3"},
        {"the same index", "62    3", set(indexed(3)), "62    3"},
        {"by block", "", set(indexed(0)), "62 0"},
        {"back to by layer", "62 3", set(indexed(256)), "62 256"},
        {"a true colour", "", set(trueColor(255, 0, 0)), "62 1|420 16711680"},
        {"a true colour between indices", "", set(trueColor(250, 5, 3)), "62 1|420 16385283"},
        {"over an index", "62 3|370 25", set(trueColor(0, 0, 255)), "62 5|420 255|370 25"},
        {"the same true colour, another index kept", "62 7|420 255", set(trueColor(0, 0, 255)),
         "62 7|420 255"},
        {"another true colour takes the name away", "62 5|420 255|430 BOOK$Blue",
         set(trueColor(255, 0, 0)), "62 1|420 16711680"},
        {"an index takes both away", "62 5|420 255|430 BOOK$Blue|370 25", set(indexed(2)),
         "62 2|370 25"},
        {"by layer takes both away", "62 5|420 255|430 BOOK$Blue", set(indexed(256)), "62 256"},
        {"the index that a true colour had", "62 5|420 255", set(indexed(5)), "62 5"},
        {"by layer over a true colour without index", "420 255", set(indexed(256)), ""},
        {"an index that is none", "62 3",
         [](AcDbEntity& entity) { return entity.setColorIndex(258); }, "62 3", Acad::eInvalidInput},
    };
    for (const Change& row : rows)
        check(row);
}

TEST(EntityColor, IsReadAsTheFileSays)
{
    struct Case {
        const char* tags;
        AcCmColor::ColorMethod method;
        std::uint16_t index;
        int red, green, blue;
    };
    const Case rows[] = {
        {"", AcCmColor::kByLayer, 256, 0, 0, 0},
        {"62 0", AcCmColor::kByBlock, 0, 0, 0, 0},
        {"62 256", AcCmColor::kByLayer, 256, 0, 0, 0},
        {"62 1", AcCmColor::kByACI, 1, 255, 0, 0},
        {"62 -1", AcCmColor::kByACI, 1, 255, 0, 0},
        {"62 3|420 1056816", AcCmColor::kByColor, 3, 0x10, 0x20, 0x30},
        {"420 65280", AcCmColor::kByColor, 3, 0, 255, 0},           // the nearest index
        {"420 -1023410177", AcCmColor::kByColor, 7, 255, 255, 255}, // C2FFFFFF
    };
    for (const Case& row : rows) {
        SCOPED_TRACE(row.tags);
        DxfDrawing drawing;
        const std::string handle = drawing.line("0", host::test::dxf(row.tags));
        ReadDrawing read(drawing.text());
        const AcCmColor color = Line(read.idOf(handle), AcDb::kForRead)->color();
        EXPECT_EQ(color.colorMethod(), row.method);
        EXPECT_EQ(color.colorIndex(), row.index);
        EXPECT_EQ(color.red(), row.red);
        EXPECT_EQ(color.green(), row.green);
        EXPECT_EQ(color.blue(), row.blue);
    }
}

TEST(EntityProperties, ChangeOnlyWhatDiffers)
{
    using E = AcDbEntity&;
    const Change rows[] = {
        {"line weight", "", [](E e) { return e.setLineWeight(25); }, "370 25"},
        {"by layer where nothing is said", "", [](E e) { return e.setLineWeight(-1); }, ""},
        {"back to by layer", "370 25", [](E e) { return e.setLineWeight(-1); }, "370 -1"},
        {"the heaviest", "", [](E e) { return e.setLineWeight(211); }, "370 211"},
        {"between two weights", "370 25", [](E e) { return e.setLineWeight(26); }, "370 25",
         Acad::eInvalidInput},
        {"below the markers", "", [](E e) { return e.setLineWeight(-4); }, "", Acad::eInvalidInput},
        {"above the heaviest", "", [](E e) { return e.setLineWeight(212); }, "",
         Acad::eInvalidInput},
        {"hidden", "62 3", [](E e) { return e.setVisibility(AcDb::kInvisible); }, "62 3|60 1"},
        {"visible", "", [](E e) { return e.setVisibility(AcDb::kVisible); }, ""},
        {"scale", "6 Dashed|62 3|60 1", [](E e) { return e.setLinetypeScale(2.0); },
         "6 Dashed|62 3|48 2.0|60 1"},
        {"scale of one", "", [](E e) { return e.setLinetypeScale(1.0); }, ""},
        {"scale of zero", "", [](E e) { return e.setLinetypeScale(0.0); }, "", Acad::eInvalidInput},
        {"negative scale", "48 2.0", [](E e) { return e.setLinetypeScale(-1.0); }, "48 2.0",
         Acad::eInvalidInput},
        {"linetype, spelled as its record", "62 3", [](E e) { return e.setLinetype(L"DASHED"); },
         "6 Dashed|62 3"},
        {"the same linetype keeps the file's spelling", "6 dASHED",
         [](E e) { return e.setLinetype(L"Dashed"); }, "6 dASHED"},
        {"by layer where nothing is said", "", [](E e) { return e.setLinetype(L"BYLAYER"); }, ""},
        {"back to by layer", "6 Dashed", [](E e) { return e.setLinetype(L"bylayer"); },
         "6 ByLayer"},
        {"a linetype that is not there", "6 Dashed", [](E e) { return e.setLinetype(L"Dotted"); },
         "6 Dashed", Acad::eKeyNotFound},
        {"no name", "6 Dashed", [](E e) { return e.setLinetype(L""); }, "6 Dashed",
         Acad::eKeyNotFound},
        {"no id", "6 Dashed", [](E e) { return e.setLinetype(AcDbObjectId()); }, "6 Dashed",
         Acad::eKeyNotFound},
    };
    for (const Change& row : rows)
        check(row);
}

TEST(EntityLayer, IsSetByNameOrIdAndKeepsItsSpelling)
{
    struct Case {
        const char* name;
        const char* before;
        const wchar_t* layer;
        const char* after;
        Acad::ErrorStatus status;
    };
    const Case rows[] = {
        {"another layer, spelled as its record", "0", L"ROADS", "Roads", Acad::eOk},
        {"the same layer keeps the file's spelling", "rOADS", L"Roads", "rOADS", Acad::eOk},
        {"a layer that is not there", "Roads", L"Rivers", "Roads", Acad::eKeyNotFound},
        {"no name", "Roads", L"", "Roads", Acad::eKeyNotFound},
        {"from a layer that the file lacks", "lost", L"0", "0", Acad::eOk},
    };
    for (const Case& row : rows) {
        SCOPED_TRACE(row.name);
        DxfDrawing drawing;
        drawing.layer("Roads");
        const std::string handle = drawing.line(row.before);
        for (const bool byId : {false, true}) {
            ReadDrawing read(drawing.text());
            AcDbObjectId layer;
            AcDbObjectPointer<AcDbLayerTable>(read.database().layerTableId(), AcDb::kForRead)
                ->getAt(row.layer, layer);
            Line line(read.idOf(handle), AcDb::kForWrite);
            EXPECT_EQ(byId ? line->setLayer(layer) : line->setLayer(row.layer), row.status);
            if (row.status == Acad::eOk) {
                EXPECT_EQ(line->layerId(), layer) << "before it is closed";
            }
            line.close();
            EXPECT_EQ(commonTags(read, handle), host::test::dxf("8 " + std::string(row.after)));
            EXPECT_EQ(read.database().isModified(), std::string_view(row.before) != row.after);
            if (row.status == Acad::eOk) {
                EXPECT_EQ(Line(read.idOf(handle), AcDb::kForRead)->layerId(), layer);
            }
        }
    }
}

// A name that no record of the file has gets one in memory.
TEST(EntityLayer, IsNamedAsItsRecord)
{
    DxfDrawing drawing;
    drawing.layer("Roads");
    const std::pair<const char*, const wchar_t*> rows[] = {
        {"rOADS", L"Roads"}, {"0", L"0"}, {"lost", L"lost"}};
    for (const auto& [written, name] : rows) {
        SCOPED_TRACE(written);
        const std::string handle = drawing.line(written);
        ReadDrawing read(drawing.text());
        const Line line(read.idOf(handle), AcDb::kForRead);
        EXPECT_EQ(line->layer(), name);
        EXPECT_FALSE(line->layerId().isNull());
    }
}

TEST(EntityLayer, RecordsOfAnotherDrawingAreRefused)
{
    DxfDrawing drawing;
    drawing.layer("Roads");
    drawing.linetype("Dashed");
    const std::string handle = drawing.line();
    ReadDrawing read(drawing.text());
    ReadDrawing other(drawing.text());
    AcDbObjectId layer, linetype;
    AcDbObjectPointer<AcDbLayerTable>(other.database().layerTableId(), AcDb::kForRead)
        ->getAt(L"Roads", layer);
    AcDbObjectPointer<AcDbLinetypeTable>(other.database().linetypeTableId(), AcDb::kForRead)
        ->getAt(L"Dashed", linetype);
    ASSERT_FALSE(layer.isNull());
    const Line line(read.idOf(handle), AcDb::kForWrite);
    EXPECT_EQ(line->setLayer(layer), Acad::eWrongDatabase);
    EXPECT_EQ(line->setLinetype(linetype), Acad::eWrongDatabase);
    EXPECT_EQ(line->layer(), L"0");
}

TEST(EntityLayer, ErasedLayersAreNotTaken)
{
    DxfDrawing drawing;
    drawing.layer("Roads");
    const std::string handle = drawing.line();
    ReadDrawing read(drawing.text());
    AcDbObjectId layer;
    AcDbObjectPointer<AcDbLayerTable>(read.database().layerTableId(), AcDb::kForRead)
        ->getAt(L"Roads", layer);
    ASSERT_EQ(AcDbObjectPointer<AcDbObject>(layer, AcDb::kForWrite)->erase(), Acad::eOk);
    const Line line(read.idOf(handle), AcDb::kForWrite);
    EXPECT_EQ(line->setLayer(layer), Acad::eKeyNotFound);
    EXPECT_EQ(line->setLayer(L"Roads"), Acad::eKeyNotFound);
}

// Vertices have the layer of their own; erasing takes a whole sequence along, and brings it back.
TEST(EntityErasing, TakesTheSequenceAlong)
{
    ReadDrawing read = host::test::openText(
        "0 POLYLINE|5 A0|100 AcDbEntity|8 0|100 AcDb3dPolyline|66 1|70 8|"
        "0 VERTEX|5 A1|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb3dPolylineVertex|10 1|20 2|30 "
        "3|70 32|"
        "0 VERTEX|5 A2|100 AcDbEntity|8 0|100 AcDbVertex|100 AcDb3dPolylineVertex|10 4|20 5|30 "
        "6|70 32|"
        "0 SEQEND|5 A3|100 AcDbEntity|8 0|0 LINE|5 A4|100 AcDbEntity|8 0|100 AcDbLine|10 0|20 0");
    for (const bool erasing : {true, false, true}) {
        AcDbObjectPointer<AcDbObject> polyline(read.idOf("A0"), AcDb::kForWrite, true);
        ASSERT_EQ(polyline->erase(erasing), Acad::eOk);
        for (const char* handle : {"A0", "A1", "A2", "A3"})
            EXPECT_EQ(read.idOf(handle).isErased(), erasing) << handle;
        EXPECT_FALSE(read.idOf("A4").isErased());
    }
}

} // namespace
