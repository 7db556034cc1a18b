#include "host/db/lwpolyline.h"
#include "host/db/polyline3d.h"
#include "host/db/spline.h"
#include "host/db/vertex.h"
#include "tests/support/drawing_text.h"

using host::DxfVersion;
using host::test::dxf;
using host::test::openText;
using host::test::StrokeText;

namespace {

constexpr std::string_view kHead = "0 LWPOLYLINE|5 A0|100 AcDbEntity|8 0|100 AcDbPolyline|";

std::string strokesOf(ReadDrawing& drawing, std::string_view handle)
{
    AcDbObjectPointer<AcDbEntity> entity(drawing.idOf(handle), AcDb::kForRead);
    StrokeText strokes;
    return entity && entity->strokes(strokes) ? strokes.text : "nothing";
}

} // namespace

TEST(Polyline, ConstantWidthOnlyWhenAllAgree)
{
    struct Case {
        std::string_view fields;
        Acad::ErrorStatus status;
        double width;
    };
    const Case cases[] = {
        {"90 2|70 0|10 0|20 0|10 5|20 0", Acad::eOk, 0.0},
        {"90 2|70 0|43 0.25|10 0|20 0|10 5|20 0", Acad::eOk, 0.25},
        {"90 2|70 0|10 0|20 0|40 2|41 2|10 5|20 0|40 2|41 2", Acad::eOk, 2.0},
        {"90 2|70 0|10 0|20 0|40 2|41 2|10 5|20 0|40 2|41 1", Acad::eInvalidInput, -1.0},
        {"90 2|70 0|10 0|20 0|40 2|41 2|10 5|20 0", Acad::eInvalidInput, -1.0},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.fields);
        ReadDrawing drawing = openText(std::string(kHead).append(row.fields));
        AcDbObjectPointer<AcDbPolyline> line(drawing.idOf("A0"), AcDb::kForRead);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        double width = -1.0;
        EXPECT_EQ(line->getConstantWidth(width), row.status);
        EXPECT_EQ(width, row.width);
    }
}

TEST(Polyline, SettersChangeTheirOwnTagsOnly)
{
    struct Case {
        std::string_view before;
        void (*change)(AcDbPolyline&);
        std::string_view after;
    };
    const Case cases[] = {
        {"90 2|70 128|43 1|10 0|20 0|10 5|20 0", [](AcDbPolyline& p) { p.setClosed(true); },
         "90 2|70 129|43 1|10 0|20 0|10 5|20 0"},
        {"90 2|70 1|10 0|20 0|10 5|20 0", [](AcDbPolyline& p) { p.setClosed(true); },
         "90 2|70 1|10 0|20 0|10 5|20 0"},
        {"90 2|70 0|10 0|20 0|40 2|41 2|42 0.5|10 5|20 0|40 1|41 1",
         [](AcDbPolyline& p) { p.setConstantWidth(3.0); },
         "90 2|70 0|43 3.0|10 0|20 0|42 0.5|10 5|20 0"},
        {"90 2|70 0|43 0.0|10 0|20 0|10 5|20 0", [](AcDbPolyline& p) { p.setElevation(7.0); },
         "90 2|70 0|43 0.0|38 7.0|10 0|20 0|10 5|20 0"},
        {"90 2|70 0|10 0|20 0|42 1|10 5|20 0|1001 MINE|1000 x",
         [](AcDbPolyline& p) {
             p.addVertexAt(2, {9, 9});
         },
         "90 3|70 0|10 0|20 0|42 1|10 5|20 0|10 9.0|20 9.0|1001 MINE|1000 x"},
        {"90 2|70 0|10 0|20 0|42 1|10 5|20 0", [](AcDbPolyline& p) { p.removeVertexAt(0); },
         "90 1|70 0|10 5|20 0"},
        {"90 2|70 0|10 0|20 0|10 5|20 0",
         [](AcDbPolyline& p) {
             p.setNormal({0, 0, -1});
         },
         "90 2|70 0|10 0|20 0|10 5|20 0|210 0.0|220 0.0|230 -1.0"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.after);
        ReadDrawing drawing = openText(std::string(kHead).append(row.before));
        {
            AcDbObjectPointer<AcDbPolyline> line(drawing.idOf("A0"), AcDb::kForWrite);
            ASSERT_EQ(line.openStatus(), Acad::eOk);
            row.change(*line);
        }
        EXPECT_EQ(drawing.record(drawing.idOf("A0")), dxf(std::string(kHead).append(row.after)));
    }
}

TEST(Polyline, RefusesWithoutWriteAccess)
{
    ReadDrawing drawing = openText(std::string(kHead) + "90 2|70 0|10 0|20 0|10 5|20 0");
    AcDbObjectPointer<AcDbPolyline> line(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(line.openStatus(), Acad::eOk);
    EXPECT_EQ(line->setClosed(true), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->setConstantWidth(2.0), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->addVertexAt(0, {1, 1}), Acad::eNotOpenForWrite);
    EXPECT_EQ(line->setConstantWidth(-1.0), Acad::eInvalidInput);
}

TEST(Polyline, DrawsBulgesAndClosingSegment)
{
    const std::pair<std::string, std::string> cases[] = {
        {"90 3|70 1|10 0|20 0|10 4|20 0|10 4|20 3", "closed 0,0 4,0 4,3\n"},
        {"90 3|70 0|38 2|10 0|20 0|10 4|20 0|10 4|20 3", "line 0,0,2 4,0,2 4,3,2\n"},
        // a half circle to the right of its chord, then straight back
        {"90 2|70 1|10 0|20 0|42 1|10 4|20 0", "arc 2,0 0,0 4,0\nline 4,0 0,0\n"},
        // seen from below, x runs the other way
        {"90 2|70 0|10 1|20 0|10 4|20 0|210 0|220 0|230 -1", "line -1,0 -4,0\n"},
    };
    for (const auto& [fields, strokes] : cases) {
        SCOPED_TRACE(fields);
        ReadDrawing drawing = openText(std::string(kHead) + fields);
        EXPECT_EQ(strokesOf(drawing, "A0"), strokes);
    }
}

TEST(OldPolyline, DrawsWhatItsVerticesSay)
{
    const std::string end = "|0 SEQEND|5 B0|8 0";
    const std::pair<std::string, std::string> cases[] = {
        {"0 POLYLINE|5 A0|8 0|66 1|10 0|20 0|30 5|70 1|0 VERTEX|5 A1|8 0|10 0|20 0|0 VERTEX|5 A2|8 "
         "0|10 3|20 0|0 VERTEX|5 A3|8 0|10 3|20 3",
         "closed 0,0,5 3,0,5 3,3,5\n"},
        // the frame of a splined one is not drawn
        {"0 POLYLINE|5 A0|8 0|66 1|70 4|0 VERTEX|5 A1|8 0|10 0|20 0|70 16|0 VERTEX|5 A2|8 0|10 "
         "1|20 "
         "0|70 8|0 VERTEX|5 A3|8 0|10 2|20 0|70 8",
         "line 1,0 2,0\n"},
        {"0 POLYLINE|5 A0|8 0|66 1|70 8|0 VERTEX|5 A1|8 0|10 0|20 0|30 1|70 32|0 VERTEX|5 A2|8 "
         "0|10 "
         "1|20 0|30 4|70 32",
         "line 0,0,1 1,0,4\n"},
        {"0 POLYLINE|5 A0|8 0|66 1|70 17|71 2|72 2|0 VERTEX|5 A1|8 0|10 0|20 0|70 64|0 VERTEX|5 "
         "A2|8 0|10 1|20 0|70 64|0 VERTEX|5 A3|8 0|10 0|20 1|70 64|0 VERTEX|5 A4|8 0|10 1|20 1|70 "
         "64",
         "line 0,0 1,0\nline 0,1 1,1\nclosed 0,0 0,1\nclosed 1,0 1,1\n"},
        // the edge behind a negative number is invisible; a face of three has no fourth
        {"0 POLYLINE|5 A0|8 0|66 1|70 64|71 3|72 1|0 VERTEX|5 A1|8 0|10 0|20 0|70 192|0 VERTEX|5 "
         "A2|8 0|10 1|20 0|70 192|0 VERTEX|5 A3|8 0|10 0|20 1|70 192|0 VERTEX|5 A4|8 0|10 0|20 "
         "0|70 128|71 1|72 -2|73 3",
         "line 0,0 1,0\nline 0,1 0,0\n"},
    };
    for (const auto& [records, strokes] : cases) {
        SCOPED_TRACE(records);
        ReadDrawing drawing = openText(records + end, DxfVersion::r12);
        EXPECT_EQ(strokesOf(drawing, "A0"), strokes);
    }
}

TEST(OldPolyline, GrowsAndEndsItsSequence)
{
    ReadDrawing drawing = openText("0 POLYLINE|5 A0|100 AcDbEntity|8 0|100 AcDb3dPolyline|70 8");
    {
        AcDbObjectPointer<AcDb3dPolyline> line(drawing.idOf("A0"), AcDb::kForWrite);
        ASSERT_EQ(line.openStatus(), Acad::eOk);
        for (const AcGePoint3d place : {AcGePoint3d(1, 2, 3), AcGePoint3d(4, 5, 6)}) {
            AcDbObjectPointer<AcDb3dPolylineVertex> vertex;
            vertex.acquire(new AcDb3dPolylineVertex(place));
            AcDbObjectId id;
            ASSERT_EQ(line->appendVertex(id, vertex.object()), Acad::eOk);
        }
        EXPECT_EQ(line->vertices(), (std::vector<AcGePoint3d>{{1, 2, 3}, {4, 5, 6}}));
    }
    const std::string written = drawing.written();
    const std::size_t first = written.find("0\nVERTEX\n");
    const std::size_t end = written.find("0\nSEQEND\n");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(end, std::string::npos);
    EXPECT_LT(written.find("0\nPOLYLINE\n"), first);
    EXPECT_LT(written.rfind("0\nVERTEX\n"), end);
    EXPECT_NE(written.find("66\n"), std::string::npos);
    ReadDrawing again(written);
    EXPECT_EQ(strokesOf(again, "A0"), "line 1,2,3 4,5,6\n");
}

TEST(Spline, ClosesThroughItsFitPoints)
{
    ReadDrawing drawing =
        openText("0 SPLINE|5 A0|100 AcDbEntity|8 0|100 AcDbSpline|210 0|220 0|230 1|70 8|71 3|74 "
                 "3|44 0.0001|11 0|21 0|31 0|11 4|21 0|31 0|11 4|21 3|31 0|1001 MINE|1000 x");
    AcDbObjectPointer<AcDbSpline> spline(drawing.idOf("A0"), AcDb::kForWrite);
    ASSERT_EQ(spline.openStatus(), Acad::eOk);
    EXPECT_FALSE(spline->isClosed());
    AcDbSpline::FitData fit;
    ASSERT_EQ(spline->getFitData(fit), Acad::eOk);
    ASSERT_EQ(fit.points.size(), 3u);
    EXPECT_EQ(fit.tolerance, 0.0001);
    ASSERT_EQ(spline->setClosedFitData(fit), Acad::eOk);
    EXPECT_TRUE(spline->isClosed());
    const std::optional<host::NurbsCurve> curve = spline->curve();
    ASSERT_TRUE(curve);
    EXPECT_TRUE(curve->isClosed(AcGeTol(1e-9, 1e-9)));
    for (const AcGePoint3d& p : fit.points)
        EXPECT_LT(curve->closestPoint(p).distanceTo(p), 1e-6);
    // the planar flag, the normal and the extended data are left
    const std::string record = drawing.record(drawing.idOf("A0"));
    EXPECT_NE(record.find("230\n1\n"), std::string::npos);
    EXPECT_NE(record.find("1001\nMINE\n"), std::string::npos);
    EXPECT_EQ(spline->setNurbsData({}), Acad::eInvalidInput);
}
