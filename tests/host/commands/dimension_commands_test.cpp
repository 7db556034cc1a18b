#include "host/db/arc.h"
#include "host/db/block_reference.h"
#include "host/db/block_table.h"
#include "host/db/dimension_kinds.h"
#include "host/db/line.h"
#include "host/db/mtext.h"
#include "host/db/point_entity.h"
#include "host/db/solid_trace.h"
#include "host/db/symbol_tables.h"
#include "host/text/encoding.h"
#include "tests/support/opened_drawing.h"

#include <numbers>
#include <vector>

namespace {

std::string number(double value)
{
    char digits[40];
    std::snprintf(digits, sizeof digits, "%.5g", std::abs(value) < 1e-9 ? 0.0 : value);
    return digits;
}

std::string place(const AcGePoint3d& p)
{
    return number(p.x) + "," + number(p.y);
}

std::string degrees(double radians)
{
    return number(radians * 180.0 / std::numbers::pi);
}

// A metric drawing: text and arrows of 2.5, extension lines from 0.625 to 1.25, a gap of 0.625,
// text above the line, lines inside also where the text is not.
class DimensionCommands : public DrawingTest {
protected:
    DimensionCommands()
    {
        type(L"");
        printed();
    }

    std::size_t drawn() { return entities().size(); }
    // Kind, measurement and text.
    std::string dimension()
    {
        const AcDbObjectPointer<AcDbDimension> found(last(), AcDb::kForRead);
        if (!found)
            return "none";
        std::string text;
        for (const AcDbObjectId id : entities(found->dimBlockId()))
            if (const AcDbObjectPointer<AcDbMText> part(id, AcDb::kForRead); part)
                text = host::toUtf8(part->text());
        return host::toUtf8(found->isA()->name()) + " " + number(found->measurement()) + " " + text;
    }
    // What the last dimension looks like, without its points.
    std::vector<std::string> picture()
    {
        std::vector<std::string> lines;
        const AcDbObjectPointer<AcDbDimension> found(last(), AcDb::kForRead);
        for (const AcDbObjectId id : found ? entities(found->dimBlockId()) : entities({})) {
            const AcDbObjectPointer<AcDbEntity> part(id, AcDb::kForRead);
            if (const auto* line = AcDbLine::cast(part.object()))
                lines.push_back("line " + place(line->startPoint()) + " " +
                                place(line->endPoint()));
            else if (const auto* arc = AcDbArc::cast(part.object()))
                lines.push_back("arc " + place(arc->center()) + " " + number(arc->radius()) + " " +
                                degrees(arc->startAngle()) + " " + degrees(arc->endAngle()));
            else if (const auto* head = AcDbSolid::cast(part.object()))
                lines.push_back("arrow " +
                                place(interpolated(head->getPointAt(0), head->getPointAt(1), 0.5)) +
                                " " + place(head->getPointAt(2)));
            else if (const auto* block = AcDbBlockReference::cast(part.object()))
                lines.push_back(host::toUtf8(block->blockName()) + " " + place(block->position()) +
                                " " + number(block->scaleFactors().sx) + " " +
                                degrees(block->rotation()));
            else if (const auto* text = AcDbMText::cast(part.object()))
                lines.push_back("text " + place(text->location()) + " " +
                                degrees(text->rotation()) + " " + host::toUtf8(text->text()));
        }
        return lines;
    }
    // A style whose record states nothing.
    AcDbObjectId bareStyle()
    {
        const AcDbObjectPointer<AcDbDimStyleTable> table(database().dimStyleTableId(),
                                                         AcDb::kForWrite);
        AcDbObjectPointer<AcDbDimStyleTableRecord> style;
        style.create();
        style->setName(L"Plain");
        AcDbObjectId id;
        table->add(id, style.object());
        return id;
    }
    void draw(std::wstring_view typed)
    {
        SCOPED_TRACE(host::toUtf8(std::wstring(typed)));
        const std::size_t before = drawn();
        type(typed);
        EXPECT_EQ(drawn(), before + 1);
    }
};

using Lines = std::vector<std::string>;

} // namespace

TEST_F(DimensionCommands, LinearAsksAsThePlatformDoes)
{
    EXPECT_EQ(transcript(L"dimlinear\n0,0\n20,0\n10,5\n"),
              L"dimlinear\nSpecify first extension line origin or <select object>: 0,0\n"
              L"Specify second extension line origin: 20,0\n"
              L"Specify dimension line location or "
              L"[Mtext/Text/Angle/Horizontal/Vertical/Rotated]: 10,5\n"
              L"Dimension text = 20\nCommand: ");
    EXPECT_EQ(picture(), (Lines{"line 0,0.625 0,6.25", "line 20,0.625 20,6.25", "line 2.5,5 17.5,5",
                                "arrow 2.5,5 0,5", "arrow 17.5,5 20,5", "text 10,6.875 0 20"}));
    const AcDbObjectPointer<AcDbRotatedDimension> found(last(), AcDb::kForRead);
    ASSERT_TRUE(found);
    EXPECT_EQ(place(found->dimLinePoint()), "20,5");
    EXPECT_EQ(place(found->textPosition()), "10,6.875");
    EXPECT_EQ(found->dimensionStyleName(), L"Standard");
    EXPECT_EQ(found->dimensionText(), L"");
    EXPECT_TRUE(found->xData(L"ACAD").empty()); // nothing differs from its style
}

TEST_F(DimensionCommands, LinearByPlaceAndByOption)
{
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"dimlinear\n0,0\n30,40\n15,60\n", "AcDbRotatedDimension 30 30"}, // above: horizontal
        {L"dimlinear\n0,0\n30,40\n50,20\n", "AcDbRotatedDimension 40 40"}, // beside: vertical
        {L"dimlinear\n0,0\n30,40\nv\n15,60\n", "AcDbRotatedDimension 40 40"},
        {L"dimlinear\n0,0\n30,40\n_h\n50,20\n", "AcDbRotatedDimension 30 30"},
        {L"dimlinear\n0,0\n30,40\nr\n53.13010235415598\n0,50\n", "AcDbRotatedDimension 50 50"},
        {L"dimlinear\n0,0\n0,40\n0,60\n", "AcDbRotatedDimension 40 40"}, // no width to measure
        {L"dimlinear\n0,0\n30,40\nt\nabout <> m\n15,60\n", "AcDbRotatedDimension 30 about 30 m"},
        {L"dimlinear\n0,0\n30,40\nMtext\nwall\n15,60\n", "AcDbRotatedDimension 30 wall"},
        {L"dimlinear\n0,0\n30,40\na\n45\n15,60\n", "AcDbRotatedDimension 30 30"},
        {L"dimaligned\n0,0\n30,40\n0,40\n", "AcDbAlignedDimension 50 50"},
    };
    for (const auto& [typed, expected] : cases) {
        draw(typed);
        EXPECT_EQ(dimension(), expected) << host::toUtf8(typed);
    }
}

TEST_F(DimensionCommands, AlignedAlongThreeFourFive)
{
    draw(L"dimaligned\n0,0\n40,30\n-6,8\n");
    EXPECT_EQ(picture(),
              (Lines{"line -0.375,0.5 -6.75,9", "line 39.625,30.5 33.25,39", "line -4,9.5 32,36.5",
                     "arrow -4,9.5 -6,8", "arrow 32,36.5 34,38", "text 12.875,24.5 36.87 50"}));
}

TEST_F(DimensionCommands, ObjectsTellTheirEnds)
{
    type(L"line\n0,0\n40,0\n\ncircle\n100,0\n10\narc\n50,50\n60,60\n70,50\n");
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"dimlinear\n\n20,0\n20,9\n", "AcDbRotatedDimension 40 40"},
        {L"dimlinear\n\n110,0\n100,20\n", "AcDbRotatedDimension 20 20"},
        {L"dimlinear\n\n110,0\n150,0\n", "AcDbRotatedDimension 20 20"},
        {L"dimaligned\n\n60,60\n60,70\n", "AcDbAlignedDimension 20 20"},
    };
    for (const auto& [typed, expected] : cases) {
        draw(typed);
        EXPECT_EQ(dimension(), expected) << host::toUtf8(typed);
        if (typed != cases[3].first)
            type(L"u\n"); // so that it is not picked
    }
    EXPECT_EQ(picture().front(), "line 70,50.625 70,71.25"); // the arc begins on the right
}

TEST_F(DimensionCommands, ArrowsAndTextMoveOutsideWhenThereIsNoRoom)
{
    // 8 holds the text but not two arrows beside it: the arrows turn round
    draw(L"dimlinear\n0,0\n8,0\n4,5\n");
    EXPECT_EQ(picture(), (Lines{"line 0,0.625 0,6.25", "line 8,0.625 8,6.25", "line -5,5 -2.5,5",
                                "line 0,5 8,5", "line 10.5,5 13,5", "arrow -2.5,5 0,5",
                                "arrow 10.5,5 8,5", "text 4,6.875 0 8"}));
    // forced inside
    type(L"dimtix\n1\n");
    draw(L"dimlinear\n0,0\n1,0\n0.5,5\n");
    EXPECT_EQ(picture().back(), "text 0.5,6.875 0 1");
}

TEST_F(DimensionCommands, StyleValuesAndOverridesDecideTheLook)
{
    type(L"dimtad\n0\ndimexo\n1\ndimexe\n2\ndimscale\n2\ndimdec\n3\ndimpost\n<> m\ndimlfac\n0.5\n");
    draw(L"dimlinear\n0,0\n80.5,0\n40,20\n");
    const Lines shown = picture();
    ASSERT_EQ(shown.size(), 7u); // the line is broken for the text
    EXPECT_EQ(shown[0], "line 0,2 0,24");
    EXPECT_EQ(shown[4], "arrow 5,20 0,20");
    EXPECT_EQ(shown[6], "text 40.25,20 0 40,25 m");
    {
        const AcDbObjectPointer<AcDbDimension> found(last(), AcDb::kForRead);
        std::vector<int> codes;
        for (const resbuf& item : found->xData(L"ACAD"))
            if (item.restype == 1070)
                codes.push_back(item.resval.rint);
        // scale, offset, extension, position 0, factor, decimals 3; the suffix is text
        EXPECT_EQ(codes, (std::vector<int>{40, 42, 44, 77, 0, 144, 271, 3, 3}));
    }
    type(L"dimtsz\n1\n");
    draw(L"dimlinear\n0,0\n80,0\n40,20\n");
    EXPECT_EQ(picture()[4], "line 2,22 -2,18"); // a stroke for an arrow, twice its size long
}

TEST_F(DimensionCommands, ArrowheadsAreBlocks)
{
    type(L"dimblk\n_DOT\n");
    draw(L"dimlinear\n0,0\n40,0\n20,5\n");
    EXPECT_EQ(picture()[3], "_Dot 0,5 2.5 180");
    EXPECT_EQ(picture()[4], "_Dot 40,5 2.5 0");
    type(L"dimsah\n1\ndimblk1\n_OBLIQUE\ndimblk2\n.\n");
    draw(L"dimlinear\n0,0\n40,0\n20,5\n");
    EXPECT_EQ(picture()[2], "line 0,5 37.5,5"); // up to a stroke, but not into a filled arrow
    EXPECT_EQ(picture()[3], "_Oblique 0,5 2.5 180");
    EXPECT_EQ(picture()[4], "arrow 37.5,5 40,5");
}

TEST_F(DimensionCommands, AnglesOfEveryForm)
{
    type(
        L"line\n0,0\n50,0\n\nline\n0,0\n0,50\n\narc\nc\n100,0\n120,0\n100,20\ncircle\n200,0\n10\n");
    const std::pair<const wchar_t*, const char*> cases[] = {
        {L"dimangular\n40,0\n0,40\n20,20\n", "AcDb2LineAngularDimension 1.5708 90°"},
        {L"dimangular\n40,0\n0,40\n-20,20\n", "AcDb2LineAngularDimension 1.5708 90°"},
        {L"dimangular\n40,0\n0,40\nq\n20,20\n-30,-30\n", "AcDb2LineAngularDimension 1.5708 90°"},
        {L"dimangular\n120,0\n130,10\n", "AcDb3PointAngularDimension 1.5708 90°"},
        {L"dimangular\n120,0\n70,-10\n", "AcDb3PointAngularDimension 4.7124 270°"},
        {L"dimangular\n210,0\n200,30\n215,15\n", "AcDb3PointAngularDimension 1.5708 90°"},
        {L"dimangular\n\n0,0\n10,0\n10,10\n20,1\n", "AcDb3PointAngularDimension 0.7854 45°"},
    };
    for (const auto& [typed, expected] : cases) {
        draw(typed);
        EXPECT_EQ(dimension(), expected) << host::toUtf8(typed);
        type(L"u\n"); // so that it is not picked
    }
}

TEST_F(DimensionCommands, AnglesAreDrawnRoundTheirVertex)
{
    draw(L"dimangular\n\n0,0\n10,0\n0,10\n30,40\n"); // the arc is 50 out
    const Lines shown = picture();
    ASSERT_EQ(shown.size(), 6u);
    EXPECT_EQ(shown[0], "line 10.625,0 51.25,0");
    EXPECT_EQ(shown[1], "line 0,10.625 0,51.25");
    // an arrow of 2.5 takes 2.5 / 50 of a radian, 2.8648 degrees
    EXPECT_EQ(shown[2], "arc 0,0 50 2.8648 87.135");
    EXPECT_EQ(shown[5], "text 36.681,36.681 -45 90°"); // 51.875 out, halfway
}

TEST_F(DimensionCommands, LengthsOfArcs)
{
    type(L"arc\nc\n0,0\n20,0\n0,20\n");
    draw(L"dimarc\n14.142135623731,14.142135623731\n30,0\n"); // a quarter of 40 pi
    EXPECT_EQ(dimension(), "AcDbArcDimension 31.416 ⌒31,42");
    draw(L"dimarc\n14.142135623731,14.142135623731\np\n20,0\n17.320508075689,10\n30,0\n");
    EXPECT_EQ(dimension(), "AcDbArcDimension 10.472 ⌒10,47");
    type(L"dimarcsym\n2\n");
    draw(L"dimarc\n14.142135623731,14.142135623731\n30,0\n");
    EXPECT_EQ(dimension(), "AcDbArcDimension 31.416 31,42");
}

TEST_F(DimensionCommands, RadiusAndDiameter)
{
    type(L"circle\n0,0\n20\n");
    EXPECT_EQ(transcript(L"dimradius\n20,0\n10,0\n"),
              L"dimradius\nSelect arc or circle: 20,0\nDimension text = 20\n"
              L"Specify dimension line location or [Mtext/Text/Angle]: 10,0\nCommand: ");
    EXPECT_EQ(dimension(), "AcDbRadialDimension 20 R20");
    EXPECT_EQ(picture(), (Lines{"line 0,0 17.5,0", "arrow 17.5,0 20,0", "text 10,1.875 0 R20"}));
    draw(L"dimdiameter\n-20,0\n0,5\n"); // picked beside the arrow
    EXPECT_EQ(dimension(), "AcDbDiametricDimension 40 ∅40");
    EXPECT_EQ(picture(), (Lines{"line 0,-17.5 0,17.5", "arrow 0,17.5 0,20", "arrow 0,-17.5 0,-20",
                                "text -1.875,5 90 ∅40"}));
    draw(L"dimradius\n-12,16\n-40,0\n"); // outside: a leader, and the line inside
    const Lines outside = picture();
    ASSERT_EQ(outside.size(), 4u);
    EXPECT_EQ(outside[0], "line 0,0 -20,0");
    EXPECT_EQ(outside[1], "arrow -22.5,0 -20,0");
    EXPECT_EQ(outside[3], "text -40,1.875 0 R20");
}

TEST_F(DimensionCommands, JoggedAndOrdinate)
{
    type(L"circle\n0,0\n100\n");
    draw(L"dimjogged\n100,0\n60,-10\n80,0\n70,-5\n");
    EXPECT_EQ(dimension(), "AcDbRadialDimensionLarge 100 R100");
    // the slope of 45 degrees meets the two lines 5 to each side of the jog
    EXPECT_EQ(picture(), (Lines{"line 75,0 97.5,0", "line 75,0 65,-10", "line 65,-10 60,-10",
                                "arrow 97.5,0 100,0", "text 80,1.875 0 R100"}));

    draw(L"dimordinate\n30,40\n30,60\n");
    EXPECT_EQ(dimension(), "AcDbOrdinateDimension 30 30");
    EXPECT_EQ(picture()[0], "line 30,40.625 30,60");
    draw(L"dimordinate\n30,40\n60,45\n");
    EXPECT_EQ(dimension(), "AcDbOrdinateDimension 40 40");
    EXPECT_EQ(picture()[0], "line 30.625,40 50,40"); // then the slope, then 5 to the text
    EXPECT_EQ(picture()[1], "line 50,40 55,45");
    EXPECT_EQ(picture()[2], "line 55,45 60,45");
    draw(L"dimordinate\n30,40\nx\n60,45\n");
    EXPECT_EQ(dimension(), "AcDbOrdinateDimension 30 30");
}

TEST_F(DimensionCommands, DimTakesOneAfterTheOther)
{
    type(L"circle\n0,0\n20\n");
    printed();
    EXPECT_EQ(transcript(L"_.dim\nhor\n0,0\n30,40\n15,60\n\n_rad\n20,0\nr <>\n40,0\nexit\n"),
              L"_.dim\nDim: hor\nSpecify first extension line origin or <select object>: 0,0\n"
              L"Specify second extension line origin: 30,40\n"
              L"Specify dimension line location or [Mtext/Text/Angle]: 15,60\n"
              L"Enter dimension text <30>: \nDimension text = 30\n"
              L"Dim: _rad\nSelect arc or circle: 20,0\nDimension text = 20\n"
              L"Enter dimension text <20>: r <>\n"
              L"Specify dimension line location or [Mtext/Text/Angle]: 40,0\n"
              L"Dim: exit\nCommand: ");
    EXPECT_EQ(dimension(), "AcDbRadialDimension 20 r R20");
    EXPECT_EQ(drawn(), 3u);

    // Escape inside a kind leads back, there it leaves; what was drawn stays
    EXPECT_EQ(type(L"dim\nver\n0,0\n30,40\n50,20\n\nali\n0,0\n\x1b").prompt, L"Dim: ");
    EXPECT_EQ(drawn(), 4u);
    EXPECT_TRUE(type(L"\x1b").command.empty());
    EXPECT_EQ(dimension(), "AcDbRotatedDimension 40 40");

    type(L"dim\nver\n0,0\n30,40\n50,20\n\nundo\nundo\n\n");
    EXPECT_EQ(drawn(), 4u);
    EXPECT_TRUE(printed().ends_with(L"Nothing to undo.\nDim: \nCommand: "));
    type(L"u\nu\n");
    EXPECT_EQ(drawn(), 3u);
}

TEST_F(DimensionCommands, CancelAnywhereLeavesNothing)
{
    type(L"circle\n0,0\n20\ndimblk\n_DOT\n");
    const std::wstring typed[] = {
        L"dimlinear\n0,0\n20,0\n",   L"dimaligned\n\n",
        L"dimangular\n\n0,0\n1,0\n", L"dimarc\n",
        L"dimdiameter\n20,0\n",      L"dimjogged\n20,0\n5,0\n10,0\n",
        L"dimordinate\n0,0\nt\n",    L"dimradius\n",
        L"dim\nrot\n45\n0,0\n",
    };
    for (const std::wstring& one : typed) {
        SCOPED_TRACE(host::toUtf8(one));
        EXPECT_FALSE(type(one).command.empty());
        type(L"\x1b");
        EXPECT_TRUE(type(L"\x1b").command.empty());
        EXPECT_EQ(drawn(), 1u);
    }
    const AcDbObjectPointer<AcDbBlockTable> blocks(database().blockTableId(), AcDb::kForRead);
    EXPECT_FALSE(blocks->has(L"_Dot"));
}

TEST_F(DimensionCommands, WhatMeasuresNothingIsNotDrawn)
{
    type(L"line\n0,0,0\n0,0,5\n\n");
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"dimangular\n\n0,0\n10,0\n10,10\n0,0\n", L"The points coincide.\n"},
        {L"dimangular\n\n0,0\n10,0\n20,0\n30,0\n", L"The points coincide.\n"},
        {L"dimaligned\n\n0,0\n5,5\n", L"There is nothing to measure.\n"},
    };
    for (const auto& [typed, told] : cases) {
        type(typed);
        EXPECT_NE(printed().find(told), std::wstring::npos) << host::toUtf8(typed);
        EXPECT_EQ(drawn(), 1u);
    }
}

TEST_F(DimensionCommands, SettingTheStyleTakesItsValuesAlong)
{
    ASSERT_FALSE(bareStyle().isNull());
    type(L"dimstyle\nPlain\n");
    draw(L"dimlinear\n0,0\n20,0\n10,5\n");
    const AcDbObjectPointer<AcDbDimension> found(last(), AcDb::kForRead);
    EXPECT_EQ(found->dimensionStyleName(), L"Plain");
    EXPECT_TRUE(found->xData(L"ACAD").empty());
    EXPECT_EQ(dimension(), "AcDbRotatedDimension 20 20.0000"); // what a bare record means
}

// Its own block is drawn anew, no second one made.
TEST_F(DimensionCommands, AnotherStyleChangesTheLook)
{
    const AcDbObjectId plain = bareStyle();
    draw(L"dimlinear\n0,0\n20,0\n10,5\n");
    AcDbObjectId block;
    {
        const AcDbObjectPointer<AcDbDimension> found(last(), AcDb::kForWrite);
        block = found->dimBlockId();
        EXPECT_EQ(found->setDimensionStyle(plain), Acad::eOk);
        EXPECT_EQ(found->dimBlockId(), block);
    }
    EXPECT_EQ(dimension(), "AcDbRotatedDimension 20 20.0000");
    EXPECT_EQ(picture().front(), "line 0,0.0625 0,5.18");
    EXPECT_EQ(picture().size(), 7u); // the line is broken now
}
