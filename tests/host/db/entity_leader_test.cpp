#include "host/db/leader.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "tests/support/drawing_text.h"

using host::test::DrawingText;
using host::test::dxf;
using host::test::openText;
using host::test::StrokeText;

namespace {

// The content's text style stands under the same code as the leader's style.
const std::string kContext =
    "0 MULTILEADER|5 A0|100 AcDbEntity|8 0|100 AcDbMLeader|270 2|300 CONTEXT_DATA{|40 1|10 8|20 "
    "5|30 0|41 2|290 1|304 note|340 50|12 9|22 6|32 0|13 1|23 0|33 0|302 LEADER{|290 1|291 1|10 "
    "8|20 5|30 0|11 1|21 0|31 0|90 0|40 0.5|304 LEADER_LINE{|10 0|20 0|30 0|10 4|20 5|30 0|91 "
    "0|305 }|271 0|303 }|272 9|273 9|301 }";

} // namespace

TEST(MLeader, StyleStandsBehindTheContent)
{
    ReadDrawing drawing = openText(
        kContext + "|340 51|90 0|170 1|341 52|0 POINT|5 51|8 0|0 POINT|5 53|8 0|0 POINT|5 50|8 0");
    AcDbObjectPointer<AcDbMLeader> leader(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(leader.openStatus(), Acad::eOk);
    EXPECT_EQ(leader->MLeaderStyle(), drawing.idOf("51"));
    EXPECT_EQ(leader->contents(), L"note");
    EXPECT_EQ(leader->setMLeaderStyle(drawing.idOf("51")), Acad::eOk);
    EXPECT_FALSE(leader->isModified());
    EXPECT_EQ(leader->setMLeaderStyle(AcDbObjectId()), Acad::eInvalidInput);
    EXPECT_EQ(leader->setMLeaderStyle(drawing.idOf("53")), Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(kContext + "|340 53|90 0|170 1|341 52"));
}

TEST(MLeader, DrawsLinesLandingAndText)
{
    ReadDrawing drawing = openText(kContext + "|340 51");
    AcDbObjectPointer<AcDbMLeader> leader(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(leader.openStatus(), Acad::eOk);
    StrokeText drawn;
    EXPECT_TRUE(leader->strokes(drawn));
    EXPECT_EQ(drawn.text.substr(0, drawn.text.find("text")), "line 8,5 8.5,5\nline 0,0 4,5 8,5\n");
    EXPECT_NE(drawn.text.find("text 9,4 "), std::string::npos) << drawn.text;
}

TEST(Leader, GrowsByVertices)
{
    ReadDrawing drawing = openText("0 LEADER|5 A0|100 AcDbEntity|8 0|100 AcDbLeader|3 Standard|71 "
                                   "1|72 0|73 3|76 2|10 0|20 0|30 0|10 4|20 4|30 0|210 0|220 0|230 "
                                   "1");
    AcDbObjectPointer<AcDbLeader> leader(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(leader.openStatus(), Acad::eOk);
    EXPECT_EQ(leader->appendVertex({6, 4, 0}), Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf("0 LEADER|5 A0|100 AcDbEntity|8 0|100 AcDbLeader|3 Standard|71 1|72 0|73 3|76 "
                  "3|10 0|20 0|30 0|10 4|20 4|30 0|10 6.0|20 4.0|30 0.0|210 0|220 0|230 1"));
}

namespace {

// Two lines one apart around a corner at (4, 0).
const std::string kMline =
    "0 MLINE|5 A0|100 AcDbEntity|8 0|100 AcDbMline|2 STANDARD|340 0|40 1.0|70 1|71 1|72 3|73 2|10 "
    "0|20 0|30 0|210 0|220 0|230 1|11 0|21 0|31 0|12 1|22 0|32 0|13 0|23 1|33 0|74 2|41 0.5|41 "
    "0|75 0|74 2|41 -0.5|41 0|75 0|11 4|21 0|31 0|12 0|22 1|32 0|13 -0.7071067811865475|23 "
    "0.7071067811865475|33 0|74 2|41 0.7071067811865476|41 0|75 0|74 2|41 -0.7071067811865476|41 "
    "0|75 0|11 4|21 3|31 0|12 0|22 1|32 0|13 -1|23 0|33 0|74 2|41 0.5|41 0|75 0|74 2|41 -0.5|41 "
    "0|75 0";

std::string strokesAfter(Acad::ErrorStatus (*change)(AcDbMline&))
{
    ReadDrawing drawing = openText(kMline);
    AcDbObjectPointer<AcDbMline> line(drawing.idOf("A0"), AcDb::kForWrite);
    EXPECT_EQ(change(*line), Acad::eOk);
    StrokeText drawn;
    EXPECT_TRUE(line->strokes(drawn));
    return drawn.text;
}

} // namespace

TEST(Mline, LinesFollowScaleJustificationAndClosing)
{
    EXPECT_EQ(strokesAfter([](AcDbMline&) { return Acad::eOk; }),
              "line 0,0.5 3.5,0.5 3.5,3\nline 0,-0.5 4.5,-0.5 4.5,3\n");
    EXPECT_EQ(strokesAfter([](AcDbMline& m) { return m.setScale(2.0); }),
              "line 0,1 3,1 3,3\nline 0,-1 5,-1 5,3\n");
    EXPECT_EQ(strokesAfter([](AcDbMline& m) { return m.setJustification(Mline::kTop); }),
              "line 0,0 4,0 4,3\nline 0,-1 5,-1 5,3\n");
    EXPECT_EQ(strokesAfter([](AcDbMline& m) { return m.setJustification(Mline::kBottom); }),
              "line 0,1 3,1 3,3\nline 0,0 4,0 4,3\n");
    EXPECT_EQ(strokesAfter([](AcDbMline& m) {
                  return m.appendSeg({0, 3, 0});
              }),
              "line 0,0.5 3.5,0.5 3.5,2.5 0,2.5\nline 0,-0.5 4.5,-0.5 4.5,3.5 0,3.5\n");
    EXPECT_EQ(strokesAfter([](AcDbMline& m) {
                  m.appendSeg({0, 3, 0});
                  return m.setClosedMline(true);
              }),
              "closed 0.5,0.5 3.5,0.5 3.5,2.5 0.5,2.5\nclosed -0.5,-0.5 4.5,-0.5 4.5,3.5 "
              "-0.5,3.5\n");
}

TEST(Mline, EqualValuesChangeNothing)
{
    ReadDrawing drawing = openText(kMline);
    AcDbObjectPointer<AcDbMline> line(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->setScale(1.0), Acad::eOk);
    EXPECT_EQ(line->setJustification(Mline::kZero), Acad::eOk);
    EXPECT_EQ(line->setClosedMline(false), Acad::eOk);
    EXPECT_FALSE(line->isModified());
    EXPECT_EQ(line->setJustification(3), Acad::eInvalidInput);
    EXPECT_EQ(line->setStyle(AcDbObjectId()), Acad::eInvalidInput);
    EXPECT_EQ(line->setSupressEndCaps(true), Acad::eOk);
    std::string wanted = kMline;
    wanted.replace(wanted.find("71 1"), 4, "71 9");
    EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(wanted));
}
