#include "host/db/block_reference.h"
#include "host/db/mtext.h"
#include "host/db/symbol_tables.h"
#include "host/db/text.h"
#include "tests/support/drawing_test.h"

namespace {

// A block of two attributes, in millimetres, one that scales uniformly, and two text styles; the
// drawing is in metres.
class ImplTest : public ObjectDrawingTest {
protected:
    ImplTest()
    {
        const auto attribute = [](const char* handle, const char* tag) {
            return std::string("0\nATTDEF\n5\n") + handle +
                   "\n100\nAcDbEntity\n8\n0\n100\nAcDbText\n10\n1.0\n20\n0.0\n30\n0.0\n40\n0.5\n1\n"
                   "v\n100\nAcDbAttributeDefinition\n3\n" +
                   tag + "?\n2\n" + tag + "\n70\n0\n";
        };
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.textStyle("Labels");
        drawing.block("Lamp", 4, attribute("E10", "A") + attribute("E11", "B"));
        drawing.block("Post", 6, {}, "280\n1\n281\n1\n");
        open(drawing, "blocks.dxf");
    }

    void object(const std::string& lines)
    {
        const std::wstring printed = load("obj_name|Old Oak|1|5\nobj_type|Text\n" + lines);
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
    }
    std::string number(double value)
    {
        char digits[40];
        std::snprintf(digits, sizeof digits, "%.4g", value + 0.0);
        return digits;
    }
    std::string place(const AcGePoint3d& p) { return number(p.x) + "," + number(p.y); }
    std::string degrees(double radians) { return number(radians * 180 / 3.14159265358979324); }
    std::string style(AcDbObjectId id)
    {
        return host::toUtf8(opened<AcDbTextStyleTableRecord>(id)->name());
    }

    // Block, place, factors, degrees, values of the attributes.
    std::string reference(const AcDbBlockReference& made)
    {
        const AcGeScale3d scale = made.scaleFactors();
        return host::toUtf8(made.blockName()) + " " + place(made.position()) + " " +
               number(scale.sx) + "," + number(scale.sy) + "," + number(scale.sz) + " " +
               degrees(made.rotation()) + " " + std::to_string(made.attributes().size());
    }
    // Words, place, alignment point, height, degrees, justification, style.
    std::string text(const AcDbText& made)
    {
        return host::toUtf8(made.textString()) + " " + place(made.position()) + " " +
               place(made.alignmentPoint()) + " " + number(made.height()) + " " +
               degrees(made.rotation()) + " " + std::to_string(made.justification()) + " " +
               style(made.textStyle());
    }
    // The first real of the extended data that holds them.
    std::string columnWidth(const AcDbMText& made)
    {
        for (const resbuf& item : made.xData(L"ACAD"))
            if (item.restype == 1040)
                return number(item.resval.rreal);
        return "none";
    }
    // Words, place, height, width of the columns, degrees, attachment, style.
    std::string paragraph(const AcDbMText& made)
    {
        return host::toUtf8(made.contents()) + " " + place(made.location()) + " " +
               number(made.textHeight()) + " " + columnWidth(made) + " " +
               degrees(made.rotation()) + " " + std::to_string(made.attachment()) + " " +
               style(made.textStyle());
    }
    std::string made()
    {
        if (const auto block = opened<AcDbBlockReference>(last()); block)
            return reference(*block);
        if (const auto line = opened<AcDbText>(last()); line)
            return text(*line);
        const auto lines = opened<AcDbMText>(last());
        return lines ? paragraph(*lines) : "none";
    }

    struct Row {
        const char* lines; // properties of the object
        const wchar_t* typed;
        const char* made;
    };
    // The command on the object of each row, in the drawing as it was before.
    void expect(const wchar_t* command, std::initializer_list<Row> rows)
    {
        for (const Row& row : rows) {
            SCOPED_TRACE(row.lines);
            object(row.lines);
            const std::wstring printed =
                transcript(command + std::wstring(L" old oak\n") + row.typed);
            EXPECT_EQ(made(), row.made) << host::toUtf8(printed);
            EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
            EXPECT_EQ(host::integerVariable(L"CMDECHO", -1), 1);
            if (!last().isNull())
                AcDbObjectPointer<AcDbEntity>(last(), AcDb::kForWrite)->erase();
        }
    }
};

} // namespace

TEST_F(ImplTest, ABlockIsInserted)
{
    expect(L"kelmaro_impl_insrt",
           {
               {"", L"3,4\n", "none"},
               {"obj_prop|blockname|nowhere\n", L"3,4\n", "none"},
               {"obj_prop|blockname|*\n", L"3,4\n", "none"},
               {"obj_prop|blockname|lamp\n", L"\x3", "none"},
               // in a drawing of metres a block of millimetres is scaled by the host
               {"obj_prop|blockname|lamp\nobj_prop|blockscale|2\n", L"3,4\n",
                "Lamp 3,4 0.002,0.002,0.002 0 2"},
               {"obj_prop|blockname|lamp\nobj_prop|blockscale|(1 2 3)\nobj_prop|angle|30\n",
                L"3,4\n", "Lamp 3,4 0.001,0.002,0.003 30 2"},
               {"obj_prop|blockname|post\n", L"3,4\n", "Post 3,4 1,1,1 0 0"},
               {"obj_prop|blockname|post\nobj_prop|blockscale|2\nobj_prop|rotate|0\n"
                "obj_prop|angle|-90\n",
                L"3,4\n", "Post 3,4 2,2,2 -90 0"},
               // the user turns it
               {"obj_prop|blockname|post\nobj_prop|rotate|1\nobj_prop|angle|90\n", L"3,4\n45\n",
                "Post 3,4 1,1,1 45 0"},
           });
}

TEST_F(ImplTest, ATextIsWritten)
{
    expect(L"kelmaro_impl_txt",
           {
               {"", L"3,4\nHello, world\n", "Hello, world 3,4 0,0 2.5 0 0 Standard"},
               {"", L"3,4\n\n", "none"},
               {"", L"\x3", "none"},
               {"obj_prop|text|Oak\n", L"3,4\n\x3", "none"},
               {"obj_prop|text|*\n", L"3,4\n\n", "none"},
               {"obj_prop|text|Oak\nobj_prop|textheight|0.5\nobj_prop|angle|90\n", L"3,4\n\n",
                "Oak 3,4 0,0 0.5 90 0 Standard"},
               {"obj_prop|text|Oak\nobj_prop|textstyle|labels\n", L"3,4\nElm\n",
                "Elm 3,4 0,0 2.5 0 0 Labels"},
               {"obj_prop|text|Oak\nobj_prop|textstyle|nowhere\n", L"3,4\n\n",
                "Oak 3,4 0,0 2.5 0 0 Standard"},
               {"obj_prop|text|Oak\nobj_prop|rotate|1\nobj_prop|angle|90\n", L"3,4\n\n45\n",
                "Oak 3,4 0,0 2.5 45 0 Standard"},
           });
}

TEST_F(ImplTest, AMultilineTextIsWritten)
{
    expect(L"kelmaro_impl_mtxt",
           {
               {"", L"3,4\nHello, world\n", "Hello, world 3,4 2.5 2.5 0 1 Standard"},
               {"", L"3,4\n\n", "none"},
               {"obj_prop|text|Oak\nobj_prop|textheight|0.5\nobj_prop|angle|90\n"
                "obj_prop|mtextattachmentpoint|MiddleCenter\nobj_prop|textstyle|labels\n",
                L"3,4\n\n", "Oak 3,4 0.5 0.5 90 5 Labels"},
               {"obj_prop|text|Oak\nobj_prop|rotate|1\nobj_prop|angle|90\n", L"3,4\n\n45\n",
                "Oak 3,4 2.5 2.5 45 1 Standard"},
           });
}

// A description cannot state these wildcards, a model can hold them.
TEST_F(ImplTest, AWildcardCountsAsNotGiven)
{
    object("obj_prop|blockname|post\nobj_prop|text|Oak\n");
    GraphicProps& props = ::session().description->objects.at(L"old oak").props;
    props.rotate = {kOneValue, kAnyByte, {}};
    props.angle = props.textHeight = {kOneValue, kAnyReal, {}};
    props.blockScale = {kOneValue, anyScale, {}};
    props.textJustification = props.mtextAttachmentPoint = {kOneValue, kAnyCode, {}};
    props.textStyle = {kOneValue, anyText, {}};
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"kelmaro_impl_insrt Old Oak\n3,4\n", "Post 3,4 1,1,1 0 0"},
        {L"kelmaro_impl_txt Old Oak\n3,4\n\n", "Oak 3,4 0,0 2.5 0 0 Standard"},
        {L"kelmaro_impl_mtxt Old Oak\n3,4\n\n", "Oak 3,4 2.5 2.5 0 1 Standard"}};
    for (const auto& [typed, expected] : cases) {
        type(typed);
        EXPECT_EQ(made(), expected);
    }
    props.text.value = anyText;
    EXPECT_TRUE(tells(transcript(L"kelmaro_impl_txt Old Oak\n3,4\n\n"), L"Text:\n"));
}

TEST_F(ImplTest, AJustifiedTextStandsByItsAlignmentPoint)
{
    for (const auto& [word, code] : {std::pair("Center", 1),
                                     {"Right", 2},
                                     {"Middle", 4},
                                     {"TopLeft", 6},
                                     {"BottomRight", 14}}) {
        SCOPED_TRACE(word);
        object(std::string("obj_prop|textjustification|") + word + "\nobj_prop|text|Oak\n");
        type(L"kelmaro_impl_txt Old Oak\n3,4\n\n");
        const auto text = opened<AcDbText>(last());
        ASSERT_TRUE(text);
        EXPECT_EQ(text->justification(), code);
        EXPECT_EQ(text->alignmentPoint(), AcGePoint3d(3, 4, 0));
    }
}

TEST_F(ImplTest, PromptsAndEarlyEnds)
{
    for (const wchar_t* name : {L"kelmaro_impl_insrt", L"kelmaro_impl_txt", L"kelmaro_impl_mtxt"}) {
        SCOPED_TRACE(host::toUtf8(name));
        ::session().description.reset();
        const std::wstring command(name);
        EXPECT_TRUE(tells(transcript(command + L"\n"), L"Error: no file loaded.\n"));
        object("obj_prop|text|Oak 7\nobj_prop|blockname|post\n");
        for (const wchar_t* typed : {L"\n\x3", L" nobody\n", L" Old Oak\n\x3"})
            EXPECT_FALSE(tells(transcript(command + typed), L"rror"));
        const std::wstring printed = transcript(command + L" Old Oak\n3,4\n\n");
        EXPECT_TRUE(tells(printed, L"Object: Old Oak\nPoint:\n3,4\n")) << host::toUtf8(printed);
        if (command != L"kelmaro_impl_insrt") {
            EXPECT_TRUE(tells(printed, L"Text<Oak 7>:\n"));
        }
    }
    object("");
    EXPECT_TRUE(tells(transcript(L"kelmaro_impl_txt Old Oak\n3,4\n\n"), L"Text:\n"));
}

TEST_F(ImplTest, TheyDrawForTheEngine)
{
    const std::string common = "obj_prop|layer|walls\nobj_prop|color|1\nod_name|OAKS\nod_key|N\n";
    load("obj_name|Label|1|5\nobj_type|Text\nobj_prop|text|Oak\n" + common +
         "obj_name|Note|1|5\nobj_type|MText\nobj_prop|text|Elm\n" + common +
         "obj_name|Big Post|1|5\nobj_type|BlockReference\nobj_prop|blockname|post\n"
         "obj_prop|rotate|1\n" +
         common);
    type(L"kelmaro_draw Label\n3,4\n\n5,6\nAsh\n\x3");
    type(L"kelmaro_draw Note\n3,4\n\n\x3");
    type(L"kelmaro_draw big post\n3,4\n30\n5,6\n\x3");
    // cancelled while it was turned
    EXPECT_EQ(drawn(), (Looks{"Text Walls 1 OAKS", "Text Walls 1 OAKS", "MText Walls 1 OAKS",
                              "BlockReference Walls 1 OAKS", "BlockReference Walls 1 OAKS"}));
    EXPECT_EQ(made(), "Post 5,6 1,1,1 0 0");
}

// The file has the block's name in the index and no such block.
TEST_F(ImplTest, ABlockThatIsNowhereInAScriptIsStopped)
{
    DxfDrawing().write(folder(), "empty.dwg");
    load("obj_name|Tree|1|5\nobj_type|BlockReference\nobj_prop|blockname|tree\n");
    Description& description = *::session().description;
    description.resourceFiles = {(folder() / "empty.dwg").wstring()};
    description.blockIndex[L"tree"] = {L"tree", 0};
    const std::wstring printed = transcript(L"kelmaro_draw Tree\n");
    EXPECT_TRUE(tells(printed, L"stopped.\n"));
    EXPECT_EQ(session().engine().waiting().kind, host::WaitKind::command);
    EXPECT_EQ(drawn(), Looks());
}

// The session ends here, inside the plug-in's own prompts.
TEST_F(ImplTest, EverythingMayGoWhileTheyAsk)
{
    load("obj_name|Post|1|5\nobj_type|BlockReference\nobj_prop|blockname|post\n"
         "obj_prop|rotate|1\n");
    type(L"kelmaro_draw Post\n3,4\n");
    EXPECT_TRUE(tells(session().engine().waiting().prompt, L"Specify rotation angle"));
}
