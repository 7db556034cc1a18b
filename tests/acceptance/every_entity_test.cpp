// What may be done to any entity of any drawing: every setter changes its own tags only, an
// extension dictionary with a record comes and goes, the entity is erased; after U the drawing
// saves as it was, byte for byte. usage: test_every_entity FOLDER...

#include "host/db/arc.h"
#include "host/db/block_reference.h"
#include "host/db/circle.h"
#include "host/db/database.h"
#include "host/db/dictionary.h"
#include "host/db/entity.h"
#include "host/db/hatch.h"
#include "host/db/layer_visibility.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/mline.h"
#include "host/db/mtext.h"
#include "host/db/polyline3d.h"
#include "host/db/text.h"
#include "host/db/xrecord.h"
#include "host/start/host_session.h"

#include <algorithm>
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::vector<fs::path> folders;
constexpr int kOfEachType = 2; // entities of one type tried in one drawing

struct Setter {
    const char* name;
    void (*set)(AcDbEntity& entity);
    std::vector<int> codes; // that it may change, add or remove
};

// The setter for entities of one class; others are left alone.
template <class T, void (*Set)(T&)> void on(AcDbEntity& entity)
{
    if (T* const own = T::cast(&entity))
        Set(*own);
}

void setBackground(AcDbHatch& hatch)
{
    AcCmColor color;
    color.setColorIndex(4);
    hatch.setBackgroundColor(color);
}

const Setter kSetters[] = {
    {"colour by index", [](AcDbEntity& e) { e.setColorIndex(5); }, {62, 420, 430}},
    {"true colour",
     [](AcDbEntity& e) {
         AcCmColor color;
         color.setRGB(12, 200, 34);
         e.setColor(color);
     },
     {62, 420, 430}},
    {"layer", [](AcDbEntity& e) { e.setLayer(L"0"); }, {8}},
    {"linetype", [](AcDbEntity& e) { e.setLinetype(L"ByBlock"); }, {6}},
    {"linetype scale", [](AcDbEntity& e) { e.setLinetypeScale(2.25); }, {48}},
    {"line weight", [](AcDbEntity& e) { e.setLineWeight(35); }, {370}},
    // Of the classes. A position may be remade where its own value depends on what is set (10, 11
    // of a text).
    {"radius", on<AcDbCircle, [](AcDbCircle& e) { e.setRadius(1.375); }>, {40}},
    {"arc angles",
     on<AcDbArc,
        [](AcDbArc& e) {
            e.setStartAngle(0.25);
            e.setEndAngle(1.5);
        }>,
     {50, 51}},
    {"end of a line",
     on<AcDbLine,
        [](AcDbLine& e) {
            e.setEndPoint({7, 8, 9});
        }>,
     {11, 21, 31}},
    {"rotation of a reference",
     on<AcDbBlockReference, [](AcDbBlockReference& e) { e.setRotation(0.75); }>,
     {50}},
    {"scale of a reference",
     on<AcDbBlockReference,
        [](AcDbBlockReference& e) {
            e.setScaleFactors({2, 3, 4});
        }>,
     {41, 42, 43}},
    {"closed polyline",
     on<AcDbPolyline, [](AcDbPolyline& e) { e.setClosed(!e.isClosed()); }>,
     {70}},
    {"elevation", on<AcDbPolyline, [](AcDbPolyline& e) { e.setElevation(12.5); }>, {38}},
    {"constant width",
     on<AcDbPolyline, [](AcDbPolyline& e) { e.setConstantWidth(0.625); }>,
     {40, 41, 43}},
    {"closed 3D polyline",
     on<AcDb3dPolyline, [](AcDb3dPolyline& e) { e.setClosed(!e.isClosed()); }>,
     {70}},
    {"pattern angle", on<AcDbHatch, [](AcDbHatch& e) { e.setPatternAngle(0.5); }>, {52}},
    {"pattern scale", on<AcDbHatch, [](AcDbHatch& e) { e.setPatternScale(3.5); }>, {41}},
    {"background colour", on<AcDbHatch, setBackground>, {1001, 1071}},
    {"text height",
     on<AcDbText, [](AcDbText& e) { e.setHeight(4.25); }>,
     {40, 10, 20, 30, 11, 21, 31}},
    {"text rotation",
     on<AcDbText, [](AcDbText& e) { e.setRotation(0.5); }>,
     {50, 10, 20, 30, 11, 21, 31}},
    {"justification",
     on<AcDbText, [](AcDbText& e) { e.setJustification(10); }>,
     {72, 73, 74, 10, 20, 30, 11, 21, 31}},
    {"attachment",
     on<AcDbMText, [](AcDbMText& e) { e.setAttachment(AcDbMText::kBottomRight); }>,
     {71}},
    {"mtext height", on<AcDbMText, [](AcDbMText& e) { e.setTextHeight(1.125); }>, {40}},
    {"closed multiline",
     on<AcDbMline, [](AcDbMline& e) { e.setClosedMline(!e.closedMline()); }>,
     {71, 12, 22, 32, 13, 23, 33, 41, 74}},
};

std::string contents(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return bytes.str();
}

std::string written(AcDbDatabase& database)
{
    std::string bytes;
    EXPECT_EQ(host::drawingFormat().write(database.drawing(), bytes).status, Acad::eOk);
    return bytes;
}

std::vector<std::string> tagsBut(const host::TagList& tags, const std::vector<int>& codes)
{
    std::vector<std::string> kept;
    for (const host::Tag& tag : tags)
        if (std::find(codes.begin(), codes.end(), tag.code) == codes.end())
            kept.push_back(std::to_string(tag.code) + " " + std::string(tag.bytes()));
    return kept;
}

// One change as a command makes it, then U; the drawing must be as it was.
template <class Change>
void tryAndTakeBack(AcDbDatabase& database, AcDbObjectId id, Change change,
                    const std::string& before)
{
    host::Drawing& drawing = database.drawing();
    drawing.undo.beginGroup(L"change");
    {
        AcDbObjectPointer<AcDbEntity> entity(id, AcDb::kForWrite);
        ASSERT_EQ(entity.openStatus(), Acad::eOk);
        change(*entity);
    }
    drawing.undo.endGroup(drawing);
    EXPECT_FALSE(written(database).empty());
    drawing.undo.undo(drawing);
    EXPECT_TRUE(written(database) == before) << "not as it was after U";
}

void addAndRemoveRecord(AcDbEntity& entity)
{
    const std::vector<std::string> before = tagsBut(entity.tags(), {});
    const bool had = !entity.extensionDictionary().isNull();
    if (!had) {
        ASSERT_EQ(entity.createExtensionDictionary(), Acad::eOk);
    }
    AcDbObjectPointer<AcDbDictionary> dictionary(entity.extensionDictionary(), AcDb::kForWrite);
    ASSERT_EQ(dictionary.openStatus(), Acad::eOk);
    AcDbObjectPointer<AcDbXrecord> record;
    record.create();
    AcDbObjectId id;
    ASSERT_EQ(dictionary->setAt(L"a table of ours", record.object(), id), Acad::eOk);
    resbuf number;
    number.restype = 90;
    number.resval.rlong = 7;
    ASSERT_EQ(record->setFromRbChain({number}), Acad::eOk);
    record.close();
    ASSERT_EQ(dictionary->remove(L"a table of ours"), Acad::eOk);
    record.open(id, AcDb::kForWrite);
    record->erase();
    record.close();
    dictionary.close();
    if (!had) {
        ASSERT_EQ(entity.releaseExtensionDictionary(), Acad::eOk);
    }
    EXPECT_EQ(tagsBut(entity.tags(), {}), before);
}

void tryEntity(AcDbDatabase& database, AcDbObjectId id, const std::string& before)
{
    for (const Setter& setter : kSetters) {
        SCOPED_TRACE(setter.name);
        const auto change = [&](AcDbEntity& entity) {
            const std::vector<std::string> kept = tagsBut(entity.tags(), setter.codes);
            setter.set(entity);
            EXPECT_EQ(tagsBut(entity.tags(), setter.codes), kept);
        };
        tryAndTakeBack(database, id, change, before);
    }
    {
        SCOPED_TRACE("record");
        tryAndTakeBack(database, id, addAndRemoveRecord, before);
    }
    SCOPED_TRACE("erase");
    tryAndTakeBack(
        database, id, [](AcDbEntity& entity) { EXPECT_EQ(entity.erase(), Acad::eOk); }, before);
}

void tryDrawing(const fs::path& path, std::map<std::string, int>& tried)
{
    SCOPED_TRACE(path.string());
    AcDbDatabase database(false, true);
    std::wstring message;
    if (database.readDwgFile(path, &message) != Acad::eOk) {
        EXPECT_NE(message, L"");
        return;
    }
    const std::string before = contents(path);
    ASSERT_TRUE(written(database) == before) << "unchanged, but saves otherwise";
    host::Drawing& drawing = database.drawing();
    std::map<std::string, int> here;
    for (std::uint32_t stub = 1; stub <= drawing.fileRecords; ++stub) {
        const host::Stub& record = drawing.index[stub];
        if ((record.flags & host::kEntity) == 0 || host::layerIsLocked(drawing, record.layer))
            continue;
        const std::string type(drawing.index.types().name(record.type));
        if (++here[type] > kOfEachType)
            continue;
        ++tried[type];
        SCOPED_TRACE(type);
        tryEntity(database, drawing.id(stub), before);
        if (testing::Test::HasFailure())
            return; // one failure makes those behind it of no interest
    }
}

} // namespace

TEST(EveryEntity, ChangesOnlyWhatWasAskedAndComesBack)
{
    const host::HostSession session(
        {.profile = fs::temp_directory_path() / "kelmaro-every-entity"});
    std::map<std::string, int> tried;
    int drawings = 0;
    for (const fs::path& folder : folders) {
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
            const std::string extension = entry.path().extension().string();
            if (extension != ".dxf" && extension != ".dxfb")
                continue;
            ++drawings;
            tryDrawing(entry.path(), tried);
        }
    }
    EXPECT_GT(drawings, 0);
    EXPECT_GT(tried.size(), 20u);
    int entities = 0;
    for (const auto& [type, count] : tried)
        entities += count;
    std::printf("%d entities of %zu types in %d drawings\n", entities, tried.size(), drawings);
}

int main(int count, char** arguments)
{
    testing::InitGoogleTest(&count, arguments);
    for (int i = 1; i < count; ++i)
        folders.emplace_back(arguments[i]);
    return RUN_ALL_TESTS();
}
