#include "host/db/arc.h"
#include "host/db/circle.h"
#include "host/db/ellipse.h"
#include "host/db/image.h"
#include "host/db/ray.h"
#include "host/db/sub_d_mesh.h"
#include "tests/support/drawing_text.h"

#include <numbers>

using host::DxfVersion;
using host::test::dxf;
using host::test::openText;
using host::test::StrokeText;

namespace {

constexpr double kPi = std::numbers::pi;

} // namespace

TEST(EntityShapes, DrawThemselvesInTheWorld)
{
    const std::pair<std::string, std::string> cases[] = {
        {"0 LINE|5 A0|8 0|10 1|20 2|30 3|11 4|21 5|31 6", "line 1,2,3 4,5,6\n"},
        // a thick line is drawn at both ends of its thickness
        {"0 LINE|5 A0|8 0|39 2|10 1|20 2|11 4|21 5", "line 1,2 4,5\nline 1,2,2 4,5,2\n"},
        // the oldest files keep one elevation for flat entities
        {"0 LINE|5 A0|8 0|38 7|10 1|20 2|11 4|21 5", "line 1,2,7 4,5,7\n"},
        {"0 POINT|5 A0|8 0|10 1|20 2|30 3", "point 1,2,3\n"},
        {"0 ARC|5 A0|8 0|10 0|20 0|40 2|50 0|51 90", "arc 0,0 2,0 0,2\n"},
        {"0 ARC|5 A0|8 0|10 5|20 0|40 2|50 0|51 90|210 0|220 0|230 -1", "arc -5,0 -7,0 -5,2\n"},
        {"0 SOLID|5 A0|8 0|10 0|20 0|11 4|21 0|12 0|22 4|13 4|23 4", "fill 0,0 4,0 4,4 0,4\n"},
        {"0 3DFACE|5 A0|8 0|10 0|20 0|30 0|11 4|21 0|31 0|12 4|22 4|32 0|13 4|23 4|33 0",
         "line 0,0 4,0\nline 4,0 4,4\nline 4,4 0,0\n"},
        {"0 3DFACE|5 A0|8 0|10 0|20 0|30 0|11 4|21 0|31 0|12 4|22 4|32 0|13 0|23 4|33 0|70 5",
         "line 4,0 4,4\nline 0,4 0,0\n"},
        {"0 VIEWPORT|5 A0|8 0|10 10|20 5|30 0|40 8|41 4|68 1|69 2", "closed 6,3 14,3 14,7 6,7\n"},
        {"0 VIEWPORT|5 A0|8 0|10 10|20 5|30 0|40 8|41 4|68 1|69 1", ""},
    };
    for (const auto& [record, strokes] : cases) {
        SCOPED_TRACE(record);
        ReadDrawing drawing = openText(record, DxfVersion::r12);
        AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(entity.openStatus(), Acad::eOk);
        StrokeText drawn;
        EXPECT_TRUE(entity->strokes(drawn));
        EXPECT_EQ(drawn.text, strokes);
    }
}

TEST(EntityShapes, ArcReadsItsNormalFromEitherPart)
{
    const std::string circlePart =
        "0 ARC|5 A0|100 AcDbEntity|8 0|100 AcDbCircle|10 5|20 0|30 0|40 2";
    for (const std::string& tail : {std::string("|210 0|220 0|230 -1|100 AcDbArc|50 0|51 90"),
                                    std::string("|100 AcDbArc|50 0|51 90|210 0|220 0|230 -1")}) {
        SCOPED_TRACE(tail);
        ReadDrawing drawing = openText(circlePart + tail);
        AcDbObjectPointer<AcDbArc> arc(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(arc.openStatus(), Acad::eOk);
        EXPECT_EQ(arc->normal(), AcGeVector3d(0, 0, -1));
        EXPECT_TRUE(arc->center().isEqualTo({-5, 0, 0}));
        EXPECT_NEAR(arc->endAngle(), kPi / 2, 1e-15);
    }
}

TEST(Circle, RadiusIsOneTag)
{
    ReadDrawing drawing =
        openText("0 CIRCLE|5 A0|100 AcDbEntity|8 0|100 AcDbCircle|10 1|20 2|30 0|40 5.00");
    AcDbObjectPointer<AcDbCircle> circle(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(circle.openStatus(), Acad::eOk);
    EXPECT_EQ(circle->setRadius(-1.0), Acad::eInvalidInput);
    EXPECT_EQ(circle->setRadius(2.5), Acad::eOk);
    EXPECT_EQ(drawing.record(drawing.idOf("A0")),
              dxf("0 CIRCLE|5 A0|100 AcDbEntity|8 0|100 AcDbCircle|10 1|20 2|30 0|40 2.5"));
    EXPECT_EQ(circle->setNormal({0, 0, -1}), Acad::eOk);
    EXPECT_TRUE(circle->center().isEqualTo({1, 2, 0}));
}

TEST(Circle, NewOneStatesWhatEveryCircleStates)
{
    useDrawingFormat();
    const AcDbCircle circle({0, 0, 0}, AcGeVector3d::kZAxis, 0.0);
    for (const int code : {10, 20, 30, 40})
        EXPECT_NE(circle.tags().find(code), host::TagList::npos) << code;
}

TEST(Ellipse, AnglesFollowTheParameters)
{
    struct Case {
        std::string parameters;
        double ratio, start, end;
    };
    const Case cases[] = {
        {"|41 0|42 6.283185307179586", 0.5, 0.0, 2 * kPi},
        {"|41 0|42 3.141592653589793", 0.5, 0.0, kPi},
        {"|41 0.7853981633974483|42 2.356194490192345", 1.0, kPi / 4, 3 * kPi / 4},
        // tan(angle) is the ratio times tan(parameter)
        {"|41 0.7853981633974483|42 7.0685834705770345", 0.5, 0.4636476090008061,
         0.4636476090008061 + 2 * kPi},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.parameters);
        ReadDrawing drawing = openText(
            "0 ELLIPSE|5 A0|100 AcDbEntity|8 0|100 AcDbEllipse|10 1|20 2|30 0|11 4|21 0|31 "
            "0|210 0|220 0|230 1|40 " +
            std::to_string(row.ratio) + row.parameters);
        AcDbObjectPointer<AcDbEllipse> ellipse(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(ellipse.openStatus(), Acad::eOk);
        EXPECT_NEAR(ellipse->startAngle(), row.start, 1e-12);
        EXPECT_NEAR(ellipse->endAngle(), row.end, 1e-12);
        EXPECT_EQ(ellipse->isClosed(),
                  row.end - row.start > 6.2 && row.start == 0.0 ? true : row.end - row.start > 6.2);
    }
}

TEST(Xline, HasNoExtentsButIsDrawn)
{
    ReadDrawing drawing = openText("0 XLINE|5 A0|100 AcDbEntity|8 0|100 AcDbXline|10 1|20 2|30 "
                                   "0|11 0|21 1|31 0");
    AcDbObjectPointer<AcDbXline> line(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    AcDbExtents extents;
    EXPECT_EQ(line->getGeomExtents(extents), Acad::eInvalidExtents);
    StrokeText drawn;
    EXPECT_TRUE(line->strokes(drawn));
    EXPECT_EQ(drawn.text, "line 1,-999999998 1,2 1,1000000002\n");
}

TEST(Wipeout, FrameIsItsClipBoundaryInTheWorld)
{
    const std::string head =
        "0 WIPEOUT|5 A0|100 AcDbEntity|8 0|100 AcDbWipeout|90 0|10 10|20 20|30 "
        "0|11 4|21 0|31 0|12 0|22 4|32 0|13 1|23 1|340 0|70 7";
    const std::pair<std::string, std::string> cases[] = {
        {"|280 0", "closed 10,24 14,24 14,20 10,20\n"},
        {"|280 1|71 1|91 2|14 -0.5|24 -0.5|14 0|24 0.5", "closed 10,24 12,24 12,20 10,20\n"},
        {"|280 1|71 2|91 4|14 -0.5|24 0.5|14 0.5|24 0.5|14 0|24 -0.5|14 -0.5|24 0.5",
         "closed 10,20 14,20 12,24\n"},
    };
    for (const auto& [clip, strokes] : cases) {
        SCOPED_TRACE(clip);
        ReadDrawing drawing = openText(head + clip);
        AcDbObjectPointer<AcDbWipeout> wipeout(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(wipeout.openStatus(), Acad::eOk);
        StrokeText drawn;
        EXPECT_TRUE(wipeout->strokes(drawn));
        EXPECT_EQ(drawn.text, strokes);
    }
    AcDbWipeout made;
    const AcGePoint3d outline[] = {{0, 0, 0}, {8, 0, 0}, {2, 4, 0}};
    ASSERT_EQ(made.setOutline(outline), Acad::eOk);
    StrokeText drawn;
    made.strokes(drawn);
    EXPECT_EQ(drawn.text, "closed 0,0 8,0 2,4\n");
    EXPECT_EQ(made.setOutline({outline, 2}), Acad::eInvalidInput);
}

TEST(Mesh, EachEdgeIsDrawnOnce)
{
    useDrawingFormat();
    const AcGePoint3d corners[] = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
    AcDbSubDMesh mesh;
    ASSERT_EQ(mesh.setSubDMesh(corners, {{0, 1, 2}, {0, 2, 3}}), Acad::eOk);
    EXPECT_EQ(mesh.faces(), (std::vector<std::vector<int>>{{0, 1, 2}, {0, 2, 3}}));
    StrokeText drawn;
    EXPECT_TRUE(mesh.strokes(drawn));
    EXPECT_EQ(drawn.text, "line 0,0 1,0\nline 1,0 1,1\nline 0,0 1,1\nline 1,1 0,1\nline 0,0 0,1\n");
    EXPECT_EQ(mesh.setSubDMesh(corners, {{0, 1, 4}}), Acad::eInvalidInput);
}
