#include "draw/finish_steps.h"

#include "draw/drawing_engine.h"
#include "draw/hatch_boundary.h"
#include "host/db/circle.h"
#include "host/db/dimension.h"
#include "host/db/hatch.h"
#include "host/db/lwpolyline.h"
#include "host/db/mleader.h"
#include "host/db/mline.h"
#include "host/db/mpolygon.h"
#include "host/db/polyline3d.h"
#include "host/db/spline.h"
#include "host/db/style_objects.h"
#include "host/db/symbol_tables.h"
#include "host/edit/system_variables.h"
#include "tests/support/drawing_test.h"
#include "tests/support/entity_bodies.h"

#include <fstream>
#include <numbers>

namespace {

const EntityBody kPoint{"POINT", "AcDbPoint", "10\n3.0\n20\n4.0\n30\n5.0\n"};
const EntityBody kLine{"LINE", "AcDbLine", kOrigin + "11\n1.0\n21\n0.0\n31\n0.0\n"};

std::string pathOf(int vertices)
{
    std::string fields = "90\n" + std::to_string(vertices) + "\n70\n0\n38\n2.0\n";
    for (int at = 0; at < vertices; ++at)
        fields +=
            "10\n" + std::to_string(at % 2 * 4) + ".0\n20\n" + std::to_string(at / 2 * 3) + ".0\n";
    return fields;
}

class FinishTest : public ObjectDrawingTest {
protected:
    // One entity, finished as the object that the lines describe.
    void finish(const EntityBody& entity, FinishStep step, const std::string& lines)
    {
        finish(std::vector<EntityBody>{entity}, step, lines);
    }
    void finish(const std::vector<EntityBody>& bodies, FinishStep step, const std::string& lines)
    {
        DxfDrawing drawing;
        drawing.layer("Walls");
        drawing.layer("Locked", 4);
        drawing.dimensionStyle("Plan");
        drawing.rootEntry("ACAD_MLEADERSTYLE", "F27");
        drawing.object("0\nDICTIONARY\n5\nF27\n330\nC\n100\nAcDbDictionary\n281\n1\n3\nCallout\n"
                       "350\nF29\n0\nMLEADERSTYLE\n5\nF29\n330\nF27\n100\nAcDbMLeaderStyle\n");
        drawing.block("Measure", 0,
                      "0\nDIMENSION\n5\nE3\n100\nAcDbEntity\n8\n0\n100\nAcDbDimension\n" +
                          kAligned.fields);
        drawing.block("Pair", 0,
                      "0\nLINE\n5\nE1\n100\nAcDbEntity\n8\n0\n100\nAcDbLine\n10\n0.0\n20\n0.0\n11\n"
                      "1.0\n21\n0.0\n0\nCIRCLE\n5\nE2\n100\nAcDbEntity\n8\n0\n62\n5\n100\n"
                      "AcDbCircle\n10\n0.0\n20\n0.0\n40\n1.0\n");
        std::string handle;
        for (const EntityBody& body : bodies)
            handle = body.addTo(drawing);
        open(drawing, "finish.dxf");
        const std::wstring printed = load("obj_name|Thing|1|5\nobj_type|Line\n"
                                          "obj_prop|layer|walls\nobj_prop|color|1\n" +
                                          lines + "od_name|THINGS\nod_key|NAME\n");
        EXPECT_FALSE(tells(printed, L"rror")) << host::toUtf8(printed);
        given = entities().front();
        step(::session().description->objects.at(L"thing"), given);
    }

    AcDbObjectId given; // the first of the entities
};

} // namespace

TEST_F(FinishTest, EveryStepGivesCommonPropertiesAndRecordsToAnyClass)
{
    for (const FinishStep step :
         {FinishObject, Finish3dPolyline, FinishDimension, FinishHatch, FinishMLeader, FinishMline,
          FinishMPolygon, FinishPolyline, FinishSpline, FinishCircleFromPoint}) {
        finish(kLine, step,
               "obj_prop|closed|1\nobj_prop|linetypescale|2\nobj_prop|lineweight|30\n");
        EXPECT_EQ(drawn(), (Looks{"Line Walls 1 THINGS"}));
        const auto line = opened<AcDbEntity>(last());
        EXPECT_EQ(line->linetypeScale(), 2.0);
        EXPECT_EQ(line->lineWeight(), 30);
    }
}

TEST_F(FinishTest, WhatCannotBeOpenedIsLeft)
{
    for (const FinishStep step :
         {FinishObject, FinishPolyline, FinishCircleFromPoint, FinishHatchBoundary}) {
        EntityBody locked = kPoint;
        locked.layer = "Locked";
        finish(locked, step, "");
        EXPECT_EQ(drawn(), (Looks{"Point Locked 256"}));
    }
}

TEST_F(FinishTest, AMultilineClosesButNeverOpens)
{
    finish(kClosedMline, FinishMline, "obj_prop|closed|0\nobj_prop|mlinescale|3\n");
    EXPECT_TRUE(opened<AcDbMline>(last())->closedMline());
    EXPECT_EQ(opened<AcDbMline>(last())->scale(), 3.0);
    EXPECT_EQ(opened<AcDbMline>(last())->justification(), Mline::kBottom);

    EntityBody open = kClosedMline;
    open.fields.replace(open.fields.find("71\n3"), 4, "71\n1");
    finish(open, FinishMline, "obj_prop|closed|1\nobj_prop|mlinejustification|Zero\n");
    EXPECT_TRUE(opened<AcDbMline>(last())->closedMline());
    EXPECT_EQ(opened<AcDbMline>(last())->justification(), Mline::kZero);
    EXPECT_EQ(look(last()), "Mline Walls 1 THINGS");
}

TEST_F(FinishTest, APolylineOpensToo)
{
    finish(kPath, FinishPolyline,
           "obj_prop|closed|0\nobj_prop|constantwidth|2\nobj_prop|elevation|7\n");
    const auto path = opened<AcDbPolyline>(last());
    double width = 0.0;
    EXPECT_FALSE(path->isClosed());
    EXPECT_EQ(path->getConstantWidth(width), Acad::eOk);
    EXPECT_EQ(width, 2.0);
    EXPECT_EQ(path->elevation(), 7.0);
}

TEST_F(FinishTest, APolylineInSpaceIsClosed)
{
    finish(kSpacePath, Finish3dPolyline, "obj_prop|closed|1\n");
    EXPECT_TRUE(opened<AcDb3dPolyline>(last())->isClosed());
}

TEST_F(FinishTest, StylesOfDimensionsAndLeaders)
{
    finish(kAligned, FinishDimension, "obj_prop|dimensionstyle|plan\n");
    EXPECT_EQ(opened<AcDbDimension>(last())->dimensionStyleName(), L"Plan");
    finish(kAligned, FinishDimension, "obj_prop|dimensionstyle|nowhere\n");
    EXPECT_EQ(look(last()), "Dimension Walls 1 THINGS");
    finish(kCallout, FinishMLeader, "obj_prop|mleaderstyle|callout\n");
    EXPECT_EQ(opened<AcDbMLeader>(last())->MLeaderStyle(), idOf("F29"));
    finish(kCallout, FinishMLeader, "obj_prop|mleaderstyle|nowhere\n");
    EXPECT_EQ(opened<AcDbMLeader>(last())->MLeaderStyle(), idOf("F28"));
}

TEST_F(FinishTest, AHatchGetsItsBackgroundAlone)
{
    finish(kHatch, FinishHatch,
           "obj_prop|backgroundcolor|3\nobj_prop|patternscale|9\nobj_prop|pattern|solid\n");
    EXPECT_EQ(opened<AcDbHatch>(last())->backgroundColor().colorIndex(), 3);
    EXPECT_EQ(opened<AcDbHatch>(last())->patternScale(), 2.0);
    EXPECT_EQ(opened<AcDbHatch>(last())->patternName(), L"ANSI31");
    finish(kHatch, FinishHatch, "obj_prop|backgroundcolor|none\n");
    EXPECT_TRUE(opened<AcDbHatch>(last())->backgroundColor().isNone());
}

TEST_F(FinishTest, APolygonGetsItsPattern)
{
    finish(kMPolygon, FinishMPolygon,
           "obj_prop|patternangle|90\nobj_prop|patterncolor|(9 8 7)\nobj_prop|patternscale|0.5\n"
           "obj_prop|pattern|ansi31\n");
    const auto polygon = opened<AcDbMPolygon>(last());
    EXPECT_NEAR(polygon->patternAngle(), std::numbers::pi / 2, 1e-12);
    EXPECT_EQ(polygon->patternScale(), 0.5);
    EXPECT_EQ(polygon->patternColor().green(), 8);
    EXPECT_EQ(polygon->patternName(), L"ANSI31");
    EXPECT_EQ(look(last()), "MPolygon Walls 1 THINGS");
}

TEST_F(FinishTest, ASplineStepWorksOnTheLastEntity)
{
    finish({kLine, kOpenSpline}, FinishSpline, "obj_prop|closed|1\n");
    EXPECT_EQ(drawn(), (Looks{"Line 0 256", "Spline Walls 1 THINGS"}));
    EXPECT_TRUE(opened<AcDbSpline>(last())->isClosed());
    finish({kOpenSpline}, FinishSpline, "obj_prop|closed|0\n");
    EXPECT_FALSE(opened<AcDbSpline>(last())->isClosed());
}

TEST_F(FinishTest, ACircleTakesThePlaceOfAPoint)
{
    finish(kPoint, FinishCircleFromPoint, "obj_prop|circleradius|2.5\n");
    EXPECT_EQ(drawn(), (Looks{"Circle Walls 1 THINGS"}));
    EXPECT_EQ(opened<AcDbCircle>(last())->center(), AcGePoint3d(3, 4, 5));
    EXPECT_EQ(opened<AcDbCircle>(last())->radius(), 2.5);
}

// ---- explosion ----

TEST_F(FinishTest, PartsOfAnExplosionAreTheObject)
{
    const EntityBody pair{"INSERT", "AcDbBlockReference", "2\nPair\n" + kOrigin};
    finish(pair, FinishObject, "obj_prop|explode|1\n");
    EXPECT_TRUE(given.isErased());
    EXPECT_EQ(drawn(), (Looks{"Line Walls 1 THINGS", "Circle Walls 1 THINGS"}));

    const EntityBody measure{"INSERT", "AcDbBlockReference", "2\nMeasure\n" + kOrigin};
    finish(measure, FinishObject, "obj_prop|explode|1\n");
    EXPECT_EQ(drawn(), (Looks{"Dimension Walls 1 THINGS"}));
    EXPECT_FALSE(opened<AcDbDimension>(last())->dimBlockId().isNull()); // it is seen

    EntityBody path = kPath;
    path.fields = pathOf(3);
    finish(path, FinishPolyline, "obj_prop|explode|1\nobj_prop|closed|1\n");
    EXPECT_EQ(drawn(), Looks(3, "Line Walls 1 THINGS"));
}

TEST_F(FinishTest, WhatHasNoPartsIsGone)
{
    finish(kLine, FinishObject, "obj_prop|explode|1\n");
    EXPECT_EQ(drawn(), Looks());
}

// ---- hatches in a boundary ----

TEST_F(FinishTest, ABoundaryIsClosedAndFilled)
{
    const EntityBody path{"LWPOLYLINE", "AcDbPolyline", pathOf(4)};
    finish(path, FinishHatchBoundary,
           "obj_prop|pattern|Ansi31\nobj_prop|patternangle|30\nobj_prop|patternscale|2\n"
           "obj_prop|backgroundcolor|(1 2 3)\n");
    EXPECT_EQ(drawn(), (Looks{"Polyline 0 256", "Hatch Walls 1 THINGS"}));
    EXPECT_TRUE(opened<AcDbPolyline>(given)->isClosed());
    EXPECT_EQ(opened<AcDbPolyline>(given)->persistentReactors(), std::vector{last()});

    const auto hatch = opened<AcDbHatch>(last());
    EXPECT_EQ(hatch->patternName(), L"ANSI31");
    EXPECT_NEAR(hatch->patternAngle(), std::numbers::pi / 6, 1e-12);
    EXPECT_EQ(hatch->patternScale(), 2.0);
    EXPECT_EQ(hatch->elevation(), 2.0);
    EXPECT_EQ(hatch->hatchStyle(), AcDbHatch::kNormal);
    EXPECT_EQ(hatch->backgroundColor().blue(), 3);
    EXPECT_TRUE(hatch->associative());
    EXPECT_EQ(hatch->getAssocObjIds(), std::vector{given});
    const std::vector<host::HatchLoop> loops = hatch->loops();
    ASSERT_EQ(loops.size(), 1u);
    EXPECT_EQ(loops[0].type, AcDbHatch::kExternal | AcDbHatch::kPolyline);
    ASSERT_EQ(loops[0].polyline.size(), 4u);
    EXPECT_EQ(loops[0].polyline[3].point, AcGePoint2d(4, 3));
    // at 45 and 30 degrees, 3.175 apart, twice
    ASSERT_EQ(hatch->patternLines().size(), 1u);
    EXPECT_NEAR(hatch->patternLines()[0].angle, std::numbers::pi * 75 / 180, 1e-9);
}

TEST_F(FinishTest, ABoundaryOfTwoVerticesLeavesNothing)
{
    const EntityBody path{"LWPOLYLINE", "AcDbPolyline", pathOf(2)};
    finish(path, FinishHatchBoundary, "obj_prop|pattern|solid\n");
    EXPECT_EQ(drawn(), Looks());
}

TEST_F(FinishTest, PatternsOfABoundary)
{
    const EntityBody path{"LWPOLYLINE", "AcDbPolyline", pathOf(3)};
    finish(path, FinishHatchBoundary, "obj_prop|pattern|Solid\nobj_prop|patternangle|30\n");
    EXPECT_TRUE(opened<AcDbHatch>(last())->isSolidFill());

    std::ofstream(folder() / "rails.pat") << "*RAILS\n0,0,0,0,1\n90,0,0,0,1\n";
    finish(path, FinishHatchBoundary, "obj_prop|pattern|rails\n");
    EXPECT_EQ(opened<AcDbHatch>(last())->patternLines().size(), 2u);
    EXPECT_EQ(opened<AcDbHatch>(last())->patternType(), AcDbHatch::kCustomDefined);
    EXPECT_EQ(opened<AcDbHatch>(last())->patternScale(), 1.0); // none given: the host's

    finish(path, FinishHatchBoundary, "obj_prop|pattern|nowhere\n");
    EXPECT_EQ(look(last()), "Hatch Walls 1 THINGS");
    EXPECT_EQ(opened<AcDbHatch>(last())->patternName(), L"");
}

TEST_F(FinishTest, OtherEntitiesOfABoundaryStay)
{
    finish(kLine, FinishHatchBoundary, "obj_prop|pattern|solid\n");
    EXPECT_EQ(drawn(), (Looks{"Line 0 256"}));
}
