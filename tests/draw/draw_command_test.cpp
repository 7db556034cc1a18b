#include "draw/draw_object.h"
#include "draw/property_prompts.h"
#include "host/db/hatch.h"
#include "host/db/symbol_tables.h"
#include "host/ui/frame_window.h"
#include "session/notices.h"
#include "store/od_tables.h"
#include "tests/support/drawing_test.h"

namespace {

class DrawCommandTest : public ObjectDrawingTest, private SessionListener {
protected:
    DrawCommandTest() { ::session().addListener(this); }
    ~DrawCommandTest() override { ::session().removeListener(this); }

    void describe(const std::string& lines)
    {
        const std::wstring printed = load(lines);
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
    }
    Description& description() { return *::session().description; }
    std::wstring prompt() { return session().engine().waiting().prompt; }
    std::wstring text(const wchar_t* name)
    {
        resbuf value;
        acedGetVar(name, value);
        return value.resval.rstring;
    }

    std::vector<std::wstring> noticed;

private:
    void objectDrawn(const std::wstring& name) override { noticed.push_back(name); }
};

const char* const kWall = "obj_name|Wall|1|5\nobj_type|Line\nobj_prop|layer|walls\n"
                          "od_name|WALLS\nod_key|NAME\n";

} // namespace

TEST_F(DrawCommandTest, WithoutADescriptionOrANameNothingHappens)
{
    const std::wstring printed = transcript(L"kelmaro_draw\n");
    EXPECT_TRUE(tells(printed, L"Error: no file loaded.\n"));
    EXPECT_FALSE(tells(printed, L"Object: "));
    describe(kWall);
    for (const wchar_t* typed : {L"kelmaro_draw\n\n", L"kelmaro_draw\n\x3"}) {
        const std::wstring none = transcript(typed);
        EXPECT_TRUE(tells(none, L"Object: "));
        EXPECT_FALSE(tells(none, L"rror"));
    }
    EXPECT_TRUE(noticed.empty());
}

TEST_F(DrawCommandTest, TheNameIsFoundInAnyCaseAndToldAsTyped)
{
    describe(kWall);
    acedGetAcadFrame()->KillFocus();
    type(L"kelmaro_draw wALL\n0,0\n1,0\n\n\x3");
    EXPECT_TRUE(acedGetAcadFrame()->hasFocus());
    EXPECT_EQ(drawn(), (Looks{"Line Walls 256 WALLS"}));
    EXPECT_EQ(noticed, std::vector<std::wstring>{L"wALL"});
    EXPECT_EQ(description().current.props.name, L"Wall");
}

TEST_F(DrawCommandTest, AnUnknownNameIsToldAndNoticedAllTheSame)
{
    describe(kWall);
    EXPECT_TRUE(tells(transcript(L"kelmaro_draw No Body\n"), L"error: 'no body' undefined\n"));
    EXPECT_EQ(description().current.props.name, L"");
    EXPECT_EQ(noticed, std::vector<std::wstring>{L"No Body"});
}

TEST_F(DrawCommandTest, ATableThatDiffersFromTheDrawingsIsRefused)
{
    describe(std::string(kWall) + "od_name|DOORS\nod_fld|WIDTH|w|integer|1\n");
    const OdField width(L"WIDTH", OdType::character);
    openPlain("other.dxf");
    createTable(storeId(), L"DOORS", std::span(&width, 1));
    const std::wstring printed = transcript(L"kelmaro_draw Wall\n");
    EXPECT_TRUE(
        tells(printed, L"Error\nError: table 'DOORS' does not match existing definition.\n"))
        << host::toUtf8(printed);
    EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
    EXPECT_EQ(description().current.props.name, L"Wall");
    EXPECT_EQ(drawn(), Looks());
}

TEST_F(DrawCommandTest, AMissingDependencyStopsBeforeAnyVariable)
{
    describe("obj_name|Lost Wall|1|5\nobj_type|Line\nobj_prop|layer|nowhere\nvariable|LUPREC|6\n");
    EXPECT_TRUE(tells(transcript(L"kelmaro_draw lost wall\n"),
                      L"error: unable to load dependecies for object 'Lost Wall'\n"));
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
}

TEST_F(DrawCommandTest, AnObjectWithoutATypeKeepsItsVariables)
{
    describe("obj_name|Wall|1|5\nobj_type|Line\nvariable|LUPREC|6\n");
    description().objects.at(L"wall").props.types.clear();
    EXPECT_TRUE(tells(transcript(L"kelmaro_draw Wall\n"), L"error: invalid object\n"));
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 6);
}

TEST_F(DrawCommandTest, VariablesOfTheFileStayAndThoseOfTheObjectGoBack)
{
    session().documents().newDocument();
    describe("variable|LUPREC|5\nobj_name|Wall|1|5\nobj_type|Line\n"
             "variable|TEXTSIZE|7.5\nvariable|CMLSTYLE|Standard\nvariable|LUPREC|6\n"
             "variable|AUPREC|6\nvariable|AUPREC|7\nvariable|INSBASE|1,2,3\n");
    const double size = host::realVariable(L"TEXTSIZE", 0.0);
    type(L"setvar luprec 2\n");
    type(L"kelmaro_draw Wall\n0,0\n");
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 6);
    EXPECT_EQ(host::realVariable(L"TEXTSIZE", 0.0), 7.5);
    EXPECT_EQ(host::integerVariable(L"AUPREC", -1), 7);
    type(L"\x3");
    EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 5);
    EXPECT_EQ(host::realVariable(L"TEXTSIZE", 0.0), size);
    EXPECT_EQ(host::integerVariable(L"AUPREC", -1), 6); // as the second line found it
    resbuf base;
    acedGetVar(L"INSBASE", base);
    EXPECT_EQ(AcGePoint3d(base.resval.rpoint), AcGePoint3d(1, 2, 3)); // points are not put back
}

TEST_F(DrawCommandTest, AWrongOrCancelledAnswerEndsTheDraw)
{
    describe("obj_name|Wall|1|5\nobj_type|Line\nobj_prop|color|*\nvariable|LUPREC|6\n");
    for (const wchar_t* typed : {L"kelmaro_draw Wall\nred\n", L"kelmaro_draw Wall\n\x3"}) {
        EXPECT_TRUE(tells(transcript(typed), L"error: invalid value\n"));
        EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
        EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
    }
    // Enter alone is an answer, of nothing; the definition stays open
    type(L"kelmaro_draw Wall\n\n0,0\n1,0\n\n\x3kelmaro_draw Wall\n(1 2 3)\n0,1\n1,1\n\n\x3");
    EXPECT_EQ(opened<AcDbEntity>(entities().front())->colorIndex(), 256);
    EXPECT_EQ(opened<AcDbEntity>(last())->color().blue(), 3);
}

// A description cannot state these wildcards, a model can hold them.
TEST_F(DrawCommandTest, EveryOpenPropertyIsAskedForInItsOrder)
{
    describe(kWall);
    GraphicProps& props = description().objects.at(L"wall").props;
    const auto open = [](auto&... properties) { ((properties.mode = kOneValue), ...); };
    open(props.angle, props.blockName, props.rotate, props.blockScale, props.circleMode,
         props.circleRadius, props.closed, props.dimensionMode, props.dimensionStyle,
         props.ellipseMode, props.hatchMode, props.pattern, props.patternAngle, props.patternScale,
         props.meshMode, props.mleaderStyle, props.mlineJustification, props.mlineScale,
         props.mlineStyle, props.mtextAttachmentPoint, props.constantWidth, props.elevation,
         props.textHeight, props.textJustification, props.textStyle, props.text, props.linetype,
         props.linetypeScale, props.lineWeight);
    props.layer = {kOneValue, L"*", {}};
    props.color = props.backgroundColor = props.patternColor = {ColorEntry{}};
    props.explode = true;

    type(L"kelmaro_draw Wall\n");
    std::wstring asked;
    for (int prompts = 0; prompts < 34 && prompt().find(L"first point") == std::wstring::npos;
         ++prompts) {
        asked += prompt();
        type(L"\n");
    }
    EXPECT_EQ(asked,
              L"color: layer: linetype: linetypescale: lineweight: backgroundcolor: blockname: "
              L"blockscale: closed: circlemode: circleradius: dimensionmode: dimensionstyle: "
              L"ellipsemode: meshmode: constantwidth: elevation: mleaderstyle: "
              L"mlinejustification: mlinescale: mlinestyle: mtextattachmentpoint: pattern: "
              L"patternangle: patterncolor: hatchmode: patternscale: rotate: angle: text: "
              L"textheight: textjustification: textstyle: ");
}

TEST_F(DrawCommandTest, AnswersReachTheDrawing)
{
    describe(kWall);
    description().objects.at(L"wall").props.layer = {kOneValue, L"*", {}};
    description().objects.at(L"wall").props.lineWeight = {kOneValue, kAnyLineWeight, {}};
    type(L"kelmaro_draw Wall\nWalls\n50\n0,0\n1,0\n\n\x3");
    EXPECT_EQ(drawn(), (Looks{"Line Walls 256 WALLS"}));
    EXPECT_EQ(opened<AcDbEntity>(last())->lineWeight(), 50);
    EXPECT_TRUE(tells(transcript(L"kelmaro_draw Wall\nNowhere\n0\n"), L"unable to load"));
}

TEST_F(DrawCommandTest, NoCurrentSettingIsTouched)
{
    describe("obj_name|Wall|1|5\nobj_type|Line\nobj_prop|layer|walls\nobj_prop|color|1\n");
    type(L"setvar cecolor 3\n");
    type(L"kelmaro_draw Wall\n0,0\n1,0\n\n");
    EXPECT_EQ(text(L"CLAYER"), L"0");
    EXPECT_EQ(host::integerVariable(L"CECOLOR", -1), 3);
    type(L"\x3");
    EXPECT_EQ(drawn(), (Looks{"Line Walls 1"}));
}

// One pass ends it.
TEST_F(DrawCommandTest, HatchesAreNotRepeated)
{
    struct Row {
        const char* lines;
        const wchar_t* pattern;
    };
    for (const Row& row : {Row{"obj_prop|pattern|Solid\nobj_prop|patternscale|3\n", L"SOLID"},
                           Row{"obj_prop|pattern|ansi31\nobj_prop|patternscale|0.5\n"
                               "obj_prop|patternangle|30\n",
                               L"ANSI31"},
                           Row{"obj_prop|pattern|ansi31\nobj_prop|patternangle|30\n", L"ANSI31"}}) {
        SCOPED_TRACE(row.lines);
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.entity("LWPOLYLINE", "AcDbPolyline",
                       "90\n3\n70\n1\n10\n0.0\n20\n0.0\n10\n9.0\n20\n0.0\n10\n9.0\n20\n9.0\n");
        open(drawing, "area.dxf");
        load(std::string("obj_name|Thing|1|5\nobj_type|Hatch\nobj_prop|layer|walls\n"
                         "obj_prop|backgroundcolor|3\nvariable|LUPREC|6\n") +
             row.lines);
        const std::wstring printed = transcript(L"kelmaro_draw Thing\n8,5\n\n");
        EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
        EXPECT_EQ(host::integerVariable(L"LUPREC", -1), 4);
        ASSERT_EQ(entities().size(), 2u) << host::toUtf8(printed);
        EXPECT_EQ(look(last()), "Hatch Walls 256");
        const auto hatch = opened<AcDbHatch>(last());
        EXPECT_EQ(hatch->patternName(), row.pattern);
        EXPECT_EQ(hatch->backgroundColor().colorIndex(), 3);
    }
}
