#include "host/db/header_variables.h"

#include "tests/support/dxf_drawing.h"
#include "tests/support/read_drawing.h"

#include <limits>

namespace {

using host::headerVariable;
using host::setHeaderVariable;

const std::string kVariables = "9\n$CLAYER\n  8\n Roads\n9\n$LIMMIN\n 10\n0.50\n 20\n1.\n"
                               "9\n$EXTMIN\n 10\n1.0\n 20\n2.0\n 30\n3.0\n9\n$LTSCALE\n 40\n1.0\n"
                               "999\nremark\n9\n$XCLIPFRAME\n290\n 1\n9\n$TREEDEPTH\n 90\n 3020\n"
                               "9\n$UCSBASE\n  2\n\n9\n$CEPSNID\n  5\n0a\n";

std::string drawingWith(const std::string& variables)
{
    std::string text = DxfDrawing().text();
    const std::string before = "\n0\nENDSEC";
    return text.insert(text.find(before) + 1, variables);
}

resbuf valueOf(int type, double number)
{
    resbuf value;
    value.restype = static_cast<short>(type);
    value.resval.rreal = number;
    value.resval.rint = static_cast<std::int16_t>(number);
    value.resval.rlong = static_cast<std::int32_t>(number);
    return value;
}

resbuf pointOf(int type, ads_point point)
{
    resbuf value;
    value.restype = static_cast<short>(type);
    value.resval.rpoint = point;
    return value;
}

resbuf textOf(const wchar_t* text)
{
    resbuf value;
    value.restype = static_cast<short>(RTSTR);
    value.resval.rstring = text;
    return value;
}

TEST(HeaderVariables, TypeFollowsTheGroupCode)
{
    ReadDrawing read(drawingWith(kVariables));
    const std::tuple<const char*, int, int> rows[] = {
        {"CLAYER", RTSTR, 8},    {"LIMMIN", RTPOINT, 10},      {"EXTMIN", RT3DPOINT, 10},
        {"LTSCALE", RTREAL, 40}, {"XCLIPFRAME", RTSHORT, 290}, {"TREEDEPTH", RTLONG, 90},
        {"UCSBASE", RTSTR, 2},   {"CEPSNID", RTSTR, 5},        {"ltscale", RTREAL, 40},
        {"LUPREC", RTSHORT, 70},
    };
    for (const auto& [name, type, code] : rows) {
        SCOPED_TRACE(name);
        const std::optional<resbuf> value = headerVariable(read.drawing(), name);
        ASSERT_TRUE(value);
        EXPECT_EQ(value->restype, type);
        EXPECT_EQ(host::headerVariableCode(read.drawing(), name), code);
    }
    EXPECT_FALSE(headerVariable(read.drawing(), "LTSCAL"));
    EXPECT_EQ(headerVariable(read.drawing(), "CLAYER")->resval.rstring, L" Roads");
    EXPECT_EQ(headerVariable(read.drawing(), "EXTMIN")->resval.rpoint, (ads_point{1, 2, 3}));
    EXPECT_EQ(headerVariable(read.drawing(), "TREEDEPTH")->resval.rlong, 3020);
}

TEST(HeaderVariables, ConvertsWhereNothingIsLost)
{
    constexpr bool yes = true, no = false;
    const std::tuple<const char*, resbuf, bool> rows[] = {
        {"LTSCALE", valueOf(RTSHORT, 2), yes},
        {"LTSCALE", valueOf(RTREAL, 2.5), yes},
        {"LTSCALE", textOf(L"2"), no},
        {"LTSCALE", valueOf(RTREAL, std::numeric_limits<double>::infinity()), no},
        {"LUPREC", valueOf(RTREAL, 2.0), yes},
        {"LUPREC", valueOf(RTREAL, 2.5), no},
        {"LUPREC", valueOf(RTLONG, 32767), yes},
        {"LUPREC", valueOf(RTLONG, 32768), no},
        {"XCLIPFRAME", valueOf(RTSHORT, 0), yes},
        {"XCLIPFRAME", valueOf(RTSHORT, 2), no},
        {"TREEDEPTH", valueOf(RTSHORT, -1), yes},
        {"LIMMIN", pointOf(RTPOINT, {3, 4, 0}), yes},
        {"LIMMIN", pointOf(RT3DPOINT, {3, 4, 0}), yes},
        {"LIMMIN", pointOf(RT3DPOINT, {3, 4, 5}), no},
        {"LIMMIN", valueOf(RTREAL, 1), no},
        {"EXTMIN", pointOf(RTPOINT, {3, 4, 9}), yes}, // of a flat point z says nothing
        {"CLAYER", textOf(L"0"), yes},
        {"CLAYER", valueOf(RTSHORT, 0), no},
        {"CEPSNID", textOf(L"1F"), yes},
        {"CEPSNID", textOf(L"1G"), no},
    };
    for (const auto& [name, value, accepted] : rows) {
        SCOPED_TRACE(std::string(name) + " " + std::to_string(value.restype));
        ReadDrawing read(drawingWith(kVariables));
        EXPECT_EQ(setHeaderVariable(read.drawing(), name, 0, value), accepted);
        EXPECT_EQ(read.database().isModified(), accepted);
    }
}

TEST(HeaderVariables, AChangeTouchesItsValueOnly)
{
    ReadDrawing read(drawingWith(kVariables));
    ASSERT_TRUE(setHeaderVariable(read.drawing(), "LIMMIN", 10, pointOf(RTPOINT, {7.25, 1, 0})));
    ASSERT_TRUE(setHeaderVariable(read.drawing(), "XCLIPFRAME", 290, valueOf(RTSHORT, 0)));
    std::string wanted = drawingWith(kVariables);
    const auto replace = [&](const std::string& from, const std::string& to) {
        wanted.replace(wanted.find(from), from.size(), to);
    };
    std::string written = read.written();
    replace("0.50\n", "7.25\n");
    replace("290\n 1\n", "290\n 0\n");
    // the width of integers is the file's, as its first ones have it
    std::erase(written, ' ');
    std::erase(wanted, ' ');
    replace("\n20\n1.\n", "\n20\n1.0\n");
    EXPECT_EQ(written, wanted);
}

TEST(HeaderVariables, EqualValueChangesNothing)
{
    ReadDrawing read(drawingWith(kVariables));
    EXPECT_TRUE(setHeaderVariable(read.drawing(), "LIMMIN", 10, pointOf(RTPOINT, {0.5, 1, 0})));
    EXPECT_TRUE(setHeaderVariable(read.drawing(), "CEPSNID", 5, textOf(L"A")));
    EXPECT_TRUE(setHeaderVariable(read.drawing(), "LUPREC", 70, valueOf(RTREAL, 4.0)));
    EXPECT_EQ(read.written(), drawingWith(kVariables));
}

TEST(HeaderVariables, NewVariableAndUndo)
{
    ReadDrawing read(drawingWith(kVariables));
    host::Drawing& drawing = read.drawing();
    drawing.undo.beginGroup(L"SETVAR");
    ASSERT_TRUE(setHeaderVariable(drawing, "CELTSCALE", 40, valueOf(RTREAL, 3.0)));
    ASSERT_TRUE(setHeaderVariable(drawing, "LUPREC", 70, valueOf(RTSHORT, 2)));
    drawing.undo.endGroup(drawing);
    EXPECT_EQ(headerVariable(drawing, "CELTSCALE")->resval.rreal, 3.0);
    EXPECT_EQ(read.database().luprec(), 2);
    EXPECT_EQ(host::headerVariableNames(drawing).back(), "CELTSCALE");
    ReadDrawing again(read.written());
    EXPECT_EQ(headerVariable(again.drawing(), "CELTSCALE")->resval.rreal, 3.0);
    drawing.undo.undo(drawing);
    EXPECT_FALSE(headerVariable(drawing, "CELTSCALE"));
    EXPECT_EQ(read.database().luprec(), 4);
    EXPECT_EQ(read.written(), drawingWith(kVariables));
}

TEST(HeaderVariables, ReactorsHearAChangeByName)
{
    struct Listener : AcDbDatabaseReactor {
        std::wstring heard;
        void headerSysVarWillChange(const AcDbDatabase*, const wchar_t* name) override
        {
            heard += std::wstring(L"<") + name;
        }
        void headerSysVarChanged(const AcDbDatabase*, const wchar_t* name, bool) override
        {
            heard += std::wstring(L">") + name;
        }
    } listener;
    ReadDrawing read(drawingWith(kVariables));
    read.database().addReactor(&listener);
    setHeaderVariable(read.drawing(), "luprec", 70, valueOf(RTSHORT, 4));
    EXPECT_EQ(listener.heard, L"");
    setHeaderVariable(read.drawing(), "luprec", 70, valueOf(RTSHORT, 6));
    EXPECT_EQ(listener.heard, L"<LUPREC>LUPREC");
    read.database().removeReactor(&listener);
}

// A file may do without the section; then all defaults hold and a change makes it.
TEST(HeaderVariables, DrawingWithoutHeader)
{
    const std::string text = "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n";
    ReadDrawing read(text);
    EXPECT_EQ(read.database().luprec(), 4);
    EXPECT_EQ(read.database().insunits(), 0);
    EXPECT_EQ(read.written(), text);
    ASSERT_TRUE(setHeaderVariable(read.drawing(), "LUPREC", 70, valueOf(RTSHORT, 6)));
    ReadDrawing again(read.written());
    EXPECT_EQ(again.database().luprec(), 6);
}

} // namespace
