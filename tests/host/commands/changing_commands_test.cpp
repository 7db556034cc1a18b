#include "host/db/arc.h"
#include "host/db/block_table.h"
#include "host/db/hatch.h"
#include "host/db/line.h"
#include "host/db/mtext.h"
#include "host/db/text.h"
#include "host/edit/command_call.h"
#include "host/edit/selection_set.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

#include <numbers>

namespace {

std::string number(double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.4g", std::abs(value) < 1e-9 ? 0.0 : value);
    return digits;
}

// A line from (0, 0) to (1, 0) with an extension dictionary, an arc, a text, a line on a locked
// layer, a border and its hatch.
class ChangingCommands : public DrawingTest {
protected:
    ChangingCommands()
    {
        DxfDrawing drawing;
        drawing.layer("Locked", 4);
        const std::string dictionary = drawing.takeHandle();
        const std::string record = drawing.takeHandle();
        line_ = drawing.line("0", "", "102\n{ACAD_XDICTIONARY\n360\n" + dictionary + "\n102\n}\n");
        drawing.object("0\nDICTIONARY\n5\n" + dictionary + "\n330\n" + line_ +
                       "\n100\nAcDbDictionary\n280\n1\n281\n1\n3\nNOTE\n360\n" + record +
                       "\n0\nXRECORD\n5\n" + record + "\n330\n" + dictionary +
                       "\n100\nAcDbXrecord\n280\n1\n1\nhello\n");
        arc_ = drawing.entity("ARC", "AcDbCircle",
                              "10\n5.0\n20\n0.0\n30\n0.0\n40\n1.0\n100\nAcDbArc\n50\n0.0\n51\n"
                              "90.0\n");
        text_ = drawing.entity("TEXT", "AcDbText",
                               "10\n1.0\n20\n2.0\n30\n0.0\n40\n1.0\n1\nx\n100\nAcDbText\n");
        locked_ = drawing.line("Locked");
        border_ =
            drawing.entity("LWPOLYLINE", "AcDbPolyline",
                           "90\n3\n70\n1\n43\n0.0\n10\n0\n20\n0\n10\n4\n20\n0\n10\n4\n20\n3\n");
        hatch_ =
            drawing.entity("HATCH", "AcDbHatch",
                           "10\n0.0\n20\n0.0\n30\n0.0\n210\n0.0\n220\n0.0\n230\n1.0\n2\nSOLID\n"
                           "70\n1\n71\n1\n91\n1\n92\n3\n72\n0\n73\n1\n93\n3\n10\n0\n20\n0\n10\n"
                           "4\n20\n0\n10\n4\n20\n3\n97\n1\n330\n" +
                               border_ + "\n75\n0\n76\n1\n98\n0\n");
        open(drawing);
        type(L"");
        saved_ = written();
        printed();
    }

    std::string written()
    {
        std::string bytes;
        host::drawingFormat().write(database().drawing(), bytes);
        return bytes;
    }
    // The lines of model space, those on the locked layer left out.
    std::string lines()
    {
        std::string all;
        for (const AcDbObjectId id : entities()) {
            const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead);
            if (!line || line->layer() == L"Locked")
                continue;
            for (const AcGePoint3d& p : {line->startPoint(), line->endPoint()})
                all += number(p.x) + "," + number(p.y) + " ";
            all.back() = ';';
        }
        return all;
    }
    std::wstring select(const std::string& handle)
    {
        return L"(handent \"" + host::fromUtf8(handle) + L"\")\n";
    }
    void expectUndone()
    {
        type(L"U\n");
        EXPECT_TRUE(written() == saved_);
    }

    std::string line_, arc_, text_, locked_, border_, hatch_;
    std::string saved_;
};

} // namespace

TEST_F(ChangingCommands, AskAsThePlatformDoes)
{
    const std::wstring selected = L"Select objects: " + select(line_);
    EXPECT_EQ(transcript(L"MOVE\n" + select(line_) + L"\n1,1\n4,5\n"),
              L"MOVE\n" + selected +
                  L"1 found\nSelect objects: \n"
                  L"Specify base point or [Displacement] <Displacement>: 1,1\n"
                  L"Specify second point or <use first point as displacement>: 4,5\nCommand: ");
    EXPECT_EQ(lines(), "3,4 4,4;");
    expectUndone();
    EXPECT_EQ(transcript(L"COPY\n" + select(line_) + L"\n0,0\n0,1\n0,2\n\n"),
              L"COPY\n" + selected +
                  L"1 found\nSelect objects: \nCurrent settings:  Copy mode = Multiple\n"
                  L"Specify base point or [Displacement/mOde] <Displacement>: 0,0\n"
                  L"Specify second point or [Array] <use first point as displacement>: 0,1\n"
                  L"Specify second point or [Array/Exit/Undo] <Exit>: 0,2\n"
                  L"Specify second point or [Array/Exit/Undo] <Exit>: \nCommand: ");
    EXPECT_EQ(lines(), "0,0 1,0;0,1 1,1;0,2 1,2;");
    expectUndone();
    EXPECT_EQ(transcript(L"ROTATE\n" + select(line_) + L"\n1,0\n90\n"),
              L"ROTATE\nCurrent positive angle in UCS:  ANGDIR=counterclockwise  ANGBASE=0\n" +
                  selected +
                  L"1 found\nSelect objects: \nSpecify base point: 1,0\n"
                  L"Specify rotation angle or [Copy/Reference] <0>: 90\nCommand: ");
    EXPECT_EQ(lines(), "1,-1 1,0;");
    expectUndone();
    EXPECT_EQ(transcript(L"SCALE\n" + select(line_) + L"\n1,0\nr\n2\n6\n"),
              L"SCALE\n" + selected +
                  L"1 found\nSelect objects: \nSpecify base point: 1,0\n"
                  L"Specify scale factor or [Copy/Reference]: r\n"
                  L"Specify reference length <1.0000>: 2\n"
                  L"Specify new length or [Points] <1.0000>: 6\nCommand: ");
    EXPECT_EQ(lines(), "-2,0 1,0;");
    expectUndone();
    EXPECT_EQ(transcript(L"MIRROR\n" + select(line_) + L"\n0,1\n1,1\n\n"),
              L"MIRROR\n" + selected +
                  L"1 found\nSelect objects: \nSpecify first point of mirror line: 0,1\n"
                  L"Specify second point of mirror line: 1,1\n"
                  L"Erase source objects? [Yes/No] <N>: \nCommand: ");
    EXPECT_EQ(lines(), "0,0 1,0;0,2 1,2;");
    expectUndone();
}

TEST_F(ChangingCommands, EveryOption)
{
    const std::pair<std::wstring, const char*> cases[] = {
        {L"MOVE\n%2,3\n\n", "2,3 3,3;"},
        {L"MOVE\n%\n1,1,1\n", "1,1 2,1;"},
        {L"MOVE\n%D\n1,2\n", "1,2 2,2;"},
        {L"MOVE\n%5,5\n@2<90\n", "0,2 1,2;"},
        {L"COPY\n%2,3\n\n", "0,0 1,0;2,3 3,3;"},
        {L"COPY\n%D\n0,5\n", "0,0 1,0;0,5 1,5;"},
        {L"COPY\n%0,0\n0,1\n0,2\nU\n0,3\nE\n", "0,0 1,0;0,1 1,1;0,3 1,3;"},
        {L"COPY\n%O\nS\n0,0\n0,1\nSETVAR COPYMODE 0\n", "0,0 1,0;0,1 1,1;"},
        {L"COPY\n%0,0\nA\n1\n3\n0,2\n\n", "0,0 1,0;0,2 1,2;0,4 1,4;"},
        {L"COPY\n%0,0\nA\n3\nF\n0,2\n\n", "0,0 1,0;0,1 1,1;0,2 1,2;"},
        {L"ROTATE\n%0,0\n\n", "0,0 1,0;"},
        {L"ROTATE\n%0,0\n0,5\n", "0,0 0,1;"},
        {L"ROTATE\n%0,0\nC\n180\n", "0,0 1,0;0,0 -1,0;"},
        {L"ROTATE\n%0,0\nR\n30\n120\n", "0,0 0,1;"},
        {L"ROTATE\n%0,0\nR\n0,0\n1,0\n0,5\n", "0,0 0,1;"},
        {L"ROTATE\n%0,0\nR\n0\nP\n7,7\n7,9\n", "0,0 0,1;"},
        {L"SCALE\n%0,0\n-2\n0\n3\n", "0,0 3,0;"},
        {L"SCALE\n%0,0\n3,4\n", "0,0 5,0;"},
        {L"SCALE\n%0,0\nC\n2\n", "0,0 1,0;0,0 2,0;"},
        {L"SCALE\n%0,0\nR\n4\nP\n0,0\n0,8\n", "0,0 2,0;"},
        {L"MIRROR\n%0,0\n1,1\nY\n", "0,0 0,1;"},
        {L"MIRROR\n%0,0\n0,0\n0,1\nN\n", "0,0 1,0;0,0 -1,0;"},
    };
    for (const auto& [typed, expected] : cases) {
        SCOPED_TRACE(host::toUtf8(typed));
        std::wstring line = typed;
        line.replace(line.find(L'%'), 1, select(line_) + L"\n");
        type(line);
        EXPECT_EQ(lines(), expected);
        if (lines() != "0,0 1,0;")
            expectUndone();
    }
}

// Escape at any prompt leaves the drawing as it was; copies that are made already stay.
TEST_F(ChangingCommands, CancelAtEveryPrompt)
{
    const std::wstring whole[] = {
        L"MOVE\n%|0,0\n|1,1\n",
        L"ROTATE\n%|0,0\n|R\n|0\n|P\n|0,0\n|0,1\n",
        L"SCALE\n%|0,0\n|R\n|2\n|3\n",
        L"MIRROR\n%|0,0\n|0,1\n|Y\n",
        L"COPY\n%|0,0\n|A\n|3\n|F\n|1,1\n",
    };
    for (const std::wstring& typed : whole)
        for (std::size_t end = typed.find(L'|'); end != std::wstring::npos;
             end = typed.find(L'|', end + 1)) {
            std::wstring line = typed.substr(0, end);
            line.replace(line.find(L'%'), 1, select(line_) + L"\n");
            std::erase(line, L'|');
            SCOPED_TRACE(host::toUtf8(line));
            EXPECT_TRUE(transcript(line + L"\x3").ends_with(L"*Cancel*\nCommand: "));
            EXPECT_TRUE(written() == saved_);
        }
    type(L"COPY\n" + select(line_) + L"\n0,0\n0,1\n\x3");
    EXPECT_EQ(lines(), "0,0 1,0;0,1 1,1;");
}

TEST_F(ChangingCommands, TakeThePickFirstSetAndTellOfLockedLayers)
{
    host::setPickFirst({idOf(line_), idOf(locked_)});
    EXPECT_EQ(transcript(L"MOVE\n0,0\n0,1\n"),
              L"MOVE\n1 was on a locked layer.\n"
              L"Specify base point or [Displacement] <Displacement>: 0,0\n"
              L"Specify second point or <use first point as displacement>: 0,1\nCommand: ");
    EXPECT_EQ(lines(), "0,1 1,1;");
    EXPECT_TRUE(host::currentPickFirst().empty());
    EXPECT_TRUE(transcript(L"SCALE\n" + select(locked_) + L"\n")
                    .ends_with(L"1 was on a locked layer.\nCommand: "));
}

TEST_F(ChangingCommands, HatchGoesWithItsBorderOrLosesIt)
{
    const auto bound = [&] {
        const AcDbObjectPointer<AcDbHatch> hatch(idOf(hatch_), AcDb::kForRead);
        return hatch->associative();
    };
    type(L"MOVE\n" + select(border_) + select(hatch_) + L"\n1,1\n\n");
    EXPECT_TRUE(bound());
    type(L"MOVE\n" + select(hatch_) + L"\n1,1\n\n");
    EXPECT_FALSE(bound());
}

TEST_F(ChangingCommands, CopiesBringTheirRecords)
{
    type(L"COPY\n" + select(line_) + L"\n0,0\n0,1\n\n");
    ASSERT_EQ(lines(), "0,0 1,0;0,1 1,1;");
    ads_name last;
    ASSERT_EQ(acdbEntLast(last), RTNORM);
    AcDbObjectId copy;
    ASSERT_EQ(acdbGetObjectId(copy, last), Acad::eOk);
    const AcDbObjectPointer<AcDbLine> line(copy, AcDb::kForRead);
    ASSERT_TRUE(line);
    const AcDbObjectId dictionary = line->extensionDictionary();
    ASSERT_FALSE(dictionary.isNull());
    const AcDbObjectPointer<AcDbLine> original(idOf(line_), AcDb::kForRead);
    EXPECT_NE(dictionary, original->extensionDictionary());
    const std::string bytes = written();
    std::size_t notes = 0;
    for (std::size_t at = bytes.find("hello"); at != std::string::npos;
         at = bytes.find("hello", at + 1))
        ++notes;
    EXPECT_EQ(notes, 2u);
}

TEST_F(ChangingCommands, MirroredTextAfterItsVariable)
{
    const auto seen = [&] {
        const AcDbObjectPointer<AcDbText> text(idOf(text_), AcDb::kForRead);
        return number(text->position().x) + "," + number(text->position().y) + " " +
               number(text->rotation() * 180.0 / std::numbers::pi) + " " +
               std::to_string(host::integerField(text->tags(), {"AcDbText"}, 71, 0));
    };
    const std::wstring mirror = L"MIRROR\n" + select(text_) + L"\n0,0\n0,1\nY\n";
    type(L"SETVAR MIRRTEXT 1\n" + mirror);
    EXPECT_EQ(seen(), "-1,2 0 2");
    type(L"U\nSETVAR MIRRTEXT 0\n" + mirror);
    const double left = -1.0 - [&] {
        const AcDbObjectPointer<AcDbText> text(idOf(text_), AcDb::kForRead);
        AcDbExtents box;
        text->getGeomExtents(box);
        EXPECT_NEAR(box.maxPoint().x, -1.0, 1e-9);
        return box.maxPoint().x - box.minPoint().x;
    }();
    EXPECT_EQ(seen(), number(left) + ",2 0 0");
}

// A program turns an entity and leaves the angle to the user.
TEST_F(ChangingCommands, RotateFromInsideACommand)
{
    static AcDbObjectId turned;
    static int outcome;
    turned = idOf(line_);
    outcome = RTERROR;
    command(L"TURN", [] {
        ads_name name;
        acdbGetAdsName(name, turned);
        outcome = acedCommand({host::textToken(L"_.rotate"), host::entityToken(name),
                               host::textToken(L""), host::pointToken({1.0, 0.0, 0.0}),
                               host::textToken(L"\\")});
    });
    const std::wstring printed = transcript(L"TURN\n");
    EXPECT_TRUE(printed.ends_with(L"Specify rotation angle or [Copy/Reference] <0>: "))
        << host::toUtf8(printed);
    type(L"90\n");
    EXPECT_EQ(outcome, RTNORM);
    EXPECT_EQ(lines(), "1,-1 1,0;");
    expectUndone();
    type(L"TURN\n\x3");
    EXPECT_EQ(outcome, RTCAN);
    EXPECT_TRUE(written() == saved_);
}
