#include "host/db/class_table.h"
#include "host/db/entity.h"
#include "host/db/proxy_entity.h"
#include "tests/support/drawing_text.h"

#include <set>

using host::DxfVersion;
using host::test::DrawingText;
using host::test::openText;

namespace {

std::string className(ReadDrawing& drawing, std::string_view handle)
{
    const AcDbObjectId id = drawing.idOf(handle);
    return id.isNull() ? "no such object" : host::toUtf8(id.objectClass()->name());
}

} // namespace

TEST(EntityClass, FollowsNameMarkersAndFlags)
{
    struct Case {
        std::string_view record;
        DxfVersion version;
        std::string_view name;
    };
    const Case cases[] = {
        {"0 LINE|5 A0|8 0|10 0|20 0|11 1|21 1", DxfVersion::r12, "AcDbLine"},
        {"0 3DLINE|5 A0|8 0|10 0|20 0|30 1|11 1|21 1|31 2", DxfVersion::r10, "AcDbLine"},
        {"0 TRACE|5 A0|8 0", DxfVersion::r12, "AcDbTrace"},
        {"0 SOLID|5 A0|8 0", DxfVersion::r12, "AcDbSolid"},
        {"0 DIMENSION|5 A0|8 0|70 0", DxfVersion::r12, "AcDbRotatedDimension"},
        {"0 DIMENSION|5 A0|8 0|70 33", DxfVersion::r12, "AcDbAlignedDimension"},
        {"0 DIMENSION|5 A0|8 0|70 34", DxfVersion::r12, "AcDb2LineAngularDimension"},
        {"0 DIMENSION|5 A0|8 0|70 131", DxfVersion::r12, "AcDbDiametricDimension"},
        {"0 DIMENSION|5 A0|8 0|70 4", DxfVersion::r12, "AcDbRadialDimension"},
        {"0 DIMENSION|5 A0|8 0|70 5", DxfVersion::r12, "AcDb3PointAngularDimension"},
        {"0 DIMENSION|5 A0|8 0|70 102", DxfVersion::r12, "AcDbOrdinateDimension"},
        // markers count more than the flags
        {"0 DIMENSION|5 A0|100 AcDbEntity|8 0|100 AcDbDimension|70 32|100 AcDbAlignedDimension|13 "
         "0|23 0|100 AcDbRotatedDimension",
         DxfVersion::r14, "AcDbRotatedDimension"},
        {"0 DIMENSION|5 A0|100 AcDbEntity|8 0|100 AcDbDimension|70 38|100 AcDbOrdinateDimension",
         DxfVersion::r14, "AcDbOrdinateDimension"},
        {"0 ARC_DIMENSION|5 A0|100 AcDbEntity|8 0|100 AcDbDimension|70 37|100 AcDbArcDimension|70 "
         "0",
         DxfVersion::r2018, "AcDbArcDimension"},
        {"0 INSERT|5 A0|8 0|2 B|10 0|20 0", DxfVersion::r12, "AcDbBlockReference"},
        {"0 INSERT|5 A0|8 0|2 B|10 0|20 0|70 1|71 1", DxfVersion::r12, "AcDbBlockReference"},
        {"0 INSERT|5 A0|8 0|2 B|10 0|20 0|71 3", DxfVersion::r12, "AcDbMInsertBlock"},
        {"0 INSERT|5 A0|100 AcDbEntity|8 0|100 AcDbMInsertBlock|2 B|70 2", DxfVersion::r2018,
         "AcDbMInsertBlock"},
        {"0 MPOLYGON|5 A0|100 AcDbEntity|8 0|100 AcDbMPolygon", DxfVersion::r2018, "AcDbMPolygon"},
        {"0 PDFUNDERLAY|5 A0|100 AcDbEntity|8 0", DxfVersion::r2018, "AcDbGenericEntity"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.record);
        ReadDrawing drawing = openText(row.record, row.version);
        EXPECT_EQ(className(drawing, "A0"), row.name);
    }
}

TEST(EntityClass, VerticesAreOfTheirPolylinesKind)
{
    struct Case {
        std::string_view flags; // of the polyline and of its vertex
        std::string_view vertexFlags;
        std::string_view polyline;
        std::string_view vertex;
    };
    const Case cases[] = {
        {"1", "0", "AcDb2dPolyline", "AcDb2dVertex"},
        {"4", "16", "AcDb2dPolyline", "AcDb2dVertex"},
        {"9", "32", "AcDb3dPolyline", "AcDb3dPolylineVertex"},
        {"48", "64", "AcDbPolygonMesh", "AcDbPolygonMeshVertex"},
        {"64", "192", "AcDbPolyFaceMesh", "AcDbPolyFaceMeshVertex"},
        {"64", "128", "AcDbPolyFaceMesh", "AcDbFaceRecord"},
    };
    for (const Case& row : cases) {
        SCOPED_TRACE(row.polyline);
        const std::string flags(row.flags);
        const std::string vertexFlags(row.vertexFlags);
        ReadDrawing drawing =
            openText("0 POLYLINE|5 A0|8 0|66 1|70 " + flags + "|0 VERTEX|5 A1|8 0|10 1|20 2|70 " +
                         vertexFlags + "|0 SEQEND|5 A2|8 0",
                     DxfVersion::r12);
        EXPECT_EQ(className(drawing, "A0"), row.polyline);
        EXPECT_EQ(className(drawing, "A1"), row.vertex);
        EXPECT_EQ(className(drawing, "A2"), "AcDbSequenceEnd");
    }
}

TEST(EntityClass, PolygonIsNoHatch)
{
    ReadDrawing drawing = openText("0 MPOLYGON|5 A0|100 AcDbEntity|8 0|100 AcDbMPolygon|2 SOLID");
    AcDbObjectPointer<AcDbEntity> entity(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(entity.openStatus(), Acad::eOk);
    EXPECT_STREQ(entity->isA()->myParent()->name(), L"AcDbEntity");
}

TEST(EntityClass, EachNameHasOneRowAndEachClassCanBeMade)
{
    std::set<std::string_view> names;
    for (const host::ClassRow& row : host::classTable()) {
        SCOPED_TRACE(row.dxfName);
        EXPECT_TRUE(names.insert(row.dxfName).second);
        const std::unique_ptr<AcRxObject> made(row.desc()->create());
        EXPECT_NE(AcDbObject::cast(made.get()), nullptr);
    }
}

TEST(EntityClass, ProxyTellsTheClassItStandsFor)
{
    const std::string text =
        "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1032\n0\nENDSEC\n" +
        ("0\nSECTION\n2\nCLASSES\n" +
         host::test::dxf("0 CLASS|1 FIRST|2 AcMine1|3 A|90 0|280 0|281 1|0 CLASS|1 SECOND|2 "
                         "AcMine2|3 B|90 0|280 0|281 1")) +
        "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n" +
        host::test::dxf("0 ACAD_PROXY_ENTITY|5 A0|100 AcDbEntity|8 0|100 AcDbProxyEntity|90 498|91 "
                        "501|0 ACAD_PROXY_ENTITY|5 A1|100 AcDbEntity|8 0|100 AcDbProxyEntity|90 "
                        "498|91 777") +
        "0\nENDSEC\n0\nEOF\n";
    ReadDrawing drawing(text);
    AcDbObjectPointer<AcDbProxyEntity> known(drawing.idOf("A0"), AcDb::kForRead);
    ASSERT_EQ(known.openStatus(), Acad::eOk);
    EXPECT_EQ(known->originalClassName(), L"AcMine2");
    EXPECT_EQ(known->originalDxfName(), L"SECOND");
    AcDbObjectPointer<AcDbProxyEntity> unlisted(drawing.idOf("A1"), AcDb::kForRead);
    ASSERT_EQ(unlisted.openStatus(), Acad::eOk);
    EXPECT_EQ(unlisted->originalClassName(), L"AcDbProxyEntity");
}
