#include "host/db/arc.h"
#include "host/db/circle.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/point_entity.h"
#include "tests/support/drawn_entities.h"

namespace {

class DrawCurves : public DrawnTest {
protected:
    std::string text(AcDbObjectId id) override
    {
        if (const AcDbObjectPointer<AcDbLine> line(id, AcDb::kForRead); line)
            return space(line->startPoint()) + " " + space(line->endPoint());
        if (const AcDbObjectPointer<AcDbPoint> point(id, AcDb::kForRead); point)
            return space(point->position());
        if (const AcDbObjectPointer<AcDbCircle> circle(id, AcDb::kForRead); circle)
            return space(circle->center()) + " r" + number(circle->radius());
        if (const AcDbObjectPointer<AcDbArc> arc(id, AcDb::kForRead); arc)
            return plane(arc->center()) + " r" + number(arc->radius()) + " " +
                   degrees(arc->startAngle()) + " to " + degrees(arc->endAngle());
        if (const AcDbObjectPointer<AcDbPolyline> pline(id, AcDb::kForRead); pline)
            return polyline(*pline);
        return "?";
    }
    static std::string polyline(const AcDbPolyline& pline)
    {
        std::string all;
        for (const host::BulgeVertex& v : pline.vertices()) {
            all += (all.empty() ? "" : " ") + number(v.point.x) + "," + number(v.point.y);
            if (v.bulge != 0.0)
                all += "b" + number(v.bulge);
            if (v.startWidth != 0.0 || v.endWidth != 0.0)
                all += "w" + number(v.startWidth) + "-" + number(v.endWidth);
        }
        return all + (pline.isClosed() ? " closed" : "");
    }
};

} // namespace

TEST_F(DrawCurves, Lines)
{
    const Row rows[] = {
        {L"line 0,0 3,4 @1,0\n\n", "0,0,0 3,4,0; 3,4,0 4,4,0"},
        {L"_.LINE 1,2,3 4,5,6\n\n", "1,2,3 4,5,6"},
        {L"line 0,0 1,0 1,1 c ", "0,0,0 1,0,0; 1,0,0 1,1,0; 1,1,0 0,0,0"},
        {L"line 0,0 1,0 c 1,1 CLOSE ", "0,0,0 1,0,0; 1,0,0 1,1,0; 1,1,0 0,0,0"}, // refused once
        {L"line 0,0 1,0 5,5 u @0,1\n\n", "0,0,0 1,0,0; 1,0,0 1,1,0"},
        {L"line 0,0 u 1,0 undo @2,0\n\n", "0,0,0 2,0,0"},
        {L"line 0,0 0,0 @ 2,0\n\n", "0,0,0 2,0,0"}, // no segment without a length
        {L"line 0,0 1,0\n\nline\n\n1,1\n\n", "0,0,0 1,0,0; 1,0,0 1,1,0"},
        {L"arc c 0,0 1,0 0,1\nline\n\n2\n\n", "0,0 r1 0 to 90; 0,1,0 -2,1,0"},
        {L"line\n\n0,0 1,0\n\n", "0,0,0 1,0,0"}, // nothing to continue
    };
    expect(rows);
}

TEST_F(DrawCurves, PointsAndCircles)
{
    const Row rows[] = {
        {L"point 1,2\n", "1,2,0"},
        {L"circle 1,2 5 ", "1,2,0 r5"},
        {L"circle 1,2,7 4,6,7 ", "1,2,7 r5"}, // the radius shown by a point
        {L"circle 1,2 d 5 ", "1,2,0 r2.5"},
        {L"circle 0,0 0 -1 3 ", "0,0,0 r3"},
        {L"circle 0,0 4 circle 9,0\n\n", "0,0,0 r4; 9,0,0 r4"}, // the last radius is offered
        {L"circle 0,0 3 circle 9,0 diameter\n\n", "0,0,0 r3; 9,0,0 r3"},
        {L"_.circle _2p 0,0 0,0 6,8 ", "3,4,0 r5"},
        {L"circle 2P 0,0,2 6,8 ", "3,4,2 r5"},
        {L"_circle _3p 7,1 5,5 -1,-3 ", "2,1,0 r5"},
        {L"circle 3p 0,0 0,0 2,0 4,0 2,2 ", "1,1,0 r1.414214"}, // refuses what gives no circle
        {L"line 0,0 9,0\n\nline 0,0 0,9\n\ncircle t 4,0 0,4 2 ",
         "0,0,0 9,0,0; 0,0,0 0,9,0; 2,2,0 r2"},
        {L"line 0,0 9,0\n\nline 0,5 9,5\n\ncircle ttr 5,9 4,0 4,5 1 ",
         "0,0,0 9,0,0; 0,5,0 9,5,0"}, // too small
        {L"pline 0,0 9,0 9,9\n\ncircle t 4,0 9,4 1 ", "0,0 9,0 9,9; 8,1,0 r1"},
    };
    expect(rows);
}

TEST_F(DrawCurves, Arcs)
{
    const Row rows[] = {
        {L"arc 1,0 0,1 -1,0 ", "0,0 r1 0 to 180"},
        {L"arc -1,0 0,1 1,0 ", "0,0 r1 0 to 180"}, // kept counter-clockwise
        {L"arc 0,0 0,0 1,1 2,2 2,0 ", "1,0 r1 0 to 180"},
        {L"arc 2,0 c 0,0 0,9 ", "0,0 r2 0 to 90"}, // the end gives the direction only
        {L"arc 2,0 c 0,0 a 45 ", "0,0 r2 0 to 45"},
        {L"arc 2,0 c 0,0 a -90 ", "0,0 r2 270 to 0"},
        {L"arc 2,0 c 0,0 angle 0 360 30 ", "0,0 r2 0 to 30"},
        {L"arc 2,0 c 0,0 l 9 2 ", "0,0 r2 0 to 60"}, // the first chord is too long
        {L"arc 2,0 c 0,0 length -2 ", "0,0 r2 0 to 300"},
        {L"arc c 5,5 5,5 8,5 5,9 ", "5,5 r3 0 to 90"},
        {L"arc 2,0 e 0,2 0,0 ", "0,0 r2 0 to 90"},
        {L"arc 2,0 e 0,2 a 90 ", "0,0 r2 0 to 90"},
        {L"arc 2,0 e 0,2 a -90 ", "2,2 r2 180 to 270"},
        {L"arc 2,0 e 0,2 d 90 ", "0,0 r2 0 to 90"},
        {L"arc 2,0 e 0,2 r 1 2 ", "0,0 r2 0 to 90"},
        {L"arc 2,0 e 0,2 r -2 ", "2,2 r2 270 to 180"},
        {L"line 0,0 2,0\n\narc\n\n2,2 ", "0,0,0 2,0,0; 2,1 r1 270 to 90"},
    };
    expect(rows);
}

TEST_F(DrawCurves, Polylines)
{
    const Row rows[] = {
        {L"pline 0,0 4,0 4,3\n\n", "0,0 4,0 4,3"},
        {L"pline 0,0 4,0 4,3 c ", "0,0 4,0 4,3 closed"},
        {L"pline 0,0 4,0 9,9 u 4,3 cl ", "0,0 4,0 4,3 closed"},
        {L"pline 0,0\n\n", ""},
        {L"pline 0,0 4,0 l 2\n\n", "0,0 4,0 6,0"},
        {L"pline 0,0 w 1 2 4,0 8,0\n\n", "0,0w1-2 4,0w2-2 8,0w2-2"},
        {L"pline 0,0 h 0 0 4,0\n\n", "0,0 4,0"},
        {L"pline 0,0 4,0 a 4,2\n\n", "0,0 4,0b1 4,2"}, // leaves along x
        {L"pline 0,0 4,0 a 4,2 l 0,2 a cl ", "0,0 4,0b1 4,2 0,2b1 closed"},
        {L"pline 0,0 a 0,2 cl ", "0,0b1 0,2b1 closed"},
        {L"pline 2,0 a ce 0,0 0,5\n\n", "2,0b0.414214 0,2"},
        {L"pline 2,0 a ce 0,0 a -90\n\n", "2,0b-0.414214 0,-2"},
        {L"pline 2,0 a a 90 0,2\n\n", "2,0b0.414214 0,2"},
        {L"pline 2,0 a a 90 ce 0,0\n\n", "2,0b0.414214 0,2"},
        {L"pline 0,0 a a 180 r 1 90\n\n", "0,0b1 0,2"},
        {L"pline 2,0 a d 90 0,2\n\n", "2,0b0.414214 0,2"},
        {L"pline 2,0 a r 2 0,2\n\n", "2,0b0.414214 0,2"},
        {L"pline 2,0 a r 1 a 180 135\n\n", "2,0b1 0.585786,1.414214"},
        {L"pline 1,0 a s 0,1 -1,0\n\n", "1,0b1 -1,0"},
        {L"pline 1,0 a s 0,0 -1,0 0,1\n\n", "1,0b-1 0,1"}, // not on a line
        {L"pline 0,0 a -3,0 0,2\n\n", "0,0b1 0,2"},        // straight back is no arc
    };
    expect(rows);
}

TEST_F(DrawCurves, WhatEscapeLeaves)
{
    const Row rows[] = {
        {L"line \x3", ""},
        {L"line 0,0 \x3", ""},
        {L"line 0,0 1,0 2,0 \x3", "0,0,0 1,0,0; 1,0,0 2,0,0"},
        {L"point \x3", ""},
        {L"circle 0,0 \x3", ""},
        {L"circle 3p 0,0 1,1 \x3", ""},
        {L"arc 0,0 1,1 \x3", ""},
        {L"arc 0,0 e 1,1 r \x3", ""},
        {L"pline 0,0 \x3", ""},
        {L"pline 0,0 1,0 2,2 \x3", "0,0 1,0 2,2"},
        {L"pline 0,0 1,0 a \x3", "0,0 1,0"},
        {L"pline 0,0 1,0 w 3 \x3", "0,0 1,0"},
        {L"pline 0,0 1,0 a r 3 \x3", "0,0 1,0"},
    };
    expect(rows);
}

TEST_F(DrawCurves, AskAsThePlatformDoes)
{
    type(L"");
    EXPECT_EQ(transcript(L"line\n0,0\n1,0\n1,1\n\n"),
              L"line\nSpecify first point: 0,0\nSpecify next point or [Undo]: 1,0\n"
              L"Specify next point or [Undo]: 1,1\nSpecify next point or [Close/Undo]: \n"
              L"Command: ");
    EXPECT_EQ(transcript(L"point\n0,0\n"), L"point\nCurrent point modes:  PDMODE=0  PDSIZE=0.0000\n"
                                           L"Specify a point: 0,0\nCommand: ");
    EXPECT_EQ(transcript(L"circle\n0,0\n2.5\ncircle\n0,0\nd\n\n"),
              L"circle\nSpecify center point for circle or [3P/2P/Ttr (tan tan radius)]: 0,0\n"
              L"Specify radius of circle or [Diameter]: 2.5\nCommand: circle\n"
              L"Specify center point for circle or [3P/2P/Ttr (tan tan radius)]: 0,0\n"
              L"Specify radius of circle or [Diameter] <2.5000>: d\n"
              L"Specify diameter of circle <5.0000>: \nCommand: ");
    EXPECT_EQ(transcript(L"pline\n0,0\nw\n1\n\n3,0\na\n\x3"),
              L"pline\nSpecify start point: 0,0\nCurrent line-width is 0.0000\n"
              L"Specify next point or [Arc/Halfwidth/Length/Undo/Width]: w\n"
              L"Specify starting width <0.0000>: 1\nSpecify ending width <1.0000>: \n"
              L"Specify next point or [Arc/Halfwidth/Length/Undo/Width]: 3,0\n"
              L"Specify next point or [Arc/Close/Halfwidth/Length/Undo/Width]: a\n"
              L"Specify endpoint of arc or [Angle/CEnter/CLose/Direction/Halfwidth/Line/Radius/"
              L"Second pt/Undo/Width]: *Cancel*\nCommand: ");
    EXPECT_EQ(transcript(L"arc\n0,0\nc\n0,0\n1,0\nl\n9\n\x3"),
              L"arc\nSpecify start point of arc or [Center]: 0,0\n"
              L"Specify second point of arc or [Center/End]: c\n"
              L"Specify center point of arc: 0,0\nThe points coincide.\n"
              L"Specify center point of arc: 1,0\n"
              L"Specify end point of arc or [Angle/chord Length]: l\n"
              L"Specify length of chord: 9\nThe chord is longer than the diameter.\n"
              L"Specify length of chord: *Cancel*\nCommand: ");
}

TEST_F(DrawCurves, TakeTheCurrentProperties)
{
    type(
        L"-layer\nnew\nWalls\nset\nWalls\n\ncecolor\n3\nceltscale\n2\nthickness\n4\nplinewid\n1\n");
    const wchar_t* const commands[] = {L"line 0,0 1,0\n\n", L"point 0,0\n", L"circle 0,0 1 ",
                                       L"arc 1,0 0,1 -1,0 ", L"pline 0,0 1,0\n\n"};
    for (const wchar_t* const typed : commands) {
        SCOPED_TRACE(host::toUtf8(typed));
        type(typed);
        const AcDbObjectPointer<AcDbEntity> entity = last<AcDbEntity>();
        ASSERT_TRUE(entity);
        EXPECT_EQ(entity->layer(), L"Walls");
        EXPECT_EQ(entity->colorIndex(), 3);
        EXPECT_EQ(entity->linetypeScale(), 2.0);
        const std::size_t thickness = host::findInRecord(entity->tags(), 39);
        ASSERT_NE(thickness, host::TagList::npos);
        EXPECT_EQ(entity->tags().real(thickness), 4.0);
    }
    double width = 0.0;
    EXPECT_EQ(last<AcDbPolyline>()->getConstantWidth(width), Acad::eOk);
    EXPECT_EQ(width, 1.0);
}
