#include "host/db/attribute.h"
#include "host/db/mtext.h"
#include "host/db/mtext_contents.h"
#include "tests/support/drawing_text.h"

#include <numbers>

using host::DxfVersion;
using host::test::dxf;
using host::test::openText;

namespace {

constexpr double kPi = std::numbers::pi;

} // namespace

TEST(PlainText, DropsFormatCodes)
{
    const std::pair<std::wstring, std::wstring> cases[] = {
        {L"two\\Plines", L"two\nlines"},
        {L"{\\fArial|b0|i0|c0|p34;bold} end", L"bold end"},
        {L"\\H2.5x;\\W0.8;\\C1;\\T1.2;\\Q15;\\A1;x", L"x"},
        {L"\\Lunder\\l \\Oover\\o \\Kstruck\\k", L"under over struck"},
        {L"a\\~b", L"a\u00A0b"},
        {L"\\\\ \\{ \\}", L"\\ { }"},
        {L"1\\S1/2;\"", L"11/2\""},
        {L"\\S+0.1^-0.2;", L"+0.1 -0.2"},
        {L"\\S3#4; x", L"3/4 x"},
        {L"90%%d %%c5 %%p1 %%065%%%", L"90\u00B0 \u22055 \u00B11 A%%%"},
        {L"\\pi0,l0,xqc;centred", L"centred"},
        {L"50% of", L"50% of"},
        {L"\\Hunended", L"unended"},
        {L"end\\", L"end\\"},
        {L"", L""},
    };
    for (const auto& [contents, plain] : cases) {
        SCOPED_TRACE(host::toUtf8(contents));
        EXPECT_EQ(host::plainText(contents), plain);
    }
}

TEST(Text, JustificationJoinsBothModes)
{
    struct Case {
        int across, up, code;
    };
    const Case cases[] = {{0, 0, 0},  {1, 0, 1},  {2, 0, 2},  {3, 0, 3},  {4, 0, 4},
                          {5, 0, 5},  {0, 3, 6},  {1, 3, 7},  {2, 3, 8},  {0, 2, 9},
                          {1, 2, 10}, {2, 2, 11}, {0, 1, 12}, {1, 1, 13}, {2, 1, 14}};
    for (const Case& row : cases) {
        SCOPED_TRACE(row.code);
        const std::string across = std::to_string(row.across);
        const std::string up = std::to_string(row.up);
        ReadDrawing marked =
            openText("0 TEXT|5 A0|100 AcDbEntity|8 0|100 AcDbText|10 0|20 0|30 0|40 1|1 x|72 " +
                     across + "|11 5|21 5|31 0|100 AcDbText|73 " + up);
        AcDbObjectPointer<AcDbText> text(marked.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        EXPECT_EQ(text->justification(), row.code);
        ReadDrawing old =
            openText("0 TEXT|5 A0|8 0|10 0|20 0|40 1|1 x|72 " + across + "|11 5|21 5|73 " + up,
                     DxfVersion::r12);
        AcDbObjectPointer<AcDbText> plain(old.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(plain.openStatus(), Acad::eOk);
        EXPECT_EQ(plain->justification(), row.code);
    }
}

TEST(Text, AttributesKeepTheVerticalModeElsewhere)
{
    // 73 is an attribute's field length
    ReadDrawing drawing =
        openText("0 ATTDEF|5 A0|100 AcDbEntity|8 0|100 AcDbText|10 0|20 0|30 0|40 1|1 v|72 1|11 "
                 "5|21 5|31 0|100 AcDbAttributeDefinition|3 asks|2 TAG|70 6|73 3|74 2");
    AcDbObjectPointer<AcDbAttributeDefinition> text(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(text.openStatus(), Acad::eOk);
    EXPECT_EQ(text->justification(), 10);
    EXPECT_TRUE(text->isConstant());
    EXPECT_FALSE(text->isInvisible());
    EXPECT_EQ(text->tag(), L"TAG");
    EXPECT_EQ(text->prompt(), L"asks");
}

TEST(Text, NewJustificationWritesModesAndAlignment)
{
    ReadDrawing drawing = openText("0 TEXT|5 A0|100 AcDbEntity|8 0|100 AcDbText|10 7|20 8|30 0|40 "
                                   "2|1 x|100 AcDbText");
    {
        AcDbObjectPointer<AcDbText> text(drawing.idOf("A0"), AcDb::kForWrite);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        EXPECT_EQ(text->setJustification(15), Acad::eInvalidInput);
        EXPECT_EQ(text->setJustification(6), Acad::eOk); // top left
        EXPECT_EQ(text->justification(), 6);
        EXPECT_EQ(text->setAlignmentPoint({7, 10, 0}), Acad::eOk);
        EXPECT_EQ(text->position(), AcGePoint3d(7, 8, 0)); // 2 high, hangs below its anchor
    }
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf("0 TEXT|5 A0|100 AcDbEntity|8 0|100 AcDbText|10 7|20 8.0|30 0|40 2|1 x|11 7.0|21 "
                  "10.0|31 0.0|100 AcDbText|73 3"));
}

TEST(Text, RotationIsRadiansAndSurvivesRewriting)
{
    ReadDrawing drawing = openText("0 TEXT|5 A0|8 0|10 0|20 0|40 2|1 x|50 30", DxfVersion::r12);
    AcDbObjectPointer<AcDbText> text(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(text.openStatus(), Acad::eOk);
    EXPECT_NEAR(text->rotation(), kPi / 6, 1e-15);
    EXPECT_EQ(text->setRotation(text->rotation()), Acad::eOk);
    EXPECT_FALSE(text->isModified());
    EXPECT_EQ(text->setRotation(kPi / 4), Acad::eOk);
    EXPECT_NE(drawing.record(drawing.idOf("A0")).find("50\n45.0\n"), std::string::npos);
}

TEST(MText, LaterOfDirectionAndAngleCounts)
{
    const std::string head = "0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 0|20 0|30 0|40 2|71 "
                             "1|72 1|1 x";
    const std::pair<std::string, double> cases[] = {
        {"", 0.0},
        {"|50 90", kPi / 2},
        {"|11 0|21 1|31 0", kPi / 2},
        {"|11 0|21 1|31 0|50 30", kPi / 6},
        {"|50 30|11 0|21 1|31 0", kPi / 2},
        {"|11 -1|21 0|31 0", kPi},
    };
    for (const auto& [direction, angle] : cases) {
        SCOPED_TRACE(direction);
        ReadDrawing drawing = openText(head + direction);
        AcDbObjectPointer<AcDbMText> text(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        EXPECT_NEAR(text->rotation(), angle, 1e-12);
    }
}

TEST(MText, EmbeddedObjectsFieldsAreNotItsOwn)
{
    ReadDrawing drawing =
        openText("0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 1|20 2|30 0|40 2|41 0|71 5|72 "
                 "1|3 long |1 text|7 Standard|101 Embedded Object|70 1|10 9|20 9|30 0|11 0|21 1|31 "
                 "0|40 99|41 77|71 2|1 other");
    AcDbObjectPointer<AcDbMText> text(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(text.openStatus(), Acad::eOk);
    EXPECT_EQ(text->location(), AcGePoint3d(1, 2, 0));
    EXPECT_EQ(text->textHeight(), 2.0);
    EXPECT_EQ(text->attachment(), AcDbMText::kMiddleCenter);
    EXPECT_EQ(text->rotation(), 0.0);
    EXPECT_EQ(text->contents(), L"long text");
    EXPECT_EQ(text->setContents(L"new"), Acad::eOk);
    EXPECT_EQ(text->setTextHeight(3.5), Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf("0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 1|20 2|30 0|40 3.5|41 0|71 "
                  "5|72 1|1 new|7 Standard|101 Embedded Object|70 1|10 9|20 9|30 0|11 0|21 1|31 "
                  "0|40 99|41 77|71 2|1 other"));
}

TEST(MText, LongContentsAreSplit)
{
    ReadDrawing drawing =
        openText("0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 1|20 2|30 0|40 2|71 1|1 x");
    const std::wstring whole = std::wstring(250, L'a') + std::wstring(250, L'b') + L"c";
    AcDbObjectPointer<AcDbMText> text(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(text.openStatus(), Acad::eOk);
    EXPECT_EQ(text->setContents(whole), Acad::eOk);
    EXPECT_EQ(text->contents(), whole);
    const std::string record = drawing.record(drawing.idOf("A0"));
    EXPECT_NE(
        record.find("3\n" + std::string(250, 'a') + "\n3\n" + std::string(250, 'b') + "\n1\nc\n"),
        std::string::npos);
}

TEST(MText, AttachmentPlacesItsLines)
{
    // two lines of height 3 on a 5 apart baseline: 8 tall
    const std::pair<std::string, std::string> cases[] = {
        {"1", "text 10,7 "}, {"4", "text 10,11 "}, {"7", "text 10,15 "}};
    for (const auto& [attachment, first] : cases) {
        SCOPED_TRACE(attachment);
        ReadDrawing drawing = openText("0 MTEXT|5 A0|100 AcDbEntity|8 0|100 AcDbMText|10 10|20 "
                                       "10|30 0|40 3|71 " +
                                       attachment + "|72 1|1 a\\Pb");
        AcDbObjectPointer<AcDbMText> text(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(text.openStatus(), Acad::eOk);
        host::test::StrokeText strokes;
        EXPECT_TRUE(text->strokes(strokes));
        EXPECT_EQ(strokes.text.substr(0, first.size()), first);
        EXPECT_EQ(std::count(strokes.text.begin(), strokes.text.end(), '\n'), 2);
    }
}
