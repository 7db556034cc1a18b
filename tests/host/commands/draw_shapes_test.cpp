#include "host/db/dictionary.h"
#include "host/db/ellipse.h"
#include "host/db/face.h"
#include "host/db/image.h"
#include "host/db/line.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/polyline3d.h"
#include "host/db/ray.h"
#include "host/db/spline.h"
#include "host/db/sub_d_mesh.h"
#include "tests/support/drawn_entities.h"

namespace {

class DrawShapes : public DrawnTest {
protected:
    std::string text(AcDbObjectId id) override
    {
        if (const AcDbObjectPointer<AcDbEllipse> ellipse(id, AcDb::kForRead); ellipse)
            return plane(ellipse->center()) + " axis " +
                   plane(AcGePoint3d() + ellipse->majorAxis()) + " ratio " +
                   number(ellipse->radiusRatio()) + " " + degrees(ellipse->startParam()) + "-" +
                   degrees(ellipse->endParam());
        if (const AcDbObjectPointer<AcDb3dPolyline> path(id, AcDb::kForRead); path)
            return points(path->vertices()) + (path->isClosed() ? " closed" : "");
        if (const AcDbObjectPointer<AcDbFace> face(id, AcDb::kForRead); face)
            return faceText(*face);
        if (const AcDbObjectPointer<AcDbRay> ray(id, AcDb::kForRead); ray)
            return plane(ray->basePoint()) + " to " + plane(AcGePoint3d() + ray->unitDir());
        if (const AcDbObjectPointer<AcDbXline> line(id, AcDb::kForRead); line)
            return plane(line->basePoint()) + " along " + plane(AcGePoint3d() + line->unitDir());
        if (const AcDbObjectPointer<AcDbMline> lines(id, AcDb::kForRead); lines)
            return points(lines->vertices()) + (lines->closedMline() ? " closed" : "") + " x" +
                   number(lines->scale()) + " just " + std::to_string(lines->justification());
        if (const AcDbObjectPointer<AcDbWipeout> wipeout(id, AcDb::kForRead); wipeout)
            return points(wipeout->frame());
        if (const AcDbObjectPointer<AcDbMPolygon> polygon(id, AcDb::kForRead); polygon)
            return ringsText(*polygon);
        if (const AcDbObjectPointer<AcDbSubDMesh> mesh(id, AcDb::kForRead); mesh)
            return meshText(*mesh);
        const AcDbObjectPointer<AcDbEntity> other(id, AcDb::kForRead);
        return other ? other->recordName() : "nothing";
    }

    AcDbSpline::NurbsData nurbs()
    {
        AcDbSpline::NurbsData data;
        if (const AcDbObjectPointer<AcDbSpline> spline = last<AcDbSpline>(); spline)
            spline->getNurbsData(data);
        return data;
    }
    AcDbSpline::FitData fit()
    {
        AcDbSpline::FitData data;
        if (const AcDbObjectPointer<AcDbSpline> spline = last<AcDbSpline>(); spline)
            spline->getFitData(data);
        return data;
    }

    static std::string points(const std::vector<AcGePoint3d>& all)
    {
        std::string text;
        for (const AcGePoint3d& p : all)
            text += (text.empty() ? "" : " ") + space(p);
        return text;
    }

private:
    static std::string faceText(const AcDbFace& face)
    {
        std::string text;
        for (int i = 0; i < 4; ++i)
            text += (i ? " " : "") + space(face.vertexAt(i)) + (face.isEdgeVisibleAt(i) ? "" : "i");
        return text;
    }
    static std::string ringsText(const AcDbMPolygon& polygon)
    {
        std::string text = polygon.isSolidFill() ? "solid" : "open";
        for (const host::HatchLoop& ring : polygon.loops()) {
            text += " |";
            for (const host::BulgeVertex& v : ring.polyline)
                text += " " + number(v.point.x) + "," + number(v.point.y) +
                        (v.bulge != 0.0 ? "b" + number(v.bulge) : "");
        }
        return text;
    }
    static std::string meshText(const AcDbSubDMesh& mesh)
    {
        AcDbExtents box;
        for (const AcGePoint3d& p : mesh.vertices())
            box.addPoint(p);
        return space(box.minPoint()) + " " + space(box.maxPoint()) + " " +
               std::to_string(mesh.faces().size());
    }
};

} // namespace

TEST_F(DrawShapes, Ellipses)
{
    const Row rows[] = {
        {L"ellipse 0,0 10,0 3 ", "5,0 axis -5,0 ratio 0.6 0-360"},
        {L"ellipse 0,0 0,0 10,0 0 3 ", "5,0 axis -5,0 ratio 0.6 0-360"},
        {L"ellipse 0,0 10,0 4e-6 6e6 3 ", "5,0 axis -5,0 ratio 0.6 0-360"}, // too flat
        {L"ellipse c 1,1 5,1 1,3 ", "1,1 axis 4,0 ratio 0.5 0-360"},
        {L"ellipse c 0,0 2,0 4 ", "0,0 axis 0,4 ratio 0.5 0-360"}, // the second axis is longer
        {L"ellipse c 0,0 2,0 r 89.5 60 ", "0,0 axis 2,0 ratio 0.5 0-360"},
        {L"_.ellipse arc c 0,0 4,0 2 p 30 120 ", "0,0 axis 4,0 ratio 0.5 30-120"},
        {L"ellipse a c 0,0 4,0 2 0 90 ", "0,0 axis 4,0 ratio 0.5 0-90"},
        {L"ellipse a c 0,0 4,0 4 30 i 60 ", "0,0 axis 4,0 ratio 1 30-90"},
        {L"ellipse a c 0,0 4,0 2 0 2,2 ", "0,0 axis 4,0 ratio 0.5 0-63.434949"}, // tan p = 2
        {L"ellipse a c 0,0 2,0 4 0 90 ", "0,0 axis 0,4 ratio 0.5 270-360"},
        {L"ellipse a c 0,0 2,0 4 p 10 a 90 ", "0,0 axis 0,4 ratio 0.5 280-360"},
        {L"ellipse a c 0,0 2,0 1 p 350 i 20 ", "0,0 axis 2,0 ratio 0.5 350-370"},
    };
    expect(rows);
}

TEST_F(DrawShapes, RaysAndEndlessLines)
{
    const Row rows[] = {
        {L"ray 1,1 1,1 1,5 4,5\n\n", "1,1 to 0,1; 1,1 to 0.6,0.8"},
        {L"xline 0,0 3,4 -2,0\n\n", "0,0 along 0.6,0.8; 0,0 along -1,0"},
        {L"xline h 1,2\n\n", "1,2 along 1,0"},
        {L"xline ver 1,2 3,4\n\n", "1,2 along 0,1; 3,4 along 0,1"},
        {L"xline a 30 1,2\n\n", "1,2 along 0.866025,0.5"},
        {L"line 0,0 0,9\n\nxline ang r 0,4 30 1,2\n\n", "LINE; 1,2 along -0.5,0.866025"},
        {L"xline b 0,0 5,0 0,3\n\n", "0,0 along 0.707107,0.707107"},
        {L"xline b 0,0 5,0 -3,0\n\n", "0,0 along 0,1"}, // a straight angle
        {L"line 0,0 0,9\n\nxline o 2 0,4 5,5 0,4 -5,5 \x3", "LINE; 2,0 along 0,1; -2,0 along 0,1"},
        {L"line 0,0 0,9\n\nxline o t 0,4 5,5 \x3", "LINE; 5,0 along 0,1"},
    };
    expect(rows);
}

TEST_F(DrawShapes, PathsInSpaceAndFaces)
{
    const Row rows[] = {
        {L"3dpoly 0,0,1 1,0,2 1,1,3\n\n", "0,0,1 1,0,2 1,1,3"},
        {L"3dpoly 0,0,1 1,0,2 9,9 u 1,1,3 c ", "0,0,1 1,0,2 1,1,3 closed"},
        {L"3dpoly 0,0 u 0,0 1,0\n\n", "0,0,0 1,0,0"},
        {L"3dpoly 0,0\n\n", ""},
        {L"3dpoly 0,0 1,1,1 \x3", "0,0,0 1,1,1"},
        {L"3dface 0,0 1,0 1,1 0,1\n\n", "0,0,0 1,0,0 1,1,0 0,1,0"},
        {L"3dface 0,0 1,0 1,1\n\n\n", "0,0,0 1,0,0 1,1,0 1,1,0"},
        {L"3dface 0,0 0,0 1,0 2,0 1,1\n\n\n", "0,0,0 1,0,0 1,1,0 1,1,0"},
        {L"3dface 0,0 i 1,0 1,1 invisible 0,1\n\n", "0,0,0 1,0,0i 1,1,0 0,1,0i"},
        // the shared edge is hidden in both faces
        {L"3dface 0,0 1,0 i 1,1 0,1 0,2 1,2\n\n",
         "0,0,0 1,0,0 1,1,0i 0,1,0; 1,1,0i 0,1,0 0,2,0 1,2,0"},
        {L"3dface 0,0 1,0 1,1 0,1 0,2 \x3", "0,0,0 1,0,0 1,1,0 0,1,0"},
    };
    expect(rows);
}

TEST_F(DrawShapes, Multilines)
{
    const Row rows[] = {
        {L"mline 0,0 9,0\n\n", "0,0,0 9,0,0 x20 just 0"},
        {L"mline s 2 j z 0,0 9,0 9,9 c ", "0,0,0 9,0,0 9,9,0 closed x2 just 1"},
        {L"mline 0,0 9,0 5,5 u\n\n", "0,0,0 9,0,0 x2 just 1"}, // both are kept
        {L"mline _style nowhere\nstandard\nj b 0,0 9,0\n\n", "0,0,0 9,0,0 x2 just 2"},
        {L"mline 0,0\n\n", ""},
        {L"mline 0,0 1,0 \x3", "0,0,0 1,0,0 x2 just 2"},
        {L"mline s \x3", ""},
    };
    expect(rows);
}

TEST_F(DrawShapes, Wipeouts)
{
    const Row rows[] = {
        {L"wipeout 0,0 4,0 4,2\n\n", "0,0,0 4,0,0 4,2,0"},
        {L"wipeout 0,0 4,0 9,9 u 4,2 0,2 c ", "0,0,0 4,0,0 4,2,0 0,2,0"},
        {L"wipeout 0,0 4,0\n\n", ""},
        {L"wipeout 0,0 4,0 8,0 c ", ""}, // encloses nothing
        {L"wipeout 0,0 4,0 4,2 \x3", ""},
        {L"pline 0,0 4,0 4,2 c wipeout\n\n2,0 n ", "LWPOLYLINE; 0,0,0 4,0,0 4,2,0"},
        {L"pline 0,0 4,0 4,2 c wipeout p 2,0 y ", "0,0,0 4,0,0 4,2,0"},
        {L"pline 0,0 4,0 4,2\n\nwipeout p 2,0 \x3", "LWPOLYLINE"}, // it is open
    };
    expect(rows);
}

TEST_F(DrawShapes, FramesOfWipeoutsAreKeptInTheDrawing)
{
    const auto mode = [&] {
        const AcDbObjectPointer<AcDbDictionary> root(database().namedObjectsDictionaryId(),
                                                     AcDb::kForRead);
        AcDbObjectId id;
        if (root->getAt(L"ACAD_WIPEOUT_VARS", id) != Acad::eOk)
            return -1;
        const AcDbObjectPointer<AcDbObject> variables(id, AcDb::kForRead);
        return host::integerInRecord(variables->tags(), 70, -1);
    };
    EXPECT_EQ(mode(), -1);
    type(L"wipeout f off ");
    EXPECT_EQ(mode(), 0);
    type(L"wipeout frames d ");
    EXPECT_EQ(mode(), 2);
    type(L"wipeout f\n\n");
    EXPECT_EQ(mode(), 1);
}

TEST_F(DrawShapes, PolygonsOfRings)
{
    const Row rows[] = {
        {L"mpolygon 0,0 9,0 9,9\n\n\n", "solid | 0,0 9,0 9,9"},
        {L"mpolygon 0,0 9,0 9,9 c 5,1 7,1 7,3 c\n\n", "solid | 0,0 9,0 9,9 | 5,1 7,1 7,3"},
        {L"mpolygon 0,0 9,0 18,0 c\n\n", ""},
        {L"mpolygon 0,0 9,0 9,9 c \x3", ""},
        {L"circle 5,0 2 mpolygon s 7,0\n\n", "CIRCLE; solid | 7,0b1 3,0b1"},
        {L"pline 0,0 4,0 4,2\n\nmpolygon s 2,0\n\n", "LWPOLYLINE"},
    };
    expect(rows);
}

TEST_F(DrawShapes, RingsOfAPolylineSeenFromBelow)
{
    DxfDrawing drawing;
    drawing.entity(
        "LWPOLYLINE", "AcDbPolyline",
        "90\n3\n70\n1\n38\n2.0\n10\n0.0\n20\n0.0\n10\n-4.0\n20\n0.0\n42\n0.5\n10\n-4.0\n20\n4.0\n"
        "210\n0.0\n220\n0.0\n230\n-1.0\n");
    open(drawing);
    type(L"mpolygon\ns\n2,0\n\n");
    EXPECT_EQ(text(drawn().back()), "solid | 0,0 4,0b-0.5 4,4");
}

TEST_F(DrawShapes, Meshes)
{
    const Row rows[] = {
        {L"_.mesh box 1,1 3,4 5 ", "1,1,0 3,4,5 54"},
        {L"mesh b 1,1 3,4,5 ", "1,1,0 3,4,5 54"}, // the other corner is higher
        {L"mesh b c 0,0 2,3 8 ", "-2,-3,-4 2,3,4 54"},
        {L"mesh b 0,0 c 2 ", "0,0,0 2,2,2 54"},
        {L"mesh b 0,0 l 2 3 2p 0,0 0,4 ", "0,0,0 2,3,4 54"},
        {L"mesh w 0,0 4,2 -3 ", "0,0,-3 4,2,0 45"},
        {L"mesh cone 1,1 2 5 ", "-1,-1,0 3,3,5 48"},
        {L"mesh cone 1,1 d 4 t 1 5 ", "-1,-1,0 3,3,5 72"},
        {L"mesh cy 0,0 2 a 5,0 ", "0,-2,-2 5,2,2 72"}, // lies on its side
        {L"mesh cy 3p 2,0 0,2 -2,0 4 ", "-2,-2,0 2,2,4 72"},
        {L"mesh p 0,0 2 5 ", "-2,-2,0 2,2,5 72"},
        {L"mesh p s 2 4 e 0,0 4,0 t 1 3 ", "0,0,0 4,4,3 108"},
        {L"mesh s 1,1,1 3 ", "-2,-2,-2 4,4,4 72"},
        {L"mesh t 0,0 5 1 ", "-6,-6,-1 6,6,1 64"},
        {L"mesh t 0,0 5 d 4 ", "-7,-7,-2 7,7,2 64"},
        {L"mesh box 0,0 0,4 1,1 0 \x3", ""}, // no area, then no height
        {L"mesh \x3", ""},
    };
    expect(rows);
}

TEST_F(DrawShapes, SplinesThroughPoints)
{
    type(L"spline 0,0 2,2 9,9 u 4,0\n\n");
    EXPECT_EQ(points(fit().points), "0,0,0 2,2,0 4,0,0");
    EXPECT_FALSE(fit().tangentsExist);
    EXPECT_FALSE(last<AcDbSpline>()->isClosed());

    type(L"spline 0,0 t @0,3 2,2 l 0.5 4,0 c ");
    EXPECT_TRUE(last<AcDbSpline>()->isClosed());
    EXPECT_EQ(fit().tolerance, 0.5);

    type(L"spline 0,0 t @0,3 4,0 t @-1,0 ");
    EXPECT_EQ(space(AcGePoint3d() + fit().startTangent), "0,1,0");
    EXPECT_EQ(space(AcGePoint3d() + fit().endTangent), "-1,0,0");

    const std::size_t count = drawn().size();
    type(L"spline 0,0 4,0 \x3"
         L"spline 0,0\n\n"
         L"spline 0,0 1e308,0 -1e308,0\n\n");
    EXPECT_EQ(drawn().size(), count);
}

TEST_F(DrawShapes, SplinesByControlPoints)
{
    type(L"spline m cv 0,0 6,0 9,9 u 6,6 0,6\n\n");
    EXPECT_EQ(points(nurbs().controlPoints), "0,0,0 6,0,0 6,6,0 0,6,0");
    EXPECT_EQ(nurbs().knots, (std::vector<double>{0, 0, 0, 0, 1, 1, 1, 1}));
    type(L"spline d 2 0,0 6,0 6,6 c "); // the method stays
    EXPECT_EQ(nurbs().degree, 2);
    EXPECT_TRUE(nurbs().closed);
    EXPECT_EQ(points(nurbs().controlPoints), "0,0,0 6,0,0 6,6,0 0,0,0 6,0,0");
    type(L"spline method fit 0,0 1,1\n\n");
    EXPECT_EQ(points(fit().points), "0,0,0 1,1,0");
}

TEST_F(DrawShapes, LeadersWithText)
{
    const auto strokes = [&] {
        struct Lines : host::StrokeSink {
            std::string text;
            void polyline(std::span<const AcGePoint3d> all, bool) override
            {
                text += (text.empty() ? "" : "; ") + points({all.begin(), all.end()});
            }
            void textBox(const host::TextBox&) override {}
        } sink;
        if (const AcDbObjectPointer<AcDbMLeader> leader = last<AcDbMLeader>(); leader)
            leader->strokes(sink);
        return sink.text;
    };
    type(L"mleader\n0,0\n5,5\nTwo words\n");
    EXPECT_EQ(last<AcDbMLeader>()->contents(), L"Two words");
    EXPECT_EQ(strokes(), "5,5,0 13,5,0; 0,0,0 5,5,0"); // the style's landing is 8 long
    EXPECT_FALSE(last<AcDbMLeader>()->MLeaderStyle().isNull());

    type(L"mleader\nl\n5,5\n10,0\nFar\n"); // landing first, to the left of the arrow
    EXPECT_EQ(strokes(), "5,5,0 -3,5,0; 10,0,0 5,5,0");
    type(L"mleader\nc\n5,5\n9,9\nFirst the text\n0,0\n");
    EXPECT_EQ(last<AcDbMLeader>()->contents(), L"First the text");
    EXPECT_EQ(strokes(), "5,5,0 13,5,0; 0,0,0 5,5,0");

    type(L"mleader\no\na\ny\n2\nm\n3\nx\n0,0\n1,1\n5,5\nThree\n");
    EXPECT_EQ(strokes(), "5,5,0 7,5,0; 0,0,0 1,1,0 5,5,0");
    type(L"mleader\no\nc\nn\nx\n0,0\n5,5\n");
    EXPECT_EQ(last<AcDbMLeader>()->contents(), L"");

    const std::size_t count = drawn().size();
    type(L"mleader\n0,0\n\x3"
         L"mleader\n\n\x3");
    EXPECT_EQ(drawn().size(), count);
}
