#include "templates/object_writer.h"

#include "host/edit/system_variables.h"
#include "tests/support/described_drawing.h"

namespace {

class ObjectWriterTest : public CommandTest {
protected:
    static GraphicProps named(std::vector<std::wstring> types)
    {
        GraphicProps props;
        props.name = L"Thing";
        props.types = std::move(types);
        return props;
    }
    // The lines of properties and tables alone, "|" for a tab.
    static std::wstring linesOf(const GraphicProps& props)
    {
        std::wstring text = L"what stood there before";
        WriteObject(props, text);
        std::replace(text.begin(), text.end(), L'\t', L'|');
        const std::size_t typeLine = text.find(L"\n|obj_type|");
        return text.substr(text.find(L'\n', typeLine + 1) + 1);
    }
    static void setDecimals(short decimals)
    {
        resbuf value;
        value.restype = static_cast<short>(RTSHORT);
        value.resval.rint = decimals;
        ASSERT_EQ(acedSetVar(L"LUPREC", value), RTNORM);
    }
};

template <class T> PropConstraint<T> one(T value)
{
    return {kOneValue, std::move(value), {}};
}

PropConstraint<std::wstring> text(const wchar_t* value)
{
    return one<std::wstring>(value);
}

} // namespace

TEST_F(ObjectWriterTest, HeadOfAnObjectWithoutDescription)
{
    const std::pair<std::vector<std::wstring>, std::wstring> cases[] = {
        {{L"Line"}, L"obj_name\tThing\t1\t5000\tIcons/Line.png\n\tobj_type\tLine\n"},
        {{L"Hatch"}, L"obj_name\tThing\t1\t0\tIcons/Hatch.png\n\tobj_type\tHatch\n"},
        {{L"Hatch", L"Text", L"Line"},
         L"obj_name\tThing\t1\t9000\tIcons/Hatch.png\n\tobj_type\tHatch, Text, Line\n"},
        {{L"AcDbRasterImage"},
         L"obj_name\tThing\t1\t7000\tIcons/AcDbRasterImage.png\n\tobj_type\tAcDbRasterImage\n"},
        {{}, L"obj_name\tThing\t1\t0\n\tobj_type\t\n"},
        {{L"Circle"},
         L"obj_name\tThing\t1\t5000\tIcons/Circle.png\n\tobj_type\tCircle\n"
         L"\t\tobj_prop\tcircleMode\tCenter\n"},
    };
    for (const auto& [types, written] : cases) {
        std::wstring text;
        EXPECT_EQ(WriteObject(named(types), text), written);
        EXPECT_EQ(text, written);
    }
}

TEST_F(ObjectWriterTest, ADescriptionGivesHeadOfItsObjects)
{
    Description description;
    description.objects[L"thing"].icon = L"a.bmp";
    description.objects[L"thing"].priority = -3;
    std::wstring written;
    EXPECT_EQ(WriteObject(named({L"Line"}), written, &description),
              L"obj_name\tThing\t0\t-3\ta.bmp\n\tobj_type\tLine\n");
    description.objects[L"thing"].drawable = true;
    description.objects[L"thing"].icon.clear();
    EXPECT_EQ(WriteObject(named({L"Line"}), written, &description),
              L"obj_name\tThing\t1\t-3\n\tobj_type\tLine\n");
}

TEST_F(ObjectWriterTest, EveryPropertyInItsPlace)
{
    GraphicProps props = named({L"Line"});
    props.text = text(L"Two words");
    props.textStyle = text(L"notes");
    props.textJustification = one(13);
    props.textHeight = one(2.5);
    props.elevation = one(-1.0);
    props.constantWidth = one(0.25);
    props.mtextAttachmentPoint = one(5);
    props.patternColor = {{0}};
    props.mlineStyle = text(L"fence");
    props.mlineScale = one(20.0);
    props.mlineJustification = one<std::uint8_t>(2);
    props.mleaderStyle = text(L"notes");
    props.meshMode = text(L"box");
    props.patternScale = one(2.0);
    props.patternAngle = one(45.0);
    props.pattern = text(L"ANSI31");
    props.hatchMode = text(L"point");
    props.backgroundColor = {{-1}, {3}};
    props.ellipseMode = text(L"arc");
    props.dimensionStyle = text(L"survey");
    props.dimensionMode = text(L"Linear");
    props.closed = one<std::uint8_t>(0);
    props.circleRadius = one(5.0);
    props.circleMode = text(L"2p");
    props.blockScale = one(ScaleFactors{2.0, 2.0, 3.0});
    props.rotate = one<std::uint8_t>(1);
    props.blockName = text(L"Door");
    props.angle = one(0.5);
    props.lineWeight = one(25);
    props.linetypeScale = one(1.0);
    props.linetype = text(L"Dashed");
    props.layer = text(L"Walls");
    props.color = {{1}, {256}, {255, 0, 12}};
    props.explode = true;
    EXPECT_EQ(linesOf(props), L"||obj_prop|color|1, ByLayer, (255 0 12)\n"
                              L"||obj_prop|layer|Walls\n"
                              L"||obj_prop|linetype|Dashed\n"
                              L"||obj_prop|linetypeScale|1.0000\n"
                              L"||obj_prop|lineWeight|25\n"
                              L"||obj_prop|angle|28.6479\n"
                              L"||obj_prop|blockName|Door\n"
                              L"||obj_prop|rotate|1\n"
                              L"||obj_prop|blockScale|(2.0000 2.0000 3.0000)\n"
                              L"||obj_prop|circleMode|2p\n"
                              L"||obj_prop|circleRadius|5.0000\n"
                              L"||obj_prop|closed|0\n"
                              L"||obj_prop|dimensionMode|Linear\n"
                              L"||obj_prop|dimensionStyle|survey\n"
                              L"||obj_prop|ellipseMode|arc\n"
                              L"||obj_prop|backgroundColor|None, 3\n"
                              L"||obj_prop|hatchMode|point\n"
                              L"||obj_prop|pattern|ANSI31\n"
                              L"||obj_prop|patternAngle|45.0000\n"
                              L"||obj_prop|patternScale|2.0000\n"
                              L"||obj_prop|meshMode|box\n"
                              L"||obj_prop|mleaderStyle|notes\n"
                              L"||obj_prop|mlineJustification|Bottom\n"
                              L"||obj_prop|mlineScale|20.0000\n"
                              L"||obj_prop|mlineStyle|fence\n"
                              L"||obj_prop|patternColor|ByBlock\n"
                              L"||obj_prop|mtextAttachmentPoint|MiddleCenter\n"
                              L"||obj_prop|constantWidth|0.2500\n"
                              L"||obj_prop|elevation|-1.0000\n"
                              L"||obj_prop|textHeight|2.5000\n"
                              L"||obj_prop|textJustification|BottomCenter\n"
                              L"||obj_prop|textStyle|notes\n"
                              L"||obj_prop|text|Two words\n");
}

TEST_F(ObjectWriterTest, WhatIsLeftOpenHasNoLine)
{
    GraphicProps props = named({L"Line"});
    props.layer = text(L"*");
    props.constantWidth = one(kAnyReal);
    props.closed = one<std::uint8_t>(254);
    props.textJustification = one(-2);
    props.lineWeight = one(-2147483647);
    props.blockScale = one(anyScale);
    EXPECT_EQ(linesOf(props), L"");
    props.linetype.value = L"Dashed"; // not given, whatever it holds
    EXPECT_EQ(linesOf(props), L"");
}

TEST_F(ObjectWriterTest, WordsAndForms)
{
    struct Case {
        const char* name;
        void (*give)(GraphicProps& props);
        const wchar_t* line;
    };
    const Case cases[] = {
        {"weight by layer", [](GraphicProps& p) { p.lineWeight = one(-1); },
         L"||obj_prop|lineWeight|ByLayer\n"},
        {"weight by block", [](GraphicProps& p) { p.lineWeight = one(-2); },
         L"||obj_prop|lineWeight|ByBlock\n"},
        {"default weight", [](GraphicProps& p) { p.lineWeight = one(-3); },
         L"||obj_prop|lineWeight|Default\n"},
        {"no weight", [](GraphicProps& p) { p.lineWeight = one(0); }, L"||obj_prop|lineWeight|0\n"},
        {"accepted layers",
         [](GraphicProps& p) {
             p.layer = {kValueAndList, L"a", {L"b", L"c d"}};
         },
         L"||obj_prop|layer|a|b, c d\n"},
        {"a range of layers",
         [](GraphicProps& p) {
             p.layer = {kValueAndRange, L"b", {L"a", L"c"}};
         },
         L"||obj_prop|layer|b|a:c\n"},
        {"accepted linetypes are not told",
         [](GraphicProps& p) {
             p.linetype = {kValueAndList, L"a", {L"b"}};
         },
         L"||obj_prop|linetype|a\n"},
        {"an empty text", [](GraphicProps& p) { p.pattern = text(L""); }, L"||obj_prop|pattern|\n"},
        {"top", [](GraphicProps& p) { p.mlineJustification = one<std::uint8_t>(0); },
         L"||obj_prop|mlineJustification|Top\n"},
        {"zero", [](GraphicProps& p) { p.mlineJustification = one<std::uint8_t>(1); },
         L"||obj_prop|mlineJustification|Zero\n"},
        {"no justification", [](GraphicProps& p) { p.mlineJustification = one<std::uint8_t>(9); },
         L"||obj_prop|mlineJustification|Zero\n"},
        {"no attachment", [](GraphicProps& p) { p.mtextAttachmentPoint = one(25); },
         L"||obj_prop|mtextAttachmentPoint|\n"},
        {"one scale",
         [](GraphicProps& p) {
             p.blockScale = one(ScaleFactors{2.0, 2.0, 2.0});
         },
         L"||obj_prop|blockScale|2.0000\n"},
        {"a scale within the last decimal",
         [](GraphicProps& p) {
             p.blockScale = one(ScaleFactors{2.0, 2.00009, 1.99995});
         },
         L"||obj_prop|blockScale|2.0000\n"},
        {"a scale beyond it",
         [](GraphicProps& p) {
             p.blockScale = one(ScaleFactors{2.0, 2.00011, 2.0});
         },
         L"||obj_prop|blockScale|(2.0000 2.0001 2.0000)\n"},
        {"mirrored",
         [](GraphicProps& p) {
             p.blockScale = one(ScaleFactors{-1.0, 1.0, 1.0});
         },
         L"||obj_prop|blockScale|(-1.0000 1.0000 1.0000)\n"},
        {"any colour among others",
         [](GraphicProps& p) {
             p.color = {{}, {7}};
         },
         L"||obj_prop|color|, 7\n"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.name);
        GraphicProps props = named({L"Line"});
        row.give(props);
        EXPECT_EQ(linesOf(props), row.line);
    }
}

TEST_F(ObjectWriterTest, RealsFollowTheDrawingsPrecision)
{
    GraphicProps props = named({L"Line"});
    props.linetypeScale = one(1.0);
    props.textHeight = one(0.126);
    setDecimals(0);
    EXPECT_EQ(linesOf(props), L"||obj_prop|linetypeScale|1\n||obj_prop|textHeight|0\n");
    setDecimals(2);
    EXPECT_EQ(linesOf(props), L"||obj_prop|linetypeScale|1.00\n||obj_prop|textHeight|0.13\n");

    props = named({L"Line"});
    props.blockScale = one(ScaleFactors{2.0, 2.005, 2.0});
    EXPECT_EQ(linesOf(props), L"||obj_prop|blockScale|2.00\n");
}

TEST_F(ObjectWriterTest, ACircleHasAModeOrARadius)
{
    GraphicProps props = named({L"Circle"});
    props.circleRadius = one(5.0);
    props.closed = one<std::uint8_t>(1);
    EXPECT_EQ(linesOf(props), L"||obj_prop|circleRadius|5.0000\n||obj_prop|closed|1\n");
    props.circleRadius = {};
    EXPECT_EQ(linesOf(props), L"||obj_prop|circleMode|Center\n||obj_prop|closed|1\n");
    props.types = {L"Arc", L"Circle"};
    EXPECT_EQ(linesOf(props), L"||obj_prop|closed|1\n");
}

TEST_F(ObjectWriterTest, Tables)
{
    const auto field = [](const wchar_t* name, FieldKind kind, OdType type, std::uint32_t flags,
                          const wchar_t* value, std::vector<std::wstring> values) {
        FieldDef made;
        made.description = L"d";
        made.kind = kind;
        made.name = name;
        made.flags = flags;
        made.type = type;
        made.defaultValue = value;
        made.values = std::move(values);
        return made;
    };
    GraphicProps props = named({L"Line"});
    props.tables.push_back(
        {L"WALLS",
         {field(L"NAME", FieldKind::key, OdType::character, 0, L"$(obj_name)", {}),
          field(L"PLAIN", FieldKind::noDefault, OdType::real, 0, L"", {}),
          field(L"ALL", FieldKind::defaultOnly, OdType::character,
                kConstField | kNotEmptyField | kRequiredField, L"x y", {}),
          field(L"LIST", FieldKind::list, OdType::character, 0, L"a", {L"a", L"b c"}),
          field(L"RANGE", FieldKind::range, OdType::integer, kRequiredField, L"2", {L"1", L"9"}),
          field(L"BARE", FieldKind::range, OdType::integer, 0, L"", {L"1", L"9"}),
          field(L"THREE", FieldKind::range, OdType::integer, 0, L"1", {L"1", L"2", L"3"})}});
    props.tables.push_back({L"EMPTY", {}});
    EXPECT_EQ(linesOf(props), L"|od_name|WALLS\n"
                              L"||od_key|NAME\n"
                              L"||od_fld|PLAIN|d|Real\n"
                              L"||od_fld|ALL|d|const notempty required Character|x y\n"
                              L"||od_fld|LIST|d|Character|a|a, b c\n"
                              L"||od_fld|RANGE|d|required Integer|2|1:9\n"
                              L"||od_fld|BARE|d|Integer| |1:9\n"
                              L"||od_fld|THREE|d|Integer|1|1, 2, 3\n"
                              L"|od_name|EMPTY\n");
}

// Tables and accepted values too: what a description states is stated again.
TEST_F(ObjectWriterTest, AnObjectReadBackIsTheSame)
{
    struct Refusal final : MessageSink {
        void message(std::optional<int> line, Message id, std::wstring_view item) override
        {
            // resources that the drawing lacks are told without a line
            const std::wstring text = messageText(line, id, item);
            EXPECT_FALSE(line) << std::string(text.begin(), text.end());
        }
    } sink;
    OdStore store;
    const Description first =
        readDescription(writeDescription(folder(), "obj_name|Wall|1|5|i.png\n"
                                                   "obj_type|Polyline, Line\n"
                                                   "obj_prop|layer|walls|roofs,doors\n"
                                                   "obj_prop|color|(1 2 3)\n"
                                                   "obj_prop|lineweight|byblock\n"
                                                   "obj_prop|closed|1\n"
                                                   "obj_prop|constantwidth|0.5\n"
                                                   "obj_prop|blockscale|(1 2 3)\n"
                                                   "obj_prop|mlinejustification|top\n"
                                                   "obj_prop|textjustification|middleright\n"
                                                   "obj_prop|mtextattachmentpoint|topmid\n"
                                                   "obj_prop|backgroundcolor|none\n"
                                                   "od_name|WALLS\n"
                                                   "od_key|NAME\n"
                                                   "od_fld|MATERIAL|m|const character|a|a,b\n"
                                                   "od_fld|FLOORS|f|required integer|2|1:9\n")
                            .wstring(),
                        sink, store);
    ASSERT_EQ(first.objects.size(), 1u);
    const GraphicProps& wall = first.objects.at(L"wall").props;
    std::wstring lines;
    WriteObject(wall, lines, &first);
    const Description second = readDescription(
        writeDescription(folder(), std::string(lines.begin(), lines.end()), "again.txt").wstring(),
        sink, store);
    ASSERT_EQ(second.objects.size(), 1u);
    std::wstring again;
    EXPECT_EQ(WriteObject(second.objects.at(L"wall").props, again, &second), lines);
    EXPECT_EQ(second.objects.at(L"wall").props.layer, wall.layer);
    EXPECT_EQ(second.objects.at(L"wall").props.blockScale, wall.blockScale);
    EXPECT_EQ(second.objects.at(L"wall").props.tables[0].fields[2].values,
              wall.tables[0].fields[2].values);
}

TEST(TextOfColor, ByLengthAndWord)
{
    const std::pair<ColorEntry, const wchar_t*> cases[] = {
        {{0}, L"ByBlock"}, {{256}, L"ByLayer"},           {{-1}, L"None"}, {{7}, L"7"},
        {{257}, L"257"},   {{255, 0, 12}, L"(255 0 12)"}, {{}, L""},       {{1, 2}, L""},
    };
    for (const auto& [entry, word] : cases)
        EXPECT_EQ(TextOfColor(entry), word);
}

TEST(TextOfCode, EndsOfBothLists)
{
    EXPECT_EQ(TextOfAttachment(0), L"");
    EXPECT_EQ(TextOfAttachment(1), L"TopLeft");
    EXPECT_EQ(TextOfAttachment(13), L"BaseAlign");
    EXPECT_EQ(TextOfAttachment(24), L"TopMid");
    EXPECT_EQ(TextOfAttachment(25), L"");
    EXPECT_EQ(TextOfJustification(-1), L"");
    EXPECT_EQ(TextOfJustification(0), L"Left");
    EXPECT_EQ(TextOfJustification(4), L"Middle");
    EXPECT_EQ(TextOfJustification(14), L"BottomRight");
    EXPECT_EQ(TextOfJustification(15), L"");
}
