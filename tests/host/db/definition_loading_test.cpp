#include "host/db/dictionary.h"
#include "host/db/hatch.h"
#include "host/db/mpolygon.h"
#include "host/db/object_pointer.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "tests/host/files/temporary_folder.h"
#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <numbers>

namespace {

constexpr double kPi = std::numbers::pi;

// An open drawing that is the working one, and a support folder.
class DefinitionLoading : public TemporaryFolder {
protected:
    DefinitionLoading()
    {
        AcDbHostApplicationServices& services = *acdbHostApplicationServices();
        services.setSupportFolders([this] {
            return std::vector<std::wstring>{L"/nowhere", host::fromUtf8(folder_.string())};
        });
        services.setWorkingDatabase(&read_.database());
    }
    ~DefinitionLoading() override
    {
        acdbHostApplicationServices()->setSupportFolders(nullptr);
        acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    }

    // The groups of a record from the first of that code on, "49 0.5|74 0".
    std::string groupsFrom(AcDbObjectId id, int code)
    {
        const std::shared_ptr<const host::TagList> tags = read_.drawing().tagsOf(id.stubNumber());
        std::string text;
        for (std::size_t i = tags->find(code); i < tags->size(); ++i)
            text += (text.empty() ? "" : "|") + std::to_string((*tags)[i].code) + " " +
                    std::string((*tags)[i].bytes());
        return text;
    }
    AcDbObjectId linetype(std::wstring_view name)
    {
        return host::findSymbol(read_.drawing(), "LTYPE", name);
    }

    ReadDrawing read_{DxfDrawing().text()};
};

TEST_F(DefinitionLoading, PatternIsTurnedAndScaled)
{
    make("acad.pat", "*TEST, d\n45, 1, 2, 3, 4, 5, -6\n*OTHER\n0,0,0,0,1\n");
    AcDbHatch hatch;
    hatch.setPatternAngle(kPi / 2);
    hatch.setPatternScale(2.0);
    ASSERT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"test"), Acad::eOk);
    EXPECT_EQ(hatch.patternName(), L"TEST");
    EXPECT_EQ(hatch.patternType(), AcDbHatch::kPreDefined);
    const std::vector<host::PatternLine> lines = hatch.patternLines();
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_NEAR(lines[0].angle, 135.0 / 180.0 * kPi, 1e-12);
    // (1, 2) twice as far and a quarter turn on
    EXPECT_NEAR(lines[0].base.x, -4.0, 1e-12);
    EXPECT_NEAR(lines[0].base.y, 2.0, 1e-12);
    // (6, 8) along and across a line of 135 degrees
    EXPECT_NEAR(lines[0].offset.x, -14.0 / std::numbers::sqrt2, 1e-12);
    EXPECT_NEAR(lines[0].offset.y, -2.0 / std::numbers::sqrt2, 1e-12);
    EXPECT_EQ(lines[0].dashes, (std::vector<double>{10.0, -12.0}));

    // set anew it is not turned once more
    ASSERT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"TEST"), Acad::eOk);
    EXPECT_NEAR(hatch.patternLines()[0].base.x, -4.0, 1e-12);
}

TEST_F(DefinitionLoading, PatternIsLookedForWhereItsKindStands)
{
    make("acad.pat", "*BOTH\n0,0,0,0,1\n*INCHES\n0,0,0,0,1\n");
    make("acadiso.pat", "*BOTH\n0,0,0,0,25\n*METRIC\n0,0,0,0,25\n");
    make("Roof.PAT", "*OTHER\n0,0,0,0,2\n*roof\n0,0,0,0,7\n");
    using Type = AcDbHatch::HatchPatternType;
    struct Row {
        bool metric;
        Type type;
        const wchar_t* name;
        double offset; // 0: not found
    };
    const Row rows[] = {
        {false, AcDbHatch::kPreDefined, L"Both", 1},
        {true, AcDbHatch::kPreDefined, L"Both", 25},
        {false, AcDbHatch::kPreDefined, L"METRIC", 0},
        {true, AcDbHatch::kPreDefined, L"METRIC", 25},
        {true, AcDbHatch::kPreDefined, L"INCHES", 0},
        {true, AcDbHatch::kPreDefined, L"ROOF", 0},
        {true, AcDbHatch::kCustomDefined, L"ROOF", 7},
        {true, AcDbHatch::kCustomDefined, L"OTHER", 0},
        {true, AcDbHatch::kCustomDefined, L"BOTH", 0},
        {true, AcDbHatch::kCustomDefined, L"", 0},
        {true, AcDbHatch::kCustomDefined, L"../Roof", 0},
        {true, AcDbHatch::kUserDefined, L"ROOF", 0},
        {true, AcDbHatch::kUserDefined, L"_user", 1},
    };
    ReadDrawing metric(DxfDrawing().text().replace(DxfDrawing().text().find("9\n$INSUNITS"), 0,
                                                   "9\n$MEASUREMENT\n70\n1\n"));
    for (const Row& row : rows) {
        SCOPED_TRACE(host::toUtf8(row.name) + " " + std::to_string(row.type));
        acdbHostApplicationServices()->setWorkingDatabase(row.metric ? &metric.database()
                                                                     : &read_.database());
        AcDbHatch hatch;
        hatch.setPatternLines(AcDbHatch::kPreDefined, L"BEFORE", {});
        const Acad::ErrorStatus status = hatch.setPattern(row.type, row.name);
        if (row.offset == 0) {
            EXPECT_EQ(status, Acad::eInvalidInput);
            EXPECT_EQ(hatch.patternName(), L"BEFORE");
            continue;
        }
        ASSERT_EQ(status, Acad::eOk);
        EXPECT_EQ(hatch.patternType(), row.type);
        EXPECT_EQ(hatch.patternLines()[0].offset.y, row.offset);
    }
    acdbHostApplicationServices()->setWorkingDatabase(&read_.database());
}

TEST_F(DefinitionLoading, SolidNeedsNoFileAndAPolygonTakesPatternsToo)
{
    AcDbHatch hatch;
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"Solid"), Acad::eOk);
    EXPECT_TRUE(hatch.isSolidFill());
    EXPECT_EQ(hatch.setPattern(AcDbHatch::kPreDefined, L"ANSI31"), Acad::eInvalidInput);
    EXPECT_TRUE(hatch.isSolidFill());
    make("acad.pat", "*ANSI31\n45,0,0,0,.125\n");
    AcDbMPolygon polygon;
    EXPECT_EQ(polygon.setPattern(AcDbHatch::kPreDefined, L"ANSI31"), Acad::eOk);
    EXPECT_EQ(polygon.patternName(), L"ANSI31");
    ASSERT_EQ(polygon.patternLines().size(), 1u);
    EXPECT_FALSE(polygon.isSolidFill());
}

TEST_F(DefinitionLoading, LinetypeComesWithTextAndShape)
{
    using namespace std::string_literals;
    make("own.lin", "*GAS,Pipe\nA,.5,-.2,[\"GAS\",STANDARD,S=.1,R=0,X=-.1,Y=-.05],-.25\n"
                    "*RAILS,Rails\nA,1,[TRACK,rails.shx,S=2,A=45],-1\n"
                    "*LOST,No such shape\nA,1,[NONE,rails.shx],-1\n"
                    "*ALIEN,No such style\nA,1,[\"x\",Alien],-1\n");
    make("rails.shx", "shapes V1.0\r\n\x1A\x85\0\x85\0\x01\0\x85\0\x08\0TRACK\0\x01\0"s);
    AcDbDatabase& database = read_.database();
    ASSERT_EQ(database.loadLineTypeFile(L"gas", L"own.lin"), Acad::eOk);
    EXPECT_EQ(groupsFrom(linetype(L"GAS"), 70),
              "70 0|3 Pipe|72 65|73 3|40 0.95|49 0.5|74 0|49 -0.2|74 2|75 0|340 11|46 0.1|50 0.0|"
              "44 -0.1|45 -0.05|9 GAS|49 -0.25|74 0");
    ASSERT_EQ(database.loadLineTypeFile(L"RAILS", L"own.lin"), Acad::eOk);
    AcDbObjectPointer<AcDbTextStyleTable> styles(database.textStyleTableId(), AcDb::kForRead);
    AcDbObjectId shapes;
    for (auto walk = styles->newIterator(); !walk->done(); walk->step())
        shapes = walk->getRecordId(); // the last one is new
    EXPECT_EQ(groupsFrom(linetype(L"RAILS"), 49), "49 1.0|74 5|75 133|340 " + handleText(shapes) +
                                                      "|46 2.0|50 45.0|44 0.0|45 0.0|49 -1.0|74 0");
    AcDbObjectPointer<AcDbTextStyleTableRecord> style(shapes, AcDb::kForRead);
    EXPECT_TRUE(style->isShapeFile());
    EXPECT_EQ(style->fileName(), L"rails.shx");
    EXPECT_EQ(style->name(), L"");

    const std::pair<const wchar_t*, Acad::ErrorStatus> refused[] = {
        {L"GAS", Acad::eDuplicateRecordName},
        {L"NOWHERE", Acad::eUndefinedLineType},
        {L"LOST", Acad::eUndefinedLineType},
        {L"ALIEN", Acad::eUndefinedLineType},
    };
    for (const auto& [name, status] : refused)
        EXPECT_EQ(database.loadLineTypeFile(name, L"own.lin"), status) << host::toUtf8(name);
    EXPECT_EQ(database.loadLineTypeFile(L"GAS", L"none.lin"), Acad::eFileNotFound);
}

TEST_F(DefinitionLoading, WildcardsTakeWhatTheDrawingLacks)
{
    make("own.lin", "*DASHED,d\nA,1,-1\n*CONTINUOUS,d\nA,1\n*DOTS,d\nA,0,-1\n"
                    "*ALIEN,d\nA,1,[\"x\",Alien],-1\n*ZIGZAG,d\nA,2,-2\n");
    AcDbDatabase& database = read_.database();
    EXPECT_EQ(database.loadLineTypeFile(L"d*", L"own.lin"), Acad::eOk);
    EXPECT_FALSE(linetype(L"DASHED").isNull());
    EXPECT_FALSE(linetype(L"DOTS").isNull());
    EXPECT_TRUE(linetype(L"ZIGZAG").isNull());
    EXPECT_EQ(database.loadLineTypeFile(L"?*", L"own.lin"), Acad::eOk);
    EXPECT_FALSE(linetype(L"ZIGZAG").isNull());
    EXPECT_TRUE(linetype(L"ALIEN").isNull());
    EXPECT_EQ(database.loadLineTypeFile(L"X*", L"own.lin"), Acad::eUndefinedLineType);
}

TEST_F(DefinitionLoading, MlineStyleBringsItsLinetypes)
{
    make("own.mln", "MLSTYLE\n  2\nROAD\n 70\n16\n  3\nA road\n 62\n256\n 51\n45\n 52\n90\n 71\n3\n"
                    " 49\n-1\n 62\n1\n  6\nDASHED\n 49\n1\n 62\n2\n  6\nBYLAYER\n"
                    " 49\n0\n 62\n3\n  6\nUNKNOWN\n  0\n");
    make("acad.lin", "*DASHED,d\nA,1,-1\n");
    ASSERT_EQ(acdbLoadMlineStyleFile(L"road", L"own.mln"), Acad::eOk);
    const AcDbObjectId styles = host::standardDictionary(read_.drawing(), L"ACAD_MLINESTYLE");
    AcDbObjectPointer<AcDbDictionary> dictionary(styles, AcDb::kForRead);
    AcDbObjectId id;
    ASSERT_EQ(dictionary->getAt(L"ROAD", id), Acad::eOk);
    dictionary.close();
    // from the top line to the bottom one
    EXPECT_EQ(groupsFrom(id, 2),
              "2 ROAD|70 16|3 A road|62 256|51 45.0|52 90.0|71 3|49 1.0|62 2|6 BYLAYER|"
              "49 0.0|62 3|6 BYLAYER|49 -1.0|62 1|6 DASHED");
    EXPECT_FALSE(linetype(L"DASHED").isNull());
    EXPECT_EQ(acdbLoadMlineStyleFile(L"ROAD", L"own.mln"), Acad::eDuplicateRecordName);
    EXPECT_EQ(acdbLoadMlineStyleFile(L"RIVER", L"own.mln"), Acad::eKeyNotFound);
    EXPECT_EQ(acdbLoadMlineStyleFile(L"ROAD", L"none.mln"), Acad::eFileNotFound);
    acdbHostApplicationServices()->setWorkingDatabase(nullptr);
    EXPECT_EQ(acdbLoadMlineStyleFile(L"ROAD", L"own.mln"), Acad::eNoDatabase);
}

TEST_F(DefinitionLoading, FilesAreFoundInTheDrawingsFolderFirst)
{
    make("a.pat", "1");
    make("plans/A.PAT", "2");
    make("plans/folder.pat/x", "3");
    const AcDbHostApplicationServices& services = *acdbHostApplicationServices();
    EXPECT_EQ(services.findFile(L"a.pat"), folder_ / "a.pat");
    read_.database().setFilename(host::fromUtf8((folder_ / "plans" / "p.dxf").string()));
    EXPECT_EQ(services.findFile(L"a.pat"), folder_ / "plans" / "A.PAT");
    EXPECT_EQ(services.findFile(host::fromUtf8((folder_ / "a.pat").string())), folder_ / "a.pat");
    EXPECT_EQ(services.findFile(L"folder.pat"), std::nullopt);
    EXPECT_EQ(services.findFile(L""), std::nullopt);
}

} // namespace
